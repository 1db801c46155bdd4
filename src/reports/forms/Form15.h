#pragma once
// "Sector": picks the sector of the month table (Form58) from the list of the exercise's sectors;
// the first entry, "(Todos los sectores)", takes every line. A double click accepts.
//
// Usage:
//     Form15 f(sesion, dialogo, sectorActual, this);
//     if (f.exec() == QDialog::Accepted) ponerSector(f.sector());

#include <QDialog>

class Dialogo;
class QListWidget;
class QPushButton;
struct Sesion;

class Form15 : public QDialog {
    Q_OBJECT
public:
    Form15(Sesion& s, Dialogo& d, const QString& actual, QWidget* padre = nullptr);
    // The sector chosen; empty for every sector.
    QString sector() const;

private:
    QListWidget* List1;
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
};
