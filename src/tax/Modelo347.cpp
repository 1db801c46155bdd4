#include "tax/Modelo347.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "tax/Campos347.h"

namespace {

const QString MsgPapelSociedad = QStringLiteral(
    "Si el declarante es una sociedad mercantil está obligado a presentar el modelo 347 por "
    "internet y no se genera en papel. Debe utilizar la opción de Envío telemático.");
const QString MsgDebeNombre347 = QStringLiteral(
    "Debe introducir los apellidos y nombre, si es persona física, o el nombre o razón social si "
    "es persona jurídica.");
const QString MsgPapelOTelematica =
    QStringLiteral("Tiene que indicar si la declaración se presenta en Papel o Telemáticamente.");
const QString MsgComplementariaYSustitutiva =
    QStringLiteral("Marque si la declaración es Complementaria o Sustitutiva, pero no las dos.");
const QString MsgComplementariaSinNumero =
    QStringLiteral("Si la declaración es complementaria debe consignar el nº de justificante de "
                   "la declaración anterior.");
const QString MsgSustitutivaSinNumero =
    QStringLiteral("Si la declaración es sustitutiva debe consignar el nº de justificante de la "
                   "declaración anterior.");
const QString MsgSinContacto =
    QStringLiteral("Debe consignar nombre y apellidos de la persona que firma la declaración o "
                   "persona de contacto.");
const QString MsgNumeroDeclarados =
    QStringLiteral("No coincide el número de Declarados de la Hoja resumen con los Declarados en "
                   "páginas interiores.");
const QString MsgTotalDeclarados =
    QStringLiteral("No coincide el Importe total de los Declarados en la Hoja resumen con la suma "
                   "de los importes de los Declarados en páginas interiores.");
const QString MsgNumeroInmuebles =
    QStringLiteral("No coincide el número de Inmuebles declarados de la Hoja resumen con los "
                   "Inmuebles declarados en páginas interiores.");
const QString MsgTotalInmuebles =
    QStringLiteral("No coincide el Importe total de los Inmuebles declarados en la Hoja resumen "
                   "con la suma de los importes de los Inmuebles declarados en páginas "
                   "interiores.");

// "<k> de la página <p>." of line `indice` of a list.
QString Donde(int indice, int porHoja) {
    return QStringLiteral("%1 de la página %2.")
        .arg(indice % porHoja + 1)
        .arg(indice / porHoja + 1);
}

int Entero(const QString& texto) {
    return texto.trimmed().toInt();
}

std::optional<Fallo347> Resumen(const QString& mensaje, const QString& campo) {
    return Fallo347{mensaje, Hoja347::Resumen, -1, campo};
}

} // namespace

int Hojas347(int cantidad, int porHoja) {
    return cantidad <= 0 ? 0 : (cantidad + porHoja - 1) / porHoja;
}

QString TextoHoja347(int hoja, int total) {
    return QStringLiteral("Hoja nº %1 / %2").arg(hoja).arg(total);
}

std::optional<QString> ComprobarPeriodo347(const QDate& desde, const QDate& hasta,
                                           const QString& limite, double& valor) {
    if (desde > hasta)
        return MsgPeriodoInvertido;
    if (desde.year() != hasta.year())
        return MsgFechasOtroAno;
    if (limite.trimmed().isEmpty())
        return MsgLimite347;
    const std::optional<double> v = LeerImporte(limite.trimmed());
    if (!v)
        return MsgImporteNoValido(limite.trimmed());
    valor = *v;
    return std::nullopt;
}

Modelo347 Nuevo347(Conexion& c, const QDate& desde, const QDate& hasta, double limite) {
    Modelo347 m;
    m.desde = desde;
    m.hasta = hasta;
    m.anoFechas = desde.year();
    m.limite = limite;
    m.ejercicio = QString::number(m.anoFechas);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NIF, Nombre FROM Empresa"));
    if (q.next()) {
        // The NIF as the file takes it: letters and digits only, nine at most.
        QString nif;
        for (const QChar ch : q.value(0).toString().toUpper())
            if ((ch >= u'A' && ch <= u'Z') || (ch >= u'0' && ch <= u'9'))
                nif += ch;
        m.nif = nif.left(9);
        QString nombre;
        for (const QChar ch : q.value(1).toString().trimmed())
            if (!Caracter347(ch, Admite347::Mayusculas).isNull())
                nombre += ch.toUpper();
        m.nombre = nombre.left(40).trimmed();
    }
    Reunir347(c, m);
    return m;
}

void Reunir347(Conexion& c, Modelo347& m) {
    m.declarados.clear();
    m.inmuebles.clear();
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT SUM(Base) AS TotalBase, SUM(Cuota) AS TotalCuota, MIN(TipOp) AS TP, "
                       "NCuenta, Cuenta, NIF, CodigoProv FROM ConDatosIVA "
                       "WHERE Fecha BETWEEN ? AND ? GROUP BY NCuenta, Cuenta, NIF, CodigoProv "
                       "ORDER BY NCuenta, Cuenta, NIF, CodigoProv"),
        {FechaISO(m.desde), FechaISO(m.hasta)});
    // The limit is compared as the amounts are, in single precision: an amount equal to it
    // stays out (3005.06 in single precision lies above 3005.06 in double).
    const double limite = ASimple(m.limite);
    double total = 0;
    while (q.next()) {
        const double importe = Centimos(q.value(0).toDouble() + q.value(1).toDouble());
        if (!(ASimple(importe) > limite))
            continue;
        Declarado347 d;
        d.ncuenta = q.value(3).toString().trimmed();
        d.clave = d.ncuenta.startsWith(u'2') ? QStringLiteral("A") : QStringLiteral("B");
        d.nombre = Mayusculas347(q.value(4).toString().trimmed()).left(40).trimmed();
        d.provincia = q.value(6).isNull() ? QStringLiteral("99") : q.value(6).toString().trimmed();
        if (!q.value(5).isNull())
            d.nif = q.value(5).toString().trimmed();
        const QString tp = q.value(2).toString();
        d.seguro = tp == QLatin1String("S");
        d.arrendamiento = tp == QLatin1String("A");
        d.importe = importe;
        total += importe;
        m.declarados.append(d);
    }
    m.numDeclarados = QString::number(m.declarados.size());
    m.totalDeclarados = Centimos(total);
    m.numInmuebles = QStringLiteral("0");
    m.totalInmuebles = 0.0;
}

std::optional<Fallo347> Comprobar347(Modelo347& m, int indice, Dialogo& d) {
    m.impreso = indice == 0;
    m.telematico = indice == 1;
    if (m.anoFechas != 2010)
        return Resumen(MsgModeloNoIncorporado(m.anoFechas), QStringLiteral("Ejercicio"));
    if (m.ejercicio.trimmed() != QString::number(m.anoFechas))
        return Resumen(MsgEjercicioDebeSer(m.anoFechas), QStringLiteral("Ejercicio"));
    const QString nif = m.nif.trimmed();
    if (nif.isEmpty())
        return Resumen(MsgDebeNif, QStringLiteral("NIF"));
    if (m.impreso && Entero(m.ejercicio) >= 2007 && !nif.at(0).isDigit())
        d.Informar(MsgPapelSociedad);
    if (m.nombre.trimmed().isEmpty())
        return Resumen(MsgDebeNombre347, QStringLiteral("Nombre"));
    if (m.impreso == m.telematico)
        return Resumen(MsgPapelOTelematica, QStringLiteral("Impreso"));
    const bool complementaria = m.complementaria || m.modificacion;
    if (complementaria && m.sustitutiva)
        return Resumen(MsgComplementariaYSustitutiva, QStringLiteral("Complementaria"));
    if (complementaria && m.justificante.trimmed().isEmpty())
        return Resumen(MsgComplementariaSinNumero, QStringLiteral("Justificante"));
    if (m.sustitutiva && m.justificante.trimmed().isEmpty())
        return Resumen(MsgSustitutivaSinNumero, QStringLiteral("Justificante"));
    if (m.contacto.trimmed().isEmpty())
        return Resumen(MsgSinContacto, QStringLiteral("Contacto"));

    while (!m.declarados.isEmpty() && m.declarados.last().Vacio())
        m.declarados.removeLast();
    double suma = 0;
    for (int i = 0; i < m.declarados.size(); ++i) {
        const Declarado347& p = m.declarados.at(i);
        const QString donde = Donde(i, DeclaradosPorHoja);
        auto fallo = [&](const QString& mensaje, const char* campo) {
            return std::optional<Fallo347>(
                Fallo347{mensaje, Hoja347::Declarados, i, QString::fromLatin1(campo)});
        };
        if (p.nif.trimmed().isEmpty())
            return fallo(QStringLiteral("Falta el NIF del Declarado ") + donde, "NifDeclarado");
        if (p.nombre.trimmed().isEmpty())
            return fallo(QStringLiteral("Falta el Nombre del Declarado ") + donde,
                         "NombreDeclarado");
        if (p.provincia.trimmed().size() < 2)
            return fallo(QStringLiteral("Es incorrecta la Provincia del Declarado ") + donde +
                             QStringLiteral(" Debe consignarse el código de la provincia, con dos "
                                            "dígitos, seguido de tres ceros. Si es extranjero se "
                                            "consignará 99 seguido del código del país."),
                         "Provincia");
        if (p.clave.trimmed().isEmpty())
            return fallo(QStringLiteral("Falta la Clave de Operación del Declarado ") + donde,
                         "Clave");
        if (Valor(p.importe) == 0)
            return fallo(QStringLiteral("Falta el Importe del Declarado ") + donde, "Importe");
        if (Valor(p.metalico) > 0 && Entero(p.anoMetalico) == 0)
            return fallo(QStringLiteral("Falta el Año del importe en metálico del Declarado ") +
                             donde,
                         "AnoMetalico");
        if (p.seguro && p.arrendamiento)
            return fallo(QStringLiteral("Marque sólo Operación de Seguro o Arrendamiento de Local "
                                        "en el Declarado ") +
                             donde,
                         "Seguro");
        suma += Valor(p.importe);
    }
    const QString standard = QStringLiteral("standard");
    if (Entero(m.numDeclarados) != m.declarados.size())
        return Resumen(MsgNumeroDeclarados, QStringLiteral("NumDeclarados"));
    if (Formato(Valor(m.totalDeclarados), standard) != Formato(suma, standard))
        return Resumen(MsgTotalDeclarados, QStringLiteral("TotalDeclarados"));

    double sumaInmuebles = 0;
    for (int i = 0; i < m.inmuebles.size(); ++i) {
        const Inmueble347& p = m.inmuebles.at(i);
        const QString donde = Donde(i, InmueblesPorHoja);
        auto fallo = [&](const QString& mensaje, const char* campo) {
            return std::optional<Fallo347>(
                Fallo347{mensaje, Hoja347::Inmuebles, i, QString::fromLatin1(campo)});
        };
        const QString nifInquilino = p.nif.trimmed();
        if (nifInquilino.isEmpty())
            return fallo(QStringLiteral("Falta el NIF del arrendatario del Inmueble ") + donde,
                         "NifArrendatario");
        bool arrendador = false;
        for (const Declarado347& dec : m.declarados)
            if (dec.clave.trimmed() == QLatin1String("B") && dec.arrendamiento &&
                dec.nif.trimmed() == nifInquilino)
                arrendador = true;
        if (!arrendador)
            return fallo(QStringLiteral("No hay ningún Declarado con clave 'B' y marca en "
                                        "'Arrendamiento local negocio' que tenga el mismo NIF que "
                                        "el arrendatario del Inmueble ") +
                             donde,
                         "NifArrendatario");
        if (p.nombre.trimmed().isEmpty())
            return fallo(QStringLiteral("Falta el Nombre del arrendatario del Inmueble ") + donde,
                         "NombreArrendatario");
        if (Valor(p.importe) == 0)
            return fallo(QStringLiteral("Falta el Importe anual del arrendamiento del Inmueble ") +
                             donde,
                         "ImporteInm");
        if (p.situacion.trimmed().isEmpty())
            return fallo(QStringLiteral("Falta la Situación del Inmueble ") + donde, "Situacion");
        if (p.codProvincia.trimmed().size() < 2)
            return fallo(QStringLiteral("Es incorrecta la Provincia del Inmueble ") + donde,
                         "CodProvincia");
        if (p.municipio.trimmed().isEmpty())
            return fallo(QStringLiteral("Falta el Municipio del Inmueble ") + donde, "Municipio");
        if (p.via.trimmed().isEmpty())
            return fallo(QStringLiteral("Falta la vía pública del Inmueble ") + donde, "Via");
        sumaInmuebles += Valor(p.importe);
    }
    if (Entero(m.numInmuebles) != m.inmuebles.size())
        return Resumen(MsgNumeroInmuebles, QStringLiteral("NumInmuebles"));
    if (Formato(Valor(m.totalInmuebles), standard) != Formato(sumaInmuebles, standard))
        return Resumen(MsgTotalInmuebles, QStringLiteral("TotalInmuebles"));
    return std::nullopt;
}
