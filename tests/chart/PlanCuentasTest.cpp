// Accounts and subaccounts: the checks of adding, renaming and deleting, in their order, with the
// user's messages; serial reuse through the real path; the names unique across the chart.

#include "PlanPrueba.h"
#include "chart/CliPro.h"
#include "chart/NCuenta.h"
#include "journal/Escritor.h"

namespace {

using Cuentas = PlanPrueba;

TEST_F(Cuentas, AnadirCuentaComprobacionesEnOrden) {
    auto anadir = [&](int area, const QString& codigo, const QString& nombre) {
        e.dialogo.informados.clear();
        return AnadirCuenta(e.sesion, e.dialogo, area, codigo, nombre);
    };
    // The name first, even with a bad code.
    ResultadoPlan r = anadir(2, "99", QString(61, 'x'));
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"El nombre de la Cuenta no debe tener más de 60 caracteres."});
    EXPECT_EQ(r.textoCortado, QString(60, 'x'));
    EXPECT_EQ(r.foco, CampoPlan::NombreCuenta);
    anadir(2, "99", "  ");
    EXPECT_EQ(ultimoMensaje(), "Por favor, introduzca el nombre de la nueva Cuenta");
    r = anadir(2, "40", "Nueva");
    EXPECT_EQ(ultimoMensaje(),
              "Por favor, introduzca el Código de la nueva Cuenta con tres cifras");
    EXPECT_EQ(r.foco, CampoPlan::CodigoCuenta);
    anadir(2, "999", "Nueva");
    EXPECT_EQ(ultimoMensaje(),
              "Por favor utilice un número de Cuenta del Plan General de Contabilidad.");
    anadir(4, "400", "Nueva");
    EXPECT_EQ(ultimoMensaje(), "El código de cuenta 400 debe crearlo en el área 2.");
    anadir(2, "400", "Nueva");
    EXPECT_EQ(ultimoMensaje(), "Ya existe una Cuenta con el código '400'.");
    e.dialogo.responder({true});
    ASSERT_TRUE(EliminarCuenta(e.sesion, e.dialogo, "2404").hecho);
    anadir(2, "404", "proveedores");
    EXPECT_EQ(ultimoMensaje(), "Ya existe una Cuenta con el nombre 'proveedores'.");
    EXPECT_FALSE(existe("SELECT 1 FROM Grupos WHERE NGrupo = '2404'"));

    r = anadir(2, "404", "  Proveedores asociados ");
    EXPECT_TRUE(r.hecho);
    EXPECT_TRUE(e.dialogo.informados.isEmpty());
    EXPECT_EQ(r.NCuenta, "2404");
    EXPECT_EQ(valor("SELECT Grupo FROM Grupos WHERE NGrupo = '2404'").toString(),
              "Proveedores asociados");
}

TEST_F(Cuentas, AnadirCuentaSegunLaEdicionDelEjercicio) {
    // 122 exists only in the older lists, 110 only in the newer (11 is listed, with two digits).
    AnadirCuenta(e.sesion, e.dialogo, 0, "122", "Reservas de revalorización");
    EXPECT_EQ(ultimoMensaje(),
              "Por favor utilice un número de Cuenta del Plan General de Contabilidad.");
    otroEjercicio(2007);
    e.sesion.AnoActual = 2007;
    Conexion c = e.datos();
    c.ejecutar("DELETE FROM Grupos WHERE NGrupo = '0110'");
    e.dialogo.informados.clear();
    EXPECT_TRUE(AnadirCuenta(e.sesion, e.dialogo, 0, "122", "Reservas de revalorización").hecho);
    EXPECT_FALSE(AnadirCuenta(e.sesion, e.dialogo, 0, "110", "Prima").hecho);
    EXPECT_EQ(ultimoMensaje(),
              "Por favor utilice un número de Cuenta del Plan General de Contabilidad.");
}

TEST_F(Cuentas, EjercicioCerradoPrimeroEnTodoCambio) {
    cerrarEjercicio();
    const QString cerrado = MsgEjercicioCerrado;
    EXPECT_FALSE(AnadirCuenta(e.sesion, e.dialogo, 2, "", "").hecho);
    EXPECT_FALSE(ModificarCuenta(e.sesion, e.dialogo, "2400", "").hecho);
    EXPECT_FALSE(EliminarCuenta(e.sesion, e.dialogo, "0121").hecho);
    EXPECT_FALSE(AnadirSubcuenta(e.sesion, e.dialogo, {}).hecho);
    EXPECT_FALSE(ModificarSubcuenta(e.sesion, e.dialogo, "157000001", "").hecho);
    EXPECT_FALSE(EliminarSubcuenta(e.sesion, e.dialogo, "012900002").hecho);
    EXPECT_EQ(e.dialogo.textos, QStringList(6, cerrado));
    EXPECT_TRUE(e.sesion.EjCerrado);
}

TEST_F(Cuentas, ModificarCuenta) {
    ModificarCuenta(e.sesion, e.dialogo, "2400", "Proveedores");
    EXPECT_EQ(ultimoMensaje(),
              "No se han detectado cambios, modifique antes el nombre de la Cuenta.");
    ModificarCuenta(e.sesion, e.dialogo, "2400", "acreedores por prestaciones de servicios");
    EXPECT_EQ(ultimoMensaje(),
              "Ya existe un Grupo con el nombre 'acreedores por prestaciones de servicios'.");
    ModificarCuenta(e.sesion, e.dialogo, "2402", "Otra");
    EXPECT_EQ(ultimoMensaje(), "No se encontró el registro.");
    const ResultadoPlan r = ModificarCuenta(e.sesion, e.dialogo, "2400", QString(61, 'p'));
    EXPECT_EQ(r.textoCortado.size(), 60);
    EXPECT_TRUE(ModificarCuenta(e.sesion, e.dialogo, "2400", "Proveedores comerciales").hecho);
    EXPECT_EQ(valor("SELECT Grupo FROM Grupos WHERE NGrupo = '2400'").toString(),
              "Proveedores comerciales");
    // Its subaccounts show the new name through the view.
    EXPECT_EQ(valor("SELECT Grupo FROM ConCtaGrp WHERE NCuenta = '240000009'").toString(),
              "Proveedores comerciales");
}

TEST_F(Cuentas, EliminarCuenta) {
    EliminarCuenta(e.sesion, e.dialogo, "0121");
    EXPECT_EQ(e.dialogo.textos, QStringList{"Esta Cuenta no se puede eliminar."});
    e.dialogo.textos.clear();

    e.dialogo.responder({true});
    EliminarCuenta(e.sesion, e.dialogo, "6629");
    EXPECT_EQ(e.dialogo.textos,
              QStringList({"Está seguro de que desea eliminar la Cuenta Otros servicios",
                           "No se puede eliminar la Cuenta 'Otros servicios' porque hay Cuentas "
                           "que lo utilizan."}));
    e.dialogo.textos.clear();

    EXPECT_FALSE(EliminarCuenta(e.sesion, e.dialogo, "2404").hecho); // answered No
    EXPECT_TRUE(existe("SELECT 1 FROM Grupos WHERE NGrupo = '2404'"));
    e.dialogo.responder({true});
    EXPECT_TRUE(EliminarCuenta(e.sesion, e.dialogo, "2404").hecho);
    EXPECT_FALSE(existe("SELECT 1 FROM Grupos WHERE NGrupo = '2404'"));
    e.dialogo.responder({true});
    EXPECT_FALSE(EliminarCuenta(e.sesion, e.dialogo, "2404").hecho);
    EXPECT_EQ(ultimoMensaje(), "No se eliminó la Cuenta.");
}

TEST_F(Cuentas, AnadirSubcuentaComprobacionesEnOrden) {
    NuevaSubcuenta n;
    n.area = 6;
    n.Cuenta = QString(31, 'a');
    ResultadoPlan r = AnadirSubcuenta(e.sesion, e.dialogo, n);
    EXPECT_EQ(ultimoMensaje(), "El nombre de la Subcuenta no debe tener más de 30 caracteres.");
    EXPECT_EQ(r.textoCortado, QString(30, 'a'));
    n.Cuenta = "";
    AnadirSubcuenta(e.sesion, e.dialogo, n);
    EXPECT_EQ(ultimoMensaje(), "Debe introducir el nombre de la Subcuenta.");
    n.Cuenta = "Limpieza";
    r = AnadirSubcuenta(e.sesion, e.dialogo, n);
    EXPECT_EQ(ultimoMensaje(), "Debe seleccionar la Cuenta a la que va a pertenecer la Subcuenta. "
                               "Si no existe ninguna Cuenta debe crearlas primero.");
    EXPECT_EQ(r.foco, CampoPlan::CuentaSubcuenta);
    // Names are unique across the whole chart, whatever the area and the case.
    n.NGrupo = "6629";
    n.Cuenta = "CAJA";
    AnadirSubcuenta(e.sesion, e.dialogo, n);
    EXPECT_EQ(ultimoMensaje(), "Ya existe una Subcuenta con el nombre 'CAJA'.");
    n.Cuenta = "Limpieza";
    n.NGrupo = "6999";
    AnadirSubcuenta(e.sesion, e.dialogo, n);
    EXPECT_EQ(ultimoMensaje(), "Error en la Cuenta.");
    EXPECT_EQ(e.dialogo.preguntas.size(), 0);

    e.dialogo.informados.clear();
    const QString nc = nueva(6, "6629", " Limpieza ");
    EXPECT_EQ(nc, "662900071");
    EXPECT_EQ(valor("SELECT Cuenta || '|' || NGrupo || '|' || Aparcada FROM Cuentas WHERE "
                    "NCuenta = ?",
                    {nc})
                  .toString(),
              "Limpieza|6629|0");
    EXPECT_FALSE(existe("SELECT 1 FROM CliPro WHERE NCuenta = ?", {nc})) << "no card in area 6";
    EXPECT_EQ(e.sesion.UltimaSubcuenta, 104);
    EXPECT_EQ(nueva(6, "6629", "Vigilancia"), "662900072");
}

TEST_F(Cuentas, LaSerieLiberadaPasaALaSiguienteSubcuentaDeCualquierCuenta) {
    e.dialogo.responder({true});
    ASSERT_TRUE(EliminarSubcuenta(e.sesion, e.dialogo, "217000007").hecho)
        << e.dialogo.textos.join(" | ").toStdString();
    EXPECT_EQ(nueva(4, "4430", "Cliente nuevo"), "443000007");
    EXPECT_EQ(nueva(4, "4430", "Otro cliente"), "443000071");
    e.dialogo.responder({true, true});
    ASSERT_TRUE(EliminarSubcuenta(e.sesion, e.dialogo, "028100041").hecho);
    ASSERT_TRUE(EliminarSubcuenta(e.sesion, e.dialogo, "157000001").hecho);
    EXPECT_EQ(nueva(5, "5216", "Mesa"), "521600001");
    EXPECT_EQ(nueva(1, "1572", "Banco dos"), "157200041");
    EXPECT_EQ(nueva(1, "1572", "Banco tres"), "157200072");
}

TEST_F(Cuentas, SinAcentosEnSeDebeYNosDeben) {
    NuevaSubcuenta n{4, "4430", "Cafetería Ruiz", {}};
    EXPECT_FALSE(AnadirSubcuenta(e.sesion, e.dialogo, n).hecho);
    EXPECT_EQ(ultimoMensaje(), "Por favor no ponga acentos en las áreas SE DEBE ni NOS DEBEN.");
    n = {2, "2400", "Almacenes Martín", {}};
    EXPECT_FALSE(AnadirSubcuenta(e.sesion, e.dialogo, n).hecho);
    EXPECT_EQ(e.dialogo.informados.size(), 2);
    EXPECT_FALSE(TieneAcentos("CAFETERÍA PEÑA"));
    EXPECT_TRUE(TieneAcentos("Pérez"));
    // Other areas take them.
    nueva(6, "6629", "Fontanería");
    const QString c = nueva(4, "4430", "Cafeteria Ruiz");
    EXPECT_FALSE(ModificarSubcuenta(e.sesion, e.dialogo, c, "Cafetería Ruiz").hecho);
    EXPECT_EQ(ultimoMensaje(), MsgSinAcentos);
}

TEST_F(Cuentas, NifRepetidoPreguntaYFichaEscrita) {
    FichaCliPro f;
    f.NIF = "b12345674"; // the NIF of "Proveedores varios", typed in small letters
    f.Domicilio = "Calle Alta, 3";
    f.Municipio = "Huesca";
    f.CPostal = "22001";
    f.Provincia = "Huesca";
    f.Pais = "España";
    f.Tfn1 = "974000000";
    f.Contacto = "Ana";
    f.Observaciones = "Paga a 30 días";
    NuevaSubcuenta n{4, "4430", "Cliente con NIF", f};
    EXPECT_FALSE(AnadirSubcuenta(e.sesion, e.dialogo, n).hecho);
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList{" Ya existe la subcuenta Proveedores varios de Clientes/Proveedores con "
                          "ese NIF. Desea dar de alta la nueva Subcuenta?"});
    EXPECT_FALSE(existe("SELECT 1 FROM Cuentas WHERE Cuenta = 'Cliente con NIF'"));

    e.dialogo.responder({true});
    const ResultadoPlan r = AnadirSubcuenta(e.sesion, e.dialogo, n);
    ASSERT_TRUE(r.hecho);
    // Two subaccounts share the NIF; the card is kept as typed.
    Conexion c = e.datos();
    const FichaCliPro leida = ObtCliPro(c, r.NCuenta);
    EXPECT_EQ(leida.Cuenta, "Cliente con NIF");
    EXPECT_TRUE(leida.mismosDatos(f));
    EXPECT_EQ(leida.NIF, "b12345674");
    EXPECT_EQ(
        c.escalar("SELECT COUNT(*) FROM CliPro WHERE NIF = 'B12345674' COLLATE NOCASE").toInt(), 2);

    // The note on leaving the NIF looks in the list of the area only, and not at itself.
    EXPECT_EQ(NotaNIF(c, 2, "B12345674", "241000010"), "Proveedores varios");
    EXPECT_EQ(NotaNIF(c, 2, "B12345674", "240000009"), "");
    EXPECT_EQ(NotaNIF(c, 4, "B12345674", "443000022"), "Cliente con NIF");
    EXPECT_EQ(NotaNIF(c, 4, "", "443000022"), "");
    EXPECT_EQ(MsgNotaNIF("Proveedores varios"),
              "Este NIF corresponde a la subcuenta Proveedores varios");

    // Outside areas 2 and 4 there is no card and no question.
    e.dialogo.preguntas.clear();
    const QString otra = nueva(6, "6629", "Gasto con NIF", f);
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
    const FichaCliPro vacia = ObtCliPro(c, otra);
    EXPECT_TRUE(vacia.NCuenta.isEmpty() && vacia.NIF.isEmpty() && vacia.Provincia.isEmpty());
}

TEST_F(Cuentas, FichaConNulosSeLeeVacia) {
    Conexion c = e.datos();
    c.ejecutar("UPDATE CliPro SET NIF = NULL, Pais = NULL WHERE NCuenta = '241000010'");
    c.ejecutar("UPDATE CliPro SET Domicilio = NULL WHERE NCuenta = '240000009'");
    const FichaCliPro f = ObtCliPro(c, "241000010");
    EXPECT_EQ(f.Cuenta, "Acreedores varios");
    EXPECT_TRUE(f.NIF.isEmpty());
    EXPECT_TRUE(f.Pais.isEmpty());
    EXPECT_EQ(f.Provincia, "Madrid");
    EXPECT_TRUE(ObtCliPro(c, "240000009").Domicilio.isEmpty());
    EXPECT_FALSE(CompCliPro(c, "").existe);
    const ResultadoCompCliPro r = CompCliPro(c, " B12345674 ");
    EXPECT_TRUE(r.existe);
    EXPECT_EQ(r.NCuenta, "240000009");
}

TEST_F(Cuentas, ModificarSubcuenta) {
    const QString c = nueva(4, "4430", "Bar Centro");
    ModificarSubcuenta(e.sesion, e.dialogo, c, "Bar Centro");
    EXPECT_EQ(ultimoMensaje(), "No se han detectado cambios");
    ModificarSubcuenta(e.sesion, e.dialogo, c, "");
    EXPECT_EQ(ultimoMensaje(), "Debe introducir el nombre de la Subcuenta");
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());

    EXPECT_FALSE(ModificarSubcuenta(e.sesion, e.dialogo, c, "Bar Plaza").hecho); // answered No
    EXPECT_EQ(e.dialogo.preguntas, QStringList{"Desea guardar los cambios?"});
    e.dialogo.responder({true});
    ModificarSubcuenta(e.sesion, e.dialogo, c, "caja");
    EXPECT_EQ(ultimoMensaje(), "Ya existe una Subcuenta de nombre 'caja'.");
    e.dialogo.responder({true});
    EXPECT_TRUE(ModificarSubcuenta(e.sesion, e.dialogo, c, "Bar Plaza").hecho);
    EXPECT_EQ(valor("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?", {c}).toString(), "Bar Plaza");
    // A change in case alone is a change, and the row's own name is not "in use".
    e.dialogo.responder({true});
    EXPECT_TRUE(ModificarSubcuenta(e.sesion, e.dialogo, c, "BAR PLAZA").hecho);

    // Only the card changed: it is saved.
    Conexion cx = e.datos();
    FichaCliPro f = ObtCliPro(cx, c);
    f.Provincia = "Teruel";
    f.NIF = "12345678Z";
    e.dialogo.responder({true});
    EXPECT_TRUE(ModificarSubcuenta(e.sesion, e.dialogo, c, "BAR PLAZA", &f).hecho);
    EXPECT_EQ(ObtCliPro(cx, c).Provincia, "Teruel");
    EXPECT_EQ(ObtCliPro(cx, c).NIF, "12345678Z");
    ModificarSubcuenta(e.sesion, e.dialogo, c, "BAR PLAZA", &f);
    EXPECT_EQ(ultimoMensaje(), "No se han detectado cambios");

    ModificarSubcuenta(e.sesion, e.dialogo, "443000099", "Nadie");
    EXPECT_EQ(ultimoMensaje(), "No se pudo hacer la modificación.");
}

TEST_F(Cuentas, SubcuentasReservadas) {
    for (const char* n : {"012900002", "012000103", "012100104"}) {
        e.dialogo.textos.clear();
        EXPECT_FALSE(EliminarSubcuenta(e.sesion, e.dialogo, n).hecho);
        EXPECT_EQ(e.dialogo.textos, QStringList{"Esta Subcuenta no se puede eliminar."}) << n;
    }
}

TEST_F(Cuentas, ListasDeLaPantalla) {
    Conexion c = e.datos();
    const QList<FilaGrupo> grupos = GruposDeArea(c, 1);
    ASSERT_FALSE(grupos.isEmpty());
    EXPECT_EQ(grupos.first().NGrupo, "1548");
    EXPECT_EQ(grupos.first().codigo(), "548");
    for (const FilaGrupo& g : grupos)
        EXPECT_TRUE(g.NGrupo.startsWith('1'));
    c.ejecutar("UPDATE Cuentas SET Aparcada = -1, Desde = 2024 WHERE NCuenta = '157200003'");
    const QList<FilaSubcuenta> todas = SubcuentasDeArea(c, e.sesion, 1);
    const QList<FilaSubcuenta> libres = SubcuentasDeArea(c, e.sesion, 1, true);
    ASSERT_EQ(todas.size(), 2);
    EXPECT_EQ(todas.at(0).Grupo, "Bancos e instituciones de crédito c/c vista, euros");
    EXPECT_TRUE(todas.at(0).Aparcada);
    EXPECT_EQ(todas.at(1).Cuenta, "Caja");
    ASSERT_EQ(libres.size(), 1);
    EXPECT_EQ(libres.at(0).NCuenta, "157000001");
}

} // namespace
