#pragma once
// Form14, "Quilmar [Formulación Memoria]": the formulas of the notes to the accounts of the old
// chart (Fmemor.dat, Fmemor8.dat from 2008). The fields of a formula (name of three digits, type,
// period, content) over the list of the file, with the columns " Nombre", " Tipo", " Contenido",
// " Periodo"; "&Añadir", "&Modificar", "&Eliminar", "Ay&uda", "&Cancelar", and a popup on the
// list with "Modificar" and "Eliminar". Form107 is the same screen for the 2007 chart, with the
// exercise ("Año N" or "Año N-1") asked apart and shown in a fifth column "Ejercicio".
//
// Usage (the board's menu):
//     Form14::Abrir(sesion, dialogo, PlanMemoriaDe(sesion), tablero);  // nothing when no file

#include "annual/FormulasMemoria.h"

#include <QWidget>

class Ajustes;
class Dialogo;
class QComboBox;
class QLineEdit;
class QMenu;
class QPushButton;
class QTableWidget;
struct Sesion;

class Form14 : public QWidget {
    Q_OBJECT
public:
    Form14(Sesion& s, Ajustes& a, Dialogo& d, PlanMemoria plan, QWidget* padre = nullptr);

    // The screen of the plan (Form14 or Form107); nothing when the company has no formula file
    // and the program's is missing (the user has been told).
    static Form14* Abrir(Sesion& s, Ajustes& a, Dialogo& d, PlanMemoria plan, QWidget* padre);

    QTableWidget* grid() const { return Grid1; }
    QList<FormulaMemoria> formulas() const { return formulas_; }

public Q_SLOTS:
    void LlenarLista();
    void Anadir();
    void Modificar();
    void Eliminar();
    // A row's formula to the fields.
    void CargarFila(int fila);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void construir();
    void ponerPeriodos();
    EntradaFormula entrada() const;
    bool guardar(const std::optional<QString>& anterior);

    Sesion& s_;
    Dialogo& d_;
    PlanMemoria plan_;
    QString ruta_;
    QList<FormulaMemoria> formulas_;
    QString cargada_; // the name of the formula taken from the list, for "&Modificar"

    QLineEdit* Text1;  // the three digits of the name
    QComboBox* Combo1; // " Tipo"
    QComboBox* Combo3; // "Ejercicio" (Form107 only)
    QComboBox* Combo2; // " Periodo"
    QLineEdit* Text2;  // " Contenido"
    QTableWidget* Grid1;
    QMenu* mnuFormulas;
    QPushButton* Command1; // "&Añadir"
    QPushButton* Command2; // "&Modificar"
    QPushButton* Command3; // "&Eliminar"
    QPushButton* Command4; // "Ay&uda"
    QPushButton* Command5; // "&Cancelar"
};
