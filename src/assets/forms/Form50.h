#pragma once
// Form50: the period of the budget's exercise to compare, "Año completo (<year>)" or "Entre" two
// whole months; &Aceptar hands it to Form49.

#include "assets/Presupuestos.h"

#include <QDialog>

class Ajustes;
class Dialogo;
class QComboBox;
class QRadioButton;
struct Sesion;

class Form50 : public QDialog {
    Q_OBJECT
public:
    // Throws ErrorQuilmar when the budget's year has no exercise in the company.
    Form50(Sesion& s, Ajustes& a, Dialogo& d, const QString& ruta, QWidget* padre = nullptr);

    QRadioButton* completo() const { return completo_; }
    QRadioButton* entre() const { return entre_; }
    QComboBox* desde() const { return desde_; }
    QComboBox* hasta() const { return hasta_; }
    PeriodoPresupuesto periodo() const;

public Q_SLOTS:
    void Aceptar();

private:
    bool comprobar();
    Dialogo& d_;
    QRadioButton* completo_;
    QRadioButton* entre_;
    QComboBox* desde_;
    QComboBox* hasta_;
};
