#pragma once
// Form73, "Quilmar [Cuentas]": the chart of accounts of one area at both levels, accounts (FG2)
// and subaccounts (FG1), with the card of customers and suppliers in areas 2 and 4. Opened from
// another screen in pick mode it offers Seleccionar and hands back the chosen subaccount.

#include "chart/CliPro.h"
#include "chart/Listados.h"

#include <QDialog>
#include <QStringList>

class Ajustes;
class Dialogo;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;
struct Sesion;

class Form73 : public QDialog {
    Q_OBJECT
public:
    Form73(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr, bool seleccionar = false);

    // Opens the screen modally to pick a subaccount (parked ones are not offered), starting on
    // an area (0 to 6) when given. The chosen NCuenta, or empty when closed without choosing.
    static QString ElegirSubcuenta(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr,
                                   int area = -1);
    // The subaccount picked with Seleccionar.
    QString subcuentaElegida() const { return elegida_; }

    // Shows an area (list index 0 to 6).
    void MostrarArea(int area);
    int area() const;

    // The list of the level on show ("Listado de Subcuentas" or "Listado de Cuentas"), as
    // Imprimir prints it and Exportar writes it.
    Listado Listar();
    void Imprimir();

    // The card's routines on the screen's fields.
    void Blanquear(); // empties the fields
    void Borrar();    // empties the grids

Q_SIGNALS:
    // A subaccount was added: the board adds it to the list of its area, unless parked.
    void subcuentaAnadida(const QString& ncuenta, const QString& nombre);
    // Names or codes changed: the board refills its areas.
    void areasCambiadas();

private:
    void construir();
    void llenarListas();
    void actualizarPanel();
    void alElegirCuenta();
    void alElegirSubcuenta();
    void aceptar();     // Command1
    void eliminar();    // Command3
    void seleccionar(); // Command7
    void buscar(bool siguiente);
    void alSalirNIF();
    void alEscribirNombre(const QString& texto);
    bool porCuentas() const;
    FichaCliPro fichaDeCampos() const;
    void ponerFicha(const FichaCliPro& f);
    void ponerModo(bool modificar);
    void enfocar(int campo);

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    bool seleccionar_ = false;
    QString elegida_;
    QString editando_; // NGrupo or NCuenta of the row being modified; empty when adding
    QString nombreAnterior_;

    QComboBox* Combo1 = nullptr;
    QRadioButton* Option1 = nullptr;
    QRadioButton* Option2 = nullptr;
    QTableWidget* FG1 = nullptr;
    QTableWidget* FG2 = nullptr;
    QGroupBox* marcoCuenta_ = nullptr;
    QGroupBox* marcoSubcuenta_ = nullptr;
    QGroupBox* marcoFicha_ = nullptr;
    QLineEdit* Text13 = nullptr;
    QLineEdit* Text2 = nullptr;
    QComboBox* Combo2 = nullptr;
    QStringList gruposCombo2_; // NGrupo of each entry of Combo2
    QLineEdit* Text1 = nullptr;
    QLineEdit* Text3 = nullptr;
    QLineEdit* textoDomicilio_ = nullptr;
    QLineEdit* textoMunicipio_ = nullptr;
    QLineEdit* textoCPostal_ = nullptr;
    QComboBox* Combo3 = nullptr;
    QLineEdit* textoTfn1_ = nullptr;
    QLineEdit* textoTfn2_ = nullptr;
    QLineEdit* textoContacto_ = nullptr;
    QComboBox* Combo4 = nullptr;
    QLineEdit* textoObservaciones_ = nullptr;
    QLineEdit* textoBuscar_ = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command3 = nullptr;
    QPushButton* Command4 = nullptr;
    QPushButton* Command6 = nullptr;
    QPushButton* Command7 = nullptr;
};
