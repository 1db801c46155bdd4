#pragma once
// The login screen, and the loop that asks until a user gets in or gives up.

#include <QDialog>

class Ajustes;
class Dialogo;
class QLineEdit;
class QPushButton;
struct DecisionAcceso;
struct Sesion;

class Form44 : public QDialog {
    Q_OBJECT
public:
    // How the window was left: Aceptar hands the texts back, Cancelar ends the program, and
    // Escape or the window's close button just close it.
    enum Salida { Cerrada = QDialog::Rejected, Aceptada = QDialog::Accepted, Cancelada = 2 };

    Form44(Ajustes& ajustes, const QString& usuario, int cursor, QWidget* padre = nullptr);
    QString usuario() const;
    QString clave() const;

    // Shows the screen until a user gets in (true, with the session's user set) or Cancelar is
    // pressed (false: the program ends). Each failed attempt is told through the Dialogo.
    static bool PedirAcceso(Sesion& s, Ajustes& a, Dialogo& d, const DecisionAcceso& decision,
                            QWidget* padre = nullptr);

protected:
    void showEvent(QShowEvent* e) override;

private:
    int cursor_;
    QLineEdit* Text1;
    QLineEdit* Text2;
};
