// Periodic entries without the screens: the steps of the eight rhythms (the day of the month given
// back after a short month), the due test, making one (questions, name rules, the periodicity
// screen's cancel), the start-up run (each date missed its own posting, "all", the VAT line that
// forbids it, a date after the exercise, FechaProx moved only after a posting that went through),
// and the line editor.

#include "posting/Periodicos.h"
#include "ComunAsientos.h"
#include "platform/ImpresoraGrabadora.h"
#include "posting/ContAsPer.h"
#include "posting/EditorPeriodico.h"
#include "posting/EstadoTablero.h"
#include "posting/ListadosPlantillas.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <gtest/gtest.h>

using namespace cuentas;

namespace {

QDate F(int a, int m, int d) {
    return QDate(a, m, d);
}

// The dates a rhythm gives from a first date, step after step.
QList<QDate> Serie(const QDate& inicio, qint16 periodicidad, int pasos) {
    QList<QDate> r;
    QDate f = inicio;
    for (int i = 0; i < pasos; ++i) {
        f = AvanzarFechaProx(inicio, f, periodicidad);
        r << f;
    }
    return r;
}

class FijaForm59 : public PantallaPeriodicidad {
public:
    EleccionPeriodicidad eleccion;
    QString origen;
    QDate fecha;
    int veces = 0;
    EleccionPeriodicidad Elegir(const QString& o, const QDate& f) override {
        origen = o;
        fecha = f;
        ++veces;
        return eleccion;
    }
};

// The start-up's screens, scripted: each confirmation answers the next action (NoContabilizar
// when they run out); the posting screen posts the entry as shown, unless told to change an
// amount first or to cancel.
class Guion : public PantallasPeriodicos {
public:
    Guion(Sesion& s, Dialogo& d) : s_(s), d_(d) {}
    QList<AccionForm61> acciones;
    QList<std::tuple<QString, QDate, bool>> confirmaciones;
    QList<AsientoPeriodico> mostrados;
    bool cancelarForm4 = false;
    std::function<void(RejillaAsiento&)> tocar; // the user's change in the posting screen

    AccionForm61 Confirmar(const QString& nombre, const QDate& fecha, bool todos) override {
        confirmaciones.append({nombre, fecha, todos});
        return acciones.isEmpty() ? AccionForm61::NoContabilizar : acciones.takeFirst();
    }
    long ContabilizarEnForm4(const AsientoPeriodico& a) override {
        mostrados << a;
        if (cancelarForm4)
            return 0;
        EstadoTablero t;
        Contabilizar k(s_, d_, t);
        k.AplicarOrigen(QStringLiteral("F61"));
        CamposForm4 campos;
        {
            Conexion c = AbrirDatos(s_);
            campos = CargarPeriodicoEnForm4(k.Rejilla, c, a);
        }
        if (tocar)
            tocar(k.Rejilla);
        const ResultadoAceptar r = k.Aceptar(campos);
        return r.tipo == ResultadoAceptar::Tipo::Contabilizado ? r.numero : 0;
    }

private:
    Sesion& s_;
    Dialogo& d_;
};

class Periodicos : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }

    // A monthly rent of 500 from the bank, made directly in the table.
    void alquiler(const QDate& prox, qint16 periodicidad = 12, const QString& nombre = "Alquiler",
                  const QDate& ini = F(2024, 1, 31)) {
        AsientoPeriodico a;
        a.Nombre = nombre;
        a.Periodicidad = periodicidad;
        a.FechaIni = ini;
        a.FechaProx = prox;
        a.Sector = "";
        a.Lineas = {{Compras, "Alquiler local", 500, 0, ""},
                    {Banco, "Alquiler local", 0, 500, "R-1"}};
        Conexion c = e.bavar();
        GuardarPeriodico(c, a);
    }

    QDate proxima(const QString& nombre = "Alquiler") {
        Conexion c = e.bavar();
        return LeerPeriodico(c, nombre).value().FechaProx;
    }

    int asientos() {
        Conexion c = e.datos();
        return c.escalar("SELECT COUNT(DISTINCT NAs) FROM Diario").toInt();
    }

    ResultadoContAsPer correr(Guion& g, const QDate& hoy) {
        EstadoTablero t;
        return ContAsPer(e.sesion, e.dialogo, t, g, hoy);
    }

    Entorno e;
};

} // namespace

TEST(RitmosPeriodicos, PasosYDiaDelMesDevuelto) {
    // A month step keeps the day of the first date where the month has it.
    EXPECT_EQ(Serie(F(2024, 1, 31), 12, 5),
              QList<QDate>({F(2024, 2, 29), F(2024, 3, 31), F(2024, 4, 30), F(2024, 5, 31),
                            F(2024, 6, 30)}));
    EXPECT_EQ(Serie(F(2023, 1, 31), 12, 2), QList<QDate>({F(2023, 2, 28), F(2023, 3, 31)}));
    EXPECT_EQ(Serie(F(2024, 8, 31), 6, 3),
              QList<QDate>({F(2024, 10, 31), F(2024, 12, 31), F(2025, 2, 28)}));
    EXPECT_EQ(Serie(F(2024, 11, 30), 4, 2), QList<QDate>({F(2025, 2, 28), F(2025, 5, 30)}));
    EXPECT_EQ(Serie(F(2024, 8, 31), 2, 2), QList<QDate>({F(2025, 2, 28), F(2025, 8, 31)}));
    // Yearly from 29 February: 28 February in common years, 29 again in a leap year.
    EXPECT_EQ(Serie(F(2024, 2, 29), 1, 4),
              QList<QDate>({F(2025, 2, 28), F(2026, 2, 28), F(2027, 2, 28), F(2028, 2, 29)}));
    // Day steps never touch the day of the month.
    EXPECT_EQ(Serie(F(2024, 12, 30), 365, 3),
              QList<QDate>({F(2024, 12, 31), F(2025, 1, 1), F(2025, 1, 2)}));
    EXPECT_EQ(Serie(F(2024, 2, 26), 52, 2), QList<QDate>({F(2024, 3, 4), F(2024, 3, 11)}));
    EXPECT_EQ(Serie(F(2024, 1, 31), 26, 2), QList<QDate>({F(2024, 2, 14), F(2024, 2, 28)}));
    // A value that is no rhythm doesn't move, so nothing can loop on it.
    EXPECT_EQ(AvanzarFechaProx(F(2024, 1, 1), F(2024, 1, 1), 7), F(2024, 1, 1));

    EXPECT_EQ(PeriodicidadDeNombre("  TRIMESTRAL "), 4);
    EXPECT_FALSE(PeriodicidadDeNombre("cada dos días"));
    EXPECT_EQ(NombreRitmo(26), "Quincenal");
}

TEST(RitmosPeriodicos, VencimientoHoyYFinDelEjercicio) {
    AsientoPeriodico a;
    a.FechaProx = F(2024, 6, 30);
    EXPECT_TRUE(VencePeriodico(a, F(2024, 6, 30), F(2024, 12, 31)));
    EXPECT_FALSE(VencePeriodico(a, F(2024, 6, 29), F(2024, 12, 31)));
    EXPECT_FALSE(VencePeriodico(a, F(2024, 7, 15), F(2024, 6, 29))) << "after the exercise";
    a.FechaProx = QDate();
    EXPECT_FALSE(VencePeriodico(a, F(2024, 7, 15), F(2024, 12, 31)));
}

TEST_F(Periodicos, HacerPeriodicoPreguntasNombreYCancelar) {
    FijaForm59 form59;
    form59.eleccion = {F(2024, 3, 1), 12};
    const QList<LineaPeriodico> lineas{{Compras, " Luz ", 80, 0, "F-7"}, {Banco, "Luz", 0, 80, ""}};

    // Nothing to save: no question at all.
    EXPECT_FALSE(HacerPeriodico(e.sesion, e.dialogo, form59, "F4", F(2024, 2, 1), "", {}));
    EXPECT_FALSE(HacerPeriodico(e.sesion, e.dialogo, form59, "F4", F(2024, 2, 1), "",
                                {{Compras, "x", 0, 0, ""}, {Banco, "x", 0, 0, ""}}));
    EXPECT_TRUE(e.dialogo.textos.isEmpty());

    // No to the question; then an empty name.
    EXPECT_FALSE(HacerPeriodico(e.sesion, e.dialogo, form59, "F4", F(2024, 2, 1), "", lineas));
    e.dialogo.responder({true});
    e.dialogo.responderTextos({"  "});
    EXPECT_FALSE(HacerPeriodico(e.sesion, e.dialogo, form59, "F4", F(2024, 2, 1), "", lineas));
    EXPECT_EQ(form59.veces, 0);

    // Made, with the name trimmed and the date of the entry as FechaIni.
    e.dialogo.textos.clear();
    e.dialogo.responder({true});
    e.dialogo.responderTextos({"  Luz oficina  "});
    ASSERT_TRUE(
        HacerPeriodico(e.sesion, e.dialogo, form59, "F7", F(2024, 2, 1), "Tienda ", lineas));
    EXPECT_EQ(e.dialogo.textos, QStringList({MsgHacerPeriodico, MsgNombrePeriodico}));
    EXPECT_EQ(form59.origen, "F7");
    EXPECT_EQ(form59.fecha, F(2024, 2, 1));
    {
        Conexion c = e.bavar();
        EXPECT_EQ(Filas(c, "SELECT Nombre, Periodicidad, FechaIni, FechaProx, Sector, Concepto, "
                           "NCuenta, Debe, Haber, Documento FROM Periodicos ORDER BY rowid"),
                  QStringList({"Luz oficina|12|2024-02-01|2024-03-01|Tienda|Luz|660000044|80|0|F-7",
                               "Luz oficina|12|2024-02-01|2024-03-01|Tienda|Luz|157200003|0|80|"}));
    }

    // The same name again, in another case and with blanks: refused and asked again; a name over
    // 30 characters likewise; then the periodicity screen is cancelled and nothing is written.
    e.dialogo.textos.clear();
    e.dialogo.responder({true});
    e.dialogo.responderTextos({" LUZ OFICINA", QString(31, 'x'), "Agua"});
    form59.eleccion = {FechaSinEleccion, 0};
    EXPECT_FALSE(HacerPeriodico(e.sesion, e.dialogo, form59, "F4", F(2024, 2, 1), "", lineas));
    EXPECT_EQ(e.dialogo.informados,
              QStringList({MsgNombreRepetido,
                           "El campo Nombre del asiento periódico no puede tener más de 30 "
                           "caracteres."}));
    EXPECT_EQ(e.dialogo.textos.count(MsgNombrePeriodico), 3);
    Conexion c = e.bavar();
    EXPECT_EQ(NombresPeriodicos(c), QStringList({"Luz oficina"}));
}

TEST_F(Periodicos, DiarioTreintaDiasSinArrancarCadaFechaSuAsiento) {
    alquiler(F(2024, 3, 1), 365, "Caja diaria", F(2024, 3, 1));
    // One confirmation per date missed, each answered with the posting screen.
    Guion g(e.sesion, e.dialogo);
    for (int i = 0; i < 30; ++i)
        g.acciones << AccionForm61::Contabilizar;
    const ResultadoContAsPer r = correr(g, F(2024, 3, 30));
    EXPECT_EQ(g.confirmaciones.size(), 30);
    ASSERT_EQ(r.Contabilizados.size(), 30);
    EXPECT_EQ(r.Contabilizados.first().Fecha, F(2024, 3, 1));
    EXPECT_EQ(r.Contabilizados.last().Fecha, F(2024, 3, 30));
    EXPECT_EQ(proxima("Caja diaria"), F(2024, 3, 31));
    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT COUNT(DISTINCT NAs), COUNT(DISTINCT Fecha), MIN(Fecha), MAX(Fecha) "
                       "FROM Diario"),
              QStringList({"30|30|2024-03-01|2024-03-30"}));
    // The documents were offered again at each posting, with the stored one as default.
    EXPECT_EQ(e.dialogo.preguntas.count(MsgDocumentoPeriodico), 30);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

TEST_F(Periodicos, TodosSinPreguntarYLasFechasDelMes) {
    alquiler(F(2024, 1, 31));
    alquiler(F(2024, 2, 15), 26, "Nómina", F(2024, 2, 15));
    Guion g(e.sesion, e.dialogo);
    g.acciones = {AccionForm61::ContabilizarTodos, AccionForm61::NoContabilizar};
    const ResultadoContAsPer r = correr(g, F(2024, 5, 31));
    // One confirmation for the rent (then "all"), one for the pay, left.
    ASSERT_EQ(g.confirmaciones.size(), 2);
    EXPECT_EQ(std::get<0>(g.confirmaciones[0]), "Alquiler");
    EXPECT_TRUE(std::get<2>(g.confirmaciones[0]));
    EXPECT_EQ(std::get<0>(g.confirmaciones[1]), "Nómina");
    QList<QDate> fechas;
    for (const PosteoPeriodico& p : r.Contabilizados)
        fechas << p.Fecha;
    EXPECT_EQ(fechas, QList<QDate>({F(2024, 1, 31), F(2024, 2, 29), F(2024, 3, 31), F(2024, 4, 30),
                                    F(2024, 5, 31)}));
    EXPECT_EQ(proxima(), F(2024, 6, 30));
    EXPECT_EQ(proxima("Nómina"), F(2024, 2, 15)) << "not posted: its date stays";
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty()) << "all asks no documents";
    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT NCuenta, Debe, Haber, Documento FROM Diario WHERE NAs = 1 ORDER BY "
                       "NAp"),
              QStringList({"660000044|500|0|", "157200003|0|500|R-1"}));
}

TEST_F(Periodicos, LineaDeIvaYFechaTrasElEjercicio) {
    // A quarterly fee with its VAT line: "all" is not offered, and not obeyed if asked.
    AsientoPeriodico a;
    a.Nombre = "Asesoría";
    a.Periodicidad = 4;
    a.FechaIni = a.FechaProx = F(2024, 3, 1);
    a.Lineas = {{Compras, "Asesoría", 100, 0, ""},
                {IvaSop21, "Asesoría", 21, 0, ""},
                {Proveedor, "Asesoría", 0, 121, ""}};
    {
        Conexion c = e.bavar();
        GuardarPeriodico(c, a);
    }
    alquiler(F(2025, 1, 31)); // due only in the next exercise
    Guion g(e.sesion, e.dialogo);
    g.acciones = {AccionForm61::ContabilizarTodos};
    const ResultadoContAsPer r = correr(g, F(2025, 3, 1));
    ASSERT_EQ(g.confirmaciones.size(), 1) << "the rent after the exercise end is not even shown";
    EXPECT_EQ(std::get<0>(g.confirmaciones[0]), "Asesoría");
    EXPECT_FALSE(std::get<2>(g.confirmaciones[0]));
    EXPECT_TRUE(r.Contabilizados.isEmpty());
    EXPECT_EQ(asientos(), 0);
    EXPECT_EQ(proxima("Asesoría"), F(2024, 3, 1));
    EXPECT_EQ(proxima(), F(2025, 1, 31));
}

TEST_F(Periodicos, FechaProxSoloTrasUnAsientoContabilizado) {
    alquiler(F(2024, 4, 30));
    Guion g(e.sesion, e.dialogo);

    // The posting screen cancelled.
    g.acciones = {AccionForm61::Contabilizar};
    g.cancelarForm4 = true;
    correr(g, F(2024, 5, 1));
    EXPECT_EQ(g.mostrados.size(), 1);
    EXPECT_EQ(proxima(), F(2024, 4, 30));

    // An amount changed so that the entry no longer balances to the last decimal: the exact test
    // of a periodic confirmation refuses it, nothing is written and the date stays.
    g.cancelarForm4 = false;
    g.tocar = [](RejillaAsiento& r) {
        r.fijar(1, ColF4::Debe, "500,004");
    };
    g.acciones = {AccionForm61::Contabilizar};
    correr(g, F(2024, 5, 1));
    EXPECT_EQ(e.dialogo.informados.value(0), MsgDescuadre);
    EXPECT_EQ(asientos(), 0);
    EXPECT_EQ(proxima(), F(2024, 4, 30));

    // A closed exercise stops the run before anything.
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    g.tocar = nullptr;
    g.acciones = {AccionForm61::ContabilizarTodos};
    e.dialogo.informados.clear();
    const ResultadoContAsPer r = correr(g, F(2024, 5, 1));
    EXPECT_TRUE(r.Detenido);
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgEjercicioCerrado}));
    EXPECT_EQ(proxima(), F(2024, 4, 30));
}

TEST_F(Periodicos, EliminarDesdeLaConfirmacion) {
    alquiler(F(2024, 4, 30));
    Guion g(e.sesion, e.dialogo);
    g.acciones = {AccionForm61::Eliminar, AccionForm61::Eliminar};
    correr(g, F(2024, 5, 1)); // No to the question: it stays
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList({"Está seguro de que desea eliminar el asiento periódico Alquiler?"}));
    e.dialogo.responder({true});
    correr(g, F(2024, 5, 1));
    Conexion c = e.bavar();
    EXPECT_TRUE(NombresPeriodicos(c).isEmpty());
}

TEST_F(Periodicos, EditarLineasFechaYReescribir) {
    alquiler(F(2024, 4, 30));
    EditorPeriodico k(e.sesion, e.dialogo);
    ASSERT_TRUE(k.Cargar("Alquiler"));
    EXPECT_EQ(QStringList({k.Fecha, NombreRitmo(k.Periodicidad), k.TextoDescuadre,
                           k.Rejilla.celda(1, ColF7::Cuenta), k.Rejilla.celda(2, ColF7::Haber)}),
              QStringList({"30/04/2024", "Mensual", "0,00", "Compras de mercaderías", "500,00"}));

    // The checks of the maintenance screen on a line.
    k.SeleccionarLinea(1);
    k.Debe = "12abc";
    EXPECT_FALSE(k.ModificarApunte());
    k.Debe = "";
    k.Haber = "";
    EXPECT_FALSE(k.ModificarApunte());
    k.Debe = "1";
    k.Haber = "1";
    EXPECT_FALSE(k.ModificarApunte());
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"El importe introducido no es válido.",
                           "Tiene que introducir el importe, bien en el DEBE o en el HABER.",
                           "El importe hay que introducirlo sólo en el DEBE o en el HABER."}));
    // The rent goes up to 550: unbalanced until the bank line follows.
    k.Debe = "550";
    k.Haber = "";
    ASSERT_TRUE(k.ModificarApunte());
    EXPECT_EQ(k.TextoDescuadre, "50,00");
    e.dialogo.informados.clear();
    EXPECT_FALSE(k.Aceptar());
    EXPECT_EQ(e.dialogo.informados, QStringList({"El asiento está descuadrado."}));
    k.SeleccionarLinea(2);
    k.Haber = "550";
    ASSERT_TRUE(k.ModificarApunte());

    // A new date: asked, and No puts the old one back.
    k.Fecha = "31/05/2024";
    EXPECT_FALSE(k.Aceptar());
    EXPECT_EQ(e.dialogo.preguntas, QStringList({MsgCambiarFechaPeriodico}));
    EXPECT_EQ(k.Fecha, "30/04/2024");
    k.Fecha = "31/05/2024";
    k.Periodicidad = 4;
    e.dialogo.responder({true});
    e.dialogo.informados.clear();
    ASSERT_TRUE(k.Aceptar());
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgModificacionRealizada}));
    Conexion c = e.bavar();
    EXPECT_EQ(Filas(c, "SELECT Periodicidad, FechaIni, FechaProx, NCuenta, Debe, Haber, Documento "
                       "FROM Periodicos ORDER BY rowid"),
              QStringList({"4|2024-01-31|2024-05-31|660000044|550|0|",
                           "4|2024-01-31|2024-05-31|157200003|0|550|R-1"}));
}

TEST_F(Periodicos, ListasImpresasYSusRejillas) {
    for (int i = 1; i <= 80; ++i)
        alquiler(F(2024, 2, 29), 12, QStringLiteral("Entrada %1").arg(i, 2, 10, QChar('0')));
    Rejilla r = RejillaPeriodicos();
    {
        Conexion c = e.bavar();
        LlenarPeriodicos(c, r);
    }
    ASSERT_EQ(r.Filas(), 80);
    EXPECT_EQ(r.Fila(0), QStringList({"31/01/2024", "29/02/2024", "Entrada 01", "Mensual"}));
    OpcionesLibro op;
    op.fuente = "Arial";
    op.tamano = 9;
    op.fechaTrabajo = F(2024, 6, 1);
    ImpresoraGrabadora imp;
    DibujoListaPeriodicos(r, "Pruebas SL", op)(imp, 1);
    ASSERT_EQ(imp.paginas(), 2) << imp.volcado().toStdString();
    const QStringList p1 = imp.textosDePagina(1);
    EXPECT_EQ(p1.mid(0, 6), QStringList({TituloListaPeriodicos, "Pruebas SL", "Fecha: 01/06/2024",
                                         "Fecha Ini.", "Fecha Próx.", "Nombre Asiento Periódico"}));
    EXPECT_EQ(p1.mid(6, 3), QStringList({"31/01/2024", "29/02/2024", "Entrada 01"}));
    EXPECT_EQ(p1.last(), "Página nº 1");
    EXPECT_TRUE(imp.textosDePagina(2).contains("Entrada 80"));
    EXPECT_EQ(imp.textosDePagina(2).first(), TituloListaPeriodicos) << "each page has its head";
    EXPECT_EQ(imp.textosDePagina(2).last(), "Página nº 2");
    EXPECT_FALSE(p1.contains("Mensual")) << "the printed list keeps its three columns";
    EXPECT_EQ(imp.documentosTerminados(), 1);
}
