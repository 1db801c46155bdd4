// The journal on screen: Form6's defaults and checks, the grid of Form5 with its columns, formats
// and totals, the export of that grid read back, the deletion from the list, and the search.

#include "reports/Diario.h"
#include "ComunLibros.h"
#include "platform/ExportarRejilla.h"
#include "platform/Rejilla.h"
#include "reports/BuscarDiario.h"
#include "reports/TextoLibro.h"
#include "store/Conexiones.h"
#include "store/Formato.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextStream>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

Apunte ConIva(const QString& cuenta, double cuota, double base, const QString& contra,
              const QString& factura) {
    Apunte a = Debe(cuenta, cuota, QStringLiteral("Compra"));
    a.Iva = DatosIvaApunte{contra, factura, base, 21, cuota};
    return a;
}

// Three entries in 2024: an opening, a purchase with VAT (sector and document), a sale.
void TresAsientos(Entorno& e) {
    e.crearEmpresa();
    e.asiento(QDate(2024, 1, 2), {Debe(Caja, 1500), Haber(Banco, 1500)});
    Apunte compra = Debe(Compras, 1000, QStringLiteral("  Compra de género  "));
    compra.Sector = QStringLiteral("Tienda");
    compra.Documento = QStringLiteral("F-77");
    Apunte iva = ConIva(IvaSop, 210, 1000, Proveedor, QStringLiteral("F-77"));
    iva.Sector = compra.Sector;
    iva.Documento = compra.Documento;
    Apunte prov = Haber(Proveedor, 1210, QStringLiteral("Compra"));
    e.asiento(QDate(2024, 2, 15), {compra, iva, prov});
    e.asiento(QDate(2024, 3, 31), {Debe(Clientes, 1234567.891), Haber(Ventas, 1234567.891)});
    // A tab stored before texts were kept free of control characters must not shift a column.
    Conexion c = e.datos();
    c.ejecutar("UPDATE Diario SET Concepto = replace(Concepto, ' de ', ?) WHERE NCuenta = ?",
               {QStringLiteral("\tde "), Compras});
}

Rejilla Llena(Entorno& e, const SeleccionDiario& sel) {
    Rejilla r = RejillaDiario();
    Conexion c = e.datos();
    LlenarDiario(c, sel, r);
    return r;
}

} // namespace

TEST(Diario, SeleccionInicialYComprobaciones) {
    Entorno e;
    e.crearEmpresa();
    const std::pair ejercicio(QDate(2024, 1, 1), QDate(2024, 12, 31));
    SeleccionDiario sel = SeleccionDiarioInicial(e.sesion, 0);
    EXPECT_EQ(std::pair(sel.desdeAsiento, sel.hastaAsiento), std::pair(0.0, 0.0));
    EXPECT_EQ(std::pair(sel.desde, sel.hasta), ejercicio);
    sel = SeleccionDiarioInicial(e.sesion, 42);
    EXPECT_EQ(std::pair(sel.desdeAsiento, sel.hastaAsiento), std::pair(1.0, 42.0));

    CajasSeleccionDiario c;
    c.desdeAsiento = "2.5"; // a decimal point counts as numeric
    c.hastaAsiento = "7,5";
    c.desde = QDate(2024, 6, 1);
    c.hasta = QDate(2024, 6, 30);
    auto r = ValidarSeleccionDiario(c, e.sesion, e.dialogo);
    ASSERT_TRUE(r);
    EXPECT_FALSE(r->porFechas);
    EXPECT_EQ(std::pair(r->desdeAsiento, r->hastaAsiento), std::pair(2.5, 7.5));
    // By numbers, the dates handed over are the exercise's.
    EXPECT_EQ(std::pair(r->desde, r->hasta), ejercicio);
    EXPECT_TRUE(e.dialogo.textos.isEmpty());

    for (const auto& [desde, hasta, caja] :
         {std::tuple{"x", "3", 0}, {"1", "", 1}, {"", "", 0}, {"1a", "2", 0}}) {
        c.desdeAsiento = QLatin1String(desde);
        c.hastaAsiento = QLatin1String(hasta);
        int mala = -1;
        e.dialogo.textos.clear();
        EXPECT_FALSE(ValidarSeleccionDiario(c, e.sesion, e.dialogo, &mala));
        EXPECT_EQ(e.dialogo.textos, QStringList{"El número de asiento introducido no es válido."});
        EXPECT_EQ(mala, caja) << desde << " " << hasta;
    }

    c.porFechas = true;
    c.desdeAsiento = "nada"; // not looked at by dates
    e.dialogo.textos.clear();
    r = ValidarSeleccionDiario(c, e.sesion, e.dialogo);
    ASSERT_TRUE(r);
    EXPECT_TRUE(r->porFechas);
    EXPECT_EQ(r->desde, QDate(2024, 6, 1));
    c.desde = QDate(2024, 7, 1);
    EXPECT_FALSE(ValidarSeleccionDiario(c, e.sesion, e.dialogo));
    EXPECT_EQ(e.dialogo.textos,
              QStringList{"La fecha inicial debe ser menor o igual que la final."});
    c.hasta = c.desde; // one day is a valid period
    EXPECT_TRUE(ValidarSeleccionDiario(c, e.sesion, e.dialogo));
}

TEST(Diario, RejillaConSusCatorceColumnasYFormatos) {
    Entorno e;
    TresAsientos(e);
    const Rejilla r = Llena(e, Todo(e));
    ASSERT_EQ(r.Columnas(), 14);
    EXPECT_EQ(r.Titulos(), QStringList({"Asiento", "Ap.", "Fecha", "Subcuenta", "Concepto", "Debe",
                                        "Haber", "NCuenta", "Sector", "Documento", "Base IVA",
                                        "Cuota IVA", "Cliente/Proveedor", "Factura"}));
    for (int c = 0; c < 14; ++c)
        EXPECT_EQ(r.columna(c).oculta, c == ColNCuenta) << c;
    EXPECT_TRUE(r.Numerica(ColDebe));
    EXPECT_EQ(r.columna(ColFecha).tipo, TipoColumna::Fecha);
    ASSERT_EQ(r.Filas(), 7);
    EXPECT_EQ(r.Fila(0), QStringList({"1", "1", "02/01/2024", "Caja", "Prueba", "1.500,00", "0,00",
                                      Caja, "", "", "", "", "", ""}));
    // Concepts trimmed, tabs inside a text kept out of the cell boundaries; the VAT line carries
    // its base and quota ("#,###.##"), the customer or supplier by name, and the invoice.
    EXPECT_EQ(r.Fila(2),
              QStringList({"2", "1", "15/02/2024", "Compras de mercaderías", "Compra de género",
                           "1.000,00", "0,00", Compras, "Tienda", "F-77", "", "", "", ""}));
    EXPECT_EQ(r.Fila(3), QStringList({"2", "2", "15/02/2024", "IVA soportado 21%", "Compra",
                                      "210,00", "0,00", IvaSop, "Tienda", "F-77", "1.000", "210",
                                      "Proveedores varios", "F-77"}));
    EXPECT_EQ(r.Celda(5, ColDebe) + r.Celda(6, ColHaber), "1.234.567,891.234.567,89");
    // Debit lines first within an entry, numbered in order.
    EXPECT_EQ(r.Celda(4, ColApunte) + r.Celda(4, ColNCuenta), "3" + Proveedor);
}

TEST(Diario, NumeroDeAsientoConMilesYSeleccionPorNumerosOFechas) {
    Entorno e;
    TresAsientos(e);
    // An entry numbered above a thousand shows its thousands.
    Apunte a = Debe(Caja, 1), b = Haber(Banco, 1);
    {
        Conexion c = e.datos();
        OpcionesEscritura o;
        o.numero = 1234;
        EscribirAsiento(c, e.sesion, QDate(2024, 4, 1), {a, b}, o);
    }
    Rejilla r = Llena(e, Todo(e));
    EXPECT_EQ(r.Celda(r.Filas() - 1, ColAsiento), "1.234");

    SeleccionDiario sel = Todo(e);
    sel.desdeAsiento = 1.5; // a typed 1.5 leaves entry 1 out
    sel.hastaAsiento = 3;
    r = Llena(e, sel);
    ASSERT_EQ(r.Filas(), 5);
    EXPECT_EQ(r.Celda(0, ColAsiento) + r.Celda(4, ColAsiento), "23");

    sel = Todo(e);
    sel.porFechas = true;
    sel.desde = QDate(2024, 2, 15);
    sel.hasta = QDate(2024, 3, 31);
    r = Llena(e, sel);
    ASSERT_EQ(r.Filas(), 5);
    EXPECT_EQ(QStringList({r.Celda(0, ColFecha), r.Celda(4, ColFecha)}),
              QStringList({"15/02/2024", "31/03/2024"}));

    sel.desde = sel.hasta = QDate(2024, 12, 1);
    r = Llena(e, sel);
    EXPECT_EQ(r.Filas(), 0);
    ASSERT_EQ(r.Totales().size(), 2);
    EXPECT_EQ(r.Totales().at(0).valor, "0,00");
}

TEST(Diario, AmbosTotalesSumanElDebe) {
    Entorno e;
    e.crearEmpresa();
    // An unbalanced entry shows that the second total is not the credit.
    e.asiento(QDate(2024, 5, 5), {Debe(Caja, 100), Haber(Banco, 60)});
    e.asiento(QDate(2024, 5, 6), {Debe(Caja, 0.1), Debe(Caja, 0.2), Haber(Banco, 0.3)});
    const Rejilla r = Llena(e, Todo(e));
    ASSERT_EQ(r.Totales().size(), 2);
    EXPECT_EQ(
        QStringList({r.Totales().at(0).etiqueta, r.Totales().at(0).valor, r.Totales().at(1).valor}),
        QStringList({"Totales", "100,30", "100,30"}));
}

TEST(Diario, ElProgresoCuentaLasLineas) {
    Entorno e;
    e.crearEmpresa();
    {
        Conexion c = e.datos();
        Transaccion t(c);
        for (int i = 0; i < 3000; ++i)
            EscribirAsiento(c, e.sesion, QDate(2024, 1, 1 + i % 28),
                            {Debe(Caja, i + 1), Haber(Banco, i + 1)});
        t.confirmar();
    }
    QList<QPair<qint64, qint64>> avisos;
    Rejilla r = RejillaDiario();
    Conexion c = e.datos();
    LlenarDiario(c, Todo(e), r,
                 [&](qint64 hecho, qint64 total) { avisos << qMakePair(hecho, total); });
    EXPECT_EQ(r.Filas(), 6000);
    ASSERT_FALSE(avisos.isEmpty());
    EXPECT_EQ(avisos.first(), qMakePair(qint64(5000), qint64(6000)));
}

TEST(Diario, ExportacionLeidaDeNuevo) {
    Entorno e;
    TresAsientos(e);
    const Rejilla r = Llena(e, Todo(e));
    QTemporaryDir dir;
    const QString ruta = dir.filePath("diario.txt");
    ExportarRejilla(r, ruta, FormatoExportacion::Texto);
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly | QIODevice::Text));
    QTextStream in(&f);
    QStringList lineas;
    while (!in.atEnd())
        lineas << in.readLine();
    ASSERT_EQ(lineas.size(), r.Filas() + 1);
    EXPECT_EQ(lineas.first().split('\t'), r.Titulos());
    // Every cell as the grid holds it, the hidden code included.
    for (int i = 0; i < r.Filas(); ++i)
        EXPECT_EQ(lineas.at(i + 1).split('\t'), r.Fila(i)) << i;

    // An existing file and a No to the question: nothing written.
    e.dialogo.responder({false});
    QFile::resize(ruta, 3);
    EXPECT_FALSE(ExportarRejilla(r, ruta, FormatoExportacion::Xlsx, e.dialogo));
    EXPECT_EQ(QFileInfo(ruta).size(), 3);
    EXPECT_EQ(e.dialogo.preguntas, QStringList{"Este archivo ya existe, desea sustiruirlo?"});
}

TEST(Diario, EliminarAsientoDesdeLaLista) {
    Entorno e;
    TresAsientos(e);
    // No keeps the entry.
    e.dialogo.responder({false});
    EXPECT_FALSE(EliminarAsientoDiario(e.sesion, e.dialogo, 2));
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList{"Está seguro de que desea eliminar el Asiento número 2?"});
    EXPECT_EQ(Llena(e, Todo(e)).Filas(), 7);
    // Yes deletes it with its VAT record and its sums in Mayor.
    e.dialogo.responder({true});
    EXPECT_TRUE(EliminarAsientoDiario(e.sesion, e.dialogo, 2));
    Conexion c = e.datos();
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Diario WHERE NAs = 2").toInt(), 0);
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM DatosIVA").toInt(), 0);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_EQ(Llena(e, Todo(e)).Filas(), 4);
    // A number without lines.
    e.dialogo.responder({true});
    e.dialogo.informados.clear();
    EXPECT_FALSE(EliminarAsientoDiario(e.sesion, e.dialogo, 99));
    EXPECT_EQ(e.dialogo.informados, QStringList{"No se pudo eliminar el Asiento."});
    // A closed exercise refuses before asking.
    e.sesion.EjCerrado = true;
    e.dialogo.preguntas.clear();
    e.dialogo.informados.clear();
    EXPECT_FALSE(EliminarAsientoDiario(e.sesion, e.dialogo, 1));
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"El ejercicio está cerrado. Puede invertir el cierre en el menú Acceso, "
                          "Ejercicio."});
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Diario WHERE NAs = 1").toInt(), 2);
}

TEST(Diario, BuscarEnLaRejilla) {
    Entorno e;
    TresAsientos(e);
    const Rejilla r = Llena(e, Todo(e));
    const auto campo = [](const char* nombre) {
        for (const CampoBusqueda& c : CamposBusquedaDiario())
            if (c.nombre == QString::fromUtf8(nombre))
                return c.columna;
        return -1;
    };
    EXPECT_EQ(CamposBusquedaDiario().size(), 12);
    EXPECT_EQ(
        QList<int>({campo("Nº Asiento"), campo("Sector"), campo("Documento"), campo("Factura")}),
        QList<int>({0, 7, 9, 13}));
    // Contains, without regard to case, from the given row on.
    const int concepto = campo("Concepto");
    EXPECT_EQ(BuscarEnRejilla(r, concepto, "COMPRA", 0), 2);
    EXPECT_EQ(BuscarEnRejilla(r, concepto, "compra", 3), 3);
    EXPECT_EQ(BuscarEnRejilla(r, concepto, "compra", 5), -1);
    EXPECT_EQ(BuscarEnRejilla(r, campo("Cliente/Proveedor"), "varios", 0), 3);
    EXPECT_EQ(BuscarEnRejilla(r, campo("Debe"), "567", 0), 5);
    EXPECT_EQ(BuscarEnRejilla(r, campo("Fecha"), "/03/", 0), 5);
    EXPECT_EQ(BuscarEnRejilla(r, concepto, "", 0), -1);
    EXPECT_EQ(BuscarEnRejilla(r, 99, "a", 0), -1);
}

TEST(Diario, TextosRapidosComoFormato) {
    QRandomGenerator g(7);
    for (int i = 0; i < 20000; ++i) {
        double v;
        switch (i % 4) {
        case 0:
            v = (g.bounded(2000001) - 1000000) / 100.0;
            break;
        case 1:
            v = g.generateDouble() * 1e9 - 5e8;
            break;
        case 2:
            v = (g.bounded(1000) - 500) / 1000.0 + 0.005; // halves of cents
            break;
        default:
            v = double(qint64(g.generate64() % 100000000000000LL)) / 100.0;
        }
        QString s;
        AnadirImporte(s, v);
        ASSERT_EQ(s, Formato(v, "standard")) << v;
    }
    for (double v : {0.0, -0.0, 0.004, -0.004, 0.005, -0.005, 2.675, 1e15, -1e15}) {
        QString s;
        AnadirImporte(s, v);
        EXPECT_EQ(s, Formato(v, "standard")) << v;
    }
    for (long long n : {0LL, 1LL, 999LL, 1000LL, 123456789LL, -4567LL}) {
        QString s;
        AnadirEnteroMiles(s, n);
        EXPECT_EQ(s, Formato(double(n), "#,###")) << n;
    }
    QString f;
    AnadirFechaCorta(f, u"2024-03-09");
    EXPECT_EQ(f, "09/03/2024");
    QString t = "a";
    AnadirTexto(t, u"b\tc");
    EXPECT_EQ(t, "ab c");
}
