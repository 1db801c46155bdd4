// The trial balance from the command line: the list or the printed book.

#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "reports/ImpresionSumasSaldos.h"
#include "reports/SumasSaldos.h"
#include "store/Conexiones.h"
#include "store/NombreEmpresa.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <optional>

namespace {

int sumasSaldos(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    const QDate desde = FechaOpcion(c, QStringLiteral("desde"), s.FechaIniEj);
    const QDate hasta = FechaOpcion(c, QStringLiteral("hasta"), s.FechaFinEj);
    const OpcionesLibro op = OpcionesImpresionCli(c, ConfigFormOpciones(FormOpciones::Form79));

    std::optional<Rejilla> rejilla;
    auto llenar = [&]() -> const Rejilla& {
        if (!rejilla) {
            rejilla = RejillaSyS();
            Conexion con = AbrirDatos(s);
            LlenarSyS(con, s, desde, hasta, *rejilla);
        }
        return *rejilla;
    };
    LibroCli libro;
    libro.titulo = TituloSyS;
    libro.rejilla = [&] {
        return llenar();
    };
    libro.dibujo = [&](Impresora& imp, int copia) {
        const QString empresa = NombreEmpresa(s);
        ImpresionSyS(llenar(), empresa, desde, hasta, op).Dibujar(imp, copia);
    };
    const int r = SalidaLibroCli(c, libro);
    // The plain list on the terminal ends with the totals shown under the window's grid, in the
    // columns of their figures.
    const QString formato = c.opcion(QStringLiteral("formato"), QStringLiteral("txt")).toLower();
    if (r == 0 && rejilla && formato == QLatin1String("txt") &&
        c.opcion(QStringLiteral("salida")).isEmpty()) {
        QStringList totales{QString(), TotalSySDebe};
        for (const Rejilla::Total& t : rejilla->Totales())
            totales << t.valor;
        c.salida << totales.join(u'\t') << '\n';
    }
    return r;
}

const AltaVerbo altaSumasSaldos{
    {QStringLiteral("sumas-saldos"),
     QStringLiteral("el balance de sumas y saldos: lista o libro impreso"),
     QStringLiteral("Uso: quilmar-cli sumas-saldos [--desde FECHA --hasta FECHA]\n"
                    "        [--margen MM --fuente F --tamano T --fecha-trabajo FECHA]\n"
                    "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO] [--copias N]\n\n"
                    "Sin fechas, el ejercicio entero (sumas de la tabla Mayor); con otras "
                    "fechas, las sumas\n"
                    "de los apuntes del periodo. Las columnas de la lista son: Código, Cuenta, "
                    "Debe, Haber,\n"
                    "Saldo, NCuenta y Grupo; cada cuenta de tres dígitos encabeza sus subcuentas "
                    "con sus\n"
                    "subtotales. En txt sin --salida, la última línea son los ACUMULADOS del "
                    "Debe, del Haber\ny el saldo.\n\n") +
         AyudaSalidaLibro,
     {},
     sumasSaldos}};

} // namespace
