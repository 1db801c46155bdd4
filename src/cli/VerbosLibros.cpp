// Verbs of the books: the journal (and, next to it, the other books on the same output).

#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "reports/Diario.h"
#include "reports/ImpresionDiario.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

namespace {

int diario(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    const SeleccionDiario inicial = SeleccionDiarioInicial(s, MaxAsiento(s));
    const bool porNumeros =
        c.tiene(QStringLiteral("desde-asiento")) || c.tiene(QStringLiteral("hasta-asiento"));
    const bool porFechas = c.tiene(QStringLiteral("desde")) || c.tiene(QStringLiteral("hasta"));
    if (porNumeros && porFechas)
        throw Rechazo(QStringLiteral("Elija los asientos por número o por fechas, no de las dos "
                                     "maneras."));
    CajasSeleccionDiario cajas;
    cajas.porFechas = porFechas;
    cajas.desdeAsiento =
        c.opcion(QStringLiteral("desde-asiento"), QString::number(inicial.desdeAsiento));
    cajas.hastaAsiento =
        c.opcion(QStringLiteral("hasta-asiento"), QString::number(inicial.hastaAsiento));
    cajas.desde = FechaOpcion(c, QStringLiteral("desde"), inicial.desde);
    cajas.hasta = FechaOpcion(c, QStringLiteral("hasta"), inicial.hasta);
    const auto sel = ValidarSeleccionDiario(cajas, s, c.dialogo);
    if (!sel)
        return 1;

    const ConfigOpciones config = ConfigFormOpciones(FormOpciones::Form77);
    OpcionesLibro op = OpcionesImpresionCli(c, config);
    // The initial sums under the option form's rule.
    const QString sumaDebe = c.opcion(QStringLiteral("suma-debe"));
    const QString sumaHaber = c.opcion(QStringLiteral("suma-haber"));
    switch (LeerSumasIniciales(sumaDebe, sumaHaber, op.sumaDebe, op.sumaHaber)) {
    case ResultadoOpciones::SumasIncompletas:
        throw Rechazo(MsgSumasIniciales);
    case ResultadoOpciones::ImporteNoValido:
        throw Rechazo(MsgSumaNoValida(sumaDebe, sumaHaber));
    case ResultadoOpciones::Aceptado:
        break;
    }
    op.borrador = c.bandera(QStringLiteral("borrador"));
    op.conDocumento = c.bandera(QStringLiteral("documento"));

    ImpresionDiario impreso(s, *sel, op);
    LibroCli libro;
    libro.titulo = TituloDiario;
    libro.rejilla = [&] {
        Rejilla r = RejillaDiario();
        Conexion con = AbrirDatos(s);
        LlenarDiario(con, *sel, r);
        return r;
    };
    libro.dibujo = impreso.Dibujo();
    return SalidaLibroCli(c, libro);
}

const AltaVerbo altaDiario{
    {QStringLiteral("diario"),
     QStringLiteral("el libro diario: lista o libro impreso"),
     QStringLiteral(
         "Uso: quilmar-cli diario [--desde-asiento N --hasta-asiento M | --desde FECHA "
         "--hasta FECHA]\n"
         "        [--borrador] [--documento] [--margen MM --fuente F --tamano T]\n"
         "        [--pagina-inicial P --fecha-trabajo FECHA] [--suma-debe S --suma-haber S]\n"
         "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO] [--copias N]\n\n"
         "Sin selección, todos los asientos del ejercicio. Las columnas de la lista son: "
         "Asiento, Ap.,\n"
         "Fecha, Subcuenta, Concepto, Debe, Haber, NCuenta, Sector, Documento, Base IVA, "
         "Cuota IVA,\n"
         "Cliente/Proveedor y Factura.\n\n"
         "Libro impreso (pdf):\n"
         "  --borrador             cada asiento en un bloque con su total y sus datos de IVA\n"
         "                         (por defecto, el modelo oficial)\n"
         "  --documento            incluye la columna del número de documento\n"
         "  --pagina-inicial P     número de la primera página\n"
         "  --suma-debe S --suma-haber S  sumas iniciales del Debe y del Haber (las dos)\n\n") +
         AyudaSalidaLibro,
     {QStringLiteral("borrador"), QStringLiteral("documento")},
     diario}};

} // namespace
