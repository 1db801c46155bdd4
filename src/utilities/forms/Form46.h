#pragma once
// "Quilmar [Copia de Seguridad]": a backup of the open company or of all of them into a folder
// typed or chosen, remembered for the next time (Ruta).

#include <QDialog>
#include <functional>

class Ajustes;
class Dialogo;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
struct Sesion;

class Form46 : public QDialog {
    Q_OBJECT
public:
    Form46(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    QRadioButton* Option1; // Hacer copia de la Empresa abierta
    QRadioButton* Option2; // Hacer copia de todas las Empresas
    QLineEdit* Text1;      // the folder
    QPushButton* Command1; // browse
    QPushButton* Command2; // &Guardar
    QPushButton* Command3; // &Salir
    QPushButton* Command4; // Ay&uda
    QProgressBar* ProgressBar1;

    // The folder dialog; replaced by tests. Empty: cancelled.
    std::function<QString(const QString& inicial)> ElegirCarpeta;

public Q_SLOTS:
    void Guardar();
    void Buscar();

private:
    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
};
