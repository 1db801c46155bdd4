// The four tax books from the journal and the VAT records: which lines and records enter, the
// invoice of the entry's first record, credit notes, the regularisation left out, periods and
// sectors (a quote included), the flags of the entry number and the NIF, the totals per rate in
// order of first appearance and in single precision, and the checks of the selection.

#include "ComunLibrosIva.h"
#include "store/Formato.h"
#include "store/Sesion.h"

#include <gtest/gtest.h>

using namespace iva;

namespace {

QList<QStringList> Filas(const Rejilla& r) {
    QList<QStringList> f;
    for (int i = 0; i < r.Filas(); ++i)
        f << r.Fila(i);
    return f;
}

// Sales and purchases of 2024, numbered in the order posted:
//  1 10/01 sale F-1, 21%              2 05/02 sale F-2 on two income lines
//  3 05/02 sale with two records F-3a (21%) and F-3b (10%); the sale and F-3a in "D'Ana"
//  4 01/03 bank interest, no record   5 15/03 a return of goods (debit on sales), no record
//  6 01/04 purchase P-77, 21%         7 31/12 the regularisation of sales and purchases
struct Ventas2024 : Entorno {
    Ventas2024() {
        crearEmpresa();
        asiento(QDate(2024, 1, 10), {Debe(Clientes, 121), Haber(Ventas, 100, "Venta F-1"),
                                     ConIva(Haber(Rep21, 21), Clientes, "F-1", 100, 21)});
        asiento(QDate(2024, 2, 5), {Debe(Clientes, 121), Haber(Ventas, 60), Haber(Servicios, 40),
                                    ConIva(Haber(Rep21, 21), Clientes, " F-2 ", 100, 21)});
        asiento(QDate(2024, 2, 5),
                {Debe(Deudores, 176), EnSector(Haber(Ventas, 150), "D'Ana"),
                 EnSector(ConIva(Haber(Rep21, 21), Deudores, "F-3a", 100, 21), "D'Ana"),
                 ConIva(Haber(Rep10, 5), Deudores, "F-3b", 50, 10)});
        asiento(QDate(2024, 3, 1), {Debe(Banco, 12.34), Haber(Intereses, 12.34)});
        asiento(QDate(2024, 3, 15), {Debe(Ventas, 30), Haber(Clientes, 30)});
        asiento(QDate(2024, 4, 1),
                {Debe(Compras, 200), ConIva(Debe(Sop21, 42), Proveedor, "P-77", 200, 21),
                 Haber(Banco, 242)});
        OpcionesEscritura r;
        r.Clase = QStringLiteral("R");
        Conexion c = datos();
        EscribirAsiento(c, sesion, QDate(2024, 12, 31),
                        {Debe(Ventas, 280), Haber(Compras, 200), Haber(Banco, 80)}, r);
    }
};

} // namespace

TEST(LibroIngresosGastos, LineasDelDiarioConLaFacturaDelAsiento) {
    Ventas2024 e;
    const LibroLleno ing = Libro(e, LibroIva::Ingresos);
    EXPECT_EQ(ing.r.Titulos(), (QStringList{"Nº Orden", "Asiento", "Fecha", "Factura", "Concepto",
                                            "Importe", "NCuenta"}));
    // Every 7 line but the regularisation's, by date: two lines of one invoice repeat it; the
    // entry with two records takes the first; a line without a record has no invoice; the
    // return of goods reduces the book.
    EXPECT_EQ(
        Filas(ing.r),
        (QList<QStringList>{
            {"1,00", "1", "10/01/2024", "F-1", "Ventas de mercaderías", "100,00", Ventas},
            {"2,00", "2", "05/02/2024", "F-2", "Ventas de mercaderías", "60,00", Ventas},
            {"3,00", "2", "05/02/2024", "F-2", "Prestaciones de servicios", "40,00", Servicios},
            {"4,00", "3", "05/02/2024", "F-3a", "Ventas de mercaderías", "150,00", Ventas},
            {"5,00", "4", "01/03/2024", "", "Otros ingresos financieros", "12,34", Intereses},
            {"6,00", "5", "15/03/2024", "", "Ventas de mercaderías", "-30,00", Ventas}}));
    EXPECT_EQ(TotalBajoLista(ing.r), "332,34");
    EXPECT_DOUBLE_EQ(ing.res.total, 332.34);
    EXPECT_TRUE(ing.r.columna(ColLibNCuenta).oculta);
    EXPECT_FALSE(ing.r.columna(ColLibAsiento).oculta);

    // The expense book names the supplier of the entry's record, Debe - Haber.
    const LibroLleno gas = Libro(e, LibroIva::Gastos, false);
    EXPECT_EQ(gas.r.Titulos().at(ColLibFactura), "Expedidor");
    EXPECT_EQ(Filas(gas.r), (QList<QStringList>{{"1,00", "6", "01/04/2024", "Proveedores varios",
                                                 "Compras de mercaderías", "200,00", Compras}}));
    EXPECT_EQ(TotalBajoLista(gas.r), "200,00");
    // Without "Asiento" the column is hidden.
    EXPECT_TRUE(gas.r.columna(ColLibAsiento).oculta);
}

TEST(LibroIngresosGastos, PeriodoSectorYLibroVacio) {
    Ventas2024 e;
    SeleccionLibroIva sel;
    sel.libro = LibroIva::Ingresos;
    // Both dates are in the period.
    sel.desde = QDate(2024, 2, 5);
    sel.hasta = QDate(2024, 3, 1);
    LibroLleno l = Libro(e, sel);
    EXPECT_EQ(l.r.Filas(), 4);
    EXPECT_EQ(l.r.Celda(0, ColLibOrden), "1,00");
    EXPECT_EQ(TotalBajoLista(l.r), "262,34");

    // A sector whose name holds a quote: only its line.
    sel.desde = e.sesion.FechaIniEj;
    sel.hasta = e.sesion.FechaFinEj;
    sel.sector = QStringLiteral("D'Ana");
    l = Libro(e, sel);
    ASSERT_EQ(l.r.Filas(), 1);
    EXPECT_EQ(l.r.Celda(0, ColLibImporte), "150,00");
    EXPECT_EQ(TotalBajoLista(l.r), "150,00");

    // The last day of the year holds only the regularisation: nothing, and a total of zero.
    sel.sector.clear();
    sel.desde = sel.hasta = QDate(2024, 12, 31);
    l = Libro(e, sel);
    EXPECT_EQ(l.r.Filas(), 0);
    EXPECT_EQ(TotalBajoLista(l.r), "0,00");
    EXPECT_EQ(l.res.registros, 0);
}

namespace {

// The invoices of Ventas2024 and, after them, a sale of food with surcharge (IVA 4% and a
// surcharge at the same 4%), two purchases, and a sale posted last but dated first.
struct Facturas2024 : Ventas2024 {
    Facturas2024() {
        asiento(QDate(2024, 2, 20),
                {Debe(Deudores, 1080), Haber(Ventas, 1000),
                 ConIva(Haber(Rep4, 40), Deudores, "F-4", 1000, 4),
                 ConIva(Haber(Rec52, 40), Deudores, "F-4", 1000, 4, QStringLiteral("Recargo"))});
        asiento(
            QDate(2024, 4, 2),
            {Debe(Compras, 100), ConIva(Debe(Sop10, 10), Acreedor, "P-78", 100, 10),
             ConIva(Debe("447200031", 5.2), Acreedor, "P-78", 100, 5.2, QStringLiteral("Recargo")),
             Haber(Banco, 115.2)});
        asiento(QDate(2024, 1, 5), {Debe(Deudores, 22), Haber(Ventas, 20),
                                    ConIva(Haber(Rep10, 2), Deudores, "F-0", 20, 10)});
    }
};

} // namespace

TEST(LibroFacturas, ExpedidasConTotalesPorTipoEnOrdenDeAparicion) {
    Facturas2024 e;
    const LibroLleno l = Libro(e, LibroIva::Expedidas);
    const Rejilla& r = l.r;
    EXPECT_EQ(r.Titulos(), (QStringList{"Asiento", "Fecha", "Factura", "NIF", "Destinatario",
                                        "B.I. IVA", "B.I. Recargo", "Tipo", "Cuota", "NCuenta"}));
    EXPECT_EQ(l.res.registros, 7);
    // The records by date, the surcharge's base in its own column, the empty row, then the
    // rates in the order they first appear by date (10, 21, 4), not by size nor as posted.
    EXPECT_EQ(Filas(r), (QList<QStringList>{
                            {"10", "05/01/2024", "F-0", "B45678901", "Deudores varios", "20,00", "",
                             "10", "2,00", Deudores},
                            {"1", "10/01/2024", "F-1", "B34567891", "Clientes varios", "100,00", "",
                             "21", "21,00", Clientes},
                            {"2", "05/02/2024", "F-2", "B34567891", "Clientes varios", "100,00", "",
                             "21", "21,00", Clientes},
                            {"3", "05/02/2024", "F-3a", "B45678901", "Deudores varios", "100,00",
                             "", "21", "21,00", Deudores},
                            {"3", "05/02/2024", "F-3b", "B45678901", "Deudores varios", "50,00", "",
                             "10", "5,00", Deudores},
                            {"8", "20/02/2024", "F-4", "B45678901", "Deudores varios", "1.000,00",
                             "", "4", "40,00", Deudores},
                            {"8", "20/02/2024", "F-4", "B45678901", "Deudores varios", "",
                             "1.000,00", "4", "40,00", Deudores},
                            QStringList(10),
                            {"", "", "", "", "Total IVA al 10%", "70", "", "10", "7", ""},
                            {"", "", "", "", "Total IVA al 21%", "300", "", "21", "63", ""},
                            {"", "", "", "", "Total IVA al 4%", "1000", "", "4", "40", ""},
                            {"", "", "", "", "Total Recargo al 4%", "", "1000", "4", "40", ""}}));
    // The total rows in dark blue from the party's column on; nothing else painted.
    for (int f = 0; f < r.Filas(); ++f)
        for (int c = 0; c < r.Columnas(); ++c) {
            const bool pintada = f > 7 && c >= ColExpDestinatario;
            EXPECT_EQ(r.Color(f, c), pintada ? std::optional<quint32>(0x0000C0) : std::nullopt)
                << f << "," << c;
        }
    ASSERT_EQ(l.res.iva.size(), 3);
    ASSERT_EQ(l.res.recargo.size(), 1);
}

TEST(LibroFacturas, RecibidasSinRecargoEnLosTotalesYSinAsientoNiNif) {
    Facturas2024 e;
    LibroLleno l = Libro(e, LibroIva::Recibidas, false, false);
    const Rejilla& r = l.r;
    EXPECT_EQ(r.Titulos(), (QStringList{"Nº Orden", "Asiento", "Fecha", "Factura", "NIF",
                                        "Expedidor", "B.I. IVA", "Tipo", "Cuota", "NCuenta"}));
    // The surcharge record is listed without a base and stays out of the totals.
    EXPECT_EQ(Filas(r), (QList<QStringList>{
                            {"1,00", "", "01/04/2024", "P-77", "", "Proveedores varios", "200,00",
                             "21", "42,00", Proveedor},
                            {"2,00", "", "02/04/2024", "P-78", "", "Acreedores varios", "100,00",
                             "10", "10,00", Acreedor},
                            {"3,00", "", "02/04/2024", "P-78", "", "Acreedores varios", "", "5,2",
                             "5,20", Acreedor},
                            QStringList(10),
                            {"", "", "", "", "", "Total IVA al 21%", "200", "21", "42", ""},
                            {"", "", "", "", "", "Total IVA al 10%", "100", "10", "10", ""}}));
    EXPECT_TRUE(r.columna(ColRecAsiento).oculta);
    EXPECT_TRUE(r.columna(ColRecNIF).oculta);
    EXPECT_TRUE(l.res.recargo.isEmpty());
    EXPECT_EQ(r.Color(4, ColRecExpedidor), std::optional<quint32>(0x0000C0));
    EXPECT_EQ(r.Color(4, ColRecNIF), std::nullopt);

    // With the flags the cells are filled and the columns shown.
    l = Libro(e, LibroIva::Recibidas, true, true);
    EXPECT_EQ(l.r.Fila(0).mid(ColRecAsiento, 1) + l.r.Fila(0).mid(ColRecNIF, 1),
              (QStringList{"6", "B12345674"}));
    EXPECT_FALSE(l.r.columna(ColRecAsiento).oculta);
    EXPECT_FALSE(l.r.columna(ColRecNIF).oculta);

    // A period without records: the one empty row and no totals. A sector with a quote works.
    SeleccionLibroIva sel;
    sel.libro = LibroIva::Recibidas;
    sel.desde = QDate(2024, 6, 1);
    sel.hasta = QDate(2024, 6, 30);
    l = Libro(e, sel);
    EXPECT_EQ(Filas(l.r), QList<QStringList>{QStringList(10)});
    sel.libro = LibroIva::Expedidas;
    sel.verAsiento = sel.verNIF = true;
    sel.desde = e.sesion.FechaIniEj;
    sel.hasta = e.sesion.FechaFinEj;
    sel.sector = QStringLiteral("D'Ana");
    l = Libro(e, sel);
    // The sector of a record is the one of its VAT line: F-3b's line has none.
    EXPECT_EQ(Filas(l.r), (QList<QStringList>{
                              {"3", "05/02/2024", "F-3a", "B45678901", "Deudores varios", "100,00",
                               "", "21", "21,00", Deudores},
                              QStringList(10),
                              {"", "", "", "", "Total IVA al 21%", "100", "", "21", "21", ""}}));
}

TEST(LibroFacturas, TotalesEnPrecisionSimple) {
    Entorno e;
    e.crearEmpresa();
    // Two bases whose float sum loses two cents: 100000,01 is 100000,0078125 as a float, and
    // adding 0,01 lands on 100000,015625, written with seven figures as 100000.
    e.asiento(QDate(2024, 5, 2), {Debe(Clientes, 121000.01), Haber(Ventas, 100000.01),
                                  ConIva(Haber(Rep21, 21000), Clientes, "G-1", 100000.01, 21)});
    e.asiento(QDate(2024, 5, 3), {Debe(Clientes, 0.02), Haber(Ventas, 0.01),
                                  ConIva(Haber(Rep21, 0.01), Clientes, "G-2", 0.01, 21)});
    const LibroLleno l = Libro(e, LibroIva::Expedidas);
    ASSERT_EQ(l.r.Filas(), 4);
    EXPECT_EQ(l.r.Celda(0, ColExpBaseIva), "100.000,01");
    EXPECT_EQ(l.r.Celda(1, ColExpBaseIva), "0,01");
    EXPECT_EQ(l.r.Celda(3, ColExpBaseIva), "100000");
    EXPECT_EQ(l.r.Celda(3, ColExpCuota), "21000,01");
    // In double precision the same two bases make 100.000,02.
    EXPECT_EQ(Formato(ASimple(100000.01) + ASimple(0.01), "standard"), "100.000,02");
    ASSERT_EQ(l.res.iva.size(), 1);
    EXPECT_EQ(l.res.iva[0].base, 100000.015625f);

    // The plain text of a single.
    EXPECT_EQ(
        QStringList({TextoSimple(0), TextoSimple(5.2f), TextoSimple(0.5f), TextoSimple(1234.5f),
                     TextoSimple(-30), TextoSimple(9999999), TextoSimple(12345678)}),
        QStringList({"0", "5,2", "0,5", "1234,5", "-30", "9999999", "1,234568E+07"}));
}

TEST(SeleccionLibroIva, FechasInvertidasYFueraDelEjercicio) {
    Entorno e;
    e.crearEmpresa();
    SeleccionLibroIva sel;
    sel.desde = QDate(2024, 3, 2);
    sel.hasta = QDate(2024, 3, 1);
    EXPECT_FALSE(ValidarSeleccionLibroIva(sel, e.sesion, e.dialogo));
    sel.hasta = QDate(2025, 1, 1);
    EXPECT_FALSE(ValidarSeleccionLibroIva(sel, e.sesion, e.dialogo));
    sel.desde = QDate(2023, 12, 31);
    sel.hasta = QDate(2024, 12, 31);
    EXPECT_FALSE(ValidarSeleccionLibroIva(sel, e.sesion, e.dialogo));
    EXPECT_EQ(e.dialogo.informados,
              QStringList({MsgLibroFechas, MsgLibroFueraEjercicio, MsgLibroFueraEjercicio}));
    // One day, the first and the last of the exercise, is a period.
    sel.desde = sel.hasta = QDate(2024, 1, 1);
    EXPECT_TRUE(ValidarSeleccionLibroIva(sel, e.sesion, e.dialogo));
    EXPECT_EQ(e.dialogo.informados.size(), 3);
}
