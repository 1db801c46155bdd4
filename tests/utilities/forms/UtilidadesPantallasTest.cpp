// The utilities on screen, offscreen, as a user goes through them: the reminders' window
// (adding, loading, the settings kept on closing), the windows of the start-up for reminders due,
// the calendar with its marks, and the backup and restore windows with the board's entries.

#include "Entorno.h"
#include "forms/Pantallas.h"
#include "platform/forms/TablaRejilla.h"
#include "posting/forms/Form1.h"
#include "store/BloqueoEmpresa.h"
#include "store/Conexiones.h"
#include "utilities/Avisos.h"
#include "utilities/Compactar.h"
#include "utilities/Copias.h"
#include "utilities/forms/Form110.h"
#include "utilities/forms/Form37.h"
#include "utilities/forms/Form38.h"
#include "utilities/forms/Form39.h"
#include "utilities/forms/Form46.h"
#include "utilities/forms/MenusUtilidades.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

QDate F(int a, int m, int d) {
    return QDate(a, m, d);
}

class Utilidades : public ::testing::Test {
protected:
    void TearDown() override {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible())
                w->close();
        QApplication::processEvents();
    }
    void poner(const QDate& fecha, const QString& texto, int periodo = 0) {
        Conexion c = AbrirAvisos(e.sesion);
        c.ejecutar("INSERT INTO Avisos (NAviso, Fecha, Texto, Periodo) VALUES "
                   "((SELECT COALESCE(MAX(NAviso), 0) + 1 FROM Avisos), ?, ?, ?)",
                   {fecha.toString(Qt::ISODate), texto, periodo});
    }
    QStringList avisos() {
        Conexion c = AbrirAvisos(e.sesion);
        QStringList r;
        for (const Aviso& a : LeerAvisos(c))
            r << QStringLiteral("%1|%2|%3")
                     .arg(a.Fecha.toString(Qt::ISODate), a.Texto)
                     .arg(a.Periodo);
        return r;
    }
    Entorno e;
    const QDate hoy = F(2026, 5, 10);
};

TEST_F(Utilidades, VentanaDeAvisos) {
    poner(F(2026, 5, 9), "Ayer");
    poner(F(2026, 7, 1), "Trimestral", 4);
    QPointer<Form37> f = new Form37(e.sesion, *e.ajustes, e.dialogo, hoy);
    f->setAttribute(Qt::WA_DeleteOnClose);
    f->show();
    f->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(f));
    EXPECT_EQ(f->windowTitle(), "Quilmar [Avisos]");
    // Opening deleted yesterday's (ElimAuto is on by default), and shows the settings.
    EXPECT_EQ(f->rejilla().Titulos(), QStringList({"Fecha", "Texto", "Periodo", "NAviso"}));
    ASSERT_EQ(f->rejilla().Filas(), 1);
    EXPECT_TRUE(f->MSFlexGrid1->isColumnHidden(3));
    EXPECT_TRUE(f->Check2->isChecked());
    EXPECT_EQ(f->Text4->text(), "7");

    // Nothing typed.
    Pulsar(f, "Command1");
    EXPECT_EQ(e.dialogo.informados.last(), MsgAvisoIncompleto);
    // The period is checked on leaving its field.
    Pulsar(f, "Check1");
    EXPECT_TRUE(f->Text3->isEnabled());
    EXPECT_TRUE(f->Text3->hasFocus());
    Escribir(f, "Text3", "13");
    f->Text1->setFocus();
    EXPECT_TRUE(f->Text3->hasFocus()) << "sent back to the wrong value";
    EXPECT_EQ(e.dialogo.informados.last(), MsgPeriodicidad);
    // A monthly reminder, the date typed as the program takes dates.
    Escribir(f, "Text1", "150526");
    Escribir(f, "Text2", "Pagar la cuota");
    Escribir(f, "Text3", "12");
    Pulsar(f, "Command1");
    ASSERT_EQ(f->rejilla().Filas(), 2);
    // Numbered after the highest, yesterday's number 1 being gone.
    EXPECT_EQ(f->rejilla().Fila(0), QStringList({"15/05/2026", "Pagar la cuota", "12", "3"}));

    // A double click loads a row for changing it.
    QTableView* t = f->MSFlexGrid1;
    const QRect celda = t->visualRect(t->model()->index(1, 1));
    // The first click takes the focus from the button, as a user's would.
    QTest::mouseClick(t->viewport(), Qt::LeftButton, {}, celda.center());
    QTest::mouseDClick(t->viewport(), Qt::LeftButton, {}, celda.center());
    EXPECT_TRUE(f->Option2->isChecked());
    EXPECT_EQ(f->Text2->text(), "Trimestral");
    EXPECT_EQ(f->Text3->text(), "4");
    Escribir(f, "Text2", "Presentar el 303");
    Pulsar(f, "Command1");
    EXPECT_EQ(avisos(),
              QStringList({"2026-05-15|Pagar la cuota|12", "2026-07-01|Presentar el 303|4"}));

    // Closing keeps the settings, unless the days are wrong or not confirmed above 30.
    Escribir(f, "Text4", "");
    f->close();
    ASSERT_TRUE(f && f->isVisible());
    EXPECT_EQ(e.dialogo.informados.last(), MsgDiasAvisoNoValido);
    Escribir(f, "Text4", "45");
    Pulsar(f, "Check2");
    e.dialogo.responder({false});
    f->close();
    ASSERT_TRUE(f && f->isVisible());
    e.dialogo.responder({true});
    f->close();
    QApplication::processEvents();
    EXPECT_FALSE(f);
    EXPECT_EQ(e.ajustes->leer("Valores", "DiasAv"), "45");
    EXPECT_EQ(e.ajustes->leer("Valores", "ElimAuto"), "NO");
}

TEST_F(Utilidades, AlArrancarUnaVentanaPorAvisoDebido) {
    poner(F(2026, 4, 12), "Mensual atrasado", 12);
    poner(F(2026, 5, 14), "Llamar al banco");
    poner(F(2026, 6, 30), "Lejos todavía");
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    ConectarUtilidades(tablero, e.sesion, *e.ajustes, e.dialogo, hoy);
    Q_EMIT tablero.cargaTerminada();
    QList<Form38*> ventanas = tablero.findChildren<Form38*>();
    ASSERT_EQ(ventanas.size(), 2);
    QStringList vistas;
    for (Form38* v : ventanas) {
        EXPECT_TRUE(v->isVisible());
        EXPECT_FALSE(v->isModal());
        EXPECT_EQ(v->windowTitle(), "AVISOS");
        EXPECT_EQ(v->Label1->text(), "AVISOS");
        vistas << v->Label2->text() + " " + v->Label3->text();
    }
    vistas.sort();
    EXPECT_EQ(vistas, QStringList({"12/05/2026 Mensual atrasado", "14/05/2026 Llamar al banco"}));
    // Once per start: the signal again shows nothing more.
    Q_EMIT tablero.cargaTerminada();
    EXPECT_EQ(tablero.findChildren<Form38*>().size(), 2);

    // "&Eliminar" asks and deletes; "&Modificar" opens the reminders' window on the other.
    Form38* banco = ventanas[0]->Label3->text() == "Llamar al banco" ? ventanas[0] : ventanas[1];
    Form38* mensual = banco == ventanas[0] ? ventanas[1] : ventanas[0];
    e.dialogo.responder({true});
    QPointer<Form38> b = banco;
    Pulsar(banco, "Command2");
    QApplication::processEvents();
    EXPECT_FALSE(b);
    EXPECT_EQ(avisos(),
              QStringList({"2026-05-12|Mensual atrasado|12", "2026-06-30|Lejos todavía|0"}));
    const long n = mensual->naviso();
    Pulsar(mensual, "Command1");
    Form37* f37 = tablero.findChild<Form37*>();
    ASSERT_TRUE(f37);
    EXPECT_TRUE(f37->isVisible());
    EXPECT_EQ(f37->cargado(), n);
    EXPECT_EQ(f37->Text2->text(), "Mensual atrasado");
    EXPECT_TRUE(f37->Option2->isChecked());
}

TEST_F(Utilidades, CalendarioConSusMarcas) {
    poner(F(2026, 5, 2), "Pasado, una vez");
    poner(F(2026, 5, 20), "Una vez");
    poner(F(2026, 6, 15), "Trimestral", 4);
    e.ajustes->escribir("Valores", "ElimAuto", "NO");
    Form39 f(e.sesion, *e.ajustes, e.dialogo, hoy);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Quilmar [Calendario de Avisos]");
    EXPECT_EQ(f.Combo1->currentText(), "Mayo");
    EXPECT_EQ(f.Combo2->currentText(), "2026");
    ASSERT_EQ(f.Dia.size(), 42);
    // May 2026 begins on a Friday: cell 4 is the 1st.
    EXPECT_EQ(f.Dia[3]->text(), "");
    EXPECT_EQ(f.Dia[4]->text(), "1");
    auto marcados = [&] {
        QStringList r;
        for (int i = 0; i < 42; ++i)
            if (f.Marca[i]->isVisible())
                r << f.Dia[i]->text();
        return r;
    };
    EXPECT_EQ(marcados(), QStringList({"20"}));
    Pulsar(&f, "Command2");
    EXPECT_EQ(f.Combo1->currentText(), "Junio");
    EXPECT_EQ(marcados(), QStringList({"15"}));
    for (int i = 0; i < 3; ++i)
        Pulsar(&f, "Command2");
    EXPECT_EQ(marcados(), QStringList({"15"})) << "September: three months on";
    for (int i = 0; i < 3; ++i)
        Pulsar(&f, "Command2");
    EXPECT_EQ(f.Combo1->currentText(), "Diciembre");
    EXPECT_EQ(marcados(), QStringList({"15"}));
    // Pressing a marked day lists what falls on it.
    const int quince = [&] {
        for (int i = 0; i < 42; ++i)
            if (f.Dia[i]->text() == "15")
                return i;
        return -1;
    }();
    ASSERT_GE(quince, 0);
    QTest::mousePress(f.Dia[quince], Qt::LeftButton);
    QTest::mouseRelease(f.Dia[quince], Qt::LeftButton);
    ASSERT_EQ(f.List1->count(), 1);
    EXPECT_EQ(f.List1->item(0)->text(), "15/12/2026   Trimestral");
    // Past December the year changes; January is seven months on, no quarter.
    Pulsar(&f, "Command2");
    EXPECT_EQ(f.Combo1->currentText(), "Enero");
    EXPECT_EQ(f.Combo2->currentText(), "2027");
    EXPECT_TRUE(marcados().isEmpty());
    Pulsar(&f, "Command1");
    EXPECT_EQ(f.Combo1->currentText(), "Diciembre");
    EXPECT_EQ(f.Combo2->currentText(), "2026");
    EXPECT_EQ(marcados(), QStringList({"15"}));
}

TEST_F(Utilidades, CopiaYRestauracionDesdeElTablero) {
    e.crearEmpresa();
    QTemporaryDir copia;
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    ConectarUtilidades(tablero, e.sesion, *e.ajustes, e.dialogo, hoy);
    for (const char* n : {"mnuAvisos", "mnuCalendario", "mnuCopia", "mnuRestaurar", "mnuCompactar"})
        EXPECT_TRUE(tablero.accion(n)->isEnabled()) << n;
    EXPECT_EQ(tablero.boton(16), tablero.accion("mnuAvisos"));

    // While the board has the company, nobody else can take it alone.
    Q_EMIT tablero.sesionCambiada();
    {
        BloqueoEmpresa solo(e.dir.path(), "Emp001", BloqueoEmpresa::Modo::Exclusivo);
        EXPECT_TRUE(solo.ocupado());
    }

    e.ajustes->escribir("Valores", "Ruta", copia.path());
    AlAbrirseModal([&](QWidget* w) {
        auto* f = qobject_cast<Form46*>(w);
        ASSERT_TRUE(f);
        EXPECT_EQ(f->windowTitle(), "Quilmar [Copia de Seguridad]");
        EXPECT_EQ(f->Text1->text(), copia.path());
        EXPECT_TRUE(f->Option1->isChecked());
        f->ElegirCarpeta = [](const QString&) {
            return QString();
        };
        Pulsar(f, "Command1");
        EXPECT_EQ(e.dialogo.informados.last(), MsgCopiaSinElegir);
        Escribir(f, "Text1", e.dir.path());
        Pulsar(f, "Command2");
        EXPECT_EQ(e.dialogo.informados.last(), MsgCopiaCarpetaPrograma);
        f->ElegirCarpeta = [&](const QString&) {
            return copia.path();
        };
        Pulsar(f, "Command1");
        e.dialogo.responder({true});
        Pulsar(f, "Command2");
    });
    tablero.accion("mnuCopia")->trigger();
    EXPECT_EQ(e.dialogo.informados.last(), MsgCopiaHecha);
    EXPECT_TRUE(QFileInfo::exists(copia.filePath("Emp001/Quilmar2024.db")));

    // The board's own hold does not stop a compaction from it.
    e.dialogo.responder({true});
    tablero.accion("mnuCompactar")->trigger();
    EXPECT_EQ(e.dialogo.informados.last(), MsgCompactacionTerminada);

    bool terminado = false;
    AlAbrirseModal([&](QWidget* w) {
        auto* f = qobject_cast<Form110*>(w);
        ASSERT_TRUE(f);
        EXPECT_EQ(f->windowTitle(), "Quilmar Pro [Restaurar desce Copia]");
        EXPECT_EQ(f->Text1->text(), QDir(copia.path()).filePath("Emp001"));
        f->Terminar = [&] {
            terminado = true;
        };
        e.dialogo.responder({true, true});
        Pulsar(f, "Command2");
    });
    tablero.accion("mnuRestaurar")->trigger();
    EXPECT_EQ(e.dialogo.informados.last(), MsgRestaurarCerrar);
    EXPECT_TRUE(terminado) << "the program ends after a restore";
}

} // namespace
