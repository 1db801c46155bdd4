#pragma once
// An area box and a subaccount box in step, as the day cash and the reconciliation screens
// choose a subaccount: choosing an area fills the subaccounts (parked ones left out), whose
// codes ride as item data; "+" in the subaccount box opens the chart to pick or create one.
//
// Usage:
//     auto* cuenta = new CajasArea(sesion, ajustes, dialogo, this, QStringLiteral("Combo1"));
//     cuenta->poner("157200003");          // its area chosen, then the subaccount
//     const QString ncuenta = cuenta->ncuenta();

#include <QString>
#include <QWidget>

class Ajustes;
class Dialogo;
class QComboBox;
struct Sesion;

class CajasArea : public QWidget {
    Q_OBJECT
public:
    // The boxes are named nombreArea and nombreArea + 1 ("Combo1", "Combo2") when a name is given.
    // With todas, the subaccount box starts with an empty item: no subaccount, every one.
    CajasArea(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr,
              const QString& nombreArea = {}, bool todas = false);

    // The subaccount chosen, or empty.
    QString ncuenta() const;
    // Chooses the subaccount and its area, without signals; an empty code clears the choice.
    void poner(const QString& ncuenta);
    // The area chosen (a digit of the areas' list), or empty.
    QString area() const;
    void ponerArea(const QString& digito);
    // The areas and subaccounts read again (the chart changed).
    void recargar();

    QComboBox* cajaArea() const { return area_; }
    QComboBox* cajaSubcuenta() const { return subcuenta_; }

Q_SIGNALS:
    // The user chose another subaccount (or area).
    void cambiada();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void llenarSubcuentas();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    bool todas_;
    QComboBox* area_;
    QComboBox* subcuenta_;
};
