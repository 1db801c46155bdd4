// Due dates from the command line: the list with its total (or printed), adding one, changing
// its state, deleting one, and the purges of the screen's menu.

#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "posting/Contabilizar.h"
#include "posting/ImpresionVencimientos.h"
#include "posting/ListaVencimientos.h"
#include "posting/Vencimientos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <optional>

namespace {

// A value of a list given on the command line, in the register's spelling; refused with the
// list when it names none.
QString deLista(const QStringList& lista, const QString& opcion, const QString& valor) {
    const QString n = NombreDeLista(lista, valor);
    if (n.isEmpty())
        throw Rechazo(QStringLiteral("--%1 «%2» no es válido: elija %3.")
                          .arg(opcion, valor.trimmed(), lista.join(QStringLiteral(", "))));
    return n;
}

// A subaccount of the chart of the open exercise; refused when there is none.
void existeSubcuenta(Sesion& s, const QString& ncuenta) {
    Conexion c = AbrirDatos(s);
    if (!c.existe(QStringLiteral("SELECT 1 FROM Cuentas WHERE NCuenta = ?"), {ncuenta.trimmed()}))
        throw Rechazo(QStringLiteral("No existe la subcuenta %1.").arg(ncuenta.trimmed()));
}

// The key given as the first argument, and its row.
Vencimiento vencimientoDeArgumento(ContextoCli& c, const QString& uso) {
    const QString texto = c.posicionales.value(0);
    if (texto.trimmed().isEmpty())
        throw Rechazo(QStringLiteral("Indique el vencimiento por su IdVenc: %1").arg(uso));
    const std::optional<double> id = IdVencDeTexto(texto);
    std::optional<Vencimiento> v;
    if (id) {
        Conexion b = AbrirBavar(c.sesion);
        v = LeerVencimiento(b, *id);
    }
    if (!v)
        throw Rechazo(QStringLiteral("No existe el vencimiento %1.").arg(texto.trimmed()));
    return *v;
}

int vencimientos(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    FiltrosVenc f;
    const QString tipo = c.opcion(QStringLiteral("tipo"), QStringLiteral("todos"));
    f.Tipo = TipoFiltroDeTexto(
        deLista({TipoCobro, TipoPago, QStringLiteral("Todos")}, QStringLiteral("tipo"), tipo));
    if (c.tiene(QStringLiteral("estado"))) {
        f.PorSituacion = true;
        f.Situacion = deLista(SituacionesVencimiento(), QStringLiteral("estado"),
                              c.opcion(QStringLiteral("estado")));
    }
    if (c.tiene(QStringLiteral("desde")) || c.tiene(QStringLiteral("hasta"))) {
        f.PorFecha = true;
        f.Desde = c.opcion(QStringLiteral("desde"));
        f.Hasta = c.opcion(QStringLiteral("hasta"));
    }
    if (c.tiene(QStringLiteral("forma"))) {
        f.PorForma = true;
        f.Forma = deLista(FormasVencimiento(), QStringLiteral("forma"),
                          c.opcion(QStringLiteral("forma")));
    }
    if (c.tiene(QStringLiteral("remesa"))) {
        f.PorRemesa = true;
        f.Remesa = c.opcion(QStringLiteral("remesa"));
    }
    if (c.tiene(QStringLiteral("subcuenta"))) {
        f.PorSubcuenta = true;
        f.Subcuenta = c.opcion(QStringLiteral("subcuenta")).trimmed();
    }
    f.Vencidos = c.bandera(QStringLiteral("vencidos"));
    if (!ComprobarFiltros(f, c.dialogo))
        return 1;
    const QDate hoy = QDate::currentDate();
    const OpcionesLibro op =
        OpcionesImpresionCli(c, ConfigFormOpciones(FormOpciones::FORM90, QStringLiteral("Venc")));

    std::optional<Rejilla> rejilla;
    auto llenar = [&]() -> const Rejilla& {
        if (!rejilla) {
            rejilla = RejillaVencimientos();
            LlenarVenc(s, f, hoy, *rejilla);
        }
        return *rejilla;
    };
    LibroCli libro;
    libro.titulo = TituloVencimientos;
    libro.orientacion = QPageLayout::Landscape;
    libro.rejilla = [&] {
        return llenar();
    };
    libro.dibujo = [&](Impresora& imp, int copia) {
        ImpresionVenc(llenar(), NombreEmpresa(s), op).Dibujar(imp, copia);
    };
    const int r = SalidaLibroCli(c, libro);
    const QString formato = c.opcion(QStringLiteral("formato"), QStringLiteral("txt")).toLower();
    if (r == 0 && rejilla && formato == QLatin1String("txt") &&
        c.opcion(QStringLiteral("salida")).isEmpty())
        for (const Rejilla::Total& t : rejilla->Totales())
            c.salida << t.etiqueta << '\t' << t.valor << '\n';
    return r;
}

int anadir(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    CamposVencimiento v;
    v.NCuenta1 = c.opcion(QStringLiteral("subcuenta"));
    v.FechaV = c.opcion(QStringLiteral("fecha"));
    v.FechaE = c.opcion(QStringLiteral("emision"));
    v.Importe = c.opcion(QStringLiteral("importe"));
    // An empty value is left to the checks, which name what is missing.
    auto deOpcion = [&](const QStringList& lista, const QString& opcion) {
        const QString valor = c.opcion(opcion);
        return valor.trimmed().isEmpty() ? QString() : deLista(lista, opcion, valor);
    };
    v.Tipo = deOpcion({TipoCobro, TipoPago}, QStringLiteral("tipo"));
    v.Forma = deOpcion(FormasVencimiento(), QStringLiteral("forma"));
    v.Situacion = deOpcion(SituacionesVencimiento(), QStringLiteral("situacion"));
    v.NCuenta2 = c.opcion(QStringLiteral("caja"));
    v.Concepto = c.opcion(QStringLiteral("concepto"));
    v.Documento = c.opcion(QStringLiteral("documento"));
    v.Remesa = c.opcion(QStringLiteral("remesa"));
    v.Sector = c.opcion(QStringLiteral("sector"));

    // The screen offers only what exists: here it is looked for.
    if (!v.NCuenta1.trimmed().isEmpty()) {
        existeSubcuenta(s, v.NCuenta1);
        const QString aviso = AvisoAreaTipo(v.Tipo, v.NCuenta1);
        if (!aviso.isEmpty())
            c.dialogo.Informar(aviso);
    }
    if (!v.NCuenta2.trimmed().isEmpty()) {
        if (!v.NCuenta2.trimmed().startsWith(QLatin1Char('1')))
            throw Rechazo(QStringLiteral("La cuenta de Caja o Banco %1 no es del área 1.")
                              .arg(v.NCuenta2.trimmed()));
        existeSubcuenta(s, v.NCuenta2);
    }
    if (!v.Sector.trimmed().isEmpty() && !SectoresConVacio(s).contains(v.Sector.trimmed()))
        throw Rechazo(QStringLiteral("No existe el sector %1.").arg(v.Sector.trimmed()));

    std::optional<Vencimiento> valido =
        ComprobarVencimiento(v, AltaVenc::Alta, c.dialogo, QDate::currentDate());
    if (!valido)
        return 1;
    Conexion b = AbrirBavar(s);
    AnadirVencimiento(b, *valido, QDateTime::currentDateTime());
    c.salida << TextoIdVenc(valido->IdVenc) << '\n';
    return 0;
}

int estado(ContextoCli& c) {
    const QString uso = QStringLiteral("quilmar-cli vencimiento-estado ID --estado SITUACION");
    if (!c.tiene(QStringLiteral("estado")))
        throw Rechazo(QStringLiteral("Indique la situación con --estado: %1").arg(uso));
    c.abrirEmpresa();
    const Vencimiento v = vencimientoDeArgumento(c, uso);
    const QString situacion = deLista(SituacionesVencimiento(), QStringLiteral("estado"),
                                      c.opcion(QStringLiteral("estado")));
    // The screen puts a contradictory state back to "Pendiente"; here nothing is written.
    if (SituacionAdmitida(v.Tipo, situacion, c.dialogo) != situacion)
        return 1;
    Conexion b = AbrirBavar(c.sesion);
    if (!CambiarSituacion(b, v.IdVenc, situacion)) {
        c.dialogo.Informar(MsgSinModificar);
        return 1;
    }
    return 0;
}

int eliminar(ContextoCli& c) {
    const QString uso = QStringLiteral("quilmar-cli vencimiento-eliminar ID --si");
    c.abrirEmpresa();
    const Vencimiento v = vencimientoDeArgumento(c, uso);
    QString nombre;
    {
        Conexion d = AbrirDatos(c.sesion);
        nombre =
            d.escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {v.NCuenta1})
                .toString()
                .trimmed();
    }
    if (!c.dialogo.Preguntar(QStringLiteral("Desea eliminar el vencimiento de fecha ") +
                             FormatoFecha(v.FechaV, QStringLiteral("short date")) +
                             QStringLiteral(" de  ") + nombre + QLatin1Char('?')))
        return 1;
    Conexion b = AbrirBavar(c.sesion);
    return EliminarVencimiento(b, v.IdVenc) ? 0 : 1;
}

int purgar(ContextoCli& c) {
    const bool liquidados = c.bandera(QStringLiteral("cobrados"));
    const QString meses = c.opcion(QStringLiteral("meses")).trimmed();
    if (liquidados == !meses.isEmpty())
        throw Rechazo(QStringLiteral("Indique --meses 0|1|6|12|24 o --cobrados."));
    c.abrirEmpresa();
    int n;
    if (liquidados) {
        n = EliminarCobradosPagados(c.sesion, c.dialogo);
    } else {
        static const QStringList validos{QStringLiteral("0"), QStringLiteral("1"),
                                         QStringLiteral("6"), QStringLiteral("12"),
                                         QStringLiteral("24")};
        if (!validos.contains(meses))
            throw Rechazo(QStringLiteral("--meses tiene que ser 0 (todos los vencidos hasta hoy), "
                                         "1, 6, 12 o 24."));
        n = EliminarVenc(c.sesion, c.dialogo, meses.toInt(), QDate::currentDate());
    }
    if (n < 0)
        return 1;
    c.salida << n << '\n';
    return 0;
}

const QString Situaciones = QStringLiteral(
    "Sin formalizar, Pendiente, Cobrado, Pagado, Devuelto, Reclamado, Moroso, En Gestión, "
    "Fallido");
// Ends with the point of "Cargo cta.", so no other point follows it.
const QString Formas =
    QStringLiteral("Efecto, Pagaré, Cheque, Efectivo, Transferencia, Tarjeta, Cargo cta.");

const AltaVerbo altaVencimientos{
    {QStringLiteral("vencimientos"),
     QStringLiteral("la lista de vencimientos de cobros y pagos, con su total"),
     QStringLiteral(
         "Uso: quilmar-cli vencimientos [--tipo cobro|pago|todos] [--estado SITUACION]\n"
         "        [--desde FECHA --hasta FECHA] [--forma FORMA] [--remesa R]\n"
         "        [--subcuenta NCUENTA] [--vencidos]\n"
         "        [--margen MM --fuente F --tamano T --fecha-trabajo FECHA]\n"
         "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO] [--copias N]\n\n"
         "Cada opción es un filtro de la pantalla Vencimientos; sin ella, el filtro deja pasar\n"
         "todo desde el 31/12/2000. --vencidos deja sólo los de fecha anterior a hoy. Con\n"
         "--tipo todos el total suma los cobros y resta los pagos. En txt sin --salida, la\n"
         "última línea es el Total Importe. La columna IdVenc identifica cada vencimiento.\n"
         "Situaciones: ") +
         Situaciones + QStringLiteral(".\nFormas: ") + Formas + QStringLiteral("\n\n") +
         AyudaSalidaLibro,
     {QStringLiteral("vencidos")},
     vencimientos}};

const AltaVerbo altaAnadir{
    {QStringLiteral("vencimiento-anadir"),
     QStringLiteral("añade un vencimiento de cobro o pago"),
     QStringLiteral(
         "Uso: quilmar-cli vencimiento-anadir --subcuenta NCUENTA --fecha FECHA --importe I\n"
         "        --tipo cobro|pago --forma FORMA --caja NCUENTA --concepto TEXTO\n"
         "        [--emision FECHA] [--documento D] [--remesa R] [--sector S]\n"
         "        [--situacion SITUACION] [--si]\n\n"
         "Hace las comprobaciones de la pantalla, en su orden: una fecha de vencimiento\n"
         "anterior a hoy pide confirmación (--si); la de emisión es hoy si no se indica;\n"
         "--caja es la subcuenta de Caja o Banco (área 1) por donde se cobrará o pagará. La\n"
         "situación es Pendiente si no se indica. Muestra el IdVenc del vencimiento.\n"
         "Situaciones: ") +
         Situaciones + QStringLiteral(".\nFormas: ") + Formas,
     {},
     anadir}};

const AltaVerbo altaEstado{
    {QStringLiteral("vencimiento-estado"),
     QStringLiteral("cambia la situación de un vencimiento"),
     QStringLiteral("Uso: quilmar-cli vencimiento-estado ID --estado SITUACION\n\n"
                    "ID es el IdVenc que muestra la lista (con coma o punto decimal). Un cobro\n"
                    "no puede quedar Pagado ni un pago Cobrado.\nSituaciones: ") +
         Situaciones + QLatin1Char('.'),
     {},
     estado}};

const AltaVerbo altaEliminar{
    {QStringLiteral("vencimiento-eliminar"),
     QStringLiteral("elimina un vencimiento"),
     QStringLiteral("Uso: quilmar-cli vencimiento-eliminar ID --si\n\n"
                    "ID es el IdVenc que muestra la lista. Pide confirmación: añada --si."),
     {},
     eliminar}};

const AltaVerbo altaPurgar{
    {QStringLiteral("vencimientos-purgar"),
     QStringLiteral("elimina los vencimientos vencidos hace tiempo, o los cobrados y pagados"),
     QStringLiteral(
         "Uso: quilmar-cli vencimientos-purgar --meses 0|1|6|12|24 --si\n"
         "     quilmar-cli vencimientos-purgar --cobrados --si\n\n"
         "--meses N elimina todos los vencimientos con fecha anterior a hoy menos N meses\n"
         "(0: anterior a hoy), en cualquier situación; --cobrados elimina los que figuran\n"
         "como Cobrados o Pagados. Pide confirmación: añada --si. Muestra cuántos se\n"
         "eliminaron."),
     {QStringLiteral("cobrados")},
     purgar}};

} // namespace
