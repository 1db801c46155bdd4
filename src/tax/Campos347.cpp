#include "tax/Campos347.h"

#include "platform/Errores.h"
#include "platform/Ficheros.h"
#include "store/Campos.h"

namespace {

// A field and the member of the summary, a party or a property that holds it.
template <class T> struct Enlace {
    Campo347 campo;
    QString T::*texto = nullptr;
    Casilla T::*importe = nullptr;
    bool T::*marca = nullptr;
};

template <class T>
Enlace<T> Texto(const char* nombre, const char* etiqueta, int ancho, Admite347 admite,
                QString T::*m) {
    return {{QString::fromUtf8(nombre), QString::fromUtf8(etiqueta), ancho, admite},
            m,
            nullptr,
            nullptr};
}
template <class T> Enlace<T> Importe(const char* nombre, const char* etiqueta, Casilla T::*m) {
    return {{QString::fromUtf8(nombre), QString::fromUtf8(etiqueta), 0, Admite347::Importe},
            nullptr,
            m,
            nullptr};
}
template <class T> Enlace<T> Marca(const char* nombre, const char* etiqueta, bool T::*m) {
    return {{QString::fromUtf8(nombre), QString::fromUtf8(etiqueta), 0, Admite347::Marca},
            nullptr,
            nullptr,
            m};
}

const QList<Enlace<Modelo347>>& EnlacesResumen() {
    using M = Modelo347;
    using A = Admite347;
    static const QList<Enlace<M>> r{
        Texto<M>("NIF", "N.I.F.", 9, A::Alfanumerico, &M::nif),
        Texto<M>("Nombre", "APELLIDOS Y NOMBRE, DENOMINACION O RAZON SOCIAL", 40, A::Mayusculas,
                 &M::nombre),
        Texto<M>("Telefono", "TELEFONO DE CONTACTO", 9, A::Cifras, &M::telefono),
        Texto<M>("Contacto", "APELLIDOS Y NOMBRE DE LA PERSONA DE CONTACTO", 40, A::Mayusculas,
                 &M::contacto),
        Texto<M>("Representante", "N.I.F. DEL REPRESENTANTE LEGAL", 9, A::Alfanumerico,
                 &M::representante),
        Texto<M>("Ejercicio", "Ejercicio", 4, A::Cifras, &M::ejercicio),
        Marca<M>("Impreso", "Impreso", &M::impreso),
        Marca<M>("Telematico", "Telemático", &M::telematico),
        Marca<M>("Complementaria", "Declaración complem.inclusión datos", &M::complementaria),
        Marca<M>("Modificacion", "Declaración complem.modif/anul.datos", &M::modificacion),
        Marca<M>("Sustitutiva", "Declaración sustitutiva . . . . . . . . . . . .", &M::sustitutiva),
        Texto<M>("Justificante", "Número identificativo de la declaración anterior", 13, A::Cifras,
                 &M::justificante),
        Texto<M>("NumDeclarados", "Número total de declarados", 9, A::Cifras, &M::numDeclarados),
        Importe<M>("TotalDeclarados", "Importe de las operaciones de los declarados",
                   &M::totalDeclarados),
        Texto<M>("NumInmuebles", "Número total de inmuebles", 9, A::Cifras, &M::numInmuebles),
        Importe<M>("TotalInmuebles", "Importe de las operaciones de los inmuebles",
                   &M::totalInmuebles),
    };
    return r;
}

const QList<Enlace<Declarado347>>& EnlacesDeclarado() {
    using D = Declarado347;
    using A = Admite347;
    static const QList<Enlace<D>> r{
        Texto<D>("NifDeclarado", "N.I.F. del declarado", 9, A::Alfanumerico, &D::nif),
        Texto<D>("NifRepresentante", "N.I.F. del representante", 9, A::Alfanumerico,
                 &D::nifRepresentante),
        Texto<D>("NombreDeclarado", "Apellidos y nombre, razón social o denominación del declarado",
                 40, A::Mayusculas, &D::nombre),
        Texto<D>("Provincia", "Provincia", 2, A::Cifras, &D::provincia),
        Texto<D>("Pais", "País", 2, A::Letras, &D::pais),
        Texto<D>("Clave", "Clave operación", 1, A::Clave, &D::clave),
        Importe<D>("Importe", "Importe de las operaciones", &D::importe),
        Marca<D>("Seguro", "Operación seguro", &D::seguro),
        Marca<D>("Arrendamiento", "Arrendamiento local negocio", &D::arrendamiento),
        Importe<D>("Metalico", "Importe percibido en metálico", &D::metalico),
        Texto<D>("AnoMetalico", "Ejercicio", 4, A::Cifras, &D::anoMetalico),
        Importe<D>("Transmisiones",
                   "Importe percibido por transmisiones de inmuebles sujetas a IVA",
                   &D::transmisiones),
    };
    return r;
}

const QList<Enlace<Inmueble347>>& EnlacesInmueble() {
    using I = Inmueble347;
    using A = Admite347;
    static const QList<Enlace<I>> r{
        Texto<I>("NifArrendatario", "N.I.F. del arrendatario", 9, A::Alfanumerico, &I::nif),
        Texto<I>("NifRepresentanteInm", "N.I.F. del representante", 9, A::Alfanumerico,
                 &I::nifRepresentante),
        Texto<I>("NombreArrendatario",
                 "Apellidos y nombre, razón social o denominación del arrendatario", 40,
                 A::Mayusculas, &I::nombre),
        Importe<I>("ImporteInm", "Importe de la operación", &I::importe),
        Texto<I>("Situacion", "Situación (Código)", 1, A::Situacion, &I::situacion),
        Texto<I>("Referencia", "Referencia catastral", 25, A::Alfanumerico, &I::referencia),
        Texto<I>("TipoVia", "Tipo  vía", 5, A::Mayusculas, &I::tipoVia),
        Texto<I>("Via", "Nombre de la vía pública", 50, A::Mayusculas, &I::via),
        Texto<I>("TipoNumero", "Tipo Nº", 3, A::TipoNumero, &I::tipoNumero),
        Texto<I>("NumeroCasa", "Nº Casa", 5, A::Cifras, &I::numero),
        Texto<I>("Calificador", "Calif.", 3, A::Calificador, &I::calificador),
        Texto<I>("Bloque", "Bloque", 3, A::Mayusculas, &I::bloque),
        Texto<I>("Portal", "Portal", 3, A::Mayusculas, &I::portal),
        Texto<I>("Escalera", "Escal.", 3, A::Mayusculas, &I::escalera),
        Texto<I>("Planta", "Planta", 3, A::Mayusculas, &I::planta),
        Texto<I>("Puerta", "Pta", 3, A::Mayusculas, &I::puerta),
        Texto<I>("Complemento", "Complemento domicilio (Ej.: Urbanización, Polígono Industrial...)",
                 40, A::Mayusculas, &I::complemento),
        Texto<I>("Localidad", "Localidad / Población (si es distinta de Municipio)", 30,
                 A::Mayusculas, &I::localidad),
        Texto<I>("Municipio", "Nombre del Municipio", 30, A::Mayusculas, &I::municipio),
        Texto<I>("CodMunicipio", "Cód.municipio", 5, A::Cifras, &I::codMunicipio),
        Texto<I>("ProvinciaInm", "Provincia", 30, A::Mayusculas, &I::provincia),
        Texto<I>("CodProvincia", "Cód.provincia", 2, A::Cifras, &I::codProvincia),
        Texto<I>("CPostal", "Cód. postal", 5, A::Cifras, &I::cpostal),
    };
    return r;
}

template <class T> QList<Campo347> SoloCampos(const QList<Enlace<T>>& enlaces) {
    QList<Campo347> r;
    for (const Enlace<T>& e : enlaces)
        r.append(e.campo);
    return r;
}

template <class T>
const Enlace<T>& BuscarEnlace(const QList<Enlace<T>>& enlaces, const QString& nombre) {
    for (const Enlace<T>& e : enlaces)
        if (e.campo.nombre == nombre)
            return e;
    throw ErrorQuilmar(QStringLiteral("No existe el campo %1 del modelo 347.").arg(nombre));
}

template <class T> QString Leer(const T& t, const Enlace<T>& e) {
    if (e.texto)
        return t.*e.texto;
    if (e.importe)
        return TextoCasilla(t.*e.importe);
    return t.*e.marca ? QStringLiteral("X") : QString();
}

template <class T> void Poner(T& t, const Enlace<T>& e, const QString& valor) {
    if (e.texto)
        t.*e.texto = valor;
    else if (e.importe)
        t.*e.importe = LeerCasilla(valor);
    else
        t.*e.marca = !valor.isEmpty();
}

// A line of a list: an existing one, or a new one right after the last.
template <class T>
void PonerEnLista(QList<T>& lista, int indice, const Enlace<T>& e, const QString& valor) {
    if (indice >= lista.size() && valor.isEmpty())
        return; // nothing typed: no new line
    if (indice < 0 || indice > lista.size())
        throw Rechazo(MsgRegistrosEnBlanco);
    if (indice == lista.size())
        lista.append(T{});
    Poner(lista[indice], e, valor);
}

bool EnCp1252(QChar c) {
    return c == u'?' || ACp1252(QString(c)) != "?";
}

QString Rehusado(const Campo347& campo, QChar c) {
    return QStringLiteral("El campo %1 no admite el carácter «%2».")
        .arg(campo.etiqueta, QString(c));
}

} // namespace

const QList<Campo347>& Campos347(Hoja347 hoja) {
    static const QList<Campo347> resumen = SoloCampos(EnlacesResumen());
    static const QList<Campo347> declarados = SoloCampos(EnlacesDeclarado());
    static const QList<Campo347> inmuebles = SoloCampos(EnlacesInmueble());
    switch (hoja) {
    case Hoja347::Resumen:
        return resumen;
    case Hoja347::Declarados:
        return declarados;
    case Hoja347::Inmuebles:
        break;
    }
    return inmuebles;
}

const Campo347* BuscarCampo347(Hoja347 hoja, const QString& nombre) {
    for (const Campo347& c : Campos347(hoja))
        if (c.nombre == nombre)
            return &c;
    return nullptr;
}

QStringList Valores347(Admite347 admite) {
    switch (admite) {
    case Admite347::TipoNumero:
        return {QStringLiteral("NUM"), QStringLiteral("KM."), QStringLiteral("S/N")};
    case Admite347::Calificador:
        return {QStringLiteral("BIS"), QStringLiteral("DUP"), QStringLiteral("MOD"),
                QStringLiteral("ANT")};
    default:
        return {};
    }
}

QChar Caracter347(QChar c, Admite347 admite) {
    const QChar m = c.toUpper();
    const bool digito = m >= u'0' && m <= u'9';
    const bool letra = m >= u'A' && m <= u'Z';
    switch (admite) {
    case Admite347::Mayusculas:
        if (TieneControles(QString(m)) || !EnCp1252(m))
            return {};
        return m;
    case Admite347::Alfanumerico:
        return digito || letra ? m : QChar();
    case Admite347::Cifras:
        return digito ? m : QChar();
    case Admite347::Letras:
        return letra ? m : QChar();
    case Admite347::Clave:
        return QStringLiteral("ABCDEFG").contains(m) ? m : QChar();
    case Admite347::Situacion:
        return QStringLiteral("1234").contains(m) ? m : QChar();
    case Admite347::TipoNumero:
    case Admite347::Calificador:
        for (const QString& v : Valores347(admite))
            if (v.contains(m))
                return m;
        return {};
    case Admite347::Marca:
        return m == u'X' ? m : QChar();
    case Admite347::Importe:
        return digito || m == u'-' || m == u'+' || m == u',' || m == u'.' ? m : QChar();
    }
    return {};
}

QString Mayusculas347(const QString& texto) {
    QString r = texto;
    for (QChar& c : r)
        c = c.toUpper();
    return r;
}

QString Texto347(const Campo347& campo, const QString& texto) {
    if (TieneControles(texto))
        throw Rechazo(QStringLiteral("El campo %1 no admite tabuladores, saltos de línea ni otros "
                                     "caracteres de control.")
                          .arg(campo.etiqueta));
    const QString t = texto.trimmed();
    switch (campo.admite) {
    case Admite347::Importe:
        return TextoCasilla(LeerCasilla(t));
    case Admite347::Marca:
        if (t.isEmpty())
            return {};
        if (t.compare(QLatin1String("X"), Qt::CaseInsensitive) != 0)
            throw Rechazo(QStringLiteral("El campo %1 sólo admite una X.").arg(campo.etiqueta));
        return QStringLiteral("X");
    case Admite347::TipoNumero:
    case Admite347::Calificador: {
        const QString m = t.toUpper();
        const QStringList valores = Valores347(campo.admite);
        if (!m.isEmpty() && !valores.contains(m))
            throw Rechazo(QStringLiteral("El campo %1 admite %2 o %3.")
                              .arg(campo.etiqueta, valores.mid(0, valores.size() - 1).join(", "),
                                   valores.last()));
        return m;
    }
    default:
        break;
    }
    QString r;
    for (const QChar c : t) {
        const QChar m = Caracter347(c, campo.admite);
        if (m.isNull())
            throw Rechazo(Rehusado(campo, c));
        r += m;
    }
    if (r.size() > campo.ancho)
        throw Rechazo(QStringLiteral("El campo %1 no puede tener más de %2 caracteres.")
                          .arg(campo.etiqueta)
                          .arg(campo.ancho));
    return r;
}

QString LeerCampo347(const Modelo347& m, Hoja347 hoja, int indice, const QString& campo) {
    switch (hoja) {
    case Hoja347::Resumen:
        return Leer(m, BuscarEnlace(EnlacesResumen(), campo));
    case Hoja347::Declarados: {
        const auto& e = BuscarEnlace(EnlacesDeclarado(), campo);
        return indice >= 0 && indice < m.declarados.size() ? Leer(m.declarados.at(indice), e)
                                                           : QString();
    }
    case Hoja347::Inmuebles:
        break;
    }
    const auto& e = BuscarEnlace(EnlacesInmueble(), campo);
    return indice >= 0 && indice < m.inmuebles.size() ? Leer(m.inmuebles.at(indice), e) : QString();
}

void PonerCampo347(Modelo347& m, Hoja347 hoja, int indice, const QString& campo,
                   const QString& texto) {
    switch (hoja) {
    case Hoja347::Resumen: {
        const auto& e = BuscarEnlace(EnlacesResumen(), campo);
        Poner(m, e, Texto347(e.campo, texto));
        return;
    }
    case Hoja347::Declarados: {
        const auto& e = BuscarEnlace(EnlacesDeclarado(), campo);
        PonerEnLista(m.declarados, indice, e, Texto347(e.campo, texto));
        return;
    }
    case Hoja347::Inmuebles:
        break;
    }
    const auto& e = BuscarEnlace(EnlacesInmueble(), campo);
    PonerEnLista(m.inmuebles, indice, e, Texto347(e.campo, texto));
}

QString LeerInmueble347(const Inmueble347& i, const QString& campo) {
    return Leer(i, BuscarEnlace(EnlacesInmueble(), campo));
}

void PonerInmueble347(Inmueble347& i, const QString& campo, const QString& texto) {
    const auto& e = BuscarEnlace(EnlacesInmueble(), campo);
    Poner(i, e, Texto347(e.campo, texto));
}
