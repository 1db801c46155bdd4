// Dates as users type them, amounts as they type and read them, and the Spanish formats.

#include "ImprimirQt.h"
#include "platform/Dialogo.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

#include <gtest/gtest.h>

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

TEST(DiasSerie, CuentanDesdeElTreintaDeDiciembreDe1899) {
    EXPECT_EQ(DiaSerie(QDate(1899, 12, 31)), 1.0);
    EXPECT_EQ(DiaSerie(QDate(2008, 1, 1)), 39448.0);
    const QDateTime m(QDate(2008, 1, 1), QTime(18, 0));
    EXPECT_DOUBLE_EQ(DiaSerie(m), 39448.75);
    EXPECT_EQ(DeDiaSerie(39448.75), m);
}

} // namespace
