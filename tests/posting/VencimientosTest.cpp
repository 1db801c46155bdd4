// The register of due dates headless: the checks in their order and the refusals of bad input,
// the warnings and the state reset, the key read back under either decimal mark, the query of
// the list from the ticked filters with its total, the colours by urgency on fixed days, the
// purges by age, the screen's flows and the printed list. "Today" is always given, never read.

#include "posting/Vencimientos.h"
#include "ComunAsientos.h"
#include "platform/ImpresoraGrabadora.h"
#include "posting/GestionVencimientos.h"
#include "posting/ImpresionVencimientos.h"
#include "posting/ListaVencimientos.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <QLocale>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

const QDate Hoy(2026, 3, 10);
const QDateTime Ahora(Hoy, QTime(10, 30));

// A due date that passes every check.
CamposVencimiento Completo() {
    CamposVencimiento c;
    c.FechaV = "15/04/2026";
    c.FechaE = "10/03/2026";
    c.Tipo = "Cobro";
    c.Forma = "Efecto";
    c.NCuenta1 = Clientes;
    c.NCuenta2 = Banco;
    c.Concepto = "Factura 12";
    c.Importe = "1.210,50";
    return c;
}

Vencimiento Fila(const QDate& fechaV, const QString& tipo, const QString& concepto, double importe,
                 const QString& situacion = "Pendiente", const QString& forma = "Efecto",
                 const QString& remesa = {}, const QString& ncuenta1 = Clientes) {
    Vencimiento v;
    v.FechaV = fechaV;
    v.FechaE = fechaV.addDays(-30);
    v.Tipo = tipo;
    v.Forma = forma;
    v.NCuenta1 = ncuenta1;
    v.NCuenta2 = Banco;
    v.Concepto = concepto;
    v.Situacion = situacion;
    v.Importe = importe;
    v.Remesa = remesa;
    return v;
}

class Vencimientos : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa("001", 2026); }
    void anadir(Vencimiento v) {
        Conexion b = e.bavar();
        AnadirVencimiento(b, v, Ahora);
    }
    // The concepts of the list the filters give, in its order.
    QStringList lista(const FiltrosVenc& f, double* total = nullptr) {
        Rejilla r = RejillaVencimientos();
        const double t = LlenarVenc(e.sesion, f, Hoy, r);
        if (total)
            *total = t;
        QStringList c;
        for (int i = 0; i < r.Filas(); ++i)
            c << r.Celda(i, ColV::Concepto);
        return c;
    }
    int filas() {
        Conexion b = e.bavar();
        return b.escalar("SELECT COUNT(*) FROM Vencimientos").toInt();
    }
    Entorno e;
};

} // namespace

TEST_F(Vencimientos, ComprobacionesEnSuOrden) {
    // Each step fills the field whose message came, so the next message shows the order.
    CamposVencimiento c;
    c.FechaV = "15/04/2026";
    const QList<std::pair<QString, std::function<void()>>> pasos = {
        {MsgVencSinSubcuenta,
         [&] {
             c.NCuenta1 = Clientes;
         }},
        {MsgVencSinTipo,
         [&] {
             c.Tipo = "Cobro";
         }},
        {MsgVencSinForma,
         [&] {
             c.Forma = "Pagaré";
         }},
        {MsgVencSinCaja,
         [&] {
             c.NCuenta2 = Banco;
         }},
        {MsgVencSinConcepto,
         [&] {
             c.Concepto = "Factura 12";
         }},
        {MsgVencSinImporte,
         [&] {
             c.Importe = "0,00";
         }},
        {MsgVencSinImporte,
         [&] {
             c.Importe = "100";
         }},
    };
    for (const auto& [mensaje, rellenar] : pasos) {
        e.dialogo.informados.clear();
        EXPECT_FALSE(ComprobarVencimiento(c, AltaVenc::Alta, e.dialogo, Hoy));
        EXPECT_EQ(e.dialogo.informados, QStringList{mensaje});
        rellenar();
    }
    const auto v = ComprobarVencimiento(c, AltaVenc::Alta, e.dialogo, Hoy);
    ASSERT_TRUE(v);
    EXPECT_EQ(v->Forma, "Pagaré");
    EXPECT_EQ(v->Situacion, "Pendiente");
    EXPECT_EQ(v->FechaE, Hoy) << "an empty date of issue is today";
    EXPECT_DOUBLE_EQ(v->Importe, 100);

    // A past due date asks first, before anything else; No ends it silently.
    CamposVencimiento vacio;
    vacio.FechaV = "09/03/2026";
    e.dialogo.textos.clear();
    EXPECT_FALSE(ComprobarVencimiento(vacio, AltaVenc::Alta, e.dialogo, Hoy));
    EXPECT_EQ(e.dialogo.textos, QStringList{MsgVencAnterior});
    // Yes goes on to the issue date, which may not come after it.
    CamposVencimiento pasado = Completo();
    pasado.FechaV = "09/03/2026";
    e.dialogo.textos.clear();
    e.dialogo.responder({true});
    EXPECT_FALSE(ComprobarVencimiento(pasado, AltaVenc::Alta, e.dialogo, Hoy));
    EXPECT_EQ(e.dialogo.textos, QStringList({MsgVencAnterior, MsgVencAntesEmision}));
    // Today is not past, and a change skips both date checks.
    CamposVencimiento hoy = Completo();
    hoy.FechaV = "100326";
    e.dialogo.textos.clear();
    EXPECT_TRUE(ComprobarVencimiento(hoy, AltaVenc::Alta, e.dialogo, Hoy));
    pasado.FechaE = "20/03/2026";
    EXPECT_TRUE(ComprobarVencimiento(pasado, AltaVenc::Modificacion, e.dialogo, Hoy));
    EXPECT_TRUE(e.dialogo.textos.isEmpty());
}

TEST_F(Vencimientos, EntradaNoValidaSeRechaza) {
    struct Caso {
        std::function<void(CamposVencimiento&)> estropear;
        QString mensaje;
    };
    const QList<Caso> casos = {
        {[](CamposVencimiento& c) { c.FechaV = ""; }, MsgVencSinFecha},
        {[](CamposVencimiento& c) { c.FechaV = "31/02/2026"; },
         "La fecha introducida no es una fecha válida."},
        {[](CamposVencimiento& c) { c.FechaE = "45/13/26"; },
         "La fecha introducida no es una fecha válida."},
        {[](CamposVencimiento& c) { c.Importe = "12abc"; }, MsgImporteNoValido("12abc")},
        {[](CamposVencimiento& c) { c.Importe = "1e308"; }, MsgImporteNoValido("1e308")},
        {[](CamposVencimiento& c) { c.Importe = "1000000000000"; },
         MsgImporteNoValido("1000000000000")},
        {[](CamposVencimiento& c) { c.Importe = "-5"; }, MsgVencImporteNegativo},
        {[](CamposVencimiento& c) { c.Concepto = QString(41, 'x'); },
         "El campo Concepto no puede tener más de 40 caracteres."},
        {[](CamposVencimiento& c) { c.Remesa = "R\t1"; },
         "El campo Remesa no admite tabuladores, saltos de línea ni otros caracteres de "
         "control."},
        {[](CamposVencimiento& c) { c.Situacion = "Pagado"; }, MsgCobroPagado},
    };
    for (const Caso& k : casos) {
        CamposVencimiento c = Completo();
        k.estropear(c);
        e.dialogo.informados.clear();
        EXPECT_FALSE(ComprobarVencimiento(c, AltaVenc::Alta, e.dialogo, Hoy))
            << k.mensaje.toStdString();
        EXPECT_EQ(e.dialogo.informados, QStringList{k.mensaje});
    }
    // Names as a command line writes them become the register's own.
    CamposVencimiento c = Completo();
    c.Tipo = "pago";
    c.Forma = "cargo-cta";
    c.Situacion = "en gestion";
    const auto v = ComprobarVencimiento(c, AltaVenc::Alta, e.dialogo, Hoy);
    ASSERT_TRUE(v);
    EXPECT_EQ(QStringList({v->Tipo, v->Forma, v->Situacion}),
              QStringList({"Pago", "Cargo cta.", "En Gestión"}));
    EXPECT_DOUBLE_EQ(v->Importe, 1210.5);
}

TEST_F(Vencimientos, AvisosDeAreaYSituacionesContradictorias) {
    const QList<std::tuple<QString, QString, QString>> casos = {
        {"Cobro", Proveedor, "Se debe"},
        {"Cobro", Compras, "Gastos"},
        {"Pago", Clientes, "Nos deben"},
        {"Pago", Ventas, "Ingresos"},
        {"Cobro", Clientes, ""},
        {"Pago", Proveedor, ""},
        {"", Proveedor, ""},
    };
    for (const auto& [tipo, ncuenta, area] : casos)
        EXPECT_EQ(AvisoAreaTipo(tipo, ncuenta),
                  area.isEmpty()
                      ? QString()
                      : QStringLiteral("Ha seleccionado una subcuenta del área '%1', siendo el "
                                       "Vencimiento del tipo '%2'. Compruebe si es un error.")
                            .arg(area, tipo))
            << tipo.toStdString() << " " << ncuenta.toStdString();

    EXPECT_EQ(SituacionAdmitida("Pago", "Cobrado", e.dialogo), "Pendiente");
    EXPECT_EQ(SituacionAdmitida("Cobro", "Pagado", e.dialogo), "Pendiente");
    EXPECT_EQ(SituacionAdmitida("Cobro", "Cobrado", e.dialogo), "Cobrado");
    EXPECT_EQ(SituacionAdmitida("Pago", "Moroso", e.dialogo), "Moroso");
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgPagoCobrado, MsgCobroPagado}));

    // On the screen's fields: the state chosen first is put back when the type contradicts it.
    GestionVencimientos g(e.sesion, e.dialogo);
    g.Cargar(Hoy);
    g.ElegirSituacion("Cobrado");
    EXPECT_EQ(g.Situacion, "Cobrado");
    g.ElegirTipo("Pago");
    EXPECT_EQ(g.Situacion, "Pendiente");
    g.ElegirSituacion("Cobrado");
    EXPECT_EQ(g.Situacion, "Pendiente");
    // Choosing a supplier for a collection warns and keeps the choice.
    g.ElegirTipo("Cobro");
    g.ElegirArea("2");
    e.dialogo.informados.clear();
    ASSERT_TRUE(g.ElegirSubcuenta(static_cast<int>(g.Codigos.indexOf(Proveedor))));
    EXPECT_EQ(g.NCuenta1, Proveedor);
    ASSERT_EQ(e.dialogo.informados.size(), 1);
    EXPECT_TRUE(e.dialogo.informados[0].contains("'Se debe'"));
}

TEST_F(Vencimientos, LaClaveSeEncuentraConComaOPunto) {
    Vencimiento a = Fila(Hoy.addDays(5), "Cobro", "A", 10);
    Vencimiento b = Fila(Hoy.addDays(6), "Pago", "B", 20);
    Conexion c = e.bavar();
    AnadirVencimiento(c, a, Ahora);
    AnadirVencimiento(c, b, Ahora);
    EXPECT_NE(a.IdVenc, b.IdVenc) << "two keys taken in the same instant";
    EXPECT_NEAR(a.IdVenc, 46091.4375, 1e-9) << "10 March 2026, 10:30 as a day number";

    // The key as a comma locale writes it, as the C locale does, and as the list shows it.
    QLocale aleman(QLocale::German);
    aleman.setNumberOptions(QLocale::OmitGroupSeparator);
    const QString coma = aleman.toString(b.IdVenc, 'f', 10);
    const QString agrupada = QLocale(QLocale::German).toString(b.IdVenc, 'f', 10);
    const QString punto = QLocale::c().toString(b.IdVenc, 'f', 10);
    ASSERT_TRUE(coma.contains(',') && !coma.contains('.')) << coma.toStdString();
    EXPECT_TRUE(TextoIdVenc(b.IdVenc).contains(','));
    for (const QString& texto : {coma, punto, agrupada, TextoIdVenc(b.IdVenc)}) {
        const auto id = IdVencDeTexto(texto);
        ASSERT_TRUE(id) << texto.toStdString();
        const auto leido = LeerVencimiento(c, *id);
        ASSERT_TRUE(leido) << texto.toStdString();
        EXPECT_EQ(leido->Concepto, "B");
    }
    EXPECT_FALSE(IdVencDeTexto("uno"));
    EXPECT_FALSE(IdVencDeTexto(""));

    // Changing and deleting go by the key read back from text.
    Vencimiento cambio = b;
    cambio.IdVenc = *IdVencDeTexto(coma);
    cambio.Situacion = "Pagado";
    EXPECT_TRUE(ModificarVencimiento(c, cambio));
    EXPECT_EQ(LeerVencimiento(c, b.IdVenc)->Situacion, "Pagado");
    EXPECT_EQ(LeerVencimiento(c, a.IdVenc)->Situacion, "Pendiente");
    EXPECT_TRUE(EliminarVencimiento(c, *IdVencDeTexto(punto)));
    EXPECT_FALSE(LeerVencimiento(c, b.IdVenc));
    EXPECT_FALSE(ModificarVencimiento(c, cambio));
    EXPECT_TRUE(LeerVencimiento(c, a.IdVenc));
}

TEST_F(Vencimientos, ConsultaDeLosFiltrosMarcados) {
    anadir(Fila(QDate(1999, 6, 1), "Cobro", "antiguo", 1));
    anadir(Fila(Hoy.addDays(-20), "Cobro", "vencido", 100, "Reclamado", "Efecto", "R1"));
    anadir(Fila(Hoy.addDays(-1), "Pago", "ayer", 40, "Pagado", "Cheque"));
    anadir(Fila(Hoy, "Pago", "hoy", 30, "Pendiente", "Transferencia", "R2", Proveedor));
    anadir(Fila(Hoy.addDays(10), "Cobro", "luego", 250, "Pendiente", "Efecto", "R1"));
    anadir(Fila(Hoy.addDays(40), "Pago", "tarde", 70.25, "Pendiente", "Efecto", {}, Proveedor));

    // Nothing ticked: everything from 31/12/2000, ordered by due date, collections less payments.
    FiltrosVenc f;
    double total = 0;
    EXPECT_EQ(lista(f, &total), QStringList({"vencido", "ayer", "hoy", "luego", "tarde"}));
    EXPECT_DOUBLE_EQ(total, 100 - 40 - 30 + 250 - 70.25);
    // One kind alone adds its amounts.
    f.Tipo = TipoFiltro::Pagos;
    EXPECT_EQ(lista(f, &total), QStringList({"ayer", "hoy", "tarde"}));
    EXPECT_DOUBLE_EQ(total, 140.25);
    f.Tipo = TipoFiltro::Todos;

    const QList<std::pair<std::function<void(FiltrosVenc&)>, QStringList>> casos = {
        {[](FiltrosVenc& f) { f.Vencidos = true; }, {"vencido", "ayer"}},
        {[](FiltrosVenc& f) {
             f.PorSituacion = true;
             f.Situacion = "Pendiente";
         },
         {"hoy", "luego", "tarde"}},
        {[](FiltrosVenc& f) {
             f.PorFecha = true;
             f.Desde = "9/3/26";
             f.Hasta = "20/03/2026";
         },
         {"ayer", "hoy", "luego"}},
        {[](FiltrosVenc& f) {
             f.PorForma = true;
             f.Forma = "Efecto";
         },
         {"vencido", "luego", "tarde"}},
        // A remittance lets through the rows that have none.
        {[](FiltrosVenc& f) {
             f.PorRemesa = true;
             f.Remesa = "R1";
         },
         {"vencido", "ayer", "luego", "tarde"}},
        {[](FiltrosVenc& f) {
             f.PorSubcuenta = true;
             f.Subcuenta = Proveedor;
         },
         {"hoy", "tarde"}},
        {[](FiltrosVenc& f) {
             f.PorSituacion = true;
             f.Situacion = "Pendiente";
             f.Tipo = TipoFiltro::Cobros;
         },
         {"luego"}},
        {[](FiltrosVenc& f) {
             f.Vencidos = true;
             f.PorForma = true;
             f.Forma = "Efecto";
             f.PorRemesa = true;
             f.Remesa = "R1";
         },
         {"vencido"}},
    };
    for (const auto& [marcar, esperado] : casos) {
        FiltrosVenc g;
        marcar(g);
        ASSERT_TRUE(ComprobarFiltros(g, e.dialogo));
        EXPECT_EQ(lista(g), esperado);
    }

    // The query itself: unticked patterns are "%", the range stands before the remittance.
    FiltrosVenc r;
    r.PorFecha = true;
    r.Desde = "01/03/2026";
    r.Hasta = "31/03/2026";
    r.Tipo = TipoFiltro::Pagos;
    const ConsultaVenc q = ConsultaLlenarVenc(r, Hoy);
    EXPECT_LT(q.sql.indexOf("FechaV <= ?"), q.sql.indexOf("Remesa LIKE ?"));
    EXPECT_EQ(q.valores,
              QVariantList({"%", "%", "2026-03-01", "2026-03-31", "%", "%", "2000-12-31", "Pago"}));
}

TEST_F(Vencimientos, ComprobacionesDeVer) {
    const QList<std::pair<std::function<void(FiltrosVenc&)>, QString>> casos = {
        {[](FiltrosVenc& f) { f.PorSituacion = true; },
         "No ha seleccionado la Situación del Vencimiento."},
        {[](FiltrosVenc& f) {
             f.PorFecha = true;
             f.Desde = "1/3/26";
         },
         "No ha introducido la fecha de vencimiento."},
        {[](FiltrosVenc& f) {
             f.PorFecha = true;
             f.Desde = "2/3/26";
             f.Hasta = "1/3/26";
         },
         "La fecha inicial debe ser menor o ifual que la final"},
        {[](FiltrosVenc& f) { f.PorForma = true; }, "No ha introducido la Forma de cobro o pago."},
        {[](FiltrosVenc& f) { f.PorRemesa = true; }, "No ha introducido la Remesa."},
        {[](FiltrosVenc& f) { f.PorSubcuenta = true; },
         "No ha seleccionado la Subcuenta del Cliente o Proveedor."},
    };
    for (const auto& [marcar, mensaje] : casos) {
        FiltrosVenc f;
        marcar(f);
        e.dialogo.informados.clear();
        EXPECT_FALSE(ComprobarFiltros(f, e.dialogo));
        EXPECT_EQ(e.dialogo.informados, QStringList{mensaje});
    }
}

TEST(ColoresVencimiento, UmbralesEnDiasFijos) {
    const QDate hoy(2026, 3, 10);
    const QList<std::tuple<QDate, QString, quint32>> casos = {
        {hoy, "Pendiente", 33023},        // due today: orange
        {hoy.addDays(-1), "Moroso", 255}, // overdue: red
        {hoy.addDays(1), "Pendiente", 65535},
        {hoy.addDays(7), "Pendiente", 65535}, // within the week: yellow
        {hoy.addDays(8), "Pendiente", 65280},
        {hoy.addDays(9), "Pendiente", 65280}, // later: green
        {hoy, "Cobrado", 16363607},           // settled, whatever the date
        {hoy.addDays(-30), "Pagado", 16363607},
    };
    Rejilla r = RejillaVencimientos();
    for (const auto& [fecha, situacion, bgr] : casos) {
        EXPECT_EQ(ColorUrgencia(Urgencia(fecha, situacion, hoy)), ColorDeBGR(bgr))
            << fecha.toString(Qt::ISODate).toStdString() << " " << situacion.toStdString();
        QStringList celdas(ColV::Total);
        celdas[ColV::FechaV] = fecha.toString("dd/MM/yyyy");
        celdas[ColV::Situacion] = situacion;
        r.AgregarFila(celdas);
        EXPECT_EQ(ColorFilaVenc(r, r.Filas() - 1, hoy), ColorDeBGR(bgr));
    }
    EXPECT_EQ(ColorDeBGR(33023), QColor(255, 128, 0));
    EXPECT_EQ(ColorDeBGR(16363607), QColor(0x57, 0xB0, 0xF9));
}

TEST_F(Vencimientos, PurgaPorAntiguedad) {
    // The last day of March less one month is the last day of February.
    const QDate hoy(2026, 3, 31);
    anadir(Fila(QDate(2023, 12, 1), "Cobro", "dos años", 1));
    anadir(Fila(QDate(2025, 3, 30), "Pago", "un año", 1, "Pagado"));
    anadir(Fila(QDate(2025, 9, 1), "Cobro", "seis meses", 1));
    anadir(Fila(QDate(2026, 2, 27), "Cobro", "un mes", 1, "Cobrado"));
    anadir(Fila(QDate(2026, 2, 28), "Cobro", "justo un mes", 1));
    anadir(Fila(QDate(2026, 3, 30), "Pago", "ayer", 1));
    anadir(Fila(hoy, "Pago", "hoy", 1));
    EXPECT_EQ(LimitePurga(1, hoy), QDate(2026, 2, 28));
    EXPECT_EQ(LimitePurga(24, hoy), QDate(2024, 3, 31));

    // No deletes nothing.
    EXPECT_EQ(EliminarVenc(e.sesion, e.dialogo, 1, hoy), -1);
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Desea eliminar todos los registros con fecha de vencimiento anterior a "
              "28/02/2026?");
    EXPECT_EQ(filas(), 7);

    const QList<std::pair<int, int>> pasos = {{24, 1}, {12, 1}, {6, 1}, {1, 1}, {0, 2}};
    for (const auto& [meses, borrados] : pasos) {
        e.dialogo.responder({true});
        EXPECT_EQ(EliminarVenc(e.sesion, e.dialogo, meses, hoy), borrados) << meses;
    }
    EXPECT_EQ(filas(), 1);
    // Nothing left before the limit: said so.
    e.dialogo.informados.clear();
    e.dialogo.responder({true});
    EXPECT_EQ(EliminarVenc(e.sesion, e.dialogo, 24, hoy), 0);
    EXPECT_EQ(e.dialogo.informados, QStringList{"No hay registros."});

    // The settled ones, whatever their date.
    anadir(Fila(QDate(2027, 1, 1), "Cobro", "futuro cobrado", 1, "Cobrado"));
    anadir(Fila(QDate(2027, 1, 1), "Pago", "futuro pagado", 1, "Pagado"));
    e.dialogo.responder({true});
    EXPECT_EQ(EliminarCobradosPagados(e.sesion, e.dialogo), 2);
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Desea eliminar todos los vencimientos que figuren como Cobrados o Pagados?");
    EXPECT_EQ(filas(), 1);
    e.dialogo.responder({true});
    EXPECT_EQ(EliminarCobradosPagados(e.sesion, e.dialogo), 0);
    EXPECT_EQ(e.dialogo.informados.last(), "No hay registros.");
}

TEST_F(Vencimientos, PantallaSinPantalla) {
    GestionVencimientos g(e.sesion, e.dialogo);
    int cambios = 0;
    g.VencimientosCambiados = [&] {
        ++cambios;
    };
    g.Cargar(Hoy);
    ASSERT_TRUE(g.CajaCodigos.contains(Banco));
    EXPECT_EQ(g.FechaE, "10/03/2026");
    // Only payments are listed...
    FiltrosVenc pagos;
    pagos.Tipo = TipoFiltro::Pagos;
    ASSERT_TRUE(g.Ver(pagos, Hoy));
    EXPECT_EQ(g.Lista.Filas(), 0);

    // ... yet a collection added joins the list at once, without reading it again.
    g.FechaV = "15/04/2026";
    g.ElegirTipo("Cobro");
    g.ElegirArea("4");
    ASSERT_TRUE(g.ElegirSubcuenta(static_cast<int>(g.Codigos.indexOf(Clientes))));
    g.ElegirCaja(static_cast<int>(g.CajaCodigos.indexOf(Banco)));
    g.Forma = "Efecto";
    g.Concepto = "Factura 12";
    g.Importe = "1.210,50";
    ASSERT_TRUE(g.Anadir(Hoy, Ahora));
    EXPECT_EQ(cambios, 1);
    ASSERT_EQ(g.Lista.Filas(), 1);
    EXPECT_EQ(g.Lista.Celda(0, ColV::Importe), "1.210,50");
    EXPECT_EQ(g.Lista.Celda(0, ColV::CajaBanco), "Banco");
    EXPECT_EQ(g.Lista.Totales().first().valor, "1.210,50");
    g.LlenarVenc(Hoy);
    EXPECT_EQ(g.Lista.Filas(), 0) << "read again, the filter applies";

    // A change needs a row copied by a double click.
    g.Borrar(Hoy);
    e.dialogo.informados.clear();
    EXPECT_FALSE(g.Modificar(Hoy));
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"Haga primero doble clic sobre el vencimiento que quiere modificar."});
    ASSERT_TRUE(g.Ver(FiltrosVenc{}, Hoy));
    ASSERT_TRUE(g.CargarFila(0));
    const QString cliente = g.Nombres.value(g.Codigos.indexOf(Clientes));
    ASSERT_FALSE(cliente.isEmpty());
    EXPECT_EQ(QStringList({g.FechaV, g.Tipo, g.Area, g.Cuenta, g.NCuenta1, g.NCuenta2, g.Importe}),
              QStringList({"15/04/2026", "Cobro", "4", cliente, Clientes, Banco, "1.210,50"}));
    g.Situacion = "Cobrado";
    g.Importe = "1300";
    ASSERT_TRUE(g.Modificar(Hoy));
    EXPECT_EQ(g.Lista.Celda(0, ColV::Situacion), "Cobrado");
    EXPECT_EQ(g.Lista.Celda(0, ColV::Importe), "1.300,00");
    EXPECT_EQ(cambios, 2);

    // Deleting asks with the date and the subaccount's name, then empties the fields.
    e.dialogo.responder({true});
    ASSERT_TRUE(g.Eliminar(Hoy));
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Desea eliminar el vencimiento de fecha 15/04/2026 de  " + cliente + "?");
    EXPECT_EQ(g.Lista.Filas(), 0);
    EXPECT_EQ(g.IdVenc, 0);
    EXPECT_EQ(filas(), 0);
    EXPECT_EQ(cambios, 3);

    // A line of an entry fills the fields; the entry's date is the date of issue.
    DatosVencimientoLinea l;
    l.Tipo = "Pago";
    l.Area = "2";
    l.Nombre = "Proveedor";
    l.NCuenta = Proveedor;
    l.Concepto = "Compra";
    l.Fecha = "05/03/2026";
    l.Importe = 121;
    l.Documento = "F-10";
    g.Prellenar(l);
    EXPECT_EQ(QStringList({g.Tipo, g.Area, g.NCuenta1, g.Concepto, g.FechaE, g.FechaV, g.Importe,
                           g.Documento, g.Situacion}),
              QStringList({"Pago", "2", Proveedor, "Compra", "05/03/2026", "", "121,00", "F-10",
                           "Pendiente"}));
}

TEST_F(Vencimientos, BusquedaEnLaLista) {
    anadir(Fila(Hoy.addDays(1), "Cobro", "Alquiler local", 1));
    anadir(Fila(Hoy.addDays(2), "Pago", "Seguro", 1));
    anadir(Fila(Hoy.addDays(3), "Cobro", "alquiler almacén", 1));
    Rejilla r = RejillaVencimientos();
    LlenarVenc(e.sesion, FiltrosVenc{}, Hoy, r);
    EXPECT_EQ(BuscarVenc(r, ColV::Concepto, "ALQUILER", 0, e.dialogo), 0);
    EXPECT_EQ(BuscarVenc(r, ColV::Concepto, "alquiler", 1, e.dialogo), 2);
    EXPECT_FALSE(BuscarVenc(r, ColV::Concepto, "alquiler", 3, e.dialogo));
    EXPECT_FALSE(BuscarVenc(r, ColV::Concepto, " ", 0, e.dialogo));
    EXPECT_FALSE(BuscarVenc(r, -1, "Seguro", 0, e.dialogo));
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"Se llegó al final de la lista.",
                           "Tiene que introducir el texto o número a buscar.",
                           "Tiene que seleccionar la columna donde se va a buscar."}));
}

TEST_F(Vencimientos, ListaImpresa) {
    for (int i = 0; i < 60; ++i)
        anadir(Fila(Hoy.addDays(i), i % 2 ? "Pago" : "Cobro",
                    QStringLiteral("Concepto muy largo que no cabe en su columna número %1").arg(i),
                    100 + i));
    Rejilla r = RejillaVencimientos();
    LlenarVenc(e.sesion, FiltrosVenc{}, Hoy, r);
    OpcionesLibro op;
    op.cancelado = false;
    op.fechaTrabajo = Hoy;
    ImpresoraGrabadora imp(PaginaVencimientos);
    ImpresionVenc(r, "Pruebas SL", op).Dibujar(imp);
    ASSERT_GE(imp.paginas(), 2) << imp.volcado().toStdString();
    const QStringList primera = imp.textosDePagina(1);
    EXPECT_EQ(primera.first(), "VENCIMIENTOS");
    EXPECT_TRUE(primera.contains("Fecha: 10/03/2026"));
    for (const char* t : {"Fecha", "Tipo", "Forma", "Subcuenta", "Concepto", "Caja/Banco",
                          "Importe", "Situación", "Documento", "Remesa", "Sector", "Emisión"})
        EXPECT_TRUE(primera.contains(QString::fromUtf8(t))) << t;
    EXPECT_TRUE(primera.contains("Página nº 1"));
    EXPECT_TRUE(imp.textosDePagina(2).contains("Página nº 2"));
    EXPECT_EQ(imp.textosDePagina(2).first(), "VENCIMIENTOS");
    // Every row once, the amount right-aligned under its heading, texts cut to their column.
    const Trazo* cabecera = imp.buscar("Importe");
    const Trazo* importe = imp.buscar("100,00");
    ASSERT_TRUE(cabecera && importe);
    EXPECT_NEAR(importe->x + importe->ancho, cabecera->x + cabecera->ancho, 1);
    int filasImpresas = 0;
    for (const Trazo& t : imp.textos()) {
        if (t.texto.startsWith("Concepto muy")) {
            ++filasImpresas;
            EXPECT_LT(t.ancho + t.x, imp.buscar("Caja/Banco")->x) << t.texto.toStdString();
        }
        EXPECT_LE(t.x + t.ancho, PaginaVencimientos.width() - 600 + 1) << t.texto.toStdString();
    }
    EXPECT_EQ(filasImpresas, 60);

    // A printer's page, narrower than the sheet, still has whole dates.
    ImpresoraGrabadora impresora(QSizeF(14000, 11300));
    ImpresionVenc(r, "Pruebas SL", op).Dibujar(impresora);
    EXPECT_TRUE(impresora.buscar("10/03/2026")) << impresora.volcado().toStdString();

    // An empty list prints nothing at all.
    Rejilla vacia = RejillaVencimientos();
    ImpresoraGrabadora nada(PaginaVencimientos);
    ImpresionVenc(vacia, "Pruebas SL", op).Dibujar(nada);
    EXPECT_EQ(nada.paginas(), 0);
}
