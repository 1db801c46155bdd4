// Parking, VAT subaccounts, sectors and concepts.

#include "PlanPrueba.h"
#include "chart/Aparcar.h"
#include "chart/Conceptos.h"
#include "chart/Sectores.h"
#include "chart/TiposIva.h"
#include "chart/VistaArea.h"
#include "journal/Escritor.h"
#include "store/Campos.h"

namespace {

using Aparcado = PlanPrueba;

TEST_F(Aparcado, PruebaDeAparcada) {
    // Desde holds a year number; read as a date it falls in 1905, so only Aparcada decides.
    EXPECT_TRUE(EstaAparcada(-1, 2024, 2024));
    EXPECT_TRUE(EstaAparcada(-1, 2030, 2024));
    EXPECT_TRUE(EstaAparcada(-1, 0, 2008));
    EXPECT_TRUE(EstaAparcada(-1, QVariant(), 2024));
    EXPECT_FALSE(EstaAparcada(0, 2024, 2024));
    EXPECT_FALSE(EstaAparcada(QVariant(), 2024, 2024));
    // A real date after the exercise does not park it yet.
    EXPECT_FALSE(EstaAparcada(-1, "2025-01-01", 2024));
    EXPECT_TRUE(EstaAparcada(-1, "2024-06-01", 2024));
}

TEST_F(Aparcado, AparcarYDesaparcar) {
    const QString banco = "157200003";
    EXPECT_TRUE(EsUltimoEjercicio(e.sesion));
    EXPECT_FALSE(Aparcar(e.sesion, e.dialogo, banco)); // answered No
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList{"Se va a aparcar la Cuenta Banco, con lo que ya no le aparecerá en las "
                          "imágenes para hacer los asientos. La puede desaparcar cuando quiera."});
    EXPECT_EQ(valor("SELECT Aparcada FROM Cuentas WHERE NCuenta = ?", {banco}).toInt(), 0);

    e.dialogo.responder({true});
    EXPECT_TRUE(Aparcar(e.sesion, e.dialogo, banco));
    EXPECT_EQ(
        valor("SELECT Aparcada || '|' || Desde FROM Cuentas WHERE NCuenta = ?", {banco}).toString(),
        "-1|2024");
    // Gone from the lists to pick from, still in the chart and the books.
    Conexion c = e.datos();
    QStringList area1;
    for (const SubcuentaDeLista& s : VistaArea(false).subcuentas(c, e.sesion, "1"))
        area1 << s.NCuenta;
    EXPECT_EQ(area1, QStringList{"157000001"});
    const QList<FilaAparcar> lista = ListaAparcar(e.sesion, 1);
    ASSERT_EQ(lista.size(), 2);
    EXPECT_EQ(lista.at(0).Cuenta, "Banco");
    EXPECT_TRUE(lista.at(0).Aparcada);
    EXPECT_EQ(lista.at(0).Desde, "2024");
    EXPECT_FALSE(lista.at(1).Aparcada);
    EXPECT_EQ(lista.at(1).Desde, "");
    e.asiento(QDate(2024, 2, 1), {Debe(banco, 5), Haber("157000001", 5)});

    e.dialogo.preguntas.clear();
    e.dialogo.responder({true});
    EXPECT_TRUE(Desaparcar(e.sesion, e.dialogo, banco));
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList{"Se va a desaparcar la Cuenta Banco, para poder seguir utilizándola."});
    EXPECT_EQ(
        valor("SELECT Aparcada || '|' || Desde FROM Cuentas WHERE NCuenta = ?", {banco}).toString(),
        "0|0");

    EXPECT_FALSE(Aparcar(e.sesion, e.dialogo, "157299999"));
    EXPECT_EQ(ultimoMensaje(), "Error en código de Subcuenta.");
}

TEST_F(Aparcado, SoloDesdeElUltimoEjercicio) {
    otroEjercicio(2025);
    EXPECT_FALSE(EsUltimoEjercicio(e.sesion));
    e.dialogo.responder({true});
    EXPECT_FALSE(Aparcar(e.sesion, e.dialogo, "157200003"));
    EXPECT_EQ(e.dialogo.textos,
              QStringList{"Aparcar una cuenta debe hacerse desde el último ejercicio de la "
                          "empresa actual."});
    // Unparking has no such rule.
    EXPECT_TRUE(Desaparcar(e.sesion, e.dialogo, "157200003"));
    // The last record of Selan.dat decides, not the highest year.
    e.sesion.AnoActual = 2025;
    EXPECT_TRUE(EsUltimoEjercicio(e.sesion));
    otroEjercicio(2023);
    EXPECT_FALSE(EsUltimoEjercicio(e.sesion));
    e.sesion.AnoActual = 2023;
    EXPECT_TRUE(EsUltimoEjercicio(e.sesion));
}

TEST_F(Aparcado, EjercicioCerrado) {
    cerrarEjercicio();
    EXPECT_FALSE(Aparcar(e.sesion, e.dialogo, "157200003"));
    EXPECT_FALSE(Desaparcar(e.sesion, e.dialogo, "157200003"));
    EXPECT_EQ(e.dialogo.textos, QStringList(2, MsgEjercicioCerrado));
}

using Iva = PlanPrueba;

TEST_F(Iva, SoloSeOfrecen4472Y2477) {
    Conexion c = e.datos();
    const QList<SubcuentaDeLista> l = SubcuentasIva(c);
    ASSERT_FALSE(l.isEmpty());
    for (const SubcuentaDeLista& s : l)
        EXPECT_TRUE(s.NCuenta.startsWith("4472") || s.NCuenta.startsWith("2477"))
            << s.NCuenta.toStdString();
    EXPECT_EQ(l.size(),
              c.escalar("SELECT COUNT(*) FROM Cuentas WHERE NGrupo IN ('4472', '2477')").toInt());
}

TEST_F(Iva, MensajesEnOrdenYUnTipoPorSubcuenta) {
    GuardarTipoIva(e.sesion, e.dialogo, "", "", "");
    EXPECT_EQ(ultimoMensaje(), "Debe introducir el tipo de IVA o de Recargo de equivalencia.");
    GuardarTipoIva(e.sesion, e.dialogo, "", "21", "");
    EXPECT_EQ(ultimoMensaje(),
              "Debe seleccionar la Subcuenta de IVA o de Recargo de equivalencia.");
    GuardarTipoIva(e.sesion, e.dialogo, "157000001", "21", "IVA"); // not a VAT subaccount
    EXPECT_EQ(ultimoMensaje(),
              "Debe seleccionar la Subcuenta de IVA o de Recargo de equivalencia.");
    GuardarTipoIva(e.sesion, e.dialogo, "447200028", "21", "");
    EXPECT_EQ(ultimoMensaje(),
              "Debe seleccionar la Clase de Subcuenta. Si es de IVA o de Recargo de equivalencia.");
    EXPECT_EQ(e.dialogo.informados.size(), 4);
    // A rate is a number between 0 and 100, typed like an amount.
    GuardarTipoIva(e.sesion, e.dialogo, "447200028", "inf", "IVA");
    EXPECT_EQ(ultimoMensaje(), "Debe introducir el tipo de IVA o de Recargo de equivalencia.");
    GuardarTipoIva(e.sesion, e.dialogo, "447200028", "1e308", "IVA");
    EXPECT_EQ(ultimoMensaje(), "Debe introducir el tipo de IVA o de Recargo de equivalencia.");
    GuardarTipoIva(e.sesion, e.dialogo, "447200028", "150", "IVA");
    EXPECT_EQ(ultimoMensaje(), "El tipo «150» no es válido: debe ser un porcentaje entre 0 y 100.");
    e.dialogo.informados.clear();

    const QString nueva = this->nueva(4, "4472", "IVA soportado 7%");
    ASSERT_TRUE(GuardarTipoIva(e.sesion, e.dialogo, nueva, "7", "IVA"));
    ASSERT_TRUE(GuardarTipoIva(e.sesion, e.dialogo, nueva, "5,2", "Recargo"));
    Conexion c = e.datos();
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM TiposIVA WHERE NCuenta = ?", {nueva}).toInt(), 1);
    EXPECT_EQ(c.escalar("SELECT Porcentaje FROM TiposIVA WHERE NCuenta = ?", {nueva}).toDouble(),
              5.2);
    bool visto = false;
    for (const FilaTipoIva& f : ListaTiposIva(c))
        if (f.NCuenta == nueva) {
            visto = true;
            EXPECT_EQ(f.Cuenta, "IVA soportado 7%");
            EXPECT_EQ(f.Clase, "Recargo");
        }
    EXPECT_TRUE(visto);

    // A VAT subaccount stays in the chart; without its rate it can go.
    e.dialogo.responder({true});
    EXPECT_FALSE(EliminarSubcuenta(e.sesion, e.dialogo, nueva).hecho);
    EXPECT_EQ(ultimoMensaje(), "No se puede eliminar la Subcuenta IVA soportado 7% porque se "
                               "utiliza en la tabla de cuentas de IVA.");
    e.dialogo.preguntas.clear();
    e.dialogo.responder({true});
    EXPECT_TRUE(EliminarTipoIva(e.sesion, e.dialogo, nueva));
    EXPECT_EQ(e.dialogo.preguntas, QStringList{"Está seguro de que desea eliminar el tipo de IVA "
                                               "de la Subcuenta 'IVA soportado 7%'?"});
    e.dialogo.responder({true});
    EXPECT_TRUE(EliminarSubcuenta(e.sesion, e.dialogo, nueva).hecho);
}

class Sectores : public PlanPrueba {
protected:
    void SetUp() override {
        PlanPrueba::SetUp();
        for (const char* s : {"Tienda", "Catering"})
            ASSERT_TRUE(GuardarSector(e.sesion, e.dialogo, 0, s));
    }
    long asientoConSector(const QString& sector, bool conIva, int dia) {
        Apunte compra = Debe("660000044", 100);
        compra.Sector = sector;
        Apunte iva = Debe("447200028", 21);
        iva.Sector = sector;
        if (conIva) {
            DatosIvaApunte d;
            d.Contra = "240000009";
            d.Factura = QString("F-%1").arg(dia);
            d.Base = 100;
            d.Porcentaje = 21;
            d.Cuota = 21;
            iva.Iva = d;
        }
        Apunte pago = Haber("240000009", 121);
        return e.asiento(QDate(2024, 3, dia), {compra, iva, pago});
    }
    int huerfanos() {
        return valor("SELECT COUNT(*) FROM DatosIVA WHERE IdIVA NOT IN (SELECT IdIVA FROM Diario)")
            .toInt();
    }
};

TEST_F(Sectores, AnadirYRenombrarLlegaALasTablasDeLaEmpresa) {
    GuardarSector(e.sesion, e.dialogo, 0, "  ");
    EXPECT_EQ(ultimoMensaje(), "Debe introducir el nombre del Sector.");
    const QList<FilaSector> l = ListaSectores(e.sesion);
    ASSERT_EQ(l.size(), 2);
    EXPECT_EQ(l.at(0).Sector, "Tienda");
    {
        Conexion b = e.bavar();
        b.ejecutar("INSERT INTO Vencimientos (IdVenc, Sector) VALUES (1, 'Tienda')");
        b.ejecutar("INSERT INTO AsPredi (Codigo, Nombre, Sector) VALUES (1, 'A', 'Tienda')");
        b.ejecutar("INSERT INTO Periodicos (Nombre, Sector) VALUES ('Alquiler', 'Tienda')");
        b.ejecutar("INSERT INTO Periodicos (Nombre, Sector) VALUES ('Luz', 'Catering')");
    }
    asientoConSector("Tienda", false, 1);
    ASSERT_TRUE(GuardarSector(e.sesion, e.dialogo, l.at(0).IdSector, "Tienda centro"));
    EXPECT_EQ(ListaSectores(e.sesion).at(0).Sector, "Tienda centro");
    Conexion b = e.bavar();
    EXPECT_EQ(b.escalar("SELECT Sector FROM Vencimientos").toString(), "Tienda centro");
    EXPECT_EQ(b.escalar("SELECT Sector FROM AsPredi").toString(), "Tienda centro");
    EXPECT_EQ(b.escalar("SELECT Sector FROM Periodicos WHERE Nombre = 'Alquiler'").toString(),
              "Tienda centro");
    EXPECT_EQ(b.escalar("SELECT Sector FROM Periodicos WHERE Nombre = 'Luz'").toString(),
              "Catering");
    // The journal keeps the name it was posted with.
    EXPECT_EQ(valor("SELECT COUNT(*) FROM Diario WHERE Sector = 'Tienda'").toInt(), 2);
    EXPECT_EQ(IdDeSector(e.sesion, "Tienda"), 0);
}

// The list compares names without case, so no two rows may share one: deleting one of two
// "Tienda" would take the other's entries.
TEST_F(Sectores, NombresUnicosSinDistinguirMayusculas) {
    const qint64 tienda = IdDeSector(e.sesion, "Tienda");
    const qint64 catering = IdDeSector(e.sesion, "Catering");
    for (const auto& [id, nombre] :
         {std::pair{qint64(0), "Tienda"}, std::pair{qint64(0), " TIENDA "},
          std::pair{catering, "tienda"}}) {
        e.dialogo.informados.clear();
        EXPECT_FALSE(GuardarSector(e.sesion, e.dialogo, id, nombre)) << nombre;
        EXPECT_EQ(
            e.dialogo.informados,
            QStringList{
                QString("Ya existe un Sector con el nombre '%1'.").arg(QString(nombre).trimmed())});
    }
    EXPECT_EQ(ListaSectores(e.sesion).size(), 2);
    // Its own name in other letters is no clash.
    ASSERT_TRUE(GuardarSector(e.sesion, e.dialogo, tienda, "TIENDA"));
    EXPECT_EQ(ListaSectores(e.sesion).at(0).Sector, "TIENDA");
    // Texts of the field only: 20 characters, no control characters.
    EXPECT_FALSE(GuardarSector(e.sesion, e.dialogo, 0, QString(21, QLatin1Char('s'))));
    EXPECT_EQ(ultimoMensaje(), "El campo Sector no puede tener más de 20 caracteres.");
    EXPECT_FALSE(GuardarSector(e.sesion, e.dialogo, 0, "Sur\tNorte"));
    EXPECT_EQ(ultimoMensaje(), MsgControles("Sector"));
    EXPECT_FALSE(GuardarSector(e.sesion, e.dialogo, catering, QString(21, QLatin1Char('s'))));
    EXPECT_EQ(ListaSectores(e.sesion).size(), 2);

    // A list made before names had to differ: deleting one twin leaves the entries to the other.
    {
        Conexion c = e.datos();
        c.ejecutar("INSERT INTO Sectores (Sector) VALUES ('Tienda')");
    }
    asientoConSector("Tienda", true, 1);
    const qint64 gemelo = ListaSectores(e.sesion).last().IdSector;
    e.dialogo.responder({true});
    EXPECT_EQ(EliminarSector(e.sesion, e.dialogo, gemelo), 0);
    EXPECT_EQ(e.dialogo.preguntas.size(), 1) << "no word of deleting entries";
    EXPECT_EQ(valor("SELECT COUNT(*) FROM Diario").toInt(), 3);
    EXPECT_EQ(ListaSectores(e.sesion).size(), 2);
}

// Sectors and concepts belong to the company's lists: a closed exercise does not stop them, but
// it keeps its entries, so a sector that has some can't go.
TEST_F(Sectores, EjercicioCerradoNoDetieneLasListas) {
    asientoConSector("Tienda", false, 1);
    cerrarEjercicio();
    EXPECT_TRUE(GuardarSector(e.sesion, e.dialogo, 0, "Almacén"));
    EXPECT_TRUE(GuardarSector(e.sesion, e.dialogo, IdDeSector(e.sesion, "Catering"), "Cocina"));
    e.dialogo.responder({true, true, true, true});
    EXPECT_EQ(EliminarSector(e.sesion, e.dialogo, IdDeSector(e.sesion, "Cocina")), 0);
    EXPECT_EQ(EliminarSector(e.sesion, e.dialogo, IdDeSector(e.sesion, "Tienda")), -1);
    EXPECT_EQ(ultimoMensaje(), MsgEjercicioCerrado);
    EXPECT_EQ(valor("SELECT COUNT(*) FROM Diario").toInt(), 3);
    EXPECT_TRUE(GuardarConcepto(e.sesion, e.dialogo, "3", "Cobro en caja"));
    e.dialogo.responder({true});
    EXPECT_TRUE(EliminarConcepto(e.sesion, e.dialogo, 3));
    EXPECT_TRUE(e.dialogo.informados.size() == 1) << e.dialogo.informados.join("|").toStdString();
}

TEST_F(Sectores, GuardasDeEliminarEnOrden) {
    {
        Conexion b = e.bavar();
        Conexion c = e.datos();
        b.ejecutar("INSERT INTO Periodicos (Nombre, Sector) VALUES ('Alquiler', 'Tienda')");
        b.ejecutar("INSERT INTO AsPredi (Codigo, Nombre, Sector) VALUES (1, 'A', 'Tienda')");
        b.ejecutar("INSERT INTO Vencimientos (IdVenc, Sector) VALUES (1, 'Tienda')");
        c.ejecutar("INSERT INTO DelDia (\"Nº\", Sector) VALUES (1, 'Tienda')");
    }
    const QStringList esperados{
        "No se puede eliminar el Sector 'Tienda' porque hay asientos Periódicos donde se utiliza.",
        "No se puede eliminar el Sector 'Tienda' porque hay asientos Prediseñados donde se "
        "utiliza.",
        "No se puede eliminar el Sector 'Tienda' porque hay Vencimientos donde se utiliza.",
        "No se puede eliminar el Sector 'Tienda' porque se está utilizando en algún apunte de la "
        "Caja del Día."};
    const QStringList tablas{"Periodicos", "AsPredi", "Vencimientos", "DelDia"};
    for (int i = 0; i < 4; ++i) {
        e.dialogo.textos.clear();
        e.dialogo.responder({true, true, true});
        EXPECT_EQ(EliminarSector(e.sesion, e.dialogo, IdDeSector(e.sesion, "Tienda")), -1);
        EXPECT_EQ(e.dialogo.textos, QStringList{esperados.at(i)});
        if (i < 3) {
            Conexion b = e.bavar();
            b.ejecutar("DELETE FROM " + tablas.at(i));
        } else {
            Conexion c = e.datos();
            c.ejecutar("DELETE FROM DelDia");
        }
        e.dialogo = DialogoGuion();
    }
    EXPECT_NE(IdDeSector(e.sesion, "Tienda"), 0);
}

TEST_F(Sectores, TresConfirmacionesConNoPorDefecto) {
    const long n = asientoConSector("Tienda", true, 2);
    const QStringList preguntas{
        "Está seguro de que desea eliminar el Sector 'Tienda'?",
        "Atención! Si hay asientos contabilizados en los que se figure el Sector que se va a "
        "eliminar también se eliminarían esos asientos. Desea continuar?",
        "Se va a eliminar el Sector 'Tienda' y todos los asientos en los que aparezca. La acción "
        "es irreversible, desea continuar?"};
    for (int si = 0; si < 3; ++si) {
        e.dialogo = DialogoGuion();
        for (int k = 0; k < si; ++k)
            e.dialogo.responder({true});
        EXPECT_EQ(EliminarSector(e.sesion, e.dialogo, IdDeSector(e.sesion, "Tienda")), -1);
        EXPECT_EQ(e.dialogo.preguntas, preguntas.mid(0, si + 1));
        EXPECT_TRUE(existe("SELECT 1 FROM Diario WHERE NAs = ?", {static_cast<qlonglong>(n)}));
    }
}

TEST_F(Sectores, EliminarSeLlevaSusAsientosYMayorSigueCuadrado) {
    asientoConSector("Tienda", true, 1);
    const long a2 = asientoConSector("Catering", true, 2);
    asientoConSector("tienda", true, 3); // names compare without case
    const long a4 = asientoConSector("", false, 4);
    // An entry with the sector on one line only goes whole.
    Apunte linea = Debe("662900056", 30);
    linea.Sector = "Tienda";
    e.asiento(QDate(2024, 3, 5), {linea, Haber("157000001", 30)});
    EXPECT_EQ(huerfanos(), 0);

    e.dialogo.responder({true, true, true});
    EXPECT_EQ(EliminarSector(e.sesion, e.dialogo, IdDeSector(e.sesion, "Tienda")), 3);
    EXPECT_TRUE(e.dialogo.informados.isEmpty()) << e.dialogo.informados.join("|").toStdString();
    Conexion c = e.datos();
    QList<qlonglong> quedan;
    QSqlQuery q = c.ejecutar("SELECT DISTINCT NAs FROM Diario ORDER BY NAs");
    while (q.next())
        quedan << q.value(0).toLongLong();
    EXPECT_EQ(quedan, QList<qlonglong>({a2, a4}));
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_EQ(huerfanos(), 0);
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM DatosIVA").toInt(), 1);
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = '447200028'").toDouble(), 42);
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = '662900056'").toDouble(), 0);
    EXPECT_EQ(IdDeSector(e.sesion, "Tienda"), 0);
    EXPECT_EQ(ListaSectores(e.sesion).size(), 1);
    EXPECT_EQ(e.sesion.UltimoAsiento, static_cast<float>(a4));
}

TEST_F(Sectores, UnFalloNoDejaNadaAMedias) {
    asientoConSector("Tienda", true, 1);
    asientoConSector("Tienda", true, 2);
    {
        // A trigger makes the deletion of the second entry fail midway.
        Conexion c = e.datos();
        if (c.enServidor()) {
            c.ejecutar("CREATE FUNCTION falla() RETURNS trigger LANGUAGE plpgsql AS $$BEGIN "
                       "IF OLD.NAs = 2 THEN RAISE EXCEPTION 'prueba'; END IF; RETURN OLD; END$$");
            c.ejecutar("CREATE TRIGGER Falla BEFORE DELETE ON Diario FOR EACH ROW EXECUTE "
                       "FUNCTION falla()");
        } else {
            c.ejecutar("CREATE TRIGGER Falla BEFORE DELETE ON Diario WHEN OLD.NAs = 2 "
                       "BEGIN SELECT RAISE(ABORT, 'prueba'); END");
        }
    }
    e.dialogo.responder({true, true, true});
    EXPECT_EQ(EliminarSector(e.sesion, e.dialogo, IdDeSector(e.sesion, "Tienda")), -1);
    EXPECT_EQ(ultimoMensaje(), "No se pudo eliminar.");
    Conexion c = e.datos();
    EXPECT_EQ(c.escalar("SELECT COUNT(DISTINCT NAs) FROM Diario").toInt(), 2);
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM DatosIVA").toInt(), 2);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_NE(IdDeSector(e.sesion, "Tienda"), 0);
    EXPECT_EQ(e.sesion.UltimoAsiento, 2.0f);
}

using Conceptos = PlanPrueba;

TEST_F(Conceptos, AnadirModificarYEliminar) {
    ASSERT_TRUE(GuardarConcepto(e.sesion, e.dialogo, "7", "Alquiler del local"));
    EXPECT_EQ(TextoConcepto(e.sesion, 7), "Alquiler del local");
    EXPECT_FALSE(GuardarConcepto(e.sesion, e.dialogo, "7", "Alquiler de la nave")); // No
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList{"Este código de Concepto ya existe, desea modificarlo?"});
    EXPECT_EQ(TextoConcepto(e.sesion, 7), "Alquiler del local");
    e.dialogo.responder({true});
    EXPECT_TRUE(GuardarConcepto(e.sesion, e.dialogo, "7", "Alquiler de la nave"));
    EXPECT_EQ(TextoConcepto(e.sesion, 7), "Alquiler de la nave");
    ASSERT_TRUE(GuardarConcepto(e.sesion, e.dialogo, "12", "Luz"));
    const QList<FilaConcepto> l = ListaConceptos(e.sesion);
    ASSERT_EQ(l.size(), 2);
    EXPECT_EQ(l.at(1).Codigo, 12);

    EXPECT_FALSE(GuardarConcepto(e.sesion, e.dialogo, "1a", "X"));
    EXPECT_FALSE(GuardarConcepto(e.sesion, e.dialogo, "13", " "));
    // What the screen would take: 40 characters and no control character.
    EXPECT_FALSE(GuardarConcepto(e.sesion, e.dialogo, "13", QString(500, QLatin1Char('c'))));
    EXPECT_EQ(ultimoMensaje(),
              "El campo Concepto predefinido no puede tener más de 40 caracteres.");
    EXPECT_FALSE(GuardarConcepto(e.sesion, e.dialogo, "13", "Luz\r\nmarzo"));
    EXPECT_EQ(ultimoMensaje(), MsgControles("Concepto predefinido"));
    EXPECT_EQ(ListaConceptos(e.sesion).size(), 2);

    e.dialogo.preguntas.clear();
    e.dialogo.responder({true});
    EXPECT_TRUE(EliminarConcepto(e.sesion, e.dialogo, 12));
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList{"Está seguro de que desea eliminar el Concepto Luz"});
    EXPECT_EQ(TextoConcepto(e.sesion, 12), "");
}

} // namespace
