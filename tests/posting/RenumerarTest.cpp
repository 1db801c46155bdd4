// Renumbering the journal and deleting entries from the menu: numbers, messages, and the books
// that must stay true afterwards (Mayor equal to the journal, every VAT record on its line).

#include "posting/Renumerar.h"
#include "ComunAsientos.h"
#include "journal/EliminarAsientos.h"
#include "store/Conexiones.h"

#include <gtest/gtest.h>

using namespace cuentas;

namespace {

class Renumerar : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }

    // An entry under a given number; with VAT, a purchase with its VAT record.
    void asiento(long nas, const QDate& fecha, double importe, bool iva = false) {
        OpcionesEscritura o;
        o.numero = nas;
        QList<Apunte> l{Debe(Compras, importe), Haber(Banco, importe)};
        if (iva) {
            Apunte a = Debe(IvaSop21, 21);
            a.Iva = DatosIvaApunte{Proveedor, QStringLiteral("F-%1").arg(nas), 100, 21, 21};
            l = {Debe(Compras, importe), a, Haber(Proveedor, importe + 21)};
        }
        Conexion c = e.datos();
        EscribirAsiento(c, e.sesion, fecha, l, o);
    }

    // "NAs:MM-DD:total debit" per entry, in number order.
    QStringList asientos() {
        Conexion c = e.datos();
        return Filas(c, "SELECT NAs || ':' || substr(MIN(Fecha), 6) || ':', SUM(Debe) FROM Diario "
                        "GROUP BY NAs ORDER BY NAs")
            .replaceInStrings(":|", ":");
    }

    // The books are true: Mayor equals the journal, and every VAT record has its line.
    void librosCiertos() {
        Conexion c = e.datos();
        EXPECT_TRUE(DescuadresMayor(c).isEmpty());
        EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA v WHERE NOT EXISTS (SELECT 1 FROM "
                            "Diario d WHERE d.IdIVA = v.IdIVA)"),
                  0);
        EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario d WHERE d.IdIVA <> 0 AND NOT EXISTS "
                            "(SELECT 1 FROM DatosIVA v WHERE v.IdIVA = d.IdIVA)"),
                  0);
    }

    Entorno e;
};

TEST_F(Renumerar, DiarioCompletoPorFechas) {
    // Numbers 3, 8, 9 whose dates run 9, 3, 8: the new numbers follow the dates.
    asiento(3, QDate(2024, 3, 10), 30, true);
    asiento(8, QDate(2024, 3, 1), 80);
    asiento(9, QDate(2024, 3, 5), 90, true);
    Conexion c = e.datos();
    const QString sqlNaps = "SELECT NAp FROM Diario ORDER BY Debe, Haber, NAp";
    const QString sqlIva = "SELECT NFactura, Fecha FROM DatosIVA ORDER BY NFactura";
    const QStringList naps = Filas(c, sqlNaps), iva = Filas(c, sqlIva);
    QList<std::pair<qint64, qint64>> avance;
    const ResultadoRenumerar r =
        RenumerarDiarioCompleto(e.sesion, e.dialogo, [&](qint64 hecho, qint64 total) {
            avance << std::pair{hecho, total};
        });
    EXPECT_TRUE(r.hecho);
    EXPECT_EQ(e.dialogo.informados, QStringList{"Proceso finalizado."});
    ASSERT_FALSE(avance.isEmpty());
    EXPECT_EQ(avance.last().first, avance.last().second) << "the progress reaches its end";
    EXPECT_EQ(asientos(), QStringList({"1:03-01:80", "2:03-05:111", "3:03-10:51"}));
    EXPECT_EQ(e.sesion.UltimoAsiento, 3.0f);
    EXPECT_EQ(Filas(c, sqlNaps), naps) << "line numbers untouched";
    EXPECT_EQ(Filas(c, sqlIva), iva);
    librosCiertos();
    // Done again, nothing moves.
    RenumerarDiario(c, e.sesion);
    EXPECT_EQ(asientos(), QStringList({"1:03-01:80", "2:03-05:111", "3:03-10:51"}));
}

TEST_F(Renumerar, DentroDeUnaFechaDecideElNumeroAnterior) {
    asiento(20, QDate(2024, 6, 1), 1);
    asiento(5, QDate(2024, 6, 1), 2);
    asiento(12, QDate(2024, 2, 1), 3);
    asiento(7, QDate(2024, 6, 1), 4);
    Conexion c = e.datos();
    EXPECT_EQ(RenumerarDiario(c, e.sesion), 4);
    EXPECT_EQ(asientos(), QStringList({"1:02-01:3", "2:06-01:2", "3:06-01:4", "4:06-01:1"}));
    // A later date never has a lower number.
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario a JOIN Diario b ON a.Fecha < b.Fecha "
                        "AND a.NAs > b.NAs"),
              0);
}

TEST_F(Renumerar, LineasDeUnNumeroEnDosFechasAcabanSeparadas) {
    // The posting rules never make it; a hand-edited journal can have it.
    asiento(1, QDate(2024, 1, 10), 10);
    asiento(2, QDate(2024, 1, 5), 20);
    asiento(3, QDate(2024, 1, 15), 30);
    Conexion c = e.datos();
    c.ejecutar("UPDATE Diario SET Fecha = '2024-01-20' WHERE NAs = 1 AND NAp = 2");
    EXPECT_EQ(RenumerarDiario(c, e.sesion), 4);
    EXPECT_EQ(Unidos(c, "SELECT NAs || ':' || NAp FROM Diario ORDER BY Fecha, NAp"),
              "1:1,1:2,2:1,3:1,3:2,4:2");
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

TEST_F(Renumerar, DiarioVacio) {
    e.sesion.UltimoAsiento = 7;
    const ResultadoRenumerar r = RenumerarDiarioCompleto(e.sesion, e.dialogo);
    EXPECT_TRUE(r.hecho);
    EXPECT_EQ(e.dialogo.informados, QStringList{"Proceso finalizado."});
    EXPECT_EQ(e.sesion.UltimoAsiento, 0.0f);
}

TEST_F(Renumerar, UnAsientoConTodosSusMensajes) {
    asiento(1, QDate(2024, 1, 1), 1, true);
    asiento(2, QDate(2024, 1, 2), 2);
    asiento(1500, QDate(2024, 1, 3), 3);
    auto intentar = [&](const QString& de, const QString& a) {
        e.dialogo.informados.clear();
        const ResultadoRenumerar r = RenumerarUnAsiento(e.sesion, e.dialogo, de, a);
        return std::pair{r.foco, e.dialogo.informados.value(0)};
    };
    using C = CampoRenumerar;
    EXPECT_EQ(intentar("", "5"), std::pair(C::Asiento, QString("El número de asiento introducido "
                                                               "no es válido.")));
    EXPECT_EQ(intentar("2", "x"), std::pair(C::PasaA, QString("El número de asiento introducido "
                                                              "no es válido.")));
    EXPECT_EQ(intentar("2000", "5"),
              std::pair(C::Asiento, QString("El número de Asiento más alto que hay es el 1.500.")));
    EXPECT_EQ(intentar("1499", "5"),
              std::pair(C::Asiento, QString("No se encontró el asiento '1.499'.")));
    EXPECT_EQ(intentar("2", "1500"),
              std::pair(C::PasaA, QString("No se puede hacer el cambio porque ya existe el número "
                                          "de asiento '1.500'.")));
    EXPECT_EQ(asientos(), QStringList({"1:01-01:22", "2:01-02:2", "1500:01-03:3"}));

    // Above the highest: the highest rises to it.
    EXPECT_EQ(intentar("1", "2500"), std::pair(C::Ninguno, QString("Proceso finalizado.")));
    EXPECT_EQ(e.sesion.UltimoAsiento, 2500.0f);
    EXPECT_EQ(asientos(), QStringList({"2:01-02:2", "1500:01-03:3", "2500:01-01:22"}));
    // The highest moved down: it falls.
    EXPECT_EQ(intentar("2500", "3").second, "Proceso finalizado.");
    EXPECT_EQ(e.sesion.UltimoAsiento, 1500.0f);
    librosCiertos();

    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    EXPECT_EQ(intentar("3", "4").second, MsgEjercicioCerrado);
    EXPECT_FALSE(RenumerarDiarioCompleto(e.sesion, e.dialogo).hecho);
    EXPECT_EQ(asientos().value(0), "2:01-02:2");
}

// Only what is not a number is refused: an entry may go to number 0, and "0" as the entry to
// move is simply not found.
TEST_F(Renumerar, UnAsientoPuedePasarAlCero) {
    asiento(1, QDate(2024, 1, 1), 1, true);
    asiento(2, QDate(2024, 1, 2), 2);
    for (const char* malo : {"-1", "+2", "2,5", "dos"}) {
        e.dialogo.informados.clear();
        EXPECT_FALSE(RenumerarUnAsiento(e.sesion, e.dialogo, "2", malo).hecho) << malo;
        EXPECT_EQ(e.dialogo.informados,
                  QStringList{"El número de asiento introducido no es válido."});
    }
    e.dialogo.informados.clear();
    EXPECT_FALSE(RenumerarUnAsiento(e.sesion, e.dialogo, "0", "5").hecho);
    EXPECT_EQ(e.dialogo.informados, QStringList{"No se encontró el asiento '0'."});
    EXPECT_TRUE(RenumerarUnAsiento(e.sesion, e.dialogo, "1", "0").hecho);
    EXPECT_EQ(asientos(), QStringList({"0:01-01:22", "2:01-02:2"}));
    EXPECT_EQ(e.sesion.UltimoAsiento, 2.0f);
    librosCiertos();
}

TEST_F(Renumerar, MensajesDeLaPantallaDeEliminar) {
    auto validar = [&](bool varios, const QString& n, const QString& d, const QString& h) {
        e.dialogo.informados.clear();
        const std::optional<EleccionEliminar> r = ValidarEliminar(e.dialogo, varios, n, d, h);
        return r ? QStringLiteral("%1-%2").arg(r->desde).arg(r->hasta)
                 : e.dialogo.informados.value(0);
    };
    EXPECT_EQ(validar(false, "", "3", "4"), "No ha introducido el nº de Asiento a eliminar.");
    EXPECT_EQ(validar(false, "12", "", ""), "12-0");
    EXPECT_EQ(validar(true, "12", "3", ""),
              "Tiene que introducir los números de Asientos inicial y final que se van a "
              "eliminar.");
    EXPECT_EQ(validar(true, "", "5", "5"),
              "El nº del Asiento inicial tiene que ser inferior al del final.");
    EXPECT_EQ(validar(true, "", "6", "5"),
              "El nº del Asiento inicial tiene que ser inferior al del final.");
    EXPECT_EQ(validar(true, "", "5", "6"), "5-6");
}

TEST_F(Renumerar, EliminarUnoOVariosDesdeElMenu) {
    for (long n = 1; n <= 6; ++n)
        asiento(n, QDate(2024, 2, static_cast<int>(n)), n * 10, n % 2 == 0);
    // No to the question: nothing goes.
    EXPECT_EQ(EliminarAsientos(e.sesion, e.dialogo, {2, 0}), -1);
    EXPECT_EQ(e.dialogo.preguntas.last(), "Está seguro de que desea eliminar el Asiento número 2?");
    EXPECT_EQ(asientos().size(), 6);

    e.dialogo.responder({true});
    EXPECT_EQ(EliminarAsientos(e.sesion, e.dialogo, {2, 0}), 1);
    librosCiertos();
    e.dialogo.responder({true});
    EXPECT_EQ(EliminarAsientos(e.sesion, e.dialogo, {2, 0}), -1) << "gone already";
    EXPECT_EQ(e.dialogo.informados.last(), "No se pudo eliminar el Asiento.");

    // A range over a gap, up to the highest: the highest falls to what is left.
    e.dialogo.responder({true});
    EXPECT_EQ(EliminarAsientos(e.sesion, e.dialogo, {1, 5}), 4);
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Está seguro de que desea eliminar desde el Asiento número 1 hasta el Asiento "
              "número 5?");
    EXPECT_EQ(asientos(), QStringList{"6:02-06:81"});
    EXPECT_EQ(e.sesion.UltimoAsiento, 6.0f);
    e.dialogo.responder({true});
    EXPECT_EQ(EliminarAsientos(e.sesion, e.dialogo, {5, 9}), 1);
    EXPECT_EQ(e.sesion.UltimoAsiento, 0.0f);
    librosCiertos();
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA"), 0);
}

TEST_F(Renumerar, UnIntervaloFallidoNoEliminaNada) {
    for (long n = 1; n <= 4; ++n)
        asiento(n, QDate(2024, 2, static_cast<int>(n)), n * 10, true);
    // A trigger makes the third deletion fail half way through the range.
    {
        Conexion c = e.datos();
        if (c.enServidor()) {
            c.ejecutar("CREATE FUNCTION Falla() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN "
                       "IF OLD.NAs = 3 THEN RAISE EXCEPTION 'fallo provocado'; END IF; "
                       "RETURN OLD; END $$");
            c.ejecutar("CREATE TRIGGER Falla BEFORE DELETE ON Diario FOR EACH ROW "
                       "EXECUTE FUNCTION Falla()");
        } else {
            c.ejecutar("CREATE TRIGGER Falla BEFORE DELETE ON Diario WHEN OLD.NAs = 3 "
                       "BEGIN SELECT RAISE(ABORT, 'fallo provocado'); END");
        }
    }
    e.dialogo.responder({true});
    EXPECT_EQ(EliminarAsientos(e.sesion, e.dialogo, {1, 4}), -1);
    EXPECT_EQ(asientos().size(), 4) << "all or nothing";
    EXPECT_EQ(e.sesion.UltimoAsiento, 4.0f);
    librosCiertos();

    // The closed exercise is refused before the question.
    Conexion c = e.datos();
    c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    e.dialogo.preguntas.clear();
    EXPECT_EQ(EliminarAsientos(e.sesion, e.dialogo, {1, 0}), -1);
    EXPECT_EQ(e.dialogo.informados.last(), MsgEjercicioCerrado);
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
}

} // namespace
