#pragma once
// "Quilmar [Gestión de Asientos]": any entry of the journal opened by its number, its lines
// changed one by one and saved again under the same number, or a new entry made line by line.
// Modeless, one at a time. The rules live in GestionAsientos; this screen mirrors its fields.

#include "posting/GestionAsientos.h"
#include "posting/forms/Form3.h"

#include <QPointer>
#include <QWidget>
#include <functional>

class Ajustes;
class Dialogo;
class Form1;
class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;
class QToolBar;
struct Sesion;

class Form7 : public QWidget {
    Q_OBJECT
public:
    Form7(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    ~Form7() override;

    // The screen open now, or nullptr.
    static Form7* Abierto();
    // Screens built later wire their hooks on every maintenance screen made from then on.
    // The hook is given the screen with the session, settings and dialogue it was made with.
    using GanchoCrear = std::function<void(Form7&, Sesion&, Ajustes&, Dialogo&)>;
    static void AlCrear(GanchoCrear gancho);

    // Loads an entry, as the board's VMAsiento does. False when it is not in the journal.
    bool VMAsiento(long nas);
    // Empties the screen to a new entry (what it shows went out of date).
    void Vaciar();
    // A new entry made elsewhere (a predesigned entry), to be checked and posted here.
    void NuevoConLineas(const QList<LineaF7>& lineas, const QDate& fecha);

    GestionAsientos& Logica() { return k_; }
    PantallaIvaForm3& VentanaIva() { return pantalla_; }

    // Screens that come later: periodic entries (toolbar button 8) and predesigned entries (the
    // "Pred." field on Enter, with a three-digit code). Unset, the button and the field are off.
    void FijarHacerPeriodico(std::function<void()> accion);
    void FijarPredisenado(std::function<void(const QString&)> accion);
    // The due-date screen, pre-filled from a line: a click on the line's "..." (col Venc). Set by
    // the due-date screen's wiring; unset, the cell shows nothing.
    using GanchoVencimientos = std::function<void(const DatosVencimientoLinea&)>;
    static GanchoVencimientos& VencimientosDeLinea();

    // The controls, by their names.
    QLineEdit* Text1; // entry number
    QLabel* Label2;   // the number of the entry on show
    QLineEdit* Date1;
    QLabel* Label8;    // the date of the loaded entry (hidden)
    QComboBox* Combo5; // area
    QComboBox* Combo1; // subaccount names
    QComboBox* Combo2; // their codes (hidden)
    QComboBox* Combo3; // Concepto
    QLineEdit* TDBN2;  // Debe
    QLineEdit* TDBN3;  // Haber
    QLineEdit* Text3;  // Documento
    QComboBox* Combo4; // Sector
    QLineEdit* Text2;  // Pred.
    QLineEdit* TDBN1;  // Descuadre
    QLabel* LabelSaldo;
    QPushButton* Command1;
    QTableView* MSFlexGrid1;
    QToolBar* Toolbar1;
    QAction* BotonImprimir;    // 1
    QAction* BotonQuitar;      // 2
    QAction* BotonSeleccionar; // 3
    QAction* BotonEliminar;    // 4
    QAction* BotonLetraMas;    // 6
    QAction* BotonLetraMenos;  // 7
    QAction* BotonPeriodico;   // 8

    // The press of Command1, as the button does it.
    ResultadoF7 Pulsar();
    double TamanoLetra() const { return tamanoLetra_; }

Q_SIGNALS:
    // An entry was saved, re-dated or deleted: open books refresh.
    void librosCambiados();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void desdeLogica();
    void aLogica();
    void cambiarLetra(double paso);
    void imprimir();
    void clicEnRejilla(const QModelIndex& indice);
    int filaActual() const;
    void enfocar(ResultadoF7::Foco foco);
    QWidget* siguiente(QObject* campo) const;
    // Runs an action of the logic, telling the user of a failure of the store.
    void hacer(const std::function<void()>& accion);

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    GestionAsientos k_;
    PantallaIvaForm3 pantalla_;
    double tamanoLetra_ = 9;
    bool cargando_ = false;
};

// The board's VMAsiento: opens the maintenance screen on an entry, or brings forward the one
// already open and loads the entry there. With nas 0 the screen opens (or comes forward) as it
// stands. The open books of the board (the given one, or the program's board) refresh when the
// screen changes the journal, and the screen closes when the board changes company or year.
// This is the entry point of the journal book and reconciliation.
Form7* VMAsiento(Sesion& s, Ajustes& a, Dialogo& d, long nas, Form1* tablero = nullptr);
