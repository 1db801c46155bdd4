// The four tax books from the command line: libro-ingresos, libro-gastos, facturas-expedidas and
// facturas-recibidas, as the list of their window or as the printed book.

#include "chart/Sectores.h"
#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "store/Conexiones.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"
#include "tax/ImpresionLibrosIva.h"
#include "tax/LibrosIva.h"

#include <optional>

namespace {

int libroIva(ContextoCli& c, LibroIva libro) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    SeleccionLibroIva sel;
    sel.libro = libro;
    sel.desde = FechaOpcion(c, QStringLiteral("desde"), s.FechaIniEj);
    sel.hasta = FechaOpcion(c, QStringLiteral("hasta"), s.FechaFinEj);
    sel.sector = c.opcion(QStringLiteral("sector")).trimmed();
    sel.verAsiento = c.bandera(QStringLiteral("asiento"));
    sel.verNIF = c.bandera(QStringLiteral("nif"));
    if (!ValidarSeleccionLibroIva(sel, s, c.dialogo))
        return 1;
    if (!sel.sector.isEmpty()) {
        bool existe = false;
        for (const FilaSector& f : ListaSectores(s))
            existe = existe || f.Sector.trimmed() == sel.sector;
        if (!existe)
            throw Rechazo(QStringLiteral("No existe el sector %1.").arg(sel.sector));
    }
    OpcionesLibro op = OpcionesImpresionCli(c, ConfigFormOpciones(FormOpciones::FORM52));
    op.numeroAsiento = sel.verAsiento;

    std::optional<Rejilla> rejilla;
    auto llenar = [&]() -> const Rejilla& {
        if (!rejilla) {
            rejilla = RejillaLibroIva(sel);
            Conexion con = AbrirDatos(s);
            LlenarLibroIva(con, sel, *rejilla);
        }
        return *rejilla;
    };
    LibroCli salida;
    salida.titulo = TituloLibroIva(libro);
    salida.orientacion = OrientacionLibroIva(libro);
    salida.rejilla = [&] {
        return llenar();
    };
    salida.dibujo = [&](Impresora& imp, int copia) {
        const QString empresa = NombreEmpresa(s);
        ImpresionLibroIva(llenar(), sel, empresa, op).Dibujar(imp, copia);
    };
    const int r = SalidaLibroCli(c, salida);
    // On the terminal the income and expense lists end with their total, under the amounts.
    const QString formato = c.opcion(QStringLiteral("formato"), QStringLiteral("txt")).toLower();
    if (r == 0 && rejilla && !EsLibroFacturas(libro) && formato == QLatin1String("txt") &&
        c.opcion(QStringLiteral("salida")).isEmpty()) {
        QStringList total(ColLibImporte);
        total[ColLibConcepto] = TotalLibroIva;
        for (const Rejilla::Total& t : rejilla->Totales())
            if (t.etiqueta == TotalLibroIva)
                total << t.valor;
        c.salida << total.join(u'\t') << '\n';
    }
    return r;
}

QString Uso(const QString& verbo, const QString& explicacion) {
    return QStringLiteral("Uso: quilmar-cli ") + verbo +
           QStringLiteral(" [--desde FECHA --hasta FECHA] [--sector S] [--asiento] [--nif]\n"
                          "        [--margen MM --fuente F --tamano T --pagina-inicial P "
                          "--fecha-trabajo FECHA]\n"
                          "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO] "
                          "[--copias N]\n\n") +
           explicacion +
           QStringLiteral(
               "\n\nSin fechas, el ejercicio entero; las fechas deben estar dentro del "
               "ejercicio.\n"
               "  --sector S     sólo los apuntes de ese sector\n"
               "  --asiento      muestra (e imprime) el número de asiento\n"
               "  --nif          muestra el NIF del cliente o proveedor (libros de facturas)\n"
               "  --pagina-inicial P  número de la primera página del libro impreso\n\n") +
           AyudaSalidaLibro;
}

const QStringList Banderas{QStringLiteral("asiento"), QStringLiteral("nif")};

const AltaVerbo altaIngresos{
    {QStringLiteral("libro-ingresos"),
     QStringLiteral("el libro de ingresos: lista o libro impreso"),
     Uso(QStringLiteral("libro-ingresos"),
         QStringLiteral("Los apuntes de las cuentas del grupo 7 (salvo la regularización), con "
                        "el importe\nHaber - Debe y la factura del asiento. Columnas: Nº Orden, "
                        "Asiento, Fecha, Factura,\nConcepto, Importe y NCuenta; en txt sin "
                        "--salida, la última línea es el TOTAL.")),
     Banderas, [](ContextoCli& c) {
         return libroIva(c, LibroIva::Ingresos);
     }}};

const AltaVerbo altaGastos{
    {QStringLiteral("libro-gastos"), QStringLiteral("el libro de gastos: lista o libro impreso"),
     Uso(QStringLiteral("libro-gastos"),
         QStringLiteral("Los apuntes de las cuentas del grupo 6 (salvo la regularización), con "
                        "el importe\nDebe - Haber y el proveedor del asiento. Columnas: Nº "
                        "Orden, Asiento, Fecha, Expedidor,\nConcepto, Importe y NCuenta; en txt "
                        "sin --salida, la última línea es el TOTAL.")),
     Banderas, [](ContextoCli& c) {
         return libroIva(c, LibroIva::Gastos);
     }}};

const AltaVerbo altaExpedidas{
    {QStringLiteral("facturas-expedidas"),
     QStringLiteral("el libro de facturas expedidas: lista o libro impreso"),
     Uso(QStringLiteral("facturas-expedidas"),
         QStringLiteral("Los datos de IVA de clientes, por fecha. Columnas: Asiento, Fecha, "
                        "Factura, NIF,\nDestinatario, B.I. IVA, B.I. Recargo, Tipo, Cuota y "
                        "NCuenta; tras una línea vacía,\nlos totales de cada tipo de IVA y de "
                        "recargo.")),
     Banderas, [](ContextoCli& c) {
         return libroIva(c, LibroIva::Expedidas);
     }}};

const AltaVerbo altaRecibidas{
    {QStringLiteral("facturas-recibidas"),
     QStringLiteral("el libro de facturas recibidas: lista o libro impreso"),
     Uso(QStringLiteral("facturas-recibidas"),
         QStringLiteral("Los datos de IVA de proveedores, por fecha. Columnas: Nº Orden, "
                        "Asiento, Fecha,\nFactura, NIF, Expedidor, B.I. IVA, Tipo, Cuota y "
                        "NCuenta; tras una línea vacía, los\ntotales de cada tipo de IVA.")),
     Banderas, [](ContextoCli& c) {
         return libroIva(c, LibroIva::Recibidas);
     }}};

} // namespace
