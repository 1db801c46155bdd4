// Reconciliation from the command line: the lines of a subaccount with their ticks and groups,
// ticking, matching, cancelling a match and the verification of every group.

#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "journal/Casaciones.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "posting/Punteo.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"

namespace {

struct NombreVista {
    const char* nombre;
    VistaPunteo vista;
};

constexpr NombreVista Vistas[] = {
    {"todos", VistaPunteo::Todos},
    {"punteados", VistaPunteo::Punteados},
    {"no-punteados", VistaPunteo::NoPunteados},
    {"casados", VistaPunteo::CasadosTotalmente},
    {"parciales", VistaPunteo::CasadosParcialmente},
    {"no-casados", VistaPunteo::NoCasados},
};

QString nombresVista() {
    QStringList n;
    for (const NombreVista& v : Vistas)
        n << QString::fromLatin1(v.nombre);
    return n.join(QStringLiteral(", "));
}

// The lines named as NAS:NAP among the arguments.
QList<std::pair<long, long>> lineasDe(const ContextoCli& c, const QString& uso) {
    QList<std::pair<long, long>> r;
    for (const QString& p : c.posicionales) {
        const auto l = LeerNasNap(p);
        if (!l)
            throw Rechazo(
                QStringLiteral("«%1» no es un apunte: indíquelo como NAS:NAP (asiento y línea). %2")
                    .arg(p, uso));
        r << *l;
    }
    if (r.isEmpty())
        throw Rechazo(QStringLiteral("Indique los apuntes como NAS:NAP. %1").arg(uso));
    return r;
}

void imprimirLineas(ContextoCli& c, const QList<LineaPunteo>& lineas) {
    Rejilla r = RejillaPunteo();
    LlenarRejillaPunteo(lineas, r);
    QList<QStringList> filas{r.Titulos()};
    for (int f = 0; f < r.Filas(); ++f)
        filas << r.Fila(f);
    ImprimirFilas(c.salida, filas);
}

// A line with several starts to join: the command line names the start itself.
ElegirInicio elegirEnCli(ContextoCli& c) {
    return [&c](const QString&, const QList<LineaPunteo>& candidatos) -> std::optional<int> {
        QStringList n;
        for (const LineaPunteo& l : candidatos)
            n << QStringLiteral("%1:%2").arg(l.NAs).arg(l.NAp);
        c.dialogo.Informar(QStringLiteral("Hay varios Inicios para esta casación: %1. Indique el "
                                          "que quiere con quilmar-cli casar INICIO NAS:NAP.")
                               .arg(n.join(QStringLiteral(", "))));
        return std::nullopt;
    };
}

int punteo(ContextoCli& c) {
    if (c.posicionales.size() != 1)
        throw Rechazo(QStringLiteral("Indique la subcuenta: quilmar-cli punteo NCUENTA."));
    const QString formato = c.opcion(QStringLiteral("formato"), QStringLiteral("txt")).toLower();
    if (formato == QLatin1String("pdf"))
        throw Rechazo(QStringLiteral("El punteo no tiene libro impreso: elija txt, csv o xlsx."));
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    SeleccionPunteo sel;
    sel.ncuenta = c.posicionales.first().trimmed();
    sel.desde = FechaOpcion(c, QStringLiteral("desde"), s.FechaIniEj);
    sel.hasta = FechaOpcion(c, QStringLiteral("hasta"), s.FechaFinEj);
    if (sel.desde > sel.hasta)
        throw Rechazo(QStringLiteral("La fecha inicial debe ser menor o igual que la final."));
    const QString vista = c.opcion(QStringLiteral("vista"), QStringLiteral("todos")).toLower();
    bool conocida = false;
    for (const NombreVista& v : Vistas)
        if (vista == QLatin1String(v.nombre)) {
            sel.vista = v.vista;
            conocida = true;
        }
    if (!conocida)
        throw Rechazo(
            QStringLiteral("--vista no conoce '%1'. Elija una de: %2.").arg(vista, nombresVista()));
    Rejilla r = RejillaPunteo();
    {
        Conexion con = AbrirDatos(s);
        if (!con.existe(QStringLiteral("SELECT 1 FROM Cuentas WHERE NCuenta = ?"), {sel.ncuenta}))
            throw Rechazo(QStringLiteral("No existe la subcuenta %1.").arg(sel.ncuenta));
        LlenarRejillaPunteo(LeerLineasPunteo(con, sel), r);
    }
    LibroCli libro;
    libro.titulo = QStringLiteral("Punteo y Casación");
    libro.rejilla = [&] {
        return r;
    };
    const int codigo = SalidaLibroCli(c, libro);
    if (codigo == 0 && formato == QLatin1String("txt") &&
        c.opcion(QStringLiteral("salida")).isEmpty())
        for (const Rejilla::Total& t : r.Totales())
            c.salida << t.etiqueta << '\t' << t.valor << '\n';
    return codigo;
}

int puntear(ContextoCli& c) {
    const QList<std::pair<long, long>> lineas =
        lineasDe(c, QStringLiteral("quilmar-cli puntear NAS:NAP ... [--quitar]"));
    c.abrirEmpresa();
    const bool quitar = c.bandera(QStringLiteral("quitar"));
    if (!Punteo(c.sesion, c.dialogo).FijarPunteo(lineas, !quitar))
        return 1;
    c.salida << (quitar ? QStringLiteral("Quitado el punteo de %1 apuntes.\n")
                        : QStringLiteral("Punteados %1 apuntes.\n"))
                    .arg(lineas.size());
    return 0;
}

int casar(ContextoCli& c) {
    const bool soloFinal = c.bandera(QStringLiteral("final"));
    const bool documento = c.bandera(QStringLiteral("documento"));
    c.abrirEmpresa();
    Punteo p(c.sesion, c.dialogo);
    if (documento && c.posicionales.isEmpty()) {
        SeleccionPunteo sel;
        sel.ncuenta = c.opcion(QStringLiteral("subcuenta")).trimmed();
        sel.desde = FechaOpcion(c, QStringLiteral("desde"), QDate());
        sel.hasta = FechaOpcion(c, QStringLiteral("hasta"), QDate());
        const int n = p.CasarTodosPorDocumento(sel);
        if (n < 0)
            return 1;
        c.salida << QStringLiteral("Casados por documento %1 apuntes.\n").arg(n);
        return 0;
    }
    const QString uso = QStringLiteral(
        "quilmar-cli casar INICIO NAS:NAP ... | casar --final NAS:NAP | casar --documento "
        "[NAS:NAP]");
    const QList<std::pair<long, long>> lineas = lineasDe(c, uso);
    QList<LineaPunteo> grupo;
    if (soloFinal || documento) {
        if (lineas.size() != 1)
            throw Rechazo(
                QStringLiteral("Con --final o --documento indique un solo apunte. %1").arg(uso));
        grupo = p.ComoFinal(lineas.first().first, lineas.first().second, elegirEnCli(c), documento);
    } else {
        grupo = p.Casar(lineas);
    }
    if (grupo.isEmpty())
        return 1;
    imprimirLineas(c, grupo);
    return 0;
}

int anularCasacion(ContextoCli& c) {
    const QList<std::pair<long, long>> lineas =
        lineasDe(c, QStringLiteral("quilmar-cli anular-casacion NAS:NAP --si"));
    if (lineas.size() != 1)
        throw Rechazo(QStringLiteral("Indique un solo apunte: quilmar-cli anular-casacion NAS:NAP "
                                     "--si"));
    c.abrirEmpresa();
    const QList<LineaPunteo> r =
        Punteo(c.sesion, c.dialogo).Anular(lineas.first().first, lineas.first().second);
    if (r.isEmpty())
        return 1;
    imprimirLineas(c, r);
    return 0;
}

int comprobarCasaciones(ContextoCli& c) {
    c.abrirEmpresa();
    const int n = Punteo(c.sesion, c.dialogo).CompCasa();
    if (n < 0)
        return 1;
    c.salida << MsgProcesoTerminado << '\n' << QStringLiteral("Apuntes corregidos: %1\n").arg(n);
    return 0;
}

const AltaVerbo altaPunteo{
    {QStringLiteral("punteo"),
     QStringLiteral("los apuntes de una subcuenta con su punteo y su casación"),
     QStringLiteral(
         "Uso: quilmar-cli punteo NCUENTA [--desde FECHA --hasta FECHA] [--vista VISTA]\n"
         "        [--formato txt|csv|xlsx] [--salida FICHERO]\n\n"
         "VISTA es una de: %1 (por defecto todos).\n"
         "Columnas: Nº As., NAp, Fecha, NCuenta, Cuenta, Concepto, Debe, Haber, Documento,\n"
         "Punteo (X si está punteado), Casación (Inicio, Casado parcialmente, Inicio (casado),\n"
         "Casado totalmente) y Grupo (la clave de la casación). En txt por la salida estándar\n"
         "siguen las sumas del Debe y del Haber, de todos y de los punteados.\n")
         .arg(nombresVista()),
     {},
     punteo}};

const AltaVerbo altaPuntear{
    {QStringLiteral("puntear"),
     QStringLiteral("puntea apuntes, o les quita el punteo"),
     QStringLiteral("Uso: quilmar-cli puntear NAS:NAP ... [--quitar]\n\n"
                    "Marca como punteados los apuntes indicados (asiento y línea), o con\n"
                    "--quitar les quita la marca. Todos o ninguno."),
     {QStringLiteral("quitar")},
     puntear}};

const AltaVerbo altaCasar{
    {QStringLiteral("casar"),
     QStringLiteral("casa apuntes de una subcuenta"),
     QStringLiteral(
         "Uso: quilmar-cli casar INICIO [NAS:NAP ...]\n"
         "     quilmar-cli casar --final NAS:NAP\n"
         "     quilmar-cli casar --documento [NAS:NAP] [--subcuenta N --desde F --hasta F]\n\n"
         "El primer apunte es el Inicio de la casación (se marca si no está en ninguna; si\n"
         "es un Inicio abierto, admite más apuntes) y los demás se le unen: tienen que ser de\n"
         "la misma subcuenta y del lado contrario. Todo o nada. Cuando la suma del grupo es\n"
         "cero, el grupo queda casado totalmente.\n"
         "  --final      une el apunte al Inicio abierto de su subcuenta del lado contrario\n"
         "  --documento  lo mismo, sólo con Inicios de su Documento; sin apunte, une así\n"
         "               todos los apuntes con Documento sin casar (de --subcuenta y las\n"
         "               fechas, si se dan) al primer Inicio de su Documento\n"
         "Muestra el grupo como queda."),
     {QStringLiteral("final"), QStringLiteral("documento")},
     casar}};

const AltaVerbo altaAnularCasacion{
    {QStringLiteral("anular-casacion"),
     QStringLiteral("saca un apunte de su casación"),
     QStringLiteral("Uso: quilmar-cli anular-casacion NAS:NAP --si\n\n"
                    "Saca el apunte de su casación; el resto del grupo queda casado totalmente o\n"
                    "parcialmente según su suma. Muestra el apunte y el resto del grupo."),
     {},
     anularCasacion}};

const AltaVerbo altaComprobarCasaciones{
    {QStringLiteral("comprobar-casaciones"),
     QStringLiteral("revisa el estado de todas las casaciones"),
     QStringLiteral("Uso: quilmar-cli comprobar-casaciones\n\n"
                    "Vuelve a calcular la suma de cada casación y corrige las marcas de sus\n"
                    "apuntes: casados totalmente si suma cero, parcialmente si no."),
     {},
     comprobarCasaciones}};

} // namespace
