// The printout of the entry on the posting screen, on the recording surface.

#include "posting/ImprimirAsiento.h"
#include "ComunAsientos.h"
#include "platform/ImpresoraGrabadora.h"
#include "platform/ImpresoraPintor.h"
#include "posting/GestionAsientos.h"

#include <QDir>
#include <gtest/gtest.h>
#include <tuple>

using namespace cuentas;

namespace {

void llenar(RejillaAsiento& r, int lineas) {
    for (int i = 0; i < lineas; ++i) {
        const int f = r.anadirFila();
        r.fijar(f, ColF4::Cuenta, i % 2 ? "Banco" : "Compras de mercaderías con un nombre largo");
        r.fijar(f, ColF4::Concepto, "Factura 17 del proveedor habitual, con su descripción entera");
        r.fijarImporte(f, i % 2 ? ColF4::Haber : ColF4::Debe, 1234.5 + i);
    }
}

TEST(ImprimirAsiento, CabecerasLineasYSumas) {
    ImpresoraGrabadora imp;
    RejillaAsiento r;
    llenar(r, 4);
    ImprimirAsiento(imp, r, {1234, "15/03/2024", "Arial", 9, 567});
    ASSERT_EQ(imp.paginas(), 1) << imp.volcado().toStdString();
    const QStringList t = imp.textosDePagina(1);
    EXPECT_EQ(t.mid(0, 6), QStringList({"Asiento nº: 1.234", "Fecha: 15/03/2024", "Cuenta",
                                        "Concepto", "Debe", "Haber"}));
    const Trazo* debe = imp.buscar("Debe");
    const Trazo* haber = imp.buscar("Haber");
    const Trazo* importe = imp.buscar("1.234,50");
    const Trazo* suma = imp.buscar("2.471,00");
    ASSERT_TRUE(debe && haber && importe && suma) << imp.volcado().toStdString();
    EXPECT_DOUBLE_EQ(importe->x + importe->ancho, debe->x + debe->ancho) << "figures right-aligned";
    EXPECT_TRUE(suma->negrita);
    EXPECT_DOUBLE_EQ(suma->x + suma->ancho, debe->x + debe->ancho);
    const Trazo* sumaHaber = imp.buscar("2.473,00");
    ASSERT_TRUE(sumaHaber);
    EXPECT_DOUBLE_EQ(sumaHaber->x + sumaHaber->ancho, haber->x + haber->ancho);
    // Long names and descriptions are cut to their columns, never over the amounts.
    for (const Trazo& l : imp.textos())
        if (l.texto.startsWith("Factura 17"))
            EXPECT_LT(l.x + l.ancho, debe->x + debe->ancho - imp.AnchoTexto("1.234,50"));
    EXPECT_EQ(imp.buscar("Asiento nº: 1.234")->x, 567);
}

TEST(ImprimirAsiento, MuchasLineasSiguenEnOtraPaginaConCabecera) {
    ImpresoraGrabadora imp;
    RejillaAsiento r;
    llenar(r, 150);
    ImprimirAsiento(imp, r, {7, "01/02/2024"});
    EXPECT_GE(imp.paginas(), 2);
    EXPECT_EQ(imp.textosDePagina(2).first(), "Asiento nº: 7");
    int lineas = 0;
    for (const Trazo& t : imp.textos())
        lineas += t.texto.startsWith("Factura 17");
    EXPECT_EQ(lineas, 150);
    // A person looks at the PDF when QUILMAR_CAPTURAS names a folder.
    const QString carpeta = qEnvironmentVariable("QUILMAR_CAPTURAS");
    if (!carpeta.isEmpty())
        ImprimirPdf(QDir(carpeta).filePath("asiento.pdf"), [&](Impresora& i, int) {
            ImprimirAsiento(i, r, {1234, "15/03/2024"});
        });
}

TEST(ImprimirAsiento, DesdeLaGestionDeAsientosConSuDescuadre) {
    // The maintenance grid keeps its columns elsewhere, and the heading shows the difference.
    ImpresoraGrabadora imp;
    RejillaF7 r;
    for (const auto& [cuenta, debe, haber] :
         {std::tuple{"Compras", "100,00", ""}, std::tuple{"Banco", "", "95,00"}}) {
        const int f = r.anadirFila();
        r.fijar(f, ColF7::Cuenta, cuenta);
        r.fijar(f, ColF7::Concepto, "Pago");
        r.fijar(f, ColF7::Debe, debe);
        r.fijar(f, ColF7::Haber, haber);
    }
    ImprimirAsiento(imp, r, {12, "15/03/2024"}, ColumnasF7(), QStringLiteral("5,00"));
    const QStringList t = imp.textosDePagina(1);
    EXPECT_EQ(t.mid(0, 7), QStringList({"Asiento nº: 12", "Fecha: 15/03/2024", "Descuadre: 5,00",
                                        "Cuenta", "Concepto", "Debe", "Haber"}));
    for (const char* texto : {"Compras", "Banco", "100,00", "95,00"})
        EXPECT_NE(imp.buscar(texto), nullptr) << texto;
}

} // namespace
