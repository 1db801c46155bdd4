// Dates as users type them, amounts as they type and read them, and the Spanish formats.

#include "store/Rutinas.h"
#include "ImprimirQt.h"
#include "platform/Dialogo.h"
#include "store/Formato.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

const QString Invalida = QStringLiteral("La fecha introducida no es una fecha válida.");
const QString Ambigua = QStringLiteral(
    "El programa no puede determinar cual es la fecha introducida. Por favor, separe los días, "
    "meses y años con barras (dd/mm/aa) o ponga los días y los meses con dos cifras (ddmmaa).");

QDate fecha(const QString& tecleado, DialogoGuion& d) {
    return FechaDeTexto(ValidarFecha(tecleado, d));
}

TEST(ValidarFecha, CincoCifrasSiguenLosEjemplosDeLaTabla) {
    DialogoGuion d;
    EXPECT_EQ(fecha("30208", d), QDate(2008, 2, 3));
    EXPECT_EQ(fecha("31208", d), QDate(2008, 12, 3));
    EXPECT_EQ(fecha("12108", d), QDate(2008, 1, 12));
    EXPECT_EQ(fecha("01208", d), QDate(2008, 2, 1));  // c1 = 0: day c1 c2
    EXPECT_EQ(fecha("51208", d), QDate(2008, 12, 5)); // c1 > 3: day c1
    EXPECT_EQ(fecha("15208", d), QDate(2008, 2, 15)); // c3 > 1, c2 != 0
    EXPECT_EQ(fecha("21008", d), QDate(2008, 10, 2)); // c3 = 0
    EXPECT_EQ(fecha("11308", d), QDate(2008, 3, 11));
    EXPECT_TRUE(d.textos.isEmpty()) << d.textos.join('|').toStdString();
}

TEST(ValidarFecha, CasosAmbiguosSeRechazanConSuMensaje) {
    for (const char* t : {"11108", "10508", "20208", "10108"}) {
        DialogoGuion d;
        EXPECT_TRUE(ValidarFecha(t, d).isEmpty()) << t;
        EXPECT_EQ(d.textos, QStringList{Ambigua}) << t;
    }
}

TEST(ValidarFecha, OtrasLongitudes) {
    DialogoGuion d;
    EXPECT_EQ(fecha("1208", d), QDate(2008, 2, 1));
    EXPECT_EQ(fecha("030208", d), QDate(2008, 2, 3));
    EXPECT_EQ(fecha("3/2/08", d), QDate(2008, 2, 3));
    EXPECT_EQ(fecha("3-2-2008", d), QDate(2008, 2, 3));
    EXPECT_EQ(fecha("31/12/99", d), QDate(1999, 12, 31));
    EXPECT_TRUE(d.textos.isEmpty());
    EXPECT_TRUE(ValidarFecha("", d).isEmpty());
    EXPECT_TRUE(d.textos.isEmpty()) << "an empty date is silent";
}

TEST(ValidarFecha, FechasImposiblesOLargas) {
    DialogoGuion d;
    EXPECT_TRUE(ValidarFecha("01012008", d).isEmpty());
    EXPECT_TRUE(ValidarFecha("310208", d).isEmpty());
    EXPECT_TRUE(ValidarFecha("30/02/08", d).isEmpty());
    EXPECT_EQ(d.textos, QStringList({Invalida, Invalida, Invalida}));
    DialogoGuion corta;
    EXPECT_TRUE(ValidarFecha("123", corta).isEmpty());
    EXPECT_EQ(corta.textos,
              QStringList({QStringLiteral("La fecha introducida no es correcta, debe ponerla en "
                                          "formato 'ddmmaa'."),
                           Invalida}));
}

TEST(Numeros, NormalizarNumero) {
    EXPECT_EQ(NormalizarNumero("1,5 "), "1.5");
    EXPECT_EQ(NormalizarNumero("+-3"), "-3");
    EXPECT_EQ(NormalizarNumero("-+3"), "-3");
    EXPECT_EQ(NormalizarNumero("3-"), "3-");
    EXPECT_EQ(NormalizarNumero("1 234,50"), "1234.50");
}

TEST(Numeros, ImportesComoLosTecleaYLeeElUsuario) {
    EXPECT_EQ(AImporte(""), "0");
    EXPECT_EQ(ANumero(""), "0");
    EXPECT_EQ(AImporte("1234,5"), "1.234,50");
    EXPECT_EQ(AImporte("1234.5"), "1.234,50");
    EXPECT_EQ(AImporte("-1234567,891"), "-1.234.567,89");
    EXPECT_EQ(ANumero("1.234,50"), "1234,5");
    EXPECT_DOUBLE_EQ(ValorImporte("1.234.567,89"), 1234567.89);
    EXPECT_DOUBLE_EQ(ValorImporte("12.5"), 12.5);
    bool ok = true;
    EXPECT_EQ(ValorImporte("abc", &ok), 0.0);
    EXPECT_FALSE(ok);
}

TEST(Formatos, NumerosEnEspanol) {
    EXPECT_EQ(Formato(1234.5, "standard"), "1.234,50");
    EXPECT_EQ(Formato(-0.004, "standard"), "0,00");
    EXPECT_EQ(Formato(2.675, "standard"), "2,68");
    EXPECT_EQ(Formato(1.005, "standard"), "1,01");
    EXPECT_EQ(Formato(-2.675, "standard"), "-2,68");
    EXPECT_EQ(Formato(1234567, "#,##0"), "1.234.567");
    EXPECT_EQ(Formato(0, "#,##0"), "0");
    EXPECT_EQ(Formato(0, "#,###"), "");
    EXPECT_EQ(Formato(1234, "#,###"), "1.234");
    EXPECT_EQ(Formato(0, "#,###.##"), "");
    EXPECT_EQ(Formato(1234.5, "#,###.##"), "1.234,5");
    EXPECT_EQ(Formato(7, "00#"), "007");
    EXPECT_EQ(Formato(3.5, "General Number"), "3,5");
    EXPECT_EQ(FormatoFecha(QDate(2008, 2, 3), "short date"), "03/02/2008");
    EXPECT_EQ(FormatoFecha(QDate(2008, 2, 3), "yy/MM/dd"), "08/02/03");
}

TEST(Formatos, RedondeoACentimosYFlotanteSimple) {
    EXPECT_DOUBLE_EQ(Centimos(0.1 + 0.2), 0.3);
    EXPECT_DOUBLE_EQ(Centimos(-0.005), -0.01);
    // A 32-bit float keeps about seven digits: cents of a large base are lost, as in the books.
    EXPECT_NE(ASimple(123456.78), 123456.78);
    EXPECT_DOUBLE_EQ(ASimple(16777216.0), 16777216.0);
    EXPECT_NE(ASimple(16777217.0), 16777217.0);
}

// Every amount up to the books' maximum goes through typing, rounding and display unchanged, to
// the cent: random cents over the whole range, and the edges.
TEST(Importes, ExactosAlCentimoEnTodoElRango) {
    std::mt19937_64 azar(20261124);
    const qint64 maximo = 99999999999999; // 999.999.999.999,99 in cents
    QList<qint64> casos{1, 5, 99, 100, 267, 1234567890123, 1234567890125, maximo, maximo - 1};
    for (int i = 0; i < 50000; ++i)
        casos << static_cast<qint64>(azar() % static_cast<quint64>(maximo + 1));
    for (const qint64 cent : casos) {
        for (const qint64 c : {cent, -cent}) {
            const QString entero = QString::number(std::abs(c) / 100);
            const QString texto = QStringLiteral("%1%2,%3")
                                      .arg(c < 0 ? QStringLiteral("-") : QString(), entero)
                                      .arg(std::abs(c) % 100, 2, 10, QLatin1Char('0'));
            const std::optional<double> v = LeerImporte(texto);
            ASSERT_TRUE(v) << texto.toStdString();
            ASSERT_EQ(*v, static_cast<double>(c) / 100) << texto.toStdString();
            ASSERT_EQ(Centimos(*v), *v) << texto.toStdString();
            ASSERT_EQ(Formato(*v, "0.00"), texto) << texto.toStdString();
            ASSERT_EQ(ValorImporte(Formato(*v, "standard")), *v) << texto.toStdString();
            ASSERT_EQ(ValorImporte(Formato(*v, "General Number")), *v) << texto.toStdString();
        }
    }
    // The size at which a relative nudge used to move whole cents.
    EXPECT_EQ(Formato(*LeerImporte("12345678901,23"), "standard"), "12.345.678.901,23");
    EXPECT_EQ(Formato(*LeerImporte("99999999999,99"), "standard"), "99.999.999.999,99");
    // Half away from zero on what was typed, also for the third decimal of a large amount.
    EXPECT_EQ(Formato(*LeerImporte("2,675"), "standard"), "2,68");
    EXPECT_EQ(Formato(*LeerImporte("-2,675"), "standard"), "-2,68");
    EXPECT_EQ(Formato(*LeerImporte("123456789012,345"), "standard"), "123.456.789.012,35");
    EXPECT_EQ(Formato(*LeerImporte("123456789012,344"), "standard"), "123.456.789.012,34");
    // The last-bit noise of a computed half cent (a base times a rate) does not round it down.
    EXPECT_EQ(Centimos(std::nextafter(0.005, 0.0)), 0.01);
    EXPECT_EQ(Centimos(std::nextafter(-2.675, 0.0)), -2.68);
    EXPECT_EQ(Centimos(std::nextafter(0.004999, 0.0)), 0.0);
}

TEST(Importes, SoloNumerosFinitosHastaElMaximo) {
    for (const char* malo : {"1e308", "inf", "-inf", "nan", "1e3", "12abc", "", " ", "--5",
                             "1000000000000", "999999999999,995", "-1000000000000,00", "0x10"})
        EXPECT_FALSE(LeerImporte(QString::fromUtf8(malo))) << malo;
    EXPECT_EQ(*LeerImporte("999.999.999.999,99"), 999999999999.99);
    EXPECT_EQ(*LeerImporte("-999999999999.99"), -999999999999.99);
    EXPECT_EQ(*LeerImporte("0,001"), 0.0);
    EXPECT_EQ(*LeerImporte(" 1 234,5 "), 1234.5);
    EXPECT_FALSE(ImporteAdmitido(std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(ImporteAdmitido(std::nan("")));
    EXPECT_TRUE(ImporteAdmitido(999999999999.994));
    EXPECT_EQ(MsgImporteNoValido(" 1e308 "),
              "El importe «1e308» no es válido: debe ser un número entre "
              "-999.999.999.999,99 y 999.999.999.999,99.");
}

// A subaccount's total or a book's sum passes the largest single amount. A double holds the
// cents of any value below 2^46 (some 7 x 10^13), and they are shown as they are; added up cent
// by cent, as Mayor keeps its totals, they stay exact below 2^44 (some 1.7 x 10^13), which is
// seventeen times the largest amount.
TEST(Importes, SumasMayoresQueUnImporteSiguenExactas) {
    std::mt19937_64 azar(14);
    for (int i = 0; i < 20000; ++i) {
        const qint64 c = static_cast<qint64>(azar() % 7000000000000000);
        ASSERT_EQ(Formato(static_cast<double>(c) / 100, "0.00"),
                  QStringLiteral("%1,%2").arg(c / 100).arg(c % 100, 2, 10, QLatin1Char('0')));
    }
    const qint64 maximo = 99999999999999;
    for (int i = 0; i < 20000; ++i) {
        const int n = 2 + static_cast<int>(azar() % 16);
        qint64 centimos = 0;
        double suma = 0;
        for (int k = 0; k < n; ++k) {
            const qint64 c = static_cast<qint64>(azar() % static_cast<quint64>(maximo + 1));
            centimos += c;
            // As Mayor keeps it: each step rounded to the cent.
            suma = Centimos(suma + static_cast<double>(c) / 100);
        }
        ASSERT_EQ(suma, static_cast<double>(centimos) / 100) << centimos;
        ASSERT_EQ(Formato(suma, "0.00"), QStringLiteral("%1,%2")
                                             .arg(centimos / 100)
                                             .arg(centimos % 100, 2, 10, QLatin1Char('0')));
    }
    EXPECT_EQ(Formato(12345678901234.56, "standard"), "12.345.678.901.234,56");
    EXPECT_EQ(Formato(-59999999999999.94, "standard"), "-59.999.999.999.999,94");
    // A third decimal still rounds half away from zero at this size.
    EXPECT_EQ(Centimos(1234567890123.675), 1234567890123.68);
}

TEST(DiasSerie, CuentanDesdeElTreintaDeDiciembreDe1899) {
    EXPECT_EQ(DiaSerie(QDate(1899, 12, 31)), 1.0);
    EXPECT_EQ(DiaSerie(QDate(2008, 1, 1)), 39448.0);
    const QDateTime m(QDate(2008, 1, 1), QTime(18, 0));
    EXPECT_DOUBLE_EQ(DiaSerie(m), 39448.75);
    EXPECT_EQ(DeDiaSerie(39448.75), m);
}

} // namespace
