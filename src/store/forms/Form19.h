#pragma once
// Deletes a company other than the current one, with everything it holds.

#include <QDialog>

class Ajustes;
class Dialogo;
class QComboBox;
class QLabel;
struct Sesion;

class Form19 : public QDialog {
    Q_OBJECT
public:
    Form19(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

Q_SIGNALS:
    void empresaEliminada(const QString& carpeta);

private:
    void llenar();
    void aceptar();

    Sesion& s_;
    Dialogo& d_;
    QComboBox* Combo1; // names; each item keeps its code (the hidden list of codes)
    QLabel* Label2;    // the folder
};
