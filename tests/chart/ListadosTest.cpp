// The printed lists: titles, heading, columns, rows cut to their column, pages with their number.

#include "chart/Listados.h"
#include "PlanPrueba.h"
#include "chart/Aparcar.h"
#include "chart/Conceptos.h"
#include "platform/ExportarRejilla.h"
#include "platform/ImpresoraGrabadora.h"

#include <QTextStream>

namespace {

using Listados = PlanPrueba;

TEST_F(Listados, SubcuentasDeUnAreaEnUnaPagina) {
    const Listado l = ListadoPlan(e.sesion, 4, false);
    ImpresoraGrabadora imp;
    DibujarListado(imp, l);
    ASSERT_EQ(imp.paginas(), 1) << imp.volcado().toStdString();
    const QStringList t = imp.textosDePagina(1);
    ASSERT_GE(t.size(), 8);
    EXPECT_EQ(t.mid(0, 6), QStringList({"Listado de Subcuentas", "Empresa: Pruebas SL",
                                        "Area: (4) - NOS DEBEN", "Código", "Subcuenta", "Cuenta"}));
    EXPECT_EQ(t.last(), "Página nº 1");
    const Trazo* titulo = imp.buscar("Listado de Subcuentas");
    EXPECT_TRUE(titulo->negrita);
    EXPECT_EQ(titulo->tamano, 13);
    // A row: code, name and account on one line, in their columns.
    const Trazo* codigo = imp.buscar("443000022");
    const Trazo* nombre = imp.buscar("Clientes varios");
    ASSERT_TRUE(codigo && nombre);
    EXPECT_EQ(codigo->y, nombre->y);
    EXPECT_LT(codigo->x + codigo->ancho, nombre->x);
    EXPECT_EQ(imp.documentosTerminados(), 1);
}

TEST_F(Listados, CuentasEnVariasPaginasConSuNumero) {
    const Listado l = ListadoPlan(e.sesion, 5, true); // 100 accounts
    ASSERT_EQ(l.rejilla.Filas(), 100);
    ImpresoraGrabadora imp;
    DibujarListado(imp, l);
    ASSERT_GE(imp.paginas(), 2);
    int filas = 0;
    for (int p = 1; p <= imp.paginas(); ++p) {
        const QStringList t = imp.textosDePagina(p);
        EXPECT_EQ(t.first(), "Listado de Cuentas") << p;
        EXPECT_EQ(t.at(2), "Area: (5) - Bienes e Inversiones") << p;
        EXPECT_EQ(t.last(), TextoPagina + QString::number(p));
        filas += (t.size() - 6) / 2; // title, 2 heading lines, 2 column titles, foot
    }
    EXPECT_EQ(filas, l.rejilla.Filas());
    // No row runs into the foot.
    double pie = 0, ultimaFila = 0;
    for (const Trazo& t : imp.textos())
        if (t.pagina == 1) {
            if (t.texto.startsWith(TextoPagina))
                pie = t.y;
            else
                ultimaFila = std::max(ultimaFila, t.y);
        }
    EXPECT_LT(ultimaFila + 200, pie);
    // Long names are cut to their column.
    for (const Trazo& t : imp.textos())
        EXPECT_LE(t.x + t.ancho, 1000 + 900 + 8800) << t.texto.toStdString();
}

TEST_F(Listados, AparcarTiposDeIvaYConceptos) {
    e.dialogo.responder({true, true});
    ASSERT_TRUE(Aparcar(e.sesion, e.dialogo, "157200003"));
    ASSERT_TRUE(GuardarConcepto(e.sesion, e.dialogo, "3", "Venta de mercaderías"));
    ImpresoraGrabadora imp;
    DibujarListado(imp, ListadoAparcar(e.sesion, 1));
    QStringList t = imp.textosDePagina(1);
    EXPECT_EQ(t.mid(0, 6),
              QStringList({"LISTADO DE CUENTAS", "Empresa: Pruebas SL", "Area: CUENTAS Y EFECTIVO",
                           "CUENTA", "APARCADA", "DESDE"}));
    EXPECT_EQ(t.mid(6, 4), QStringList({"Banco", "SI", "2024", "Caja"}));

    ImpresoraGrabadora iva;
    DibujarListado(iva, ListadoTiposIva(e.sesion));
    t = iva.textosDePagina(1);
    EXPECT_EQ(t.mid(0, 5), QStringList({"Subcuentas de IVA", "Empresa: Pruebas SL", "Tipo",
                                        "Concepto", "Clase"}));
    EXPECT_TRUE(t.contains("5,2"));
    // Rates are figures: aligned on the right edge of their column.
    const Trazo* diez = iva.buscar("10");
    const Trazo* cuatro = iva.buscar("4");
    ASSERT_TRUE(diez && cuatro);
    EXPECT_DOUBLE_EQ(diez->x + diez->ancho, cuatro->x + cuatro->ancho);

    const Listado conceptos = ListadoConceptos(e.sesion);
    ImpresoraGrabadora imc;
    DibujarListado(imc, conceptos);
    EXPECT_EQ(imc.textosDePagina(1).mid(0, 6),
              QStringList({"Conceptos predefinidos", "Empresa: Pruebas SL", "Código", "Concepto",
                           "3", "Venta de mercaderías"}));
    // The same grid is what is exported.
    QString texto;
    QTextStream salida(&texto);
    EscribirDelimitado(conceptos.rejilla, salida);
    salida.flush();
    EXPECT_EQ(texto, "Código\tConcepto\n3\tVenta de mercaderías\n");
}

} // namespace
