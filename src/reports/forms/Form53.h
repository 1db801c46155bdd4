#pragma once
// "Mayor": the accounts ("Cuentas" "entre" two boxes of three digits) and the dates ("Fechas"
// "entre" two date pickers) of the ledger. "&Aceptar" checks the rules in order
// (ValidarSeleccionMayor); a box left with one or two digits says so when it loses the focus.

#include "reports/Mayor.h"

#include <QDialog>

class Ajustes;
class CajaFecha;
class QLineEdit;
class QPushButton;
struct Sesion;

class Form53 : public QDialog {
    Q_OBJECT
public:
    Form53(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    const SeleccionMayor& seleccion() const { return seleccion_; }

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void aceptar();

    Dialogo& d_;
    SeleccionMayor seleccion_;
    QLineEdit* Text1;
    QLineEdit* Text2;
    CajaFecha* DTPicker1;
    CajaFecha* DTPicker2;
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
};
