#pragma once
// "Quilmar [Datos del IVA]": the VAT data of one line of account 472 or 477. A thin screen over
// CapturaIva, which keeps every rule; the screen only mirrors its fields.

#include "posting/Contabilizar.h"

#include <QDialog>
#include <functional>

class Ajustes;
class Dialogo;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;
struct Sesion;

class Form3 : public QDialog {
    Q_OBJECT
public:
    Form3(CapturaIva& captura, Ajustes& ajustes, QWidget* padre = nullptr);
    ~Form3() override;

    // "+" in the counterparty box opens the chart screen to pick a subaccount; it returns the
    // code chosen, or an empty text. PantallaIvaForm3 sets it; not set, the key does nothing.
    std::function<QString()> ElegirEnPlan;

    // The controls, by their names, for the tests.
    QLabel* Encabezado;
    QLineEdit* Text1;  // Base
    QLabel* Label8;    // Porcentaje
    QLabel* Label4;    // Cuota
    QLabel* Label6;    // Clase
    QLineEdit* Text2;  // Nº Factura
    QComboBox* Combo3; // area filter
    QComboBox* Combo1; // counterparty names
    QComboBox* Combo2; // counterparty codes, hidden
    QCheckBox* Check1;
    QCheckBox* Check2;
    QCheckBox* Check3;
    QRadioButton* Option1;
    QRadioButton* Option2;
    QRadioButton* Option3;
    QLabel* LabelArea;
    QLabel* LabelContra;
    QLabel* Label10;
    QLineEdit* TDBN1;      // Importe Retención
    QPushButton* Command1; // &Aceptar
    QPushButton* Command2; // &Cancelar
    QPushButton* Command3; // Ay&uda

protected:
    void showEvent(QShowEvent* e) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void aLogica();
    void desdeLogica();
    void listas();
    void visibilidad();
    void aceptar();

    CapturaIva& c_;
    Ajustes& ajustes_;
    bool primera_ = true;
    bool cargando_ = false;
};

// The VAT screen of the desktop: Form3, modal over the posting screen.
class PantallaIvaForm3 : public PantallaIva {
public:
    PantallaIvaForm3(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
        : s_(s), ajustes_(a), d_(d), padre_(padre) {}
    void Mostrar(CapturaIva& captura) override;
    // Called with each Form3 before it is shown (the tests drive it from here).
    std::function<void(Form3&)> alAbrir;

private:
    Sesion& s_;
    Ajustes& ajustes_;
    Dialogo& d_;
    QWidget* padre_;
};
