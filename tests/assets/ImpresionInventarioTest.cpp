// The printed inventory on the recording surface: head, the thirteen columns with the rate as
// "#0.#0", figures right-aligned inside their room, page ends with the page number alone, and an
// empty list that prints nothing.

#include "assets/ImpresionInventario.h"
#include "ComunInventario.h"
#include "platform/ImpresoraGrabadora.h"
#include "platform/Rejilla.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

const QSizeF A4Apaisado(PaginaA4.height(), PaginaA4.width());

OpcionesLibro Opciones() {
    OpcionesLibro op;
    op.cancelado = false;
    op.margen = 567;
    op.fuente = QStringLiteral("Arial Narrow");
    op.tamano = 9;
    op.fechaTrabajo = QDate(2025, 12, 31);
    return op;
}

Rejilla Lista(Entorno& e) {
    Rejilla r = RejillaInventario();
    LlenarInventario(e.sesion, {}, r);
    return r;
}

} // namespace

TEST(ImpresionInventario, CabeceraColumnasYFila) {
    Entorno e;
    EmpresaInventario(e);
    FichaElemento f = Ficha("Mesa de reuniones de roble con doce sillas altas");
    f.Porcentaje = "12,5";
    f.Proveedor = "F-1 Muebles SA";
    const qint64 n = Alta(e, f);
    Poner(e, n, "UltimaAmort = ?, Amortizado = ?", {"2024-12-31", 1234.5});
    const Rejilla r = Lista(e);

    ImpresoraGrabadora imp(A4Apaisado);
    ImpresionInventario(r, "Pruebas SL", Opciones()).Dibujar(imp);
    ASSERT_EQ(imp.paginas(), 1) << imp.volcado().toStdString();
    const QStringList textos = imp.textosDePagina(1);
    const QStringList esperados = {"Inventario de Bienes de inversión",
                                   "Pruebas SL",
                                   "Fecha: 31/12/2025",
                                   "Elemento",
                                   "Nombre",
                                   "Naturaleza",
                                   "Fecha Adq.",
                                   "Importe",
                                   "Localización",
                                   "Fecha Baja",
                                   "Causa Baja",
                                   "Amortizable",
                                   "Porcentaje",
                                   "Fin Amortiz.",
                                   "Ultima Am.",
                                   "Amortizado"};
    ASSERT_GE(textos.size(), esperados.size());
    EXPECT_EQ(textos.mid(0, esperados.size()), esperados);
    const QStringList fila = textos.mid(esperados.size());
    // The name is cut to its room; the supplier is not printed; empty cells print nothing.
    ASSERT_EQ(fila.size(), 11) << fila.join(" | ").toStdString();
    EXPECT_EQ(fila.at(0), "00000001");
    EXPECT_TRUE(f.Nombre.startsWith(fila.at(1)));
    EXPECT_LT(fila.at(1).size(), f.Nombre.size());
    EXPECT_EQ(fila.mid(2), QStringList({"Material", "15/06/2020", "1.000,00", "Oficina", "SI",
                                        "12,50", "31/12/2024", "1.234,50", "Página nº 1"}));

    // Figures end at their column's right edge, inside the sheet.
    const QList<ColumnaLibro> cols = ColumnasLibroInventario(567, A4Apaisado.width() - 600);
    ASSERT_EQ(cols.size(), 13);
    const Trazo* importe = imp.buscar("1.000,00");
    ASSERT_TRUE(importe);
    EXPECT_NEAR(importe->x + importe->ancho, cols.at(4).x, 0.5);
    const Trazo* amortizado = imp.buscar("1.234,50");
    ASSERT_TRUE(amortizado);
    EXPECT_NEAR(amortizado->x + amortizado->ancho, cols.at(12).x, 0.5);
    EXPECT_LT(cols.at(12).x, A4Apaisado.width() - 600);
    for (int i = 1; i < cols.size(); ++i)
        EXPECT_GT(cols.at(i).x, cols.at(i - 1).x) << i;
}

TEST(ImpresionInventario, PaginasConSuNumeroYListaVaciaSinNada) {
    Entorno e;
    EmpresaInventario(e);
    {
        ImpresoraGrabadora imp(A4Apaisado);
        const Rejilla vacia = Lista(e);
        ImpresionInventario(vacia, "Pruebas SL", Opciones()).Dibujar(imp);
        EXPECT_EQ(imp.paginas(), 0);
        EXPECT_TRUE(imp.textos().isEmpty());
    }
    for (int i = 0; i < 60; ++i)
        Alta(e, Ficha(QStringLiteral("Silla %1").arg(i + 1)));
    const Rejilla r = Lista(e);
    ImpresoraGrabadora imp(A4Apaisado);
    ImpresionInventario(r, "Pruebas SL", Opciones()).Dibujar(imp);
    ASSERT_GE(imp.paginas(), 2);
    int filas = 0;
    for (int p = 1; p <= imp.paginas(); ++p) {
        const QStringList t = imp.textosDePagina(p);
        EXPECT_EQ(t.first(), "Inventario de Bienes de inversión") << p;
        EXPECT_EQ(t.last(), QStringLiteral("Página nº %1").arg(p)) << p;
        filas += int(t.filter(QRegularExpression("^000000\\d\\d$")).size());
        // The page number stands at the foot, below every row.
        const Trazo* pie = imp.buscar(QStringLiteral("Página nº %1").arg(p));
        ASSERT_TRUE(pie);
        EXPECT_DOUBLE_EQ(pie->y, A4Apaisado.height() - PiePaginaInventario);
        for (const Trazo& o : imp.textos()) {
            if (o.pagina == p && o.texto != pie->texto) {
                EXPECT_LT(o.y, A4Apaisado.height() - FinPaginaInventario) << o.texto.toStdString();
            }
        }
    }
    EXPECT_EQ(filas, 60);
    EXPECT_FALSE(imp.buscar("Suma y sigue . . ."));
    EXPECT_FALSE(imp.buscar("Totales . . . . . . . . . . . ."));
}
