// The tax returns 303, 130 and 115 from the command line: the boxes, the draft as PDF, and the
// file for the tax authority, with the same filling, recalculation and checks as the screens.

#include "chart/Sectores.h"
#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/ImpresoraPintor.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "tax/Modelo115.h"
#include "tax/Modelo130.h"
#include "tax/Modelo303.h"

#include <functional>

namespace {

const QString AyudaComun = QStringLiteral(
    "  --casilla NN=VALOR     cambia una casilla como en la pantalla (se recalcula tras cada\n"
    "                         una); VALOR vacío deja la casilla vacía\n"
    "  --nif, --apellidos, --nombre   identificación (por defecto la de la empresa)\n"
    "  --forma-pago efectivo|adeudo   forma de pago del ingreso\n"
    "  --cuenta-cargo CUENTA  cuenta de adeudo, 20 cifras\n"
    "  --complementaria JUSTIFICANTE  declaración complementaria y su justificante anterior\n"
    "  --periodo P            sustituye el periodo deducido de las fechas\n"
    "  --lugar L, --fecha-firma FECHA  lugar y fecha de la firma (por defecto hoy)\n"
    "Salida: sin más opciones, todas las casillas (las vacías, vacías). Además:\n"
    "  --borrador --formato pdf --salida FICHERO   el borrador impreso\n"
    "  --fichero CARPETA      comprueba la declaración, genera el archivo para la Agencia\n"
    "                         Tributaria y lo copia en CARPETA; si una comprobación falla,\n"
    "                         muestra su mensaje y termina con código 1\n");

QDate FechaObligatoria(ContextoCli& c, const QString& nombre) {
    const QDate d = FechaOpcion(c, nombre, QDate());
    if (!d.isValid())
        throw Rechazo(QStringLiteral("Indique el periodo con --desde FECHA --hasta FECHA."));
    return d;
}

// "NN=VALOR": the box number and the value as typed.
std::pair<QString, QString> Asignacion(const QString& texto) {
    const qsizetype igual = texto.indexOf(u'=');
    if (igual <= 0)
        throw Rechazo(QStringLiteral("La casilla «%1» debe indicarse como NN=VALOR.").arg(texto));
    return {texto.left(igual).trimmed().toUpper(), texto.mid(igual + 1)};
}

int NumeroCasilla(const QString& nombre, int maximo) {
    bool ok = false;
    const int n = nombre.toInt(&ok);
    if (!ok || n < 1 || n > maximo)
        throw Rechazo(QStringLiteral("No existe la casilla %1.").arg(nombre));
    return n;
}

// The options every return shares, applied after the boxes, as the user fills them on the form.
template <class M> void Identidad(ContextoCli& c, M& m) {
    if (c.tiene(QStringLiteral("nif")))
        m.nif = TextoNif(c.opcion(QStringLiteral("nif")));
    if (c.tiene(QStringLiteral("apellidos")))
        m.apellidos =
            TextoNombre(c.opcion(QStringLiteral("apellidos")), CampoNombre::Apellidos, 30);
    if (c.tiene(QStringLiteral("nombre")))
        m.nombre = TextoNombre(c.opcion(QStringLiteral("nombre")), CampoNombre::Nombre, 15);
    if (c.tiene(QStringLiteral("periodo")))
        m.periodo = c.opcion(QStringLiteral("periodo")).trimmed().toUpper().left(2);
    const QString forma = c.opcion(QStringLiteral("forma-pago")).toLower();
    if (!forma.isEmpty()) {
        if (forma != QLatin1String("efectivo") && forma != QLatin1String("adeudo"))
            throw Rechazo(QStringLiteral("La forma de pago es efectivo o adeudo."));
        m.efectivo = forma == QLatin1String("efectivo");
        m.adeudo = forma == QLatin1String("adeudo");
    }
    if (c.tiene(QStringLiteral("cuenta-cargo")))
        m.cuentaCargo = CuentaDeTexto(c.opcion(QStringLiteral("cuenta-cargo")));
    if (c.tiene(QStringLiteral("complementaria"))) {
        m.complementaria = true;
        m.justificante = c.opcion(QStringLiteral("complementaria")).trimmed().left(13);
    }
    if (c.tiene(QStringLiteral("lugar")))
        m.firma.lugar = c.opcion(QStringLiteral("lugar")).trimmed().left(16);
    if (c.tiene(QStringLiteral("fecha-firma")))
        m.firma =
            FirmaDeFecha(FechaOpcion(c, QStringLiteral("fecha-firma"), QDate()), m.firma.lugar);
}

QString Numero(int n) {
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}

void Cabecera(ContextoCli& c, const QString& ejercicio, const QString& periodo, const QString& nif,
              const QString& apellidos, const QString& nombre) {
    ImprimirFilas(c.salida, {{QStringLiteral("Ejercicio"), ejercicio},
                             {QStringLiteral("Periodo"), periodo},
                             {QStringLiteral("NIF"), nif},
                             {QStringLiteral("Apellidos o razón social"), apellidos},
                             {QStringLiteral("Nombre"), nombre}});
}

// --borrador: the draft as PDF; --fichero: the checks and the file. Without either, nothing
// (the caller prints the boxes) and -1.
int Salidas(ContextoCli& c, const QString& titulo, const DibujoLibro& borrador,
            const std::function<std::optional<FalloModelo>(const ElegirCarpeta&,
                                                           ResultadoEntrega*)>& presentar) {
    if (c.bandera(QStringLiteral("borrador"))) {
        const QString formato = c.opcion(QStringLiteral("formato"), QStringLiteral("pdf"));
        if (formato.toLower() != QLatin1String("pdf"))
            throw Rechazo(QStringLiteral("El borrador sólo se imprime en pdf."));
        const QString salida = c.opcion(QStringLiteral("salida"));
        if (salida.isEmpty())
            throw Rechazo(QStringLiteral("Indique el fichero PDF con --salida FICHERO."));
        OpcionesPdf op;
        op.titulo = titulo;
        ImprimirPdf(salida, borrador, op);
        return 0;
    }
    if (c.tiene(QStringLiteral("fichero"))) {
        const QString carpeta = c.opcion(QStringLiteral("fichero"));
        ResultadoEntrega r = ResultadoEntrega::Cancelado;
        if (presentar([carpeta] { return carpeta; }, &r))
            return 1;
        return r == ResultadoEntrega::Copiado || r == ResultadoEntrega::Validado ? 0 : 1;
    }
    return -1;
}

QString FuenteBorrador(const ContextoCli& c) {
    return c.ajustes.leer(QStringLiteral("Valores"), QStringLiteral("NFImprimir"),
                          QStringLiteral("Arial"));
}
double TamanoBorrador(const ContextoCli& c) {
    return c.ajustes.leerNumero(QStringLiteral("Valores"), QStringLiteral("TFImprimir"), 9);
}

int modelo303(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    if (s.AnoActual < 2009)
        throw Rechazo(QStringLiteral("El modelo 303 se presenta desde el ejercicio 2009."));
    const QDate desde = FechaObligatoria(c, QStringLiteral("desde"));
    const QDate hasta = FechaObligatoria(c, QStringLiteral("hasta"));
    if (desde > hasta)
        throw Rechazo(MsgPeriodoInvertido);
    Modelo303 m;
    QList<LineaDesglose303> desglose;
    {
        Conexion con = AbrirDatos(s);
        m = Nuevo303(con, desde, hasta);
        Llenar303(con, m);
        desglose = Desglose303(con, desde, hasta);
    }
    for (const QString& a : c.opciones(QStringLiteral("casilla"))) {
        const auto [nombre, valor] = Asignacion(a);
        const int n = NumeroCasilla(nombre, 50);
        m[n] = LeerCasilla(valor);
        Recalcular303(m, n);
    }
    Identidad(c, m);
    const QString inscrito = c.opcion(QStringLiteral("inscrito")).toLower();
    if (!inscrito.isEmpty()) {
        if (inscrito != QLatin1String("si") && inscrito != QLatin1String("no"))
            throw Rechazo(QStringLiteral("Indique --inscrito si o --inscrito no."));
        m.inscritoSi = inscrito == QLatin1String("si");
        m.inscritoNo = !m.inscritoSi;
    }
    m.sinActividad = c.bandera(QStringLiteral("sin-actividad"));
    if (c.tiene(QStringLiteral("cuenta-devolucion")))
        m.cuentaDevolucion = CuentaDeTexto(c.opcion(QStringLiteral("cuenta-devolucion")));

    const int r = Salidas(
        c, QStringLiteral("Modelo 303"),
        [&](Impresora& imp, int) {
            DibujarBorrador303(imp, m, desglose, FuenteBorrador(c), TamanoBorrador(c));
        },
        [&](const ElegirCarpeta& elegir, ResultadoEntrega* res) {
            return Presentar303(s, m, c.dialogo, elegir, res);
        });
    if (r >= 0)
        return r;
    Cabecera(c, m.ejercicio, m.periodo, m.nif, m.apellidos, m.nombre);
    QList<QStringList> filas;
    for (int n = 1; n <= 50; ++n)
        filas.append({Numero(n), TextoCasilla(m[n])});
    filas.append({QStringLiteral("I"), TextoCasilla(m.importe)});
    ImprimirFilas(c.salida, filas);
    return 0;
}

QString SectorExistente(ContextoCli& c, const QString& nombre) {
    const QString n = nombre.trimmed();
    if (IdDeSector(c.sesion, n) == 0)
        throw Rechazo(QStringLiteral("No existe el sector %1.").arg(n));
    return n;
}

int modelo130(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    const QDate desde = FechaObligatoria(c, QStringLiteral("desde"));
    const QDate hasta = FechaObligatoria(c, QStringLiteral("hasta"));
    Actividades130 a;
    for (const QString& seccion : c.opciones(QStringLiteral("seccion"))) {
        const QString t = seccion.trimmed().toUpper();
        if (t == QLatin1String("I"))
            a.seccionI = true;
        else if (t == QLatin1String("II"))
            a.seccionII = true;
        else
            throw Rechazo(QStringLiteral("La sección es I o II."));
    }
    const QStringList sectoresI = c.opciones(QStringLiteral("sector-i"));
    const QStringList sectoresII = c.opciones(QStringLiteral("sector-ii"));
    if (sectoresI.size() > 2 || sectoresII.size() > 2)
        throw Rechazo(QStringLiteral("Cada sección admite dos sectores como mucho."));
    for (int i = 0; i < sectoresI.size(); ++i)
        a.sectoresI[i] = SectorExistente(c, sectoresI.at(i));
    for (int i = 0; i < sectoresII.size(); ++i)
        a.sectoresII[i] = SectorExistente(c, sectoresII.at(i));
    // Sectors name their section; with nothing named, section I.
    a.seccionI = a.seccionI || !sectoresI.isEmpty();
    a.seccionII = a.seccionII || !sectoresII.isEmpty();
    if (!a.seccionI && !a.seccionII)
        a.seccionI = true;
    if (const auto msg = ComprobarPeriodo130(a, desde, hasta))
        throw Rechazo(*msg);

    Modelo130 m;
    {
        Conexion con = AbrirDatos(s);
        m = Nuevo130(con, desde, hasta);
        Llenar130(con, m, a, c.dialogo);
    }
    for (const QString& asignacion : c.opciones(QStringLiteral("casilla"))) {
        const auto [nombre, valor] = Asignacion(asignacion);
        m[NumeroCasilla(nombre, 19)] = LeerCasilla(valor);
        Recalcular130(m, c.dialogo);
    }
    Identidad(c, m);
    m.aDeducir = c.bandera(QStringLiteral("a-deducir"));
    m.negativa = c.bandera(QStringLiteral("negativa"));

    const int r = Salidas(
        c, QStringLiteral("Modelo 130"),
        [&](Impresora& imp, int) {
            DibujarBorrador130(imp, m, FuenteBorrador(c), TamanoBorrador(c));
        },
        [&](const ElegirCarpeta& elegir, ResultadoEntrega* res) {
            return Presentar130(s, m, c.dialogo, elegir, res);
        });
    if (r >= 0)
        return r;
    Cabecera(c, m.ejercicio, m.periodo, m.nif, m.apellidos, m.nombre);
    QList<QStringList> filas;
    for (int n = 1; n <= 19; ++n)
        filas.append({Numero(n), TextoCasilla(m[n])});
    filas.append({QStringLiteral("I"), TextoCasilla(m.importe)});
    ImprimirFilas(c.salida, filas);
    return 0;
}

// A text option of the 115's identity block, cut to its field.
void Texto115(ContextoCli& c, const char* opcion, QString& campo, int largo) {
    const QString nombre = QString::fromLatin1(opcion);
    if (!c.tiene(nombre))
        return;
    const QString t = c.opcion(nombre).trimmed();
    for (const QChar ch : t)
        if (ch.category() == QChar::Other_Control)
            throw Rechazo(QStringLiteral("--%1 no admite caracteres de control.").arg(nombre));
    if (t.size() > largo)
        throw Rechazo(
            QStringLiteral("--%1 no puede tener más de %2 caracteres.").arg(nombre).arg(largo));
    campo = t.toUpper();
}

void Cifras115(ContextoCli& c, const char* opcion, QString& campo, int largo) {
    Texto115(c, opcion, campo, largo);
    for (const QChar ch : campo)
        if (!ch.isDigit())
            throw Rechazo(
                QStringLiteral("--%1 sólo admite cifras.").arg(QString::fromLatin1(opcion)));
}

int modelo115(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    const QDate desde = FechaObligatoria(c, QStringLiteral("desde"));
    const QDate hasta = FechaObligatoria(c, QStringLiteral("hasta"));
    if (const auto msg = ComprobarPeriodo115(desde, hasta))
        throw Rechazo(*msg);
    Modelo115 m;
    {
        Conexion con = AbrirDatos(s);
        m = Nuevo115(con, desde, hasta);
        Llenar115(con, m);
    }
    for (const QString& asignacion : c.opciones(QStringLiteral("casilla"))) {
        const auto [nombre, valor] = Asignacion(asignacion);
        if (NumeroCasilla(nombre, 5) == 1) {
            const QString t = valor.trimmed();
            for (const QChar ch : t)
                if (!ch.isDigit())
                    throw Rechazo(QStringLiteral("El número de perceptores sólo admite cifras."));
            if (t.size() > 6)
                throw Rechazo(QStringLiteral("El número de perceptores tiene 6 cifras como "
                                             "mucho."));
            m.perceptores = t;
            continue;
        } else {
            m[NumeroCasilla(nombre, 5)] = LeerCasilla(valor);
        }
        Recalcular115(m);
    }
    Identidad(c, m);
    Cifras115(c, "administracion", m.administracion, 5);
    Texto115(c, "siglas", m.siglas, 2);
    Texto115(c, "via", m.via, 17);
    Texto115(c, "numero", m.numero, 4);
    Texto115(c, "escalera", m.escalera, 2);
    Texto115(c, "piso", m.piso, 2);
    Texto115(c, "puerta", m.puerta, 2);
    Cifras115(c, "telefono", m.telefono, 9);
    Texto115(c, "municipio", m.municipio, 20);
    Texto115(c, "provincia", m.provincia, 15);
    Cifras115(c, "cpostal", m.cpostal, 5);

    const int r = Salidas(
        c, QStringLiteral("Modelo 115"),
        [&](Impresora& imp, int) {
            DibujarBorrador115(imp, m, FuenteBorrador(c), TamanoBorrador(c));
        },
        [&](const ElegirCarpeta& elegir, ResultadoEntrega* res) {
            return Presentar115(s, m, c.dialogo, elegir, res);
        });
    if (r >= 0)
        return r;
    Cabecera(c, m.ejercicio, m.periodo, m.nif, m.apellidos, m.nombre);
    QList<QStringList> filas{{QStringLiteral("01"), m.perceptores}};
    for (int n = 2; n <= 5; ++n)
        filas.append({Numero(n), TextoCasilla(m[n])});
    filas.append({QStringLiteral("I"), TextoCasilla(m.importe)});
    ImprimirFilas(c.salida, filas);
    return 0;
}

const AltaVerbo alta303{
    {QStringLiteral("modelo303"),
     QStringLiteral("declaración de IVA, modelo 303: casillas, borrador y archivo"),
     QStringLiteral("Uso: quilmar-cli modelo303 --desde FECHA --hasta FECHA [--casilla NN=VALOR "
                    "...]\n"
                    "        [--nif N] [--apellidos A] [--nombre N] [--inscrito si|no]\n"
                    "        [--forma-pago efectivo|adeudo] [--cuenta-devolucion CUENTA]\n"
                    "        [--cuenta-cargo CUENTA] [--sin-actividad]\n"
                    "        [--borrador --formato pdf --salida FICHERO | --fichero CARPETA]\n\n"
                    "Las casillas se llenan con los registros de IVA del periodo que van al "
                    "libro de IVA.\n"
                    "  --inscrito si|no       inscrito en el Registro de devolución mensual\n"
                    "  --cuenta-devolucion CUENTA  cuenta de la devolución, 20 cifras\n"
                    "  --sin-actividad        marca 'Sin actividad'\n") +
         AyudaComun,
     {QStringLiteral("borrador"), QStringLiteral("sin-actividad")},
     modelo303}};

const AltaVerbo alta130{
    {QStringLiteral("modelo130"),
     QStringLiteral("pago fraccionado del IRPF, modelo 130: casillas, borrador y archivo"),
     QStringLiteral("Uso: quilmar-cli modelo130 --desde FECHA --hasta FECHA [--seccion I|II ...]\n"
                    "        [--sector-i S ...] [--sector-ii S ...] [--casilla NN=VALOR ...]\n"
                    "        [--nif N] [--apellidos A] [--nombre N] [--a-deducir] [--negativa]\n"
                    "        [--forma-pago efectivo|adeudo] [--cuenta-cargo CUENTA]\n"
                    "        [--borrador --formato pdf --salida FICHERO | --fichero CARPETA]\n\n"
                    "  --seccion I|II         actividades de la sección I (estimación directa, "
                    "desde el 1 de\n"
                    "                         enero) o II (agrícolas, el trimestre); por "
                    "defecto la I\n"
                    "  --sector-i S, --sector-ii S  hasta dos sectores por sección\n"
                    "  --a-deducir            declaración a deducir en siguientes pagos "
                    "fraccionados\n"
                    "  --negativa             declaración negativa\n") +
         AyudaComun,
     {QStringLiteral("borrador"), QStringLiteral("a-deducir"), QStringLiteral("negativa")},
     modelo130}};

const AltaVerbo alta115{
    {QStringLiteral("modelo115"),
     QStringLiteral("retenciones de alquileres, modelo 115: casillas, borrador y archivo"),
     QStringLiteral("Uso: quilmar-cli modelo115 --desde FECHA --hasta FECHA [--casilla NN=VALOR "
                    "...]\n"
                    "        [--administracion CODIGO] [--nif N] [--apellidos A] [--nombre N]\n"
                    "        [--siglas S --via V --numero N --escalera E --piso P --puerta P]\n"
                    "        [--telefono T --municipio M --provincia P --cpostal CP]\n"
                    "        [--forma-pago efectivo|adeudo] [--cuenta-cargo CUENTA]\n"
                    "        [--borrador --formato pdf --salida FICHERO | --fichero CARPETA]\n\n"
                    "Las casillas 02 y 03 se llenan con los registros de alquiler del periodo "
                    "que cuentan\n"
                    "para el modelo 347; la 01 es el número de perceptores.\n"
                    "  --administracion CODIGO  código de la Administración, 5 cifras\n") +
         AyudaComun,
     {QStringLiteral("borrador")},
     modelo115}};

} // namespace
