#pragma once
// "Quilmar [Vencimientos]": the collections and payments that fall due. The fields of one due
// date above, the filters under "  Ver" and the search under "  Buscar", the list with its first
// column coloured by urgency and "Total Importe" under it, and the menu "Vence". Modeless, one
// at a time. The rules live in GestionVencimientos; this screen mirrors its fields.

#include "posting/GestionVencimientos.h"

#include <QPointer>
#include <QWidget>

class Ajustes;
class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class TablaRejilla;
class VistaRejilla;
struct DatosVencimientoLinea;
struct Sesion;

class Form89 : public QWidget {
    Q_OBJECT
public:
    Form89(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    ~Form89() override;

    // Opens the screen, or brings forward the one open, and fills its list.
    static Form89* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    static Form89* Abierto();

    // The list preset on a kind ("Cobro", "Pago"): a click on a light of the board.
    void VerTipo(const QString& tipo);
    // The fields pre-filled from a line of an entry.
    void Prellenar(const DatosVencimientoLinea& linea);

    // The public operations of the screen.
    void EliminarVenc(int meses);
    void Borrar();
    void LlenarVenc();
    // Paints the first column of the list by urgency.
    void Color();

    GestionVencimientos& Logica() { return g_; }
    const GestionVencimientos& Logica() const { return g_; }
    // "Today" for the checks and the colours; the clock's unless a test sets it.
    void FijarHoy(const QDate& hoy) { hoy_ = hoy; }
    QDate Hoy() const;

    // The controls, by their names.
    QLineEdit* Date1;      // F.Vencimiento
    QComboBox* Combo1;     // Tipo
    QComboBox* Combo2;     // Area
    QComboBox* Combo3;     // Subcuenta
    QComboBox* Combo4;     // Concepto
    QLineEdit* Date2;      // F.Emisión
    QComboBox* Combo5;     // Caja/Banco
    QComboBox* Combo6;     // Situación
    QLineEdit* Text1;      // Importe
    QLineEdit* Text2;      // Documento
    QLineEdit* Text3;      // Remesa
    QComboBox* Combo8;     // Sector
    QComboBox* Combo7;     // Forma
    QPushButton* Command1; // &Añadir
    QPushButton* Command2; // &Modificar
    QPushButton* Command3; // &Eliminar
    QPushButton* Command4; // &Imprimir
    QPushButton* Command5; // Ay&uda
    QPushButton* Command6; // &Salir
    // "  Ver"
    QCheckBox* Check1;     // Vencidos
    QCheckBox* Check2;     // Situación:
    QComboBox* Combo9;     //   its state
    QCheckBox* Check3;     // Fecha Venc.
    QLineEdit* Date3;      //   from
    QLineEdit* Date4;      //   to
    QCheckBox* Check4;     // Forma:
    QComboBox* Combo10;    //   its form
    QCheckBox* Check5;     // Remesa:
    QLineEdit* Text4;      //   its remittance
    QCheckBox* Check6;     // Subcta C/P:
    QComboBox* Combo11;    //   its subaccount
    QRadioButton* Option1; // Cobros
    QRadioButton* Option2; // Pagos
    QRadioButton* Option3; // Todos
    QPushButton* Command7; // &Ver
    // "  Buscar"
    QLineEdit* Text5;      // the text
    QComboBox* Combo12;    // the column
    QPushButton* Command8; // &Buscar
    QPushButton* Command9; // Bus&car Siguiente
    TablaRejilla* MSFlexGrid1;
    QLabel* LabelTotal; // the value of "Total Importe"
    QMenu* mnuVence;

    // The filters as the boxes hold them.
    FiltrosVenc FiltrosPantalla() const;

Q_SIGNALS:
    // A due date was written or deleted: the board's lights.
    void vencimientosCambiados();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void desdeLogica();
    void aLogica();
    void mostrarLista();
    void ver();
    void buscar(bool siguiente);
    void imprimir();
    void dobleClic(const QModelIndex& indice);
    void guardarAjustes();
    // Runs an action of the logic with the busy pointer, telling the user of a store failure.
    void hacer(const std::function<void()>& accion);

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    GestionVencimientos g_;
    VistaRejilla* vista_;
    QDate hoy_;
    bool cargando_ = false;
    bool anchosAjustados_ = false;
};
