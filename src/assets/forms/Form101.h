#pragma once
// Form101, "Quilmar [Amortizaciones]": the depreciation run of the inventory up to a date, for
// every element or those of one location, with one entry per element or one per
// accumulated-depreciation subaccount.
//
// Controls: Text1 "Fecha hasta la que se realizará la amortización" (+ opens a calendar); in
// "Elementos del activo que se amortizarán" Option1 "Todos", Option2 "Sólo los localizados en"
// and Combo1; in "Agrupación de los asientos" Option3 (one entry per element) and Option4
// (grouped); Command1 "&Aceptar", Command2 "&Salir".

#include "assets/Amortizacion.h"

#include <QDialog>

class Ajustes;
class Dialogo;
class QComboBox;
class QLineEdit;
class QRadioButton;
struct Sesion;

class Form101 : public QDialog {
    Q_OBJECT
public:
    Form101(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // What the form asks for now.
    PeticionAmortizacion peticion() const;
    // True once a run was written.
    bool realizada() const { return realizada_; }
    const ResultadoAmortizacion& resultado() const { return resultado_; }

public Q_SLOTS:
    // "&Aceptar": the run; the form closes when it was written.
    void Aceptar();

Q_SIGNALS:
    void asientosContabilizados();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void alSalirFecha();

    Sesion& s_;
    Dialogo& d_;
    bool realizada_ = false;
    ResultadoAmortizacion resultado_;
    QLineEdit* Text1;
    QRadioButton* Option1;
    QRadioButton* Option2;
    QComboBox* Combo1;
    QRadioButton* Option3;
    QRadioButton* Option4;
};
