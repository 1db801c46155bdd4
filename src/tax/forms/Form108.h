#pragma once
// The address of one rented property of the Modelo 347: situation, cadastral reference, kind
// and name of street, number and its parts, town and province, chosen from the street tables
// (VIAS.db). "&Aceptar" hands the whole address back to the property's sheet.
//
// Usage (a property's buttons on Form97):
//     Form108 f(s, a, d, m.inmuebles[i], this);
//     if (f.exec() == QDialog::Accepted) m.inmuebles[i] = f.inmueble();

#include "tax/Modelo347.h"

#include <QDialog>
#include <QHash>

class Ajustes;
class Dialogo;
class QComboBox;
class QLineEdit;
class QPushButton;
struct Sesion;

class Form108 : public QDialog {
    Q_OBJECT
public:
    Form108(Sesion& s, Ajustes& a, Dialogo& d, const Inmueble347& inmueble,
            QWidget* padre = nullptr);

    // The property with the address as the dialog holds it.
    Inmueble347 inmueble() const;

    QComboBox* Situacion;
    QComboBox* TipoVia;    // the kind's name shown, its code behind
    QComboBox* Provincia;  // likewise
    QComboBox* Municipio;  // the province's towns, refilled when the province changes
    QPushButton* Command1; // &Aceptar
    QPushButton* Command2; // &Cancelar

private:
    void llenarMunicipios();

    Sesion& s_;
    Dialogo& d_;
    Inmueble347 inmueble_;
    QHash<QString, QLineEdit*> textos_;
    QComboBox *tipoNumero_, *calificador_;
};
