#pragma once
// A new company: its data, the first day of its first exercise, and where its chart comes from
// (the generic one, or another company's, with the tables chosen to copy).

#include <QDialog>

class Ajustes;
class Dialogo;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
struct Sesion;

class Form17 : public QDialog {
    Q_OBJECT
public:
    Form17(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    // The name of the company made (after Aceptar).
    QString nombreCreado() const { return creado_; }

private:
    void aceptar();
    void codigoTerminado();
    void fechaTerminada();
    void origenCambiado();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QString creado_;
    QLineEdit* Text1;      // Código
    QLineEdit* Text2;      // Nombre
    QLineEdit* Text3;      // NIF/CIF
    QLineEdit* Text4;      // Domicilio
    QLineEdit* Text5;      // Num.
    QLineEdit* Text6;      // Ciudad
    QLineEdit* Text7;      // C.Postal
    QComboBox* Combo2;     // Provincia
    QLineEdit* Text8;      // Fecha inicial periodo contable
    QLabel* Label10;       // the last day of the period
    QRadioButton* Option1; // Genéricas
    QRadioButton* Option2; // De otra Empresa
    QComboBox* Combo1;     // companies to copy from
    QCheckBox* Check[6];
};
