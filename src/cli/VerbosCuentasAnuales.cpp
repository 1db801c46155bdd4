// The balance sheet and the profit and loss account from the command line: the lists of the
// statement's window, one under the other, or the printed statement.

#include "annual/Estados.h"
#include "annual/ImpresionEstados.h"
#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "store/Conexiones.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <optional>

namespace {

// The two lists of a statement as one grid: the second one under a bold row with its heading.
Rejilla Unida(const EstadoCuentas& e) {
    Rejilla r = e.lista1;
    if (e.lista2.Columnas() == 0)
        return r;
    const int t = r.AgregarFila(e.lista2.Titulos());
    r.PonerNegritaFila(t);
    for (int f = 0; f < e.lista2.Filas(); ++f) {
        const int n = r.AgregarFila(e.lista2.Fila(f));
        for (int c = 0; c < e.lista2.Columnas(); ++c)
            r.PonerNegrita(n, c, e.lista2.Negrita(f, c));
        if (const auto tramo = e.lista2.Combinada(f))
            r.CombinarFila(n, tramo->desde, tramo->hasta);
    }
    return r;
}

int Estado(ContextoCli& c, TipoEstado tipo) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    const Modelo m = ModeloEstado(tipo, s.AnoActual);
    OpcionesLibro op =
        OpcionesImpresionCli(c, ConfigFormOpciones(FormOpciones::Form83, ModoImpresion(m)));
    op.anoAnterior = c.bandera(QStringLiteral("ano-anterior"));
    std::optional<EstadoCuentas> estado;
    auto llenar = [&]() -> const EstadoCuentas& {
        if (!estado)
            estado = CalcularEstado(s, c.dialogo, m, c.bandera(QStringLiteral("desglose")));
        return *estado;
    };
    LibroCli libro;
    libro.titulo = QStringLiteral("Cuentas Anuales");
    libro.rejilla = [&] {
        return Unida(llenar());
    };
    libro.dibujo = [&](Impresora& imp, int) {
        const QString empresa = NombreEmpresa(s);
        DibujarEstado(imp, llenar(), empresa, s.FechaIniEj, s.FechaFinEj, op);
    };
    const int r = SalidaLibroCli(c, libro);
    return r == 0 && !llenar().hayMovimientos ? 1 : r;
}

const QString AyudaEstado = QStringLiteral(
    "\nHasta 2007 el modelo normal del plan antiguo (siempre con las subcuentas); desde 2008\n"
    "el modelo de PYMES, con las subcuentas sólo con --desglose. La columna del año anterior\n"
    "se llena cuando el ejercicio anterior existe en la carpeta de la empresa. Los saldos son\n"
    "los de antes del cierre: no se tienen en cuenta los asientos de regularización y cierre,\n"
    "y no se escribe nada. --ano-anterior imprime esa columna en el pdf.\n\n");

const AltaVerbo altaBalance{
    {QStringLiteral("balance"),
     QStringLiteral("el balance de situación, con el año anterior"),
     QStringLiteral("Uso: quilmar-cli balance [--desglose] [--ano-anterior]\n"
                    "        [--margen MM --fuente F --tamano T --fecha-trabajo FECHA]\n"
                    "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO] [--copias N]\n") +
         AyudaEstado + AyudaSalidaLibro,
     {QStringLiteral("desglose"), QStringLiteral("ano-anterior")},
     [](ContextoCli& c) {
         return Estado(c, TipoEstado::Balance);
     }}};

const AltaVerbo altaPyG{
    {QStringLiteral("perdidas-ganancias"),
     QStringLiteral("la cuenta de pérdidas y ganancias, con el año anterior"),
     QStringLiteral("Uso: quilmar-cli perdidas-ganancias [--desglose] [--ano-anterior]\n"
                    "        [--margen MM --fuente F --tamano T --fecha-trabajo FECHA]\n"
                    "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO] [--copias N]\n") +
         AyudaEstado + AyudaSalidaLibro,
     {QStringLiteral("desglose"), QStringLiteral("ano-anterior")},
     [](ContextoCli& c) {
         return Estado(c, TipoEstado::PyG);
     }}};

} // namespace
