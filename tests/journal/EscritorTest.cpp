// The journal writer: order of lines, Mayor, VAT keys, refusals that leave nothing written.

#include "journal/Escritor.h"
#include "posting/ComunAsientos.h"
#include "store/Conexiones.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace cuentas;

namespace {

// "NAp|NCuenta|Debe|Haber|Concepto" per line of an entry.
QStringList lineas(Conexion& c, long nas) {
    return Filas(
        c, "SELECT NAp, NCuenta, Debe, Haber, Concepto FROM Diario WHERE NAs = ? ORDER BY NAp",
        {static_cast<qlonglong>(nas)});
}

class Escritor : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }
    Entorno e;
};

TEST_F(Escritor, LineasDelDebePrimeroYMayorAlDia) {
    const long n =
        e.asiento(QDate(2024, 3, 1), {Haber(Banco, 50, "Pago"), Debe(Compras, 30, "Pago"),
                                      Haber(Caja, 0), Debe(Compras, 20, "Pago")});
    EXPECT_EQ(n, 1);
    Conexion c = e.datos();
    EXPECT_EQ(lineas(c, 1),
              QStringList({"1|" + Compras + "|30|0|Pago", "2|" + Compras + "|20|0|Pago",
                           "3|" + Banco + "|0|50|Pago"}))
        << "a line of zero is not written";
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = ?", {Compras}).toDouble(), 50);
    EXPECT_EQ(e.asiento(QDate(2024, 3, 2), {Debe(Caja, 10), Haber(Ventas, 10)}), 2);
    EXPECT_EQ(e.sesion.UltimoAsiento, 2.0f);
}

TEST_F(Escritor, ConceptoCortadoACuarentaYCentimosRedondeados) {
    const QString largo = "Factura de suministros varios del mes de marzo, con recargo";
    e.asiento(QDate(2024, 3, 1), {Debe(Compras, 0.1 + 0.2, largo), Haber(Caja, 0.3, largo)});
    Conexion c = e.datos();
    EXPECT_EQ(lineas(c, 1).value(0), "1|" + Compras + "|0.3|0|" + largo.left(40).trimmed());
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = ?", {Compras}).toDouble(), 0.3);
}

TEST_F(Escritor, ClavesDeIvaUnicasEIgualesEnDiarioYDatosIVA) {
    auto iva = [](double cuota, const QString& factura) {
        Apunte a = Debe(IvaSop21, cuota);
        a.Iva = DatosIvaApunte{Proveedor, factura, cuota * 100 / 21, 21, cuota};
        return a;
    };
    e.asiento(QDate(2024, 3, 1),
              {Debe(Compras, 300), iva(21, "F1"), iva(42, "F2"), Haber(Proveedor, 363)});
    e.asiento(QDate(2024, 3, 1), {Debe(Compras, 100), iva(21, "F3"), Haber(Proveedor, 121)});
    Conexion c = e.datos();
    EXPECT_EQ(c.escalar("SELECT COUNT(DISTINCT IdIVA) FROM DatosIVA").toInt(), 3);
    EXPECT_EQ(
        c.escalar("SELECT COUNT(*) FROM Diario d JOIN DatosIVA v ON v.IdIVA = d.IdIVA").toInt(), 3);
    QStringList registros;
    QSqlQuery q = c.ejecutar("SELECT CP || NFactura || ':' || Fecha FROM DatosIVA ORDER BY IdIVA");
    while (q.next())
        registros << q.value(0).toString();
    EXPECT_EQ(registros.join(','), "PF1:2024-03-01,PF2:2024-03-01,PF3:2024-03-01");
}

TEST_F(Escritor, SinLineaQueEscribirNoHayRegistroDeIva) {
    // A VAT line of 0 is not written, so its VAT record would bind to nothing.
    Apunte iva = Debe(IvaSop21, 0);
    iva.Iva = DatosIvaApunte{Proveedor, "F0", 0, 21, 0};
    Apunte negativa = Haber(IvaSop21, -3);
    negativa.Iva = DatosIvaApunte{Proveedor, "F1", 0, 21, -3};
    e.asiento(QDate(2024, 3, 1), {Debe(Compras, 100), iva, negativa, Haber(Proveedor, 100)});
    Conexion c = e.datos();
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM DatosIVA").toInt(), 0);
    // Entry maintenance writes negative amounts, and their VAT records with them.
    OpcionesEscritura o;
    o.pasada = PasadaImportes::NoCero;
    EscribirAsiento(c, e.sesion, QDate(2024, 3, 1),
                    {Debe(Compras, 100), negativa, Haber(Proveedor, 97)}, o);
    EXPECT_EQ(
        c.escalar("SELECT NFactura FROM DatosIVA v JOIN Diario d ON d.IdIVA = v.IdIVA").toString(),
        "F1");
}

TEST_F(Escritor, RechazosNoDejanNadaEscrito) {
    auto mensaje = [&](const QDate& f, const QList<Apunte>& a) {
        try {
            e.asiento(f, a);
        } catch (const ErrorQuilmar& r) {
            return r.mensaje();
        }
        return QString();
    };
    Apunte iva = Debe(IvaSop21, 21);
    iva.Iva = DatosIvaApunte{Proveedor, "F", 100, 21, 21};
    EXPECT_EQ(mensaje(QDate(2024, 3, 1), {iva, Debe(Compras, 100), Haber("999999999", 121)}),
              "No existe la subcuenta 999999999.");
    EXPECT_EQ(mensaje(QDate(2025, 1, 1), {Debe(Compras, 1), Haber(Caja, 1)}),
              "La fecha introducida no pertenece al año de trabajo.");
    // Whoever calls it, the writer keeps out what is not an amount of the books or not a text of
    // its field: Mayor would hold Inf and NaN, and the entry could not be deleted.
    const QString limites = " no es válido: debe ser un número entre -999.999.999.999,99 y "
                            "999.999.999.999,99.";
    const double inf = std::numeric_limits<double>::infinity();
    Apunte base = iva;
    base.Iva->Base = 1e13;
    Apunte documento = Debe(Compras, 1);
    documento.Documento = QString(31, QLatin1Char('x'));
    Apunte retencion = iva;
    retencion.Iva->Retencion = std::nan("");
    const struct {
        QList<Apunte> lineas;
        QString mensaje;
    } casos[] = {
        {{Debe(Compras, inf), Haber(Caja, inf)}, "El importe «inf»" + limites},
        {{Debe(Compras, 1e308), Haber(Caja, 1e308)}, "El importe «1e+308»" + limites},
        {{Debe(Compras, 1e12), Haber(Caja, 1e12)}, "El importe «1000000000000»" + limites},
        {{Debe(Compras, -1e12), Haber(Caja, -1e12)}, "El importe «-1000000000000»" + limites},
        {{Debe(Compras, std::nan("")), Haber(Caja, 0)}, "El importe «nan»" + limites},
        {{base, Debe(Compras, 100), Haber(Proveedor, 121)},
         "El importe «10000000000000»" + limites},
        {{retencion, Debe(Compras, 100), Haber(Proveedor, 121)}, "El importe «nan»" + limites},
        {{Debe(Compras, 1, "Luz\x1b[31m 9.999,00"), Haber(Caja, 1)},
         "El campo Concepto no admite tabuladores, saltos de línea ni otros caracteres de "
         "control."},
        {{documento, Haber(Caja, 1)}, "El campo Documento no puede tener más de 30 caracteres."},
    };
    for (const auto& c : casos)
        EXPECT_EQ(mensaje(QDate(2024, 3, 1), c.lineas), c.mensaje);
    EXPECT_EQ(e.sesion.UltimoAsiento, 0.0f);
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    EXPECT_EQ(mensaje(QDate(2024, 3, 1), {Debe(Compras, 1), Haber(Caja, 1)}),
              "El ejercicio está cerrado. Puede invertir el cierre en el menú Acceso, Ejercicio.");
    EXPECT_TRUE(e.sesion.EjCerrado) << "the closed state is read from the exercise";
    Conexion c = e.datos();
    for (const char* t : {"Diario", "Mayor", "DatosIVA"})
        EXPECT_EQ(c.escalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(t)).toInt(), 0) << t;
}

TEST_F(Escritor, ElimAsientoDevuelveMayorYBorraSuIva) {
    Apunte iva = Debe(IvaSop21, 21);
    iva.Iva = DatosIvaApunte{Proveedor, "F", 100, 21, 21};
    e.asiento(QDate(2024, 3, 1), {Debe(Compras, 100), iva, Haber(Proveedor, 121)});
    e.asiento(QDate(2024, 3, 2), {Debe(Caja, 5), Haber(Ventas, 5)});
    e.asiento(QDate(2024, 3, 3), {Debe(Compras, 7), Haber(Caja, 7)});
    Conexion c = e.datos();
    EXPECT_TRUE(ElimAsiento(c, e.sesion, 1));
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM DatosIVA").toInt(), 0);
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = ?", {Compras}).toDouble(), 7);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_EQ(e.sesion.UltimoAsiento, 3.0f) << "a gap stays";
    EXPECT_TRUE(ElimAsiento(c, e.sesion, 3));
    EXPECT_EQ(e.sesion.UltimoAsiento, 2.0f) << "the last entry went";
    EXPECT_FALSE(ElimAsiento(c, e.sesion, 3));
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

TEST_F(Escritor, NumeroFijoYPasadaDeImportesNoCero) {
    OpcionesEscritura o;
    o.numero = 40;
    o.pasada = PasadaImportes::NoCero;
    Conexion c = e.datos();
    EscribirAsiento(c, e.sesion, QDate(2024, 5, 1), {Debe(Compras, -5), Haber(Caja, -5)}, o);
    EXPECT_EQ(lineas(c, 40),
              QStringList({"1|" + Compras + "|-5|0|Prueba", "2|" + Caja + "|0|-5|Prueba"}));
    EXPECT_EQ(e.sesion.UltimoAsiento, 40.0f);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

} // namespace
