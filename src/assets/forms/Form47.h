#pragma once
// Form47, "Quilmar [Crear Presupuesto]" or, with the tag MODIFICAR, "Quilmar [Modificar
// Presupuesto]": two panels, the income lines (  Entradas) and the expense lines (  Salidas),
// each with its subaccount list, yearly amount (+ opens the calculator), month strip under
// "Repartir Importe anual entre los meses", Marcar, Borrar, Repartir por igual, &Añadir and the
// list of lines; under them the year, name and sector, &Guardar, I&mprimir, &Cancelar, Ay&uda.

#include "assets/Presupuestos.h"

#include <QDialog>

class Ajustes;
class Dialogo;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;
class QLineEdit;
struct Sesion;

class PanelPresupuesto;

class Form47 : public QDialog {
    Q_OBJECT
public:
    // ruta: the budget to modify; empty to create one.
    Form47(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr, const QString& ruta = {});

    PanelPresupuesto* entradas() const { return entradas_; }
    PanelPresupuesto* salidas() const { return salidas_; }
    QLineEdit* ano() const { return ano_; }
    QLineEdit* nombre() const { return nombre_; }
    QComboBox* sector() const { return sector_; }
    // What the form holds now, as it would be saved.
    Presupuesto presupuesto() const;

public Q_SLOTS:
    void Guardar();
    void Imprimir();

private:
    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    PanelPresupuesto* entradas_;
    PanelPresupuesto* salidas_;
    QLineEdit* ano_;
    QLineEdit* nombre_;
    QComboBox* sector_;
};

// One of the two panels.
class PanelPresupuesto : public QWidget {
    Q_OBJECT
public:
    PanelPresupuesto(Sesion& s, Ajustes& a, Dialogo& d, char tipo, QWidget* padre);

    QComboBox* subcuenta() const { return subcuenta_; }
    QLineEdit* importe() const { return importe_; }
    QLineEdit* mes(int m) const { return meses_[m - 1]; } // 1 to 12
    QCheckBox* marca(int m) const { return marcas_[m - 1]; }
    QTableWidget* lista() const { return lista_; }
    QPushButton* anadir() const { return anadir_; }
    QString total() const;

    QList<PartidaPresupuesto> partidas() const;
    void ponerPartida(const PartidaPresupuesto& p); // a line read from the file

    void Anadir();
    void RepartirIgual();
    void Marcar();
    void Borrar();
    void VerReparto(int fila);
    void EliminarPartida(int fila);
    void Completar(int mes);

private:
    PartidaPresupuesto actual(bool* ok) const;
    MesesMarcados marcados() const;
    void alSalirMes(int m);
    void sumar();
    Sesion& s_;
    Dialogo& d_;
    char tipo_;
    QComboBox* subcuenta_;
    QLineEdit* importe_;
    QList<QLineEdit*> meses_;
    QList<QCheckBox*> marcas_;
    QTableWidget* lista_;
    QPushButton* anadir_;
    QLabel* total_;
    int cargada_ = -1; // the row loaded for &Modificar, or -1
};
