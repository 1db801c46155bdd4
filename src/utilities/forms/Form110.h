#pragma once
// "Quilmar Pro [Restaurar desce Copia]": a company brought back from a backup folder. Once
// restored the program ends, so that the next start reads the restored data.

#include <QDialog>
#include <functional>

class Ajustes;
class Dialogo;
class QLineEdit;
class QProgressBar;
class QPushButton;
struct Sesion;

class Form110 : public QDialog {
    Q_OBJECT
public:
    Form110(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    QLineEdit* Text1;      // the company's folder in the backup
    QPushButton* Command1; // browse
    QPushButton* Command2; // &Restaurar
    QPushButton* Command3; // &Salir
    QPushButton* Command4; // Ay&uda
    QProgressBar* ProgressBar1;

    // The folder dialog; replaced by tests. Empty: cancelled.
    std::function<QString(const QString& inicial)> ElegirCarpeta;
    // Ends the program after a restore; replaced by tests.
    std::function<void()> Terminar;

    bool restaurada() const { return restaurada_; }

public Q_SLOTS:
    void Restaurar();
    void Buscar();

private:
    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    bool restaurada_ = false;
};
