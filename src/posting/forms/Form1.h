#pragma once
// The board: the long-lived window of the program. It carries the menus and the toolbar from
// which every other screen opens, the exercise box, the due-date lights, the cover picture, and
// the seven areas of the chart where entries are made by dragging (TableroAreas).
//
// Screens are wired in one place, conectarMenus(). A screen that comes later finds its entry by
// the menu's name and wires it with Conectar("mnuGC", ...), which also enables it; the toolbar
// buttons share the actions of their menu entries.

#include "posting/EstadoTablero.h"
#include "posting/Tablero.h"

#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <QUrl>
#include <functional>

class Ajustes;
class Dialogo;
class QAction;
class QComboBox;
class QFrame;
class QLabel;
class QKeyEvent;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QTimer;
class TableroAreas;
struct Sesion;

class Form1 : public QMainWindow {
    Q_OBJECT
public:
    Form1(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // The load of the board up to the access to companies: session values from the settings,
    // background colour, decimal mark.
    void Cargar();
    // Shows the access to companies modally and applies the choice. False when the program
    // must end (Salir, or a repair of the lists).
    bool AccesoEmpresas();
    // What follows a company choice at start: the areas, the exercise state, and Timer3, which
    // takes the splash away and shows the welcome screen.
    void TrasAcceso();

    // Fills the lists of the seven areas (parked subaccounts left out) and sets the session's
    // highest subaccount serial. At load, on a change of year or company, and after changes in
    // the chart or in parking.
    void LlenarAreas();
    // A subaccount just added in the chart screen joins the list of its area, without a refill.
    void AnadirSubcuenta(const QString& ncuenta, const QString& nombre);
    // The seven areas, their lists and the drag.
    TableroAreas* tablero() const { return tablero_; }
    // The money subaccount of the last posted entry, kept for quick entries.
    EstadoTablero& estadoTablero() { return dinero_; }
    // True once an entry made on the board was posted in this session.
    bool asientoHecho() const { return asientoHecho_; }

    // An action of the menus by its name (mnuGC, mnuEliminarAs...), or nullptr.
    QAction* accion(const QString& nombre) const;
    // A toolbar button by its index, 1 to 20; separators (3, 9, 12, 19) are separator actions.
    QAction* boton(int indice) const;
    // Wires a menu entry (and its toolbar button, if any) to a screen and enables it.
    void Conectar(const QString& nombre, std::function<void()> accion);
    // Area i (0 to 6): its picture, list and arrows.
    QFrame* area(int i) const;

    // Open book windows (journal, ledger, trial balance...) register here, by kind ("Diario",
    // "Mayor", "SyS", ...), so that other screens can close them (renumbering closes an open
    // journal, whose numbers would be stale) or refresh them after an entry changes. A window
    // leaves the register when it is destroyed. Refreshing calls its slot Refrescar(), if any.
    void registrarLibro(QWidget* ventana, const QString& tipo);
    QList<QWidget*> librosAbiertos(const QString& tipo = {}) const;
    void cerrarLibros(const QString& tipo = {});
    void refrescarLibros();

    // Screens reached through hooks, set by their subsystem's wiring: the due-date screen
    // preset on a kind ("Cobro", "Pago"; a click on a light; unset, the lights are off), the
    // list of predesigned entries (F12) and one predesigned entry by its code (Ctrl + three
    // digits).
    std::function<void(const QString& tipo)> AbrirVencimientos;
    std::function<void()> AbrirPredisenados;
    std::function<void(int codigo)> AbrirPredisenado;
    // Opens a web address; the system's browser unless replaced (tests).
    std::function<bool(const QUrl&)> AbrirDireccion;
    // The keys gathered for a predesigned entry.
    const TeclasCtrl& teclasCtrl() const { return teclas_; }

    // The pages of the bank button (toolbar button 18): the list of names, or the notice.
    void MostrarBancos();
    QListWidget* List1; // names of the bank pages
    QListWidget* List2; // their addresses
    QTimer* Timer4;     // hides the list of bank pages
    QTimer* Timer5;     // the first-use question

    bool BoardVisible() const { return boardVisible_; }
    QString nombreEmpresa() const { return nombre_; }
    // The splash to take away when Timer3 fires.
    void setPresentacion(QWidget* splash) { splash_ = splash; }

public Q_SLOTS:
    // Any screen that changes the current exercise asks the board to take the session again:
    // exercise state, year box and its colour, caption, areas.
    void Refrescar();
    // Shows or hides the cover, as the menu entry mnuImagenes and toolbar button 4 do.
    void AlternarPortada();
    // Paints the due-date lights of collections (Command4) and payments (Command5).
    void ColorVenc();
    // The pictures of the areas and the colour of the board, from the settings.
    void AplicarImagenes();
    void AplicarColor(const QColor& color);

Q_SIGNALS:
    // The company, the year or the state of the exercise changed.
    void sesionCambiada();
    // The first company of the session is loaded (the place of the start-up's later steps:
    // due-date lights, reminders, periodic entries).
    void cargaTerminada();

protected:
    void closeEvent(class QCloseEvent* e) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void crearMenus();
    void crearBarra();
    void crearCentro();
    void conectarMenus();
    void aplicarSeleccion(const QString& nombre, const QList<int>& anos);
    void ponerTitulo();
    void colorearEjercicio();
    void anoElegido(int indice);
    void abrirEjercicios();
    void abrirModificarEmpresa();
    void abrirEliminarEmpresa();
    void abrirUsuarios();
    void abrirConfiguracion();
    void abrirBienvenida();
    void abrirImagenes();
    void abrirAyudante();
    void abrirPaginasWeb();
    // The status bar: a hint of the board, or what a keyboard drag is waiting for.
    void indicar(const QString& texto);
    void finTimer3();
    void finTimer5();
    bool teclaDelTablero(QKeyEvent* k);

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QString nombre_;
    bool boardVisible_ = false;
    QList<QAction*> botones_; // by toolbar index; 0 unused
    QComboBox* Combo1;
    QPushButton* Command4; // due-date light of collections
    QPushButton* Command5; // due-date light of payments
    QStackedWidget* centro_;
    QWidget* Picture4; // the cover
    QLabel* Image2;    // its picture
    QFrame* areas_[7];
    TableroAreas* tablero_;
    EstadoTablero dinero_;
    TeclasCtrl teclas_;
    bool asientoHecho_ = false;
    QTimer* Timer3;
    QPointer<QWidget> splash_;
    QList<QPair<QPointer<QWidget>, QString>> libros_;
};
