#pragma once
// The two choices before the income and expense lists open: Form12 ("Ingresos y Gastos
// (Totales)": the dates "Entre", "Tipo" — "Ingresos y Gastos", "Sólo Ingresos", "Sólo Gastos" —
// and the sector) and Form30 ("Lista de Ingresos y Gastos": the dates, "Clase" — "Ingresos" or
// "Gastos" — and the sector). The dates start as the exercise and stay within it; an empty sector
// takes every line. "&Aceptar" refuses a first date after the second.
//
// Usage: Form13::Abrir and Form31::Abrir show them modally and open the list with seleccion().

#include "reports/IngresosGastos.h"

#include <QDialog>

class Ajustes;
class QComboBox;
class QDateEdit;
class QGridLayout;
class QPushButton;
class QRadioButton;
struct Sesion;

// The boxes both forms share.
class SeleccionIyGBase : public QDialog {
    Q_OBJECT
protected:
    SeleccionIyGBase(Sesion& s, Dialogo& d, const QString& nombre, const QString& titulo,
                     QWidget* padre);
    // Lays the dates, the options (under their frame's caption) and the sector.
    void componer(Ajustes& a, int numero, const QString& marco,
                  const QList<QRadioButton*>& opciones);
    bool fechasValidas();
    QDate desde() const;
    QDate hasta() const;
    QString sector() const;

    Sesion& s_;
    Dialogo& d_;
    QDateEdit* DTPicker1;  // first date
    QDateEdit* DTPicker2;  // second date
    QComboBox* Combo1;     // "Sector"
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
};

class Form12 : public SeleccionIyGBase {
    Q_OBJECT
public:
    Form12(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    const SeleccionIyG& seleccion() const { return seleccion_; }

private:
    void aceptar();

    SeleccionIyG seleccion_;
    QRadioButton* Option1; // "Ingresos y Gastos"
    QRadioButton* Option2; // "Sólo Ingresos"
    QRadioButton* Option3; // "Sólo Gastos"
};

class Form30 : public SeleccionIyGBase {
    Q_OBJECT
public:
    Form30(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    const SeleccionListaIyG& seleccion() const { return seleccion_; }

private:
    void aceptar();

    SeleccionListaIyG seleccion_;
    QRadioButton* Option1; // "Ingresos"
    QRadioButton* Option2; // "Gastos"
};
