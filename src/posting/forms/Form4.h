#pragma once
// "Quilmar [Contabilizar]": the lines of an entry as the board builds them, with the date,
// description, amount, document and sector the user gives. Modeless, so the board can add lines
// while it is open. The rules live in Contabilizar; this screen gathers input and shows results.

#include "posting/Contabilizar.h"
#include "posting/forms/Form3.h"

#include <QWidget>
#include <functional>

class Ajustes;
class Dialogo;
class QAction;
class QCalendarWidget;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;
class QToolBar;
struct EstadoTablero;
struct Sesion;

class Form4 : public QWidget {
    Q_OBJECT
public:
    Form4(Sesion& s, Ajustes& a, Dialogo& d, EstadoTablero& tablero, QWidget* padre = nullptr);
    ~Form4() override;

    // Raised while a posting screen is open.
    static bool Abierto();
    // Screens built later wire their hooks on every posting screen made from then on.
    // The hook is given the screen with the session, settings and dialogue it was made with.
    using GanchoCrear = std::function<void(Form4&, Sesion&, Ajustes&, Dialogo&)>;
    static void AlCrear(GanchoCrear gancho);

    // What the board calls: the two first lines (names and codes, no amounts), the way the last
    // line was added, a further line, the number the entry will probably take, and the names
    // and balances of the last two lines.
    void CargarLineas(const QString& nombre1, const QString& ncuenta1, const QString& nombre2,
                      const QString& ncuenta2);
    void FijarModo(const QString& modo);
    int AnadirLinea(const QString& nombre, const QString& ncuenta);
    void FijarNumeroAsiento(long numero);
    void MostrarLineas();
    // Who opened the screen: "F4", "F61", "F67"; decides which cells can be edited.
    void FijarOrigen(const QString& origen);

    Contabilizar& Logica() { return k_; }
    PantallaIvaForm3& VentanaIva() { return pantalla_; }

    // The due-date screen, pre-filled from a line (a click on col 12). Every new posting screen
    // takes VencimientosDeLinea(), which the due-date screen's wiring sets; unset, the cell does
    // nothing.
    using GanchoVencimientos = std::function<void(const DatosVencimientoLinea&)>;
    GanchoVencimientos AbrirVencimientos;
    static GanchoVencimientos& VencimientosDeLinea();
    // Screens that don't exist yet, reached through hooks left unset: the calculator ("+" in the
    // amount field, tag "F4N1") and periodic entries (toolbar button 4). Unset, the key does
    // nothing and the button is off.
    std::function<void(QLineEdit*)> AbrirCalculadora;
    // What every new posting screen takes as AbrirCalculadora; the calculator's wiring sets it.
    using GanchoCalculadora = std::function<void(QLineEdit* campo, const QString& etiqueta)>;
    static GanchoCalculadora& CalculadoraDeImporte();
    void FijarHacerPeriodico(std::function<void()> accion);
    // Printing the entry (toolbar button 1): the print preview of the lines as they stand.
    // Another action may take its place; with none the button is off.
    void FijarImprimir(std::function<void()> accion);

    // The controls, by their names.
    QLabel* LabelNumero;
    QLabel* LabelNombre1;
    QLabel* LabelNombre2;
    QLabel* LabelSaldo1;
    QLabel* LabelSaldo2;
    QLineEdit* Date1;
    QComboBox* Combo1; // Concepto
    QLineEdit* TDBN1;  // Importe
    QLineEdit* Text2;  // Documento
    QComboBox* Combo2; // Sector
    QTableView* MSFlexGrid1;
    QPushButton* Command1; // &Aceptar
    QPushButton* Command2; // &Cancelar
    QPushButton* Command3; // Ay&uda
    QToolBar* Toolbar1;
    QAction* BotonImprimir;
    QAction* BotonLetraMas;
    QAction* BotonLetraMenos;
    QAction* BotonPeriodico;
    QCalendarWidget* Calendario = nullptr;

    // The press of "&Aceptar", as the button does it.
    ResultadoAceptar Aceptar();
    double TamanoLetra() const { return tamanoLetra_; }

Q_SIGNALS:
    void Contabilizado(long numero);

protected:
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void abrirCalendario();
    void cambiarLetra(double paso);
    void clicEnRejilla(const QModelIndex& indice);
    void celdaEditada(int fila, int col);
    void enfocar(CampoForm4 campo);
    QWidget* siguiente(QObject* campo) const;

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    Contabilizar k_;
    PantallaIvaForm3 pantalla_;
    std::function<void()> periodico_;
    std::function<void()> imprimir_;
    double tamanoLetra_ = 9;
};

// The reconciliation pictures: image n for the mark n - 1.
QPixmap ImagenDeCasacion(int numero);

// The key filter of amounts, on the screen and in the grid: digits and the decimal mark pass,
// "." and "," are turned into the mark of the locale. Anything else is refused.
enum class TeclaImporte { Pasa, Cambia, Rechaza };
TeclaImporte FiltrarTeclaImporte(const QString& texto, bool puntoDecimal);
