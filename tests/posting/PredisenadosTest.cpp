// Predesigned entries without the screens: the cell language resolved in its order (asked fields,
// ANTERIOR, copies, arithmetic, CUADRE), the editor's refusals with their messages, the answers of
// a line, and the entry landing in the maintenance screen, where it is checked and posted.

#include "posting/Predisenados.h"
#include "ComunAsientos.h"
#include "posting/EditorPredisenado.h"
#include "store/Conexiones.h"

#include <QHash>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

// Answers the asked fields of each line from a table of field names ("C13"); a line without
// answers is cancelled when `cancelar` says so.
class Respuestas : public PantallaApunte {
public:
    Respuestas(const Sesion& s, Dialogo& d) : s_(s), d_(d) {}
    QHash<QString, QString> valores;
    QString fechaRecordada;
    int lineas = 0;
    bool cancelar = false;
    bool Pedir(TrabajoPredisenado& t, int linea) override {
        ++lineas;
        if (cancelar)
            return false;
        RespuestasApunte r(t, linea, QDate(2024, 6, 1), fechaRecordada);
        for (int c = 0; c < CampoPredi::Total; ++c)
            if (r.Variable[c] && valores.contains(r.NombreCampo(c)))
                r.Valores[c] = valores.value(r.NombreCampo(c));
        return r.Aceptar(s_, d_);
    }

private:
    const Sesion& s_;
    Dialogo& d_;
};

class Predisenados : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }

    // A line typed in the editor: its side and its nine cells as they are stored.
    bool linea(const QString& dh, const QStringList& celdas, bool libro = false) {
        if (!ed.Lineas.isEmpty())
            ed.NuevoAp();
        ed.DH = dh;
        for (int c = 0; c < CampoPredi::Total; ++c)
            ed.Campos[c] = {TipoDeCelda(celdas.value(c)), ValorDeCelda(celdas.value(c))};
        ed.LibroIVA = libro;
        return ed.AnadirAp();
    }

    bool guardar(const QString& codigo, const QString& nombre = "Prueba") {
        ed.Codigo = codigo;
        ed.Nombre = nombre;
        return ed.Guardar();
    }

    std::optional<AsientoPredisenado> asTipo(int codigo) {
        return AsTipo(e.sesion, e.dialogo, respuestas, codigo, QDate(2024, 6, 1));
    }

    // "NCuenta Debe/Haber Concepto" of each line.
    static QStringList Resumen(const AsientoPredisenado& a) {
        QStringList r;
        for (const LineaF7& l : a.Lineas)
            r << QStringLiteral("%1 %2/%3 %4")
                     .arg(l.NCuenta)
                     .arg(l.Debe)
                     .arg(l.Haber)
                     .arg(l.Concepto);
        return r;
    }

    Entorno e;
    EditorPredisenado ed{e.sesion, e.dialogo};
    Respuestas respuestas{e.sesion, e.dialogo};
};

} // namespace

TEST_F(Predisenados, CompraConIvaFormulasAnteriorYCuadre) {
    // Purchase, its VAT at 21 % of the amount with the amount as base, and the supplier balancing.
    ASSERT_TRUE(linea("D", {"VARIABLE", Compras, "VARIABLE", "VARIABLE", "", "VARIABLE"}));
    ASSERT_TRUE(linea("D",
                      {"ANTERIOR", IvaSop21, "F=C12", "F=C13*0,21", "", "ANTERIOR", "F=C13",
                       Proveedor, "VARIABLE"},
                      true));
    ASSERT_TRUE(linea("H", {"ANTERIOR", "F=C27", "ANTERIOR", "CUADRE", "", "ANTERIOR"}));
    ASSERT_TRUE(guardar("001", "Compra con IVA"));

    respuestas.valores = {{"C10", "15/3/24"},
                          {"C12", "Compra de material"},
                          {"C13", "1.000,50"},
                          {"C15", "F-1"},
                          {"C28", "F-1"}};
    const auto a = asTipo(1);
    ASSERT_TRUE(a) << e.dialogo.informados.join('\n').toStdString();
    EXPECT_EQ(respuestas.lineas, 2) << "only the lines that ask something are shown";
    EXPECT_EQ(a->Fecha, QDate(2024, 3, 15));
    EXPECT_EQ(Resumen(*a), QStringList({"660000044 1000.5/0 Compra de material",
                                        "447200028 210.11/0 Compra de material",
                                        "240000009 0/1210.61 Compra de material"}));
    const LineaF7& iva = a->Lineas[1];
    EXPECT_EQ(QStringList({iva.Contra, iva.Factura, iva.Base, iva.LibroIva, iva.L347,
                           a->Lineas[2].Documento}),
              QStringList({Proveedor, "F-1", "1.000,50", "True", "False", "F-1"}));

    // It lands in the maintenance screen as a new entry, whose button posts it with the VAT data
    // the template offered.
    PantallaGuion pantalla;
    pantalla.pasos = {[](CapturaIva& c) {
        c.Aceptar();
    }};
    GestionAsientos k(e.sesion, e.dialogo);
    k.Pantalla = &pantalla;
    k.NuevoConLineas(a->Lineas, a->Fecha);
    EXPECT_TRUE(k.EsNuevo && k.LineasCambiadas);
    EXPECT_EQ(QStringList({k.Fecha, k.Label8, k.TextoDescuadre}),
              QStringList({"15/03/2024", "15/03/2024", "0,00"}));
    ASSERT_EQ(k.Pulsar().tipo, ResultadoF7::Tipo::Guardado);
    ASSERT_EQ(pantalla.vistas.size(), 1);
    EXPECT_EQ(pantalla.vistas[0].Contrapartida, "Proveedores varios");
    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT NCuenta, NFactura, Base, LIVA FROM DatosIVA"),
              QStringList({"240000009|F-1|1000.5|-1"}));
}

TEST_F(Predisenados, BaseEnFormulaYCuadreConDebeYHaber) {
    // F=C16*0,21: the base of line 1 is 100, so line 2 is 21.
    ASSERT_TRUE(linea("D", {"01/06/24", Compras, "Gasto", "100", "", "", "100"}));
    ASSERT_TRUE(linea("D", {"ANTERIOR", IvaSop21, "IVA", "F=C16*0,21"}));
    ASSERT_TRUE(linea("H", {"ANTERIOR", Banco, "Pago", "CUADRE"}));
    ASSERT_TRUE(guardar("002"));
    auto a = asTipo(2);
    ASSERT_TRUE(a);
    EXPECT_EQ(Resumen(*a),
              QStringList({"660000044 100/0 Gasto", "447200028 21/0 IVA", "157200003 0/121 Pago"}));

    // 100 on the debit and 30 on the credit: CUADRE on the third line is 70.
    ed.BorrarTodo();
    ASSERT_TRUE(linea("D", {"01/06/24", Banco, "Cobro", "100"}));
    ASSERT_TRUE(linea("H", {"ANTERIOR", Ventas, "Venta", "30"}));
    ASSERT_TRUE(linea("H", {"ANTERIOR", Clientes, "Resto", "CUADRE"}));
    ASSERT_TRUE(guardar("003"));
    a = asTipo(3);
    ASSERT_TRUE(a);
    EXPECT_EQ(a->Lineas[2].Haber, 70);

    // A negative CUADRE stays on its own side: the entry shows a difference that the maintenance
    // screen refuses to post.
    ed.BorrarTodo();
    ASSERT_TRUE(linea("D", {"01/06/24", Banco, "Cobro", "30"}));
    ASSERT_TRUE(linea("H", {"ANTERIOR", Ventas, "Venta", "100"}));
    ASSERT_TRUE(linea("H", {"ANTERIOR", Clientes, "Resto", "CUADRE"}));
    e.dialogo.responder({true});
    ASSERT_TRUE(guardar("003")) << "overwritten";
    a = asTipo(3);
    ASSERT_TRUE(a);
    EXPECT_EQ(a->Lineas[2].Haber, 70);
    GestionAsientos k(e.sesion, e.dialogo);
    k.NuevoConLineas(a->Lineas, a->Fecha);
    EXPECT_EQ(k.TextoDescuadre, "-140,00");
    e.dialogo.informados.clear();
    EXPECT_EQ(k.Pulsar().tipo, ResultadoF7::Tipo::Aviso);
    EXPECT_EQ(e.dialogo.informados, QStringList({"El asiento está descuadrado."}));
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario"), 0);
}

TEST_F(Predisenados, CadenaDeAnteriorCopiaElPrimerValor) {
    ASSERT_TRUE(linea("D", {"V=03/06/24", Compras, "Origen", "10", "", "Doc-9"}));
    for (int i = 0; i < 4; ++i)
        ASSERT_TRUE(linea("D", {"ANTERIOR", Compras, "ANTERIOR", "ANTERIOR", "", "ANTERIOR"}));
    ASSERT_TRUE(linea("H", {"ANTERIOR", Banco, "ANTERIOR", "CUADRE", "", "ANTERIOR"}));
    ASSERT_TRUE(guardar("004"));
    const auto a = asTipo(4);
    ASSERT_TRUE(a);
    EXPECT_EQ(a->Fecha, QDate(2024, 6, 3)) << "the default offered, accepted";
    ASSERT_EQ(a->Lineas.size(), 6);
    EXPECT_EQ(QStringList({a->Lineas[4].Concepto, a->Lineas[5].Concepto, a->Lineas[5].Documento}),
              QStringList({"Origen", "Origen", "Doc-9"}));
    EXPECT_EQ(a->Lineas[4].Debe, 10);
    EXPECT_EQ(a->Lineas[5].Haber, 50);
}

TEST_F(Predisenados, ErrorDeFormulaYCancelarNoDejanNada) {
    ASSERT_TRUE(linea("D", {"DEL DIA", Compras, "Reparto", "VARIABLE"}));
    ASSERT_TRUE(linea("H", {"ANTERIOR", Banco, "Reparto", "F=100/C13"}));
    ASSERT_TRUE(guardar("005"));
    respuestas.valores = {{"C13", "0"}};
    EXPECT_FALSE(asTipo(5));
    EXPECT_EQ(e.dialogo.informados.value(0),
              "Error en la fórmula del campo C23 (F=100/C13): División por cero.")
        << e.dialogo.informados.join('\n').toStdString();
    // An amount not given is asked again by the screen: here the answer fails its check.
    respuestas.valores = {{"C13", "doce"}};
    e.dialogo.informados.clear();
    EXPECT_FALSE(asTipo(5));
    EXPECT_EQ(e.dialogo.informados, QStringList({"El Importe introducido no es correcto."}));
    respuestas.valores = {};
    e.dialogo.informados.clear();
    EXPECT_FALSE(asTipo(5));
    EXPECT_EQ(e.dialogo.informados, QStringList({"Tiene que introducir el Importe."}));
    // Cancelled.
    respuestas.cancelar = true;
    e.dialogo.informados.clear();
    EXPECT_FALSE(asTipo(5));
    EXPECT_TRUE(e.dialogo.informados.isEmpty());
    // DEL DIA is today's date.
    respuestas.cancelar = false;
    respuestas.valores = {{"C13", "50"}};
    const auto a = asTipo(5);
    ASSERT_TRUE(a);
    EXPECT_EQ(a->Fecha, QDate(2024, 6, 1));
    // A code that doesn't exist.
    e.dialogo.informados.clear();
    EXPECT_FALSE(asTipo(999));
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgNoExistePredisenado}));
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario"), 0);
}

TEST_F(Predisenados, ElEditorRechazaConSusMensajes) {
    struct Caso {
        const char* dh;
        QStringList celdas;
        bool libro;
        QString mensaje;
    };
    const QString anterior =
        "La fórmula sólo puede referirse al Importe o Base Imponible de IVA de un Apunte anterior.";
    // Each refused on a template that already has line C1 (Compras, 100).
    const QList<Caso> casos{
        {"D", {"", Banco, "x", "1"}, false, "Tiene que seleccionar el tipo de Fecha."},
        {"D", {"15-06-24", Banco, "x", "1"}, false, MsgFormatoFecha},
        {"D", {"31/02/24", Banco, "x", "1"}, false, "La Fecha introducida no es correcta."},
        {"",
         {"DEL DIA", Banco, "x", "1"},
         false,
         "Tiene que seleccionar si se contabiliza en el Debe o en el Haber."},
        {"D", {"DEL DIA", "", "x", "1"}, false, "Tiene que seleccionar el tipo de Subcuenta."},
        {"D",
         {"DEL DIA", "F=C11", "x", "1"},
         false,
         "La fórmula sólo puede referirse al Cliente/Proveedor de un Apunte anterior."},
        {"D",
         {"DEL DIA", "F=Banco", "x", "1"},
         false,
         "Debe introducir la fórmula utilizando el nombre de otro campo, por ejemplo C17."},
        {"D", {"DEL DIA", "999999999", "x", "1"}, false, "No existe la subcuenta 999999999."},
        {"D",
         {"DEL DIA", Banco, "F=C23", "1"},
         false,
         "La fórmula sólo puede referirse al Concepto de un Apunte anterior."},
        {"D",
         {"DEL DIA", Banco, QString(41, 'x'), "1"},
         false,
         "El campo Concepto no puede tener más de 40 caracteres."},
        {"D", {"DEL DIA", Banco, "x", "1,2,3"}, false, "El Importe introducido no es correcto."},
        {"D", {"DEL DIA", Banco, "x", "F=C12*2"}, false, anterior},
        {"D",
         {"DEL DIA", Banco, "x", "F=C13*"},
         false,
         "La fórmula del campo C23 no es correcta: Error de sintaxis."},
        {"D",
         {"DEL DIA", Banco, "x", "F=C13/0"},
         false,
         "La fórmula del campo C23 no es correcta: División por cero."},
        {"D",
         {"DEL DIA", Banco, "x", "F=C13%2"},
         false,
         "La fórmula sólo puede tener cifras, el separador decimal, paréntesis, los signos + - * "
         "/ y nombres de campo, por ejemplo C13."},
        {"D",
         {"DEL DIA", Banco, "x", "1"},
         true,
         "Tiene que seleccionar el tipo de Base Imponible de IVA."},
        {"D",
         {"DEL DIA", Banco, "x", "1", "", "", "100"},
         true,
         "Tiene que seleccionar el tipo de Cliente/Proveedor."},
        {"D",
         {"DEL DIA", Banco, "x", "1", "", "", "100", Proveedor},
         true,
         "Tiene que introducir el número de Factura."},
        {"D",
         {"DEL DIA", Banco, "x", "1", "", "", "100", "F=C12"},
         true,
         "La fórmula sólo puede referirse a la Subcuenta o Cliente/Proveedor de un Apunte "
         "anterior."},
        {"D", {"DEL DIA", Banco, "x", "1", "Oficina"}, false, "No existe el sector Oficina."},
        {"D",
         {"DEL DIA", Banco, "CUADRE", "1"},
         false,
         "El campo C22 (Concepto) no admite el tipo CUADRE."},
    };
    ASSERT_TRUE(linea("D", {"01/06/24", Compras, "Compra", "100"}));
    for (const Caso& c : casos) {
        e.dialogo.informados.clear();
        EXPECT_FALSE(linea(c.dh, c.celdas, c.libro)) << c.mensaje.toStdString();
        EXPECT_EQ(e.dialogo.informados, QStringList({c.mensaje}));
        ed.Lineas.resize(1);
    }
    // The line already in the grid can't be added again; a template of one line can't be saved.
    ed.SeleccionarLinea(0);
    e.dialogo.informados.clear();
    EXPECT_FALSE(ed.AnadirAp());
    EXPECT_TRUE(e.dialogo.informados.value(0).startsWith(
        "Ya existe el apunte de Código C1. Si lo desea puede modificarlo"));
    e.dialogo.informados.clear();
    EXPECT_FALSE(guardar("10"));
    EXPECT_FALSE(guardar("010", " "));
    EXPECT_FALSE(guardar("010"));
    EXPECT_EQ(e.dialogo.informados,
              QStringList(
                  {MsgCodigoTresCifras, "Debe introducir el nombre del Asiento.", MsgDosApuntes}));
    Conexion c = e.bavar();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM AsPredi"), 0);
}

TEST_F(Predisenados, GuardarPrimeraLineaCuadreYSobrescribir) {
    ASSERT_TRUE(linea("D", {"01/06/24", Compras, "Compra", "CUADRE"}));
    ASSERT_TRUE(linea("H", {"ANTERIOR", Banco, "ANTERIOR", "100"}));
    EXPECT_FALSE(guardar("011"));
    ed.SeleccionarLinea(0);
    ed.Campos[CampoPredi::Importe] = {TipoCelda::Fija, "100"};
    ed.Campos[CampoPredi::Documento] = {TipoCelda::Anterior, ""};
    ASSERT_TRUE(ed.ModificarAp());
    EXPECT_FALSE(guardar("011"));
    EXPECT_EQ(e.dialogo.informados,
              QStringList({MsgCuadreUltimo, "En el primer Apunte el Documento no puede estar "
                                            "definido com 'ANTERIOR'."}));
    ed.SeleccionarLinea(0);
    ed.Campos[CampoPredi::Documento] = {};
    ASSERT_TRUE(ed.ModificarAp());
    ASSERT_TRUE(guardar("011", "Primero"));

    // The same code again: the question, No keeps the old one, Yes replaces it.
    EXPECT_FALSE(guardar("011", "Segundo"));
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList({"El Asiento Prediseñado 011 ya existe. Desea sobrescribirlo?"}));
    e.dialogo.responder({true});
    ASSERT_TRUE(guardar("011", "Segundo"));
    Conexion c = e.bavar();
    EXPECT_EQ(Filas(c, "SELECT Codigo, Nombre, Etiqueta, DH, Fecha, Concepto, Importe, NCuenta "
                       "FROM AsPredi ORDER BY rowid"),
              QStringList({"11|Segundo|C1|D|01/06/24|Compra|100|660000044",
                           "11|Segundo|C2|H|ANTERIOR|ANTERIOR|100|157200003"}));
    // Read back into the editor, as the list's "Ver" does.
    EditorPredisenado otro(e.sesion, e.dialogo);
    ASSERT_TRUE(otro.Cargar(11));
    EXPECT_EQ(QStringList({otro.Codigo, otro.Nombre, otro.Etiqueta(),
                           otro.Campos[CampoPredi::Subcuenta].Valor}),
              QStringList({"011", "Segundo", "C1", Compras}));
    e.dialogo.responder({true});
    EXPECT_TRUE(EliminarPredisenadoPreguntando(e.sesion, e.dialogo, 11, "Segundo"));
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Está seguro de que desea eliminar el asiento prediseñado 011, Segundo?");
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM AsPredi"), 0);
}

TEST_F(Predisenados, RespuestasDeUnApunte) {
    ASSERT_TRUE(linea("D", {"VARIABLE", "VARIABLE", "V=Cuota", "V=12,5", "VARIABLE", "", "", ""}));
    ASSERT_TRUE(linea("H", {"ANTERIOR", Banco, "ANTERIOR", "CUADRE"}));
    ASSERT_TRUE(guardar("012"));
    Conexion b = e.bavar();
    TrabajoPredisenado t = TrabajoDe(LeerPredisenado(b, 12).value());
    RespuestasApunte r(t, 0, QDate(2024, 6, 1), "20/05/2024");
    // What the screen shows: the defaults, and the date last typed for a date without one.
    EXPECT_EQ(QStringList({r.Valores[0], r.Valores[2], r.Valores[3]}),
              QStringList({"20/05/2024", "Cuota", "12,5"}));
    EXPECT_EQ(QList<bool>({r.Variable[0], r.Variable[1], r.Variable[3], r.Variable[5]}),
              QList<bool>({true, true, true, false}));
    EXPECT_FALSE(r.Aceptar(e.sesion, e.dialogo));
    r.Valores[1] = "999999999";
    EXPECT_FALSE(r.Aceptar(e.sesion, e.dialogo));
    r.Valores[1] = Compras;
    r.Valores[4] = "Inexistente";
    EXPECT_FALSE(r.Aceptar(e.sesion, e.dialogo));
    EXPECT_EQ(e.dialogo.informados, QStringList({"Tiene que introducir la Subcuenta.",
                                                 "No existe la subcuenta 999999999.",
                                                 "No existe el sector Inexistente."}));
    EXPECT_EQ(t[0][ColTrabajo::Subcuenta], "VARIABLE") << "nothing written back on a refusal";
    r.Valores[4] = "";
    ASSERT_TRUE(r.Aceptar(e.sesion, e.dialogo));
    EXPECT_EQ(QStringList({t[0][ColTrabajo::Fecha], t[0][ColTrabajo::Subcuenta],
                           t[0][ColTrabajo::Importe], r.FechaTecleada()}),
              QStringList({"20/05/2024", Compras, "12,50", "20/05/2024"}));
}
