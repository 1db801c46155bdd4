#pragma once
// Form87: the starts a line can join, when more than one fits. Under "Subcuenta: " the candidates
// with their NAS, NAp, Fecha, Concepto, Debe, Haber and CasacionH; a double click or "&Aceptar"
// takes the one selected, "&Cancelar" takes none.
//
// Usage:
//     Form87 f(subcuenta, candidatos, this);
//     if (f.exec() == QDialog::Accepted) use(f.elegido());

#include "posting/Punteo.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

class Form87 : public QDialog {
    Q_OBJECT
public:
    Form87(const QString& subcuenta, const QList<LineaPunteo>& candidatos,
           QWidget* padre = nullptr);

    // The index of the start chosen, or -1.
    int elegido() const { return elegido_; }
    QTableWidget* grid() const { return Grid1; }

    // The chooser of the reconciliation screen over this form.
    static ElegirInicio Elegidor(QWidget* padre);

private:
    void aceptar();

    QLabel* Label1;
    QTableWidget* Grid1;
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
    int elegido_ = -1;
};
