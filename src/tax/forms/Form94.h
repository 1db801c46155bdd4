#pragma once
// "Modelo 130": the period ("Seleccione Periodo:") and the activities ("Seleccione
// Actividades:") of the income-tax instalment. Each section has its check box and, under a
// further check box, two sectors picked from the sector list; a sector not picked travels as
// "MMM". "&Aceptar" runs the checks of the dates and closes accepted.
//
// Usage (the menu entry mnuM130):
//     Form94 f(s, a, d, tablero);
//     if (f.exec() == QDialog::Accepted) ... f.desde(), f.hasta(), f.actividades()

#include "tax/Modelo130.h"

#include <QDialog>

class Ajustes;
class Dialogo;
class QCheckBox;
class QComboBox;
class CajaFecha;
class QPushButton;
struct Sesion;

class Form94 : public QDialog {
    Q_OBJECT
public:
    Form94(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    QDate desde() const;
    QDate hasta() const;
    Actividades130 actividades() const;

    CajaFecha* DTPicker1;
    CajaFecha* DTPicker2;
    QCheckBox* Check1;     // section I
    QCheckBox* Check2;     // section II
    QCheckBox* Check3;     // sectors of section I
    QCheckBox* Check4;     // sectors of section II
    QComboBox* Combo1;     // first sector of section I
    QComboBox* Combo2;     // second sector of section I
    QComboBox* Combo3;     // first sector of section II
    QComboBox* Combo4;     // second sector of section II
    QPushButton* Command1; // &Aceptar

private:
    void aceptar();
    void habilitar();

    Dialogo& d_;
};
