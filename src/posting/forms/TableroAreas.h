#pragma once
// The seven areas of the board and posting by pictures. Each area is a picture (Picture1(i)) with
// its label (Label1(i)) and a hidden list of its subaccounts (MSFlexGrid1(i)), with a strip
// (Picture2(i)) and two arrows (Command1(i), Command2(i)) for long lists. Dragging a subaccount of
// one list onto a subaccount of another starts an entry on the posting screen.
//
// This file only turns mouse and key events into the board's logic (posting/Arrastre.h), which
// decides what a drop means; the entry itself is Form4's.
//
// By keyboard: Tab or Alt + the area's digit opens a list; the arrows and letters move in it;
// Space picks the subaccount up, Enter drops it on the current row of another list (or, with
// nothing picked up, acts as a click), Escape gives it up.

#include "posting/Arrastre.h"
#include "posting/Tablero.h"

#include <QFrame>
#include <QImage>
#include <QPointer>
#include <QTableWidget>
#include <functional>

class Ajustes;
class Dialogo;
class Form4;
class QDrag;
class QLabel;
class QTimer;
class QToolButton;
struct EstadoTablero;
struct Sesion;

// The picture of an area, drawn to fill its place, with the area's label across its top.
class ImagenArea : public QWidget {
    Q_OBJECT
public:
    explicit ImagenArea(int area, QWidget* padre = nullptr);
    void setImagen(const QImage& imagen);
    const QImage& imagen() const { return imagen_; }
    QLabel* etiqueta() const { return Label1; }

protected:
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

private:
    QImage imagen_;
    QLabel* Label1;
};

// The list of an area's subaccounts: column 0 the name, column 1 the code (hidden).
class ListaArea : public QTableWidget {
    Q_OBJECT
public:
    explicit ListaArea(int area, QWidget* padre = nullptr);
    void llenar(const QList<FilaArea>& filas);
    void anadir(const FilaArea& fila);
    QList<FilaArea> filas() const;
    FilaArea fila(int r) const;
    // The current row as a subaccount; empty when there is none.
    FilaArea actual() const;
    // The rows that fit in sight.
    int filasVisibles() const;
    // Makes a row current and the first in sight.
    void ponerArriba(int r);

private:
    int area_;
};

// One area: the picture, the list over it and the arrows of the list.
class AreaTablero : public QFrame {
    Q_OBJECT
public:
    AreaTablero(int area, QWidget* padre = nullptr);
    int numero() const { return area_; }

    ImagenArea* Picture1;
    ListaArea* MSFlexGrid1;
    QWidget* Picture2; // the strip of the arrows
    QToolButton* Command1;
    QToolButton* Command2;

    // Shows the list at its first row, with the arrows when it doesn't fit.
    void mostrarLista();
    void ocultarLista();
    bool listaVisible() const;
    // Re-lays the list over the picture (after a fill or a resize).
    void colocar();

protected:
    void resizeEvent(QResizeEvent* e) override;

private:
    int area_;
};

class TableroAreas : public QWidget {
    Q_OBJECT
public:
    TableroAreas(Sesion& s, Ajustes& a, Dialogo& d, EstadoTablero& dinero,
                 QWidget* padre = nullptr);
    ~TableroAreas() override;

    AreaTablero* area(int i) const;
    ListaArea* lista(int i) const { return area(i)->MSFlexGrid1; }
    QLabel* Text1;
    QTimer* Timer1; // scrolls up while an arrow is held
    QTimer* Timer2; // scrolls down

    EstadoArrastre& estado() { return e_; }

    // The lists, as LlenarAreas leaves them. All lists end hidden.
    void llenar(const ListasAreas& listas);
    // A subaccount added in the chart screen, at the end of its area's list.
    void anadirSubcuenta(const QString& ncuenta, const QString& nombre);
    void cargarImagenes();
    void aplicarColor(const QColor& color);

    // What the pointer and the keys do, by element.
    void clicImagen(int i);
    void ocultarListas();
    // Starts a drag from row `fila` of list i, as a press and a movement on it do.
    void arrastrar(int i, int fila);
    // Space on a list: picks up its current row without the mouse.
    void recoger(int i);
    // Enter on a list, or a click on a row while a subaccount is picked up by keyboard.
    void soltarEnFila(int t, int fila);
    // A click on a row: for an income or expense, the quick entry.
    void clicFila(int i, int fila);
    void cancelar();
    // A letter typed over a list.
    void buscarLetra(int i, const QString& letra);
    bool recogidaPorTeclado() const { return recogida_; }

    // The posting screen that the board fills, when open.
    Form4* form4() const;
    // The part of the screen below the upper row of areas (0 to 3), global coordinates: a window
    // opened from the board goes there, so that the areas where drags begin stay in sight.
    QRect zonaLibre() const;
    // The company or the year changed: a drag or an entry begun on the board belongs to the
    // books that were open, so it is given up.
    void sesionCambiada();

    // Runs a drag; the default runs it as Qt does. Tests put their own movements here.
    std::function<Qt::DropAction(QDrag&)> EjecutarArrastre;

Q_SIGNALS:
    // An entry made on the board was posted.
    void asientoContabilizado(long numero);
    // The keyboard hint for the status bar; empty when there is none.
    void indicacion(const QString& texto);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* e) override;

private:
    enum class Superficie { Suelo, Imagen, Lista, Flecha1, Flecha2, Otra };
    void marcar(QWidget* w, Superficie tipo, int area);
    bool eventoDeArrastre(QWidget* w, Superficie tipo, int area, QEvent* evento);
    bool eventoDeRaton(QWidget* w, Superficie tipo, int area, QEvent* evento);
    bool teclaEnLista(int area, QKeyEvent* k);
    void sobreImagen(int i);
    void sobreLista(int i, const QPoint& pos);
    void soltar(int t, int fila);
    void aplicar(const DecisionSoltar& d, int s, int t);
    Form4* abrirForm4();
    void empezarFlecha(int area, int paso);
    void pararFlechas();
    void mover(int paso);
    void mostrarTexto1(int area, int fila);
    QPixmap imagenTexto1() const;
    AsientoAbierto asientoAbierto() const;

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    EstadoTablero& dinero_;
    EstadoArrastre e_;
    AreaTablero* areas_[7];
    QPointer<Form4> form4_;
    QString empresa_; // the books the board was filled for
    int ano_ = 0;
    bool soltado_ = false;              // the running drag ended in a drop on a list
    QPair<int, int> pendiente_{-1, -1}; // its area and row, worked out when the drag ends
    bool recogida_ = false;             // a subaccount is picked up by keyboard
    bool arrastrando_ = false;          // a drag with the mouse is running
    int pasoFlecha_ = 0;
    QPoint pulsacion_;
    int filaPulsada_ = -1;
    int areaPulsada_ = -1;
};
