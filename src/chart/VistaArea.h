#pragma once
// How screens that choose subaccounts by area offer the areas. By the setting Valores\CArea:
// "Imagenes" (the default) offers the seven areas of the board, 0 to 6, matched on the first
// digit of NCuenta; "Plan" offers the seven groups of the accounting plan, 1 to 7, matched on the
// second digit. The codes themselves never change.

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

class Conexion;
struct Sesion;

struct SubcuentaDeLista {
    QString NCuenta;
    QString Cuenta; // trimmed
    QString NGrupo;
};

enum class OrdenSubcuentas { GrupoYNombre, Nombre, Codigo };

class VistaArea {
public:
    explicit VistaArea(bool plan) : plan_(plan) {}
    static VistaArea De(const Sesion& s);
    static VistaArea De(const QString& carea);

    bool porPlan() const { return plan_; }
    // The digits offered: "0".."6" or "1".."7".
    QStringList digitos() const;
    // The LIKE pattern of a digit: "d%" or "_d%".
    QString patron(const QString& digito) const;
    // The digit of the list a code falls in.
    QString digitoDe(const QString& ncuenta) const;

    // Subaccounts of a digit, without the parked ones unless asked.
    QList<SubcuentaDeLista> subcuentas(Conexion& c, const Sesion& s, const QString& digito,
                                       bool conAparcadas = false,
                                       OrdenSubcuentas orden = OrdenSubcuentas::GrupoYNombre) const;

private:
    bool plan_;
};
