#pragma once
// "Quilmar": the rhythm of a new periodic entry and the date of its next posting. Each of the
// eight rhythms stands beside the entry's date plus its step, and choosing one puts that date in
// the field "El próximo asiento se contabilizará en fecha:", which starts one month after the
// entry's date and may be typed over. Cancelling gives back 1 January 1950: nothing chosen.

#include "posting/Periodicos.h"

#include <QDialog>
#include <QList>

class Ajustes;
class Dialogo;
class QLineEdit;
class QPushButton;
class QRadioButton;

class Form59 : public QDialog {
    Q_OBJECT
public:
    // origen: the form that asks ("F4", "F7"); fecha: the date of the entry.
    Form59(Ajustes& a, Dialogo& d, const QString& origen, const QDate& fecha,
           QWidget* padre = nullptr);

    // The answer: FechaSinEleccion unless accepted.
    EleccionPeriodicidad eleccion() const { return eleccion_; }

    QList<QRadioButton*> Option1; // the rhythms, in the order of Ritmos()
    QLineEdit* Text1;             // the next date
    QPushButton* Command1;        // &Aceptar
    QPushButton* Command2;        // &Cancelar

private:
    void aceptar();

    Dialogo& d_;
    QString origen_;
    QDate fecha_;
    EleccionPeriodicidad eleccion_{FechaSinEleccion, 0};
};

// The screen as HacerPeriodico asks it.
class PantallaPeriodicidadForm59 : public PantallaPeriodicidad {
public:
    PantallaPeriodicidadForm59(Ajustes& a, Dialogo& d, QWidget* padre)
        : a_(a), d_(d), padre_(padre) {}
    EleccionPeriodicidad Elegir(const QString& origen, const QDate& fecha) override;

private:
    Ajustes& a_;
    Dialogo& d_;
    QWidget* padre_;
};
