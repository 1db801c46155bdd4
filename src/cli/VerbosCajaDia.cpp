// The day-cash pad from the command line: its list and printed sheet, adding and deleting a
// movement, and sending movements to the journal.

#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "posting/CajaDia.h"
#include "posting/ImpresionCajaDia.h"
#include "store/Conexiones.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <QRegularExpression>

namespace {

int cajaDia(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    const OpcionesLibro op =
        OpcionesImpresionCli(c, ConfigFormOpciones(FormOpciones::FORM90, QStringLiteral("CDia")));
    Rejilla r = RejillaCajaDia();
    QString empresa;
    {
        Conexion con = AbrirDatos(s);
        LlenarRejillaCajaDia(LeerCajaDia(con), r);
        empresa = NombreEmpresa(con);
    }
    LibroCli libro;
    libro.titulo = TituloCajaDia;
    libro.rejilla = [&] {
        return r;
    };
    libro.dibujo = [&](Impresora& imp, int) {
        DibujarCajaDia(imp, r, empresa, op);
    };
    const int codigo = SalidaLibroCli(c, libro);
    const QString formato = c.opcion(QStringLiteral("formato"), QStringLiteral("txt")).toLower();
    if (codigo == 0 && formato == QLatin1String("txt") &&
        c.opcion(QStringLiteral("salida")).isEmpty())
        for (const Rejilla::Total& t : r.Totales())
            c.salida << t.etiqueta << '\t' << t.valor << '\n';
    return codigo;
}

int cajaDiaAnadir(ContextoCli& c) {
    c.abrirEmpresa();
    CamposCaja m;
    const QString tipo = c.opcion(QStringLiteral("tipo")).trimmed().toLower();
    if (tipo != QLatin1String("cobro") && tipo != QLatin1String("pago"))
        throw Rechazo(QStringLiteral("Indique --tipo cobro o --tipo pago."));
    m.cobro = tipo == QLatin1String("cobro");
    m.fecha = FechaOpcion(c, QStringLiteral("fecha"), QDate());
    m.ncuenta1 = c.opcion(QStringLiteral("subcuenta"));
    m.ncuenta2 = c.opcion(QStringLiteral("contrapartida"));
    m.importe = c.opcion(QStringLiteral("importe"));
    m.concepto = c.opcion(QStringLiteral("concepto"));
    m.documento = c.opcion(QStringLiteral("documento"));
    m.sector = c.opcion(QStringLiteral("sector"));
    const std::optional<long> n = CajaDia(c.sesion, c.dialogo).Anadir(m);
    if (!n)
        return 1;
    c.salida << *n << '\n';
    return 0;
}

int cajaDiaEliminar(ContextoCli& c) {
    bool ok = false;
    const long n = c.posicionales.value(0).toLong(&ok);
    if (!ok || n <= 0)
        throw Rechazo(QStringLiteral("Indique el número: quilmar-cli caja-dia-eliminar N --si"));
    c.abrirEmpresa();
    return CajaDia(c.sesion, c.dialogo).Eliminar(n) ? 0 : 1;
}

int cajaDiaPasar(ContextoCli& c) {
    const bool todos = c.bandera(QStringLiteral("todos"));
    const bool numeros = c.tiene(QStringLiteral("numeros"));
    const bool fechas = c.tiene(QStringLiteral("desde")) || c.tiene(QStringLiteral("hasta"));
    if (int(todos) + int(numeros) + int(fechas) != 1)
        throw Rechazo(QStringLiteral(
            "Elija qué se traspasa: --todos, --numeros N,N... o --desde F --hasta F."));
    c.abrirEmpresa();
    CriterioPasar criterio;
    if (numeros) {
        criterio.modo = ModoPasar::Punteadas;
        QStringList textos;
        for (const QString& o : c.opciones(QStringLiteral("numeros")))
            textos += o.split(QRegularExpression(QStringLiteral("[,;\\s]+")), Qt::SkipEmptyParts);
        textos += c.posicionales;
        for (const QString& t : textos) {
            bool ok = false;
            const long n = t.toLong(&ok);
            if (!ok || n <= 0)
                throw Rechazo(QStringLiteral("«%1» no es un número de la Caja del día.").arg(t));
            criterio.punteadas.insert(n);
        }
    } else if (fechas) {
        criterio.modo = ModoPasar::EntreFechas;
        criterio.desde = FechaOpcion(c, QStringLiteral("desde"), c.sesion.FechaIniEj);
        criterio.hasta = FechaOpcion(c, QStringLiteral("hasta"), c.sesion.FechaFinEj);
    }
    const ResultadoPasar r = CajaDia(c.sesion, c.dialogo).PasarAlDiario(criterio);
    if (!r.empezado)
        return 1;
    c.salida << QStringLiteral("Traspasados al Diario: %1 apuntes.\n").arg(r.pasados);
    if (!r.asientos.isEmpty())
        c.salida
            << QStringLiteral("Asientos: %1 a %2\n").arg(r.asientos.first()).arg(r.asientos.last());
    return r.error.isEmpty() ? 0 : 1;
}

const AltaVerbo altaCajaDia{
    {QStringLiteral("caja-dia"),
     QStringLiteral("los apuntes de la Caja del día: lista u hoja impresa"),
     QStringLiteral("Uso: quilmar-cli caja-dia [--margen MM --fuente F --tamano T --fecha-trabajo "
                    "FECHA]\n"
                    "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO] [--copias N]\n\n"
                    "Columnas: Nº, Punteo, Fecha, C/P, Cuenta de trabajo, Cta origen/destino, "
                    "Importe,\nConcepto, Documento, Sector y los dos códigos. En txt por la "
                    "salida estándar\nsiguen los Cobros, los Pagos y el Resultado.\n\n") +
         AyudaSalidaLibro,
     {},
     cajaDia}};

const AltaVerbo altaCajaDiaAnadir{
    {QStringLiteral("caja-dia-anadir"),
     QStringLiteral("anota un cobro o un pago en la Caja del día"),
     QStringLiteral(
         "Uso: quilmar-cli caja-dia-anadir --fecha F --tipo cobro|pago --subcuenta N\n"
         "        --contrapartida N --importe I [--concepto T] [--documento D] [--sector S]\n\n"
         "--subcuenta es la Cuenta de trabajo (caja o banco) y --contrapartida la Cta\n"
         "origen/destino. Sin concepto se anota \"Cobro del día\" o \"Pago del día\".\n"
         "Muestra el número del apunte."),
     {},
     cajaDiaAnadir}};

const AltaVerbo altaCajaDiaEliminar{{QStringLiteral("caja-dia-eliminar"),
                                     QStringLiteral("borra un apunte de la Caja del día"),
                                     QStringLiteral("Uso: quilmar-cli caja-dia-eliminar N --si"),
                                     {},
                                     cajaDiaEliminar}};

const AltaVerbo altaCajaDiaPasar{
    {QStringLiteral("caja-dia-pasar"),
     QStringLiteral("traspasa apuntes de la Caja del día al Diario"),
     QStringLiteral(
         "Uso: quilmar-cli caja-dia-pasar --todos --si\n"
         "     quilmar-cli caja-dia-pasar --numeros N,N... --si\n"
         "     quilmar-cli caja-dia-pasar --desde F --hasta F --si\n\n"
         "Cada apunte se contabiliza como un asiento de dos líneas: la Cuenta de trabajo\n"
         "primero (al Debe en un cobro, al Haber en un pago) y la Cta origen/destino después,\n"
         "sin IVA, y sale de la Caja del día en la misma operación."),
     {QStringLiteral("todos")},
     cajaDiaPasar}};

} // namespace
