// The desktop side of the platform: the grid's table and totals, its copy and menu, the export
// dialog, message boxes, and the print preview.

#include "ImprimirQt.h"
#include "platform/Dialogo.h"
#include "platform/ExportarRejilla.h"
#include "platform/Rejilla.h"
#include "platform/forms/DialogoVentanas.h"
#include "platform/forms/ExportarDialogo.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/ModeloRejilla.h"
#include "platform/forms/TablaRejilla.h"
#include "platform/forms/VistaRejilla.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace {

Rejilla Balance() {
    Rejilla r({{QStringLiteral("Código")},
               {QStringLiteral("Cuenta")},
               {QStringLiteral("Debe"), TipoColumna::Importe},
               {QStringLiteral("Haber"), TipoColumna::Importe},
               {QStringLiteral("Clave"), TipoColumna::Texto, true}});
    const int g = r.AgregarFila(QStringLiteral("5700\tCaja, euros\t1.500,00\t200,00\t570"));
    r.PonerNegritaFila(g);
    r.AgregarFila(QStringLiteral("570000001\tCaja central\t1.000,00\t200,00\t570"));
    r.AgregarFila(QStringLiteral("570000002\tCaja tienda\t500,00\t\t570"));
    const int m = r.AgregarFila(QStringLiteral("Subcuenta : Bancos e instituciones de crédito"));
    r.CombinarFila(m, 0, 3);
    r.PonerNegrita(m, 0);
    r.AgregarFila(QStringLiteral("572000001\tBanco\t99,99\t1.234.567,89\t572"));
    r.PonerTotal(QStringLiteral("Total Debe"), QStringLiteral("1.599,99"));
    r.PonerTotal(QStringLiteral("Total Haber"), QStringLiteral("1.234.767,89"));
    return r;
}

// Runs `accion` on the next modal dialog of type T as soon as it shows, and again while that
// dialog stays open (a file dialog may ignore an accept until it has read its folder).
template <typename T> void AlAparecer(std::function<void(T*)> accion) {
    auto* reloj = new QTimer;
    reloj->setInterval(20);
    auto visto = std::make_shared<QPointer<T>>();
    auto actuado = std::make_shared<bool>(false);
    QObject::connect(reloj, &QTimer::timeout, [reloj, accion, visto, actuado] {
        auto* d = qobject_cast<T*>(QApplication::activeModalWidget());
        if (*actuado && (!d || d != visto->data())) {
            reloj->stop();
            reloj->deleteLater();
            return;
        }
        if (d) {
            *visto = d;
            *actuado = true;
            accion(d);
        }
    });
    reloj->start();
}

// What a user does in a save dialog: types a name in its folder and presses Enter.
void Teclear(QFileDialog* d, const QString& nombre) {
    auto* campo = d->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    ASSERT_TRUE(campo);
    campo->setText(nombre);
    static_cast<QDialog*>(d)->accept();
}

void Guardar(QWidget* w, const QString& nombre) {
    const QByteArray carpeta = qgetenv("QUILMAR_MUESTRAS");
    if (carpeta.isEmpty())
        return;
    QDir().mkpath(QString::fromLocal8Bit(carpeta));
    w->grab().save(QDir(QString::fromLocal8Bit(carpeta)).filePath(nombre));
}

} // namespace

TEST(TablaRejilla, MuestraFilasNegritaCombinadasYOcultas) {
    Rejilla r = Balance();
    VistaRejilla vista;
    vista.resize(640, 260);
    vista.mostrar(&r);
    vista.show();
    TablaRejilla* t = vista.tabla();
    ModeloRejilla* m = t->modelo();

    EXPECT_EQ(m->rowCount(), 5);
    EXPECT_EQ(m->columnCount(), 5);
    EXPECT_EQ(m->headerData(2, Qt::Horizontal).toString(), QStringLiteral("Debe"));
    EXPECT_EQ(m->index(1, 1).data().toString(), QStringLiteral("Caja central"));
    EXPECT_TRUE(m->index(0, 1).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(m->index(1, 1).data(Qt::FontRole).isValid());
    // Figures right, text left; a merged row's text left even in a figure column.
    EXPECT_TRUE(m->index(1, 2).data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight);
    EXPECT_TRUE(m->index(1, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignLeft);
    EXPECT_TRUE(t->isColumnHidden(4));
    EXPECT_FALSE(t->isColumnHidden(3));
    EXPECT_EQ(t->columnSpan(3, 0), 4);
    EXPECT_EQ(t->columnSpan(1, 0), 1);
    // Widths fit the widest cell, not the merged text.
    EXPECT_GE(t->columnWidth(3),
              t->fontMetrics().horizontalAdvance(QStringLiteral("1.234.567,89")));
    EXPECT_LT(t->columnWidth(0), t->fontMetrics().horizontalAdvance(QStringLiteral(
                                     "Subcuenta : Bancos e instituciones de crédito")));
    ASSERT_TRUE(vista.valorTotal(QStringLiteral("Total Haber")));
    EXPECT_EQ(vista.valorTotal(QStringLiteral("Total Haber"))->text(),
              QStringLiteral("1.234.767,89"));
    Guardar(&vista, QStringLiteral("rejilla.png"));

    // The logic sorts and adds a row; the table follows, spans with their rows.
    r.Ordenar(0, Orden::Texto, false);
    r.AgregarFila(QStringLiteral("600000001\tCompras\t1,00"));
    r.PonerTotal(QStringLiteral("Total Debe"), QStringLiteral("1.600,99"));
    vista.actualizar();
    EXPECT_EQ(m->rowCount(), 6);
    EXPECT_EQ(m->index(5, 1).data().toString(), QStringLiteral("Compras"));
    EXPECT_EQ(m->index(0, 0).data().toString(),
              QStringLiteral("Subcuenta : Bancos e instituciones de crédito"));
    EXPECT_EQ(t->columnSpan(0, 0), 4);
    EXPECT_EQ(t->columnSpan(3, 0), 1);
    EXPECT_EQ(vista.valorTotal(QStringLiteral("Total Debe"))->text(), QStringLiteral("1.600,99"));
}

TEST(TablaRejilla, CopiaLaSeleccionComoTextoConTabuladores) {
    Rejilla r = Balance();
    TablaRejilla t;
    t.mostrar(&r);
    t.show();
    QItemSelectionModel* s = t.selectionModel();
    // A rectangle over the hidden column: the hidden column is left out.
    s->select(QItemSelection(t.model()->index(1, 1), t.model()->index(2, 4)),
              QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(t.textoSeleccion(),
              QStringLiteral("Caja central\t1.000,00\t200,00\nCaja tienda\t500,00\t\n"));
    QApplication::clipboard()->clear();
    t.setFocus();
    QTest::keyClick(&t, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), t.textoSeleccion());

    // Two separate cells: their rows and columns, the unselected cells among them empty.
    s->select(t.model()->index(0, 0), QItemSelectionModel::ClearAndSelect);
    s->select(t.model()->index(2, 2), QItemSelectionModel::Select);
    EXPECT_EQ(t.textoSeleccion(), QStringLiteral("5700\t\n\t500,00\n"));
}

TEST(TablaRejilla, MenuContextualConCopiarYLasEntradasDeLaVentana) {
    Rejilla r = Balance();
    TablaRejilla t;
    t.mostrar(&r);
    int filaPedida = -2, columnaPedida = -2;
    QObject::connect(&t, &TablaRejilla::prepararMenu, [&](QMenu* menu, int fila, int columna) {
        filaPedida = fila;
        columnaPedida = columna;
        menu->addAction(QStringLiteral("Ver Asiento"));
    });
    t.selectionModel()->select(t.model()->index(2, 1), QItemSelectionModel::ClearAndSelect);
    auto menu = t.crearMenu(t.model()->index(2, 1));
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions()[0]->text(), QStringLiteral("Copiar"));
    EXPECT_TRUE(menu->actions()[0]->isEnabled());
    EXPECT_EQ(menu->actions()[1]->text(), QStringLiteral("Ver Asiento"));
    EXPECT_EQ(filaPedida, 2);
    EXPECT_EQ(columnaPedida, 1);
    QApplication::clipboard()->clear();
    menu->actions()[0]->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Caja tienda\n"));
}

TEST(Exportar, DialogoConFiltrosYPreguntaAlSustituir) {
    const Rejilla r = Balance();
    QTemporaryDir dir;
    DialogoGuion dialogo;
    QWidget ventana;
    QStringList filtros;
    QString filtroInicial;
    // The first filter is chosen; a name without extension becomes .xlsx.
    AlAparecer<QFileDialog>([&](QFileDialog* d) {
        filtros = d->nameFilters();
        filtroInicial = d->selectedNameFilter();
        Teclear(d, QStringLiteral("balance"));
    });
    EXPECT_TRUE(ExportarConDialogo(&ventana, r, dialogo, dir.path()));
    // The dialog shows the filters without their leading blanks.
    EXPECT_EQ(filtros, (QStringList{QStringLiteral("Archivo de Microsoft Excel (*.xlsx)"),
                                    QStringLiteral("Archivo de texto (*.txt)")}));
    EXPECT_EQ(filtroInicial, filtros.value(0));
    const QString xlsx = dir.filePath(QStringLiteral("balance.xlsx"));
    ASSERT_TRUE(QFile::exists(xlsx));
    QFile f(xlsx);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_TRUE(f.read(2) == "PK"); // a zip: the workbook
    f.close();

    // The same name again: the question, answered with the default No, writes nothing.
    const QDateTime antes = QFileInfo(xlsx).lastModified();
    const qint64 tamano = QFileInfo(xlsx).size();
    AlAparecer<QFileDialog>([&](QFileDialog* d) { Teclear(d, QStringLiteral("balance.xlsx")); });
    EXPECT_FALSE(ExportarConDialogo(&ventana, r, dialogo, dir.path()));
    EXPECT_EQ(dialogo.preguntas,
              QStringList{QStringLiteral("Este archivo ya existe, desea sustiruirlo?")});
    EXPECT_EQ(QFileInfo(xlsx).lastModified(), antes);
    EXPECT_EQ(QFileInfo(xlsx).size(), tamano);

    // The text filter writes tab-separated text whatever the name says.
    AlAparecer<QFileDialog>([&](QFileDialog* d) {
        d->selectNameFilter(QStringLiteral("Archivo de texto (*.txt)"));
        Teclear(d, QStringLiteral("balance.txt"));
    });
    EXPECT_TRUE(ExportarConDialogo(&ventana, r, dialogo, dir.path()));
    QFile t(dir.filePath(QStringLiteral("balance.txt")));
    ASSERT_TRUE(t.open(QIODevice::ReadOnly));
    EXPECT_TRUE(t.readAll().startsWith("Código\tCuenta\tDebe\tHaber\tClave\n5700\t"));

    // A cancelled dialog is not an error: nothing written, nothing said.
    AlAparecer<QFileDialog>([](QFileDialog* d) { d->reject(); });
    EXPECT_FALSE(ExportarConDialogo(&ventana, r, dialogo, dir.path()));
    EXPECT_EQ(dialogo.textos.size(), 1);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files).size(), 2);
}

TEST(DialogoVentanas, PreguntaConNoPorDefectoYElTituloDeLaVentana) {
    QWidget ventana;
    ventana.setWindowTitle(QStringLiteral("Quilmar [Diario]"));
    DialogoVentanas dialogo(&ventana);
    QString titulo, defecto;
    AlAparecer<QMessageBox>([&](QMessageBox* m) {
        titulo = m->windowTitle();
        defecto = m->defaultButton() ? m->defaultButton()->text() : QString();
        QTest::keyClick(m, Qt::Key_Return); // Enter takes the default
    });
    EXPECT_FALSE(dialogo.Preguntar(QStringLiteral("¿Seguro?")));
    EXPECT_EQ(titulo, QStringLiteral("Quilmar [Diario]"));
    EXPECT_EQ(defecto, QStringLiteral("&No"));
    AlAparecer<QMessageBox>([&](QMessageBox* m) { m->button(QMessageBox::Yes)->click(); });
    EXPECT_TRUE(dialogo.Preguntar(QStringLiteral("¿Seguro?")));
}

namespace {

void Libro(Impresora& imp, int copia) {
    for (int p = 1; p <= 3; ++p) {
        imp.PonerFuente(QStringLiteral("Arial Narrow"));
        imp.PonerTamano(15);
        imp.PonerNegrita(true);
        imp.IrA(600, 500);
        imp.Escribir(QStringLiteral("LIBRO DE PRUEBA"));
        imp.Linea(600, imp.Y(), imp.AnchoPagina() - 600, imp.Y());
        imp.PonerTamano(9);
        imp.PonerNegrita(false);
        for (int fila = 0; fila < 40; ++fila) {
            imp.PonerX(600);
            imp.EscribirSeguido(QStringLiteral("Fila %1 de la página %2").arg(fila + 1).arg(p));
            imp.EscribirADerecha(QStringLiteral("1.234,%1").arg(fila, 2, 10, QLatin1Char('0')),
                                 imp.AnchoPagina() - 1000);
            imp.Escribir(QString());
        }
        imp.PonerX(600);
        imp.Escribir(QStringLiteral("Copia %1 - Página nº %2").arg(copia).arg(imp.Pagina()));
        if (p < 3)
            imp.NuevaPagina();
    }
    imp.FinDocumento();
}

int PaginasPdf(const QString& ruta) {
    QProcess p;
    p.start(QStringLiteral("pdfinfo"), {ruta});
    p.waitForFinished();
    const QString salida = QString::fromUtf8(p.readAllStandardOutput());
    const qsizetype i = salida.indexOf(QStringLiteral("Pages:"));
    return i < 0 ? -1 : salida.mid(i + 6).section(u'\n', 0, 0).trimmed().toInt();
}

} // namespace

TEST(ImprimirLibro, VistaPreviaYPdf) {
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setOutputFormat(QPrinter::PdfFormat);
    impresora.setPageSize(QPageSize(QPageSize::A4));
    VistaPrevia vista(&impresora, Libro, QStringLiteral("LIBRO DE PRUEBA"));
    vista.show();
    EXPECT_EQ(vista.paginas(), 3);
    EXPECT_EQ(vista.windowTitle(), QStringLiteral("Quilmar [Vista preliminar - LIBRO DE PRUEBA]"));
    QTest::qWait(50);
    Guardar(&vista, QStringLiteral("vista-previa.png"));

    QTemporaryDir dir;
    const QString ruta = dir.filePath(QStringLiteral("libro.pdf"));
    EXPECT_TRUE(vista.guardarPdf(ruta));
    if (!QStandardPaths::findExecutable(QStringLiteral("pdfinfo")).isEmpty()) {
        EXPECT_EQ(PaginasPdf(ruta), 3);
    }
    // Saving over it asks first; No keeps the file.
    const qint64 tamano = QFileInfo(ruta).size();
    AlAparecer<QMessageBox>([](QMessageBox* m) { m->button(QMessageBox::No)->click(); });
    EXPECT_FALSE(vista.guardarPdf(ruta));
    EXPECT_EQ(QFileInfo(ruta).size(), tamano);
}

TEST(ImprimirLibro, DialogoDeImpresoraYCopias) {
    QTemporaryDir dir;
    const QString salida = dir.filePath(QStringLiteral("impreso.pdf"));
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setOutputFormat(QPrinter::PdfFormat);
    impresora.setOutputFileName(salida);
    VistaPrevia vista(&impresora, Libro, QStringLiteral("LIBRO DE PRUEBA"));

    // A cancel in the printer dialog prints nothing and says nothing.
    QPrintDialog::PrintDialogOptions opciones;
    AlAparecer<QPrintDialog>([&](QPrintDialog* d) {
        opciones = d->options();
        d->reject();
    });
    vista.imprimir();
    EXPECT_EQ(vista.copiasImpresas(), 0);
    EXPECT_FALSE(QFile::exists(salida));
    EXPECT_FALSE(opciones.testFlag(QAbstractPrintDialog::PrintToFile));
    EXPECT_FALSE(opciones.testFlag(QAbstractPrintDialog::PrintPageRange));
    EXPECT_FALSE(opciones.testFlag(QAbstractPrintDialog::PrintSelection));
    EXPECT_FALSE(opciones.testFlag(QAbstractPrintDialog::PrintCurrentPage));

    // Two copies: the book draws each, the device makes one of each pass. (Accepting the
    // system's dialog needs a real printer; the copies are printed as it would then.)
    impresora.setCopyCount(2);
    EXPECT_TRUE(vista.imprimirCopias(2));
    EXPECT_EQ(vista.copiasImpresas(), 2);
    EXPECT_EQ(impresora.copyCount(), 1);
    ASSERT_TRUE(QFile::exists(salida));
    if (!QStandardPaths::findExecutable(QStringLiteral("pdfinfo")).isEmpty()) {
        EXPECT_EQ(PaginasPdf(salida), 6);
    }
}

TEST(ImprimirLibro, LibroVacioNoMuestraNadaYCerrarNoImprime) {
    QWidget ventana;
    bool abierta = false;
    AlAparecer<VistaPrevia>([&](VistaPrevia* v) {
        abierta = true;
        v->reject();
    });
    EXPECT_EQ(ImprimirLibro(&ventana, [](Impresora& imp, int) { imp.FinDocumento(); }), 0);
    QTest::qWait(100);
    EXPECT_FALSE(abierta);
    // With pages the preview shows; closing it prints nothing.
    EXPECT_EQ(ImprimirLibro(&ventana, Libro, OpcionesImpresion{QStringLiteral("LIBRO"), {}, {}}),
              0);
    EXPECT_TRUE(abierta);
}
