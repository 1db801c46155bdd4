// Budgets and the financial calculator from the command line: making a budget, listing them,
// setting one against the journal, the time-value functions and the loan table.

#include "assets/Presupuestos.h"
#include "chart/Sectores.h"
#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "reports/TablaImpresa.h"
#include "store/Campos.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "utilities/Calculadora.h"
#include "utilities/Financiero.h"

#include <QFileInfo>
#include <cmath>

namespace {

double importeOpcion(const QString& texto) {
    const std::optional<double> v = LeerImporte(texto);
    if (!v)
        throw Rechazo(MsgImporteNoValido(texto));
    return *v;
}

int mesOpcion(ContextoCli& c, const QString& nombre) {
    bool ok = false;
    const int m = c.opcion(nombre).toInt(&ok);
    if (!ok || m < 1 || m > 12)
        throw Rechazo(QStringLiteral("--%1 debe ser un mes del 1 al 12.").arg(nombre));
    return m;
}

int presupuestoCrear(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    Presupuesto p;
    p.Nombre = c.posicionales.value(0);
    // --ano after the verb is the budget's year, not the exercise to open.
    p.Ano = c.propia(QStringLiteral("ano"));
    if (c.tiene(QStringLiteral("sector"))) {
        p.Sector = TextoCampo(Campo::Sector, c.opcion(QStringLiteral("sector")));
        if (!p.Sector.isEmpty() && IdDeSector(s, p.Sector) == 0)
            throw Rechazo(QStringLiteral("No existe el sector %1.").arg(p.Sector));
    }
    const QStringList partidas = c.opciones(QStringLiteral("partida"));
    if (partidas.isEmpty())
        throw Rechazo(QStringLiteral("Indique al menos una partida: --partida NCUENTA=IMPORTE."));
    for (const QString& texto : partidas) {
        const QString ncuenta = texto.section(QLatin1Char('='), 0, 0).trimmed();
        QString resto = texto.section(QLatin1Char('='), 1);
        bool igual = false;
        if (resto.endsWith(QLatin1String(":reparto-igual"))) {
            igual = true;
            resto.chop(int(QStringLiteral(":reparto-igual").size()));
        }
        if (ncuenta.isEmpty())
            throw Rechazo(QStringLiteral("Tiene que seleccionar el nombre de la Cuenta."));
        if (resto.trimmed().isEmpty())
            throw Rechazo(
                QStringLiteral("Tiene que introducir el importe presupuestado para esta Cuenta."));
        const double importe = importeOpcion(resto);
        if (importe <= 0)
            throw Rechazo(
                QStringLiteral("Tiene que introducir el importe presupuestado para esta Cuenta."));
        PartidaPresupuesto q = NuevaPartida(s, ncuenta, importe);
        for (const PartidaPresupuesto& otra : p.partidas)
            if (otra.NCuenta == q.NCuenta)
                throw Rechazo(QStringLiteral("Ya está introducida en el presupuesto la cuenta %1.")
                                  .arg(q.Cuenta));
        if (igual)
            RepartirPorIgual(q, MesesTodos);
        p.partidas << q;
    }
    if (!GuardarPresupuesto(s, c.dialogo, p))
        return 1;
    c.salida << RutaPresupuesto(s, p.Nombre.trimmed()) << '\n';
    return 0;
}

int presupuestos(ContextoCli& c) {
    c.abrirEmpresa();
    QList<QStringList> filas{{QStringLiteral("Nombre"), QStringLiteral("Año"),
                              QStringLiteral("Sector"), QStringLiteral("Partidas")}};
    for (const QString& nombre : ListaPresupuestos(c.sesion)) {
        const Presupuesto p = LeerPresupuesto(RutaPresupuesto(c.sesion, nombre));
        filas << QStringList{nombre, p.Ano, p.Sector, QString::number(p.partidas.size())};
    }
    ImprimirFilas(c.salida, filas);
    return 0;
}

int presupuestoComparar(ContextoCli& c) {
    c.abrirEmpresa();
    const QString nombre = c.posicionales.value(0);
    if (nombre.isEmpty())
        throw Rechazo(QStringLiteral("Indique el nombre del presupuesto."));
    const QString ruta = RutaPresupuesto(c.sesion, nombre);
    if (!QFileInfo::exists(ruta))
        throw Rechazo(QStringLiteral("No existe el presupuesto %1.").arg(nombre));
    PeriodoPresupuesto per;
    if (c.tiene(QStringLiteral("desde-mes")) || c.tiene(QStringLiteral("hasta-mes"))) {
        per.anual = false;
        per.mesDesde = mesOpcion(c, QStringLiteral("desde-mes"));
        per.mesHasta = mesOpcion(c, QStringLiteral("hasta-mes"));
        if (per.mesHasta < per.mesDesde)
            throw Rechazo(QStringLiteral("La fecha final debe ser mayor que la inicial"));
        per.anual = per.mesHasta - per.mesDesde + 1 == 12;
    }
    const Presupuesto p = LeerPresupuesto(ruta);
    std::optional<Rejilla> rejilla;
    auto llenar = [&]() -> const Rejilla& {
        if (!rejilla)
            rejilla = CompararPresupuesto(c.sesion, ruta, per);
        return *rejilla;
    };
    LibroCli libro;
    libro.titulo = QStringLiteral("Presupuesto: ") + p.Nombre;
    libro.rejilla = [&] {
        return llenar();
    };
    libro.dibujo = [&](Impresora& imp, int) {
        DibujarTabla(imp, llenar(), DisenoComparacion(p.Nombre, p.Ano, EtiquetaPeriodo(per)));
    };
    return SalidaLibroCli(c, libro);
}

double numero(ContextoCli& c, const QString& nombre, bool obligatorio = true) {
    if (!c.tiene(nombre)) {
        if (obligatorio)
            throw Rechazo(QStringLiteral("Falta --%1.").arg(nombre));
        return 0;
    }
    bool ok = false;
    const QString t = NormalizarNumero(c.opcion(nombre));
    const double v = t.toDouble(&ok);
    if (!ok || !std::isfinite(v))
        throw Rechazo(QStringLiteral("--%1 no es un número: %2").arg(nombre, c.opcion(nombre)));
    return v;
}

int calcular(ContextoCli& c) {
    const QString que = c.posicionales.value(0);
    const bool pri = c.bandera(QStringLiteral("principio"));
    auto tipo = [&] {
        return numero(c, QStringLiteral("interes")) / 100;
    };
    std::optional<double> v;
    bool porcentaje = false;
    if (que == QLatin1String("pago")) {
        v = Pago(tipo(), numero(c, QStringLiteral("periodos")),
                 numero(c, QStringLiteral("va"), false), numero(c, QStringLiteral("vf"), false),
                 pri);
    } else if (que == QLatin1String("valor-actual")) {
        v = ValorActual(tipo(), numero(c, QStringLiteral("periodos")),
                        numero(c, QStringLiteral("pago"), false),
                        numero(c, QStringLiteral("vf"), false), pri);
    } else if (que == QLatin1String("valor-futuro")) {
        v = ValorFinal(tipo(), numero(c, QStringLiteral("periodos")),
                       numero(c, QStringLiteral("pago"), false),
                       numero(c, QStringLiteral("va"), false), pri);
    } else if (que == QLatin1String("periodos")) {
        v = Periodos(tipo(), numero(c, QStringLiteral("pago"), false),
                     numero(c, QStringLiteral("va"), false), numero(c, QStringLiteral("vf"), false),
                     pri);
    } else if (que == QLatin1String("tipo")) {
        v = Tasa(numero(c, QStringLiteral("periodos")), numero(c, QStringLiteral("pago"), false),
                 numero(c, QStringLiteral("va"), false), numero(c, QStringLiteral("vf"), false),
                 pri);
        if (v)
            v = *v * 100;
        porcentaje = true;
    } else if (que == QLatin1String("tae")) {
        v = c.tiene(QStringLiteral("nominal-de"))
                ? NominalDeTae(numero(c, QStringLiteral("nominal-de")),
                               numero(c, QStringLiteral("periodos")))
                : TaeDeNominal(numero(c, QStringLiteral("interes")),
                               numero(c, QStringLiteral("periodos")));
        porcentaje = true;
    } else {
        throw Rechazo(QStringLiteral("Indique qué calcular: pago, valor-actual, valor-futuro, "
                                     "periodos, tipo o tae."));
    }
    if (!v) {
        c.salida << "Error\n";
        return 1;
    }
    QString t = QString::number(*v, 'f', porcentaje ? 6 : 2);
    t.replace(QLatin1Char('.'), QLatin1Char(','));
    c.salida << t << (porcentaje ? "%" : "") << '\n';
    return 0;
}

int cuadroPrestamo(ContextoCli& c) {
    Calculadora k;
    k.PV = importeOpcion(c.opcion(QStringLiteral("capital")));
    k.i = numero(c, QStringLiteral("interes"));
    k.n = numero(c, QStringLiteral("periodos"));
    if (c.tiene(QStringLiteral("valor-final")))
        k.FV = importeOpcion(c.opcion(QStringLiteral("valor-final")));
    k.alPrincipio = c.bandera(QStringLiteral("principio"));
    k.pesetas = c.bandera(QStringLiteral("pesetas"));
    const Rejilla r = CuadroPrestamo(k);
    if (r.Filas() == 0)
        throw Rechazo(QStringLiteral("Error: el número de periodos debe ser entero, de 1 a 1.200, "
                                     "y el capital o el valor final distinto de 0."));
    LibroCli libro;
    libro.titulo = QStringLiteral("Cuadro de Amortización");
    libro.rejilla = [&] {
        return r;
    };
    libro.dibujo = [&](Impresora& imp, int) {
        DibujarTabla(imp, r, DisenoCuadro(k));
    };
    return SalidaLibroCli(c, libro);
}

const QString AyudaFinanciera = QStringLiteral(
    "Los importes siguen el convenio de las hojas de cálculo: lo que se recibe es positivo y lo\n"
    "que se paga, negativo. --interes es el tipo por periodo en tanto por ciento (1 = 1 %).\n"
    "--principio: los pagos se hacen al principio de cada periodo (por defecto, al final).");

const AltaVerbo altaPresupuestoCrear{
    {QStringLiteral("presupuesto-crear"),
     QStringLiteral("crea o sustituye un presupuesto"),
     QStringLiteral(
         "Uso: quilmar-cli presupuesto-crear NOMBRE --ano A [--sector S]\n"
         "        --partida NCUENTA=IMPORTE[:reparto-igual] [--partida …]\n\n"
         "Cada partida es una subcuenta de gastos (grupo 6) o de ingresos (grupo 7) con su\n"
         "importe anual; :reparto-igual lo reparte entre los doce meses (lo que sobra del\n"
         "redondeo va a diciembre). Sin él, la partida no tiene reparto por meses. Si el\n"
         "presupuesto ya existe pide confirmación (--si)."),
     {},
     presupuestoCrear,
     {QStringLiteral("ano")}}};

const AltaVerbo altaPresupuestos{{QStringLiteral("presupuestos"),
                                  QStringLiteral("lista los presupuestos de la empresa"),
                                  QStringLiteral("Uso: quilmar-cli presupuestos"),
                                  {},
                                  presupuestos}};

const AltaVerbo altaPresupuestoComparar{
    {QStringLiteral("presupuesto-comparar"),
     QStringLiteral("compara un presupuesto con lo realizado en el Diario"),
     QStringLiteral("Uso: quilmar-cli presupuesto-comparar NOMBRE [--desde-mes M --hasta-mes M]\n"
                    "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO]\n\n"
                    "Sin meses compara el año completo con los importes anuales; con ellos, la\n"
                    "suma de esos meses. No cuenta el asiento de regularización.\n\n") +
         AyudaSalidaLibro,
     {},
     presupuestoComparar}};

const AltaVerbo altaCalcular{
    {QStringLiteral("calcular"),
     QStringLiteral("funciones financieras: pago, valor actual y futuro, periodos, tipo, TAE"),
     QStringLiteral(
         "Uso: quilmar-cli calcular pago --interes I --periodos N [--va V] [--vf F] [--principio]\n"
         "     quilmar-cli calcular valor-actual --interes I --periodos N [--pago P] [--vf F]\n"
         "     quilmar-cli calcular valor-futuro --interes I --periodos N [--pago P] [--va V]\n"
         "     quilmar-cli calcular periodos --interes I [--pago P] [--va V] [--vf F]\n"
         "     quilmar-cli calcular tipo --periodos N [--pago P] [--va V] [--vf F]\n"
         "     quilmar-cli calcular tae --interes NOMINAL --periodos N\n"
         "     quilmar-cli calcular tae --nominal-de TAE --periodos N\n\n") +
         AyudaFinanciera,
     {QStringLiteral("principio")},
     calcular}};

const AltaVerbo altaCuadroPrestamo{
    {QStringLiteral("cuadro-prestamo"),
     QStringLiteral("cuadro de amortización de un préstamo"),
     QStringLiteral("Uso: quilmar-cli cuadro-prestamo --capital C --interes I --periodos N\n"
                    "        [--valor-final F] [--principio] [--pesetas]\n"
                    "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO]\n\n") +
         AyudaFinanciera + QStringLiteral("\n\n") + AyudaSalidaLibro,
     {QStringLiteral("principio"), QStringLiteral("pesetas")},
     cuadroPrestamo}};

} // namespace
