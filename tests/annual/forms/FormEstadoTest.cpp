// The statement windows offscreen on the demo company: the question on the breakdown, the two
// lists behind Command1 and Command2, and the board's menu entries.

#include "annual/forms/FormEstado.h"
#include "Entorno.h"
#include "annual/ImpresionEstados.h"
#include "annual/forms/MenusAnuales.h"
#include "forms/Pantallas.h"
#include "platform/ImpresoraGrabadora.h"
#include "platform/forms/TablaRejilla.h"
#include "posting/forms/Form1.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QString Titulo(const FormEstado* f, int c) {
    return f->tabla()->model()->headerData(c, Qt::Horizontal).toString();
}

bool Escribible(const FormEstado* f, int fila, int columna) {
    const QAbstractItemModel* m = f->tabla()->model();
    return m->flags(m->index(fila, columna)).testFlag(Qt::ItemIsEditable);
}

// Types into a cell of the list on show as the user does: the cell's editor, key by key.
void TeclearNota(FormEstado* f, int fila, const QString& texto) {
    const QModelIndex i = f->tabla()->model()->index(fila, ColNotas(f->estado().modelo));
    f->tabla()->setCurrentIndex(i);
    f->tabla()->edit(i);
    auto* editor = qobject_cast<QLineEdit*>(f->tabla()->indexWidget(i));
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->maxLength(), LargoNota);
    QTest::keyClicks(editor, texto);
}

// Every label of the list on show fits the columns it spreads over.
void RotulosCaben(const FormEstado* f) {
    const Rejilla& r = f->rejilla();
    const TablaRejilla* t = f->tabla();
    QFont gruesa = t->font();
    gruesa.setBold(true);
    for (int fila = 0; fila < r.Filas(); ++fila) {
        const auto tramo = r.Combinada(fila);
        if (!tramo)
            continue;
        const QString texto = r.Celda(fila, tramo->desde);
        int ancho = 0;
        for (int c = tramo->desde; c <= tramo->hasta; ++c)
            ancho += t->columnWidth(c);
        const QFontMetrics m(r.Negrita(fila, tramo->desde) ? gruesa : t->font());
        EXPECT_GE(ancho, m.horizontalAdvance(texto)) << texto.toStdString();
    }
}

} // namespace

TEST(FormEstado, BalancePymesWithBothListsAndTheQuestion) {
    Entorno e;
    e.instalarDemo();
    e.dialogo.responder({true});
    QPointer<FormEstado> f =
        FormEstado::Abrir(e.sesion, *e.ajustes, e.dialogo, TipoEstado::Balance);
    ASSERT_TRUE(f);
    EXPECT_EQ(e.dialogo.preguntas, QStringList{PreguntaDesglose});
    EXPECT_EQ(f->objectName(), "Form105");
    EXPECT_EQ(f->windowTitle(), "Quilmar [Balance de Situación]");
    EXPECT_EQ(Titulo(f, 0), "A C T I V O");
    EXPECT_EQ(Titulo(f, 4), "Notas Mem.");
    EXPECT_EQ(Titulo(f, 5), "Ejercicio 2026");
    EXPECT_EQ(Titulo(f, 6), "Ejercicio 2025");
    const int filasActivo = f->tabla()->model()->rowCount();
    EXPECT_EQ(filasActivo, f->estado().lista1.Filas());
    // With the breakdown the cash subaccount is there.
    EXPECT_GE(BuscarFila(f->rejilla(), "Caja"), 0);
    f->accion("Command2")->trigger();
    EXPECT_EQ(f->listaVisible(), 2);
    EXPECT_EQ(Titulo(f, 0), "PATRIMONIO NETO Y PASIVO");
    EXPECT_EQ(f->tabla()->model()->rowCount(), f->estado().lista2.Filas());
    f->accion("Command1")->trigger();
    EXPECT_EQ(f->tabla()->model()->rowCount(), filasActivo);
    EXPECT_FALSE(f->accion("Command4")->isEnabled());
    f->close();
}

TEST(FormEstado, NotesAreTypedKeptThroughAFillAndPrinted) {
    Entorno e;
    e.instalarDemo();
    e.dialogo.responder({true});
    QPointer<FormEstado> f =
        FormEstado::Abrir(e.sesion, *e.ajustes, e.dialogo, TipoEstado::Balance);
    ASSERT_TRUE(f);
    const int notas = ColNotas(Modelo::Form105);
    const int caja = BuscarFila(f->rejilla(), "Caja");
    ASSERT_GE(caja, 0);
    // Only the notes can be typed in; the amounts and labels stay as the books give them.
    EXPECT_TRUE(Escribible(f, caja, notas));
    EXPECT_TRUE(Escribible(f, 0, notas));
    EXPECT_FALSE(Escribible(f, caja, ColEstSubcuenta));
    EXPECT_FALSE(Escribible(f, caja, ColImporte(Modelo::Form105)));
    RotulosCaben(f);

    TeclearNota(f, caja, QStringLiteral("  Nota 3"));
    // Still being typed when the other list is asked for: what was typed is kept, trimmed.
    f->accion("Command2")->trigger();
    EXPECT_EQ(f->estado().lista1.Celda(caja, notas), "Nota 3");
    RotulosCaben(f);
    TeclearNota(f, 0, QStringLiteral("12"));
    QTest::keyClick(f->tabla()->indexWidget(f->tabla()->currentIndex()), Qt::Key_Return);
    QApplication::processEvents(); // Enter hands the text over from the event loop
    EXPECT_EQ(f->rejilla().Celda(0, notas), "12");
    f->accion("Command1")->trigger();
    EXPECT_EQ(f->rejilla().Celda(caja, notas), "Nota 3");

    // Entries changed elsewhere: the lists are laid again, the notes stay by their lines.
    e.asiento(QDate(2026, 12, 30),
              {Debe(QStringLiteral("157000001"), 10), Haber(QStringLiteral("370000066"), 10)});
    f->Refrescar();
    EXPECT_EQ(f->rejilla().Celda(BuscarFila(f->rejilla(), "Caja"), notas), "Nota 3");
    EXPECT_EQ(f->estado().lista2.Celda(0, notas), "12");

    // Form83 comes for the PYMES balance sheet; cancelled, nothing is printed.
    QString titulo;
    AlAbrirseModal([&](QWidget* w) {
        titulo = w->objectName() + u' ' + w->windowTitle();
        Pulsar(w, QStringLiteral("Command2"));
    });
    f->accion("Command3")->trigger();
    EXPECT_EQ(titulo, "Form83 BALANCE DE PYMES");
    EXPECT_TRUE(f->opciones().cancelado);
    // What the window prints carries the notes beside their lines.
    OpcionesLibro op;
    op.cancelado = false;
    op.fechaTrabajo = QDate(2026, 12, 31);
    ImpresoraGrabadora imp;
    DibujarEstado(imp, f->estado(), QStringLiteral("De Pruebas"), e.sesion.FechaIniEj,
                  e.sesion.FechaFinEj, op);
    const Trazo* nota = imp.buscar("Nota 3");
    const Trazo* cuenta = imp.buscar("Caja");
    ASSERT_TRUE(nota && cuenta);
    EXPECT_EQ(nota->y, cuenta->y);
    EXPECT_EQ(nota->pagina, cuenta->pagina);
    ASSERT_TRUE(imp.buscar("12"));
    EXPECT_GT(imp.buscar("12")->pagina, cuenta->pagina);
    f->close();

    // The old layout has no notes column: nothing can be typed.
    FormEstado viejo(e.sesion, *e.ajustes, e.dialogo, Modelo::Form81, true);
    viejo.show();
    ASSERT_TRUE(viejo.Llenar());
    for (int c = 0; c < viejo.rejilla().Columnas(); ++c)
        EXPECT_FALSE(Escribible(&viejo, 1, c)) << c;
    RotulosCaben(&viejo);
    viejo.close();
    // Of the statement windows only Form81 keeps its size.
    EXPECT_TRUE(e.ajustes->existe("Opciones", "WF81"));
    EXPECT_FALSE(e.ajustes->existe("Opciones", "WF105"));
}

TEST(FormEstado, ProfitAndLossFromTheBoardAndNothingToShow) {
    Entorno e;
    e.instalarDemo();
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_FALSE(tablero.accion("mnuSituacion")->isEnabled());
    EXPECT_FALSE(tablero.accion("mnuPyG")->isEnabled());
    ConectarAnuales(tablero, e.sesion, *e.ajustes, e.dialogo);
    EXPECT_TRUE(tablero.accion("mnuSituacion")->isEnabled());
    EXPECT_TRUE(tablero.accion("mnuPyG")->isEnabled());
    e.dialogo.responder({false});
    tablero.accion("mnuPyG")->trigger();
    const QList<QWidget*> abiertos = tablero.librosAbiertos(QStringLiteral("Anuales"));
    ASSERT_EQ(abiertos.size(), 1);
    auto* f = qobject_cast<FormEstado*>(abiertos.first());
    ASSERT_TRUE(f);
    EXPECT_EQ(f->objectName(), "Form106");
    // One list: the switches are off; no breakdown was asked for.
    EXPECT_FALSE(f->accion("Command2")->isEnabled());
    EXPECT_EQ(BuscarFila(f->rejilla(), "Ventas de mercaderías"), -1);
    EXPECT_GE(BuscarFila(f->rejilla(), "D) RESULTADO DEL EJERCICIO (C+17)"), 0);
    EXPECT_TRUE(Escribible(f, 0, ColNotas(Modelo::Form106)));
    RotulosCaben(f);
    f->close();

    // An exercise without entries: the message, and no window.
    e.sesion.AnoActual = 2026;
    {
        Conexion c = e.datos();
        c.ejecutar(QStringLiteral("DELETE FROM Diario"));
    }
    e.dialogo.responder({false});
    EXPECT_EQ(FormEstado::Abrir(e.sesion, *e.ajustes, e.dialogo, TipoEstado::PyG), nullptr);
    EXPECT_EQ(e.dialogo.informados.last(), MsgSinMovimientos);
}
