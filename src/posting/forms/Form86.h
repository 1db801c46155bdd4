#pragma once
// Form86, "Quilmar [Punteo y Casación]": the lines of the journal (all, or one subaccount between
// two dates) with their tick and their matching state. A click on the "Punteo" column ticks a
// line; the context menu (mnuContexto) marks a start, joins a line to a start (Form87 picks one
// when several fit), joins by document, cancels a line's match, verifies every group, opens the
// entry (VMAsiento) or the group (Form88), and chooses one of the six views. Pictures of the four
// states: a circle for a start and a square for a joined line, hollow while the group is open
// and filled once it is balanced.
//
// Usage (the board's menu):
//     Form86* f = Form86::Abrir(sesion, ajustes, dialogo, tablero);   // one window, raised again

#include "posting/Punteo.h"

#include <QPointer>
#include <QWidget>

class Ajustes;
class CajasArea;
class Dialogo;
class Form1;
class ModeloPunteo;
class QAction;
class QDateEdit;
class QLabel;
class QMenu;
class QPushButton;
class QTableView;
struct Sesion;

// The columns of the grid.
namespace ColF86 {
enum : int {
    NAs = 0,
    NAp,
    Fecha,
    Cuenta,
    Concepto,
    Debe,
    Haber,
    Documento,
    NCuenta,
    Punteo,    // a check box
    Casacion,  // the state's picture; its tooltip says it in words
    CasacionH, // the group's key
    Total
};
}

class Form86 : public QWidget {
    Q_OBJECT
public:
    Form86(Sesion& s, Ajustes& a, Dialogo& d, Form1* tablero = nullptr, QWidget* padre = nullptr);
    ~Form86() override;

    static Form86* Abrir(Sesion& s, Ajustes& a, Dialogo& d, Form1* tablero);
    static Form86* Abierto();

    // --- Public operations -----------------------------------------------------------------
    // Redraws the state pictures.
    void AdImagen();
    // Verifies every group, then "Proceso terminado.", and shows the lines again.
    void CompCasa();
    // The lines in either of two states (1 and 2 fully matched, 0 and 3 partly matched).
    void VerCasado(int a, int b);
    // The ticked lines, or those not ticked.
    void VerPunteados(bool punteados);
    // Every line of the selection.
    void LlenarFlex();

    // The lines shown, in order.
    const QList<LineaPunteo>& lineas() const;
    // The row of a line shown, or -1.
    int filaDe(long nas, long nap) const;
    // The row the context menu works on: the current one.
    int filaActual() const;
    void seleccionarFila(int fila);
    VistaPunteo vista() const { return sel_.vista; }
    // The subaccount and dates of the selection (the view stays).
    void ponerSeleccion(const QString& ncuenta, const QDate& desde, const QDate& hasta);

    // The context menu's actions, by their names (mnuInicio, mnuFinal, ...).
    QAction* accion(const QString& nombre) const;
    QMenu* menuContexto() const { return mnuContexto; }

    // Who picks a start among several: Form87 unless replaced (tests).
    ElegirInicio Elegir;
    // Who shows a group: Form88 unless replaced (tests).
    std::function<void(double clave)> VerGrupo;

public Q_SLOTS:
    // Entries changed elsewhere: the lines are read again.
    void Refrescar();
    // The tick of a row turned over.
    void PuntearFila(int fila);
    void ComoInicio();
    void ComoFinal();
    void DocSeleccionado();
    void DocTodos();
    void Anular();
    void VerAsiento();
    void VerCasacion();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void construir();
    void crearMenu();
    // The line's entries of the context menu enabled by the current line.
    void habilitarMenu();
    void llenar();
    void mostrarCambios(const QList<LineaPunteo>& cambiadas);
    void mostrarTotales();
    const LineaPunteo* lineaActual();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    Form1* tablero_; // the board, which outlives the window; may be null
    Punteo k_;
    SeleccionPunteo sel_;

    CajasArea* Cuenta_;    // area and subaccount (empty: every subaccount)
    QDateEdit* DTPicker1;  // from
    QDateEdit* DTPicker2;  // to
    QPushButton* Command1; // "&Ver"
    QPushButton* Command2; // "&Salir"
    QTableView* Grid1;
    ModeloPunteo* modelo_;
    QLabel* Label1; // sums of the lines shown and of the ticked ones
    QMenu* mnuContexto;
};
