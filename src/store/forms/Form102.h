#pragma once
// The question of the kind of installation: main (the databases in this computer), client (the
// databases in the main installation's folder, over the local network), or the books on a
// PostgreSQL server (host, port, database and user; the password never stored).

#include <QDialog>
#include <functional>

class Ajustes;
class Dialogo;
class QLineEdit;
class QPushButton;
class QRadioButton;
struct Sesion;

class Form102 : public QDialog {
    Q_OBJECT
public:
    // Opening it writes a first PLoc.dat naming the program folder when there is none, so that
    // closing it without a choice leaves a main installation.
    Form102(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // How the folder is chosen; tests replace it.
    std::function<QString(QWidget*)> buscarCarpeta;

Q_SIGNALS:
    // DataPath changed: empty text for a main installation, the folder for a client, the
    // server's address for the third way.
    void ubicacionCambiada(const QString& texto);

private:
    void aceptar();
    void buscar();
    void actualizar();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QRadioButton* Option1;
    QRadioButton* Option2;
    QRadioButton* Option3;
    QLineEdit* Text1;
    QLineEdit* TextServidor;
    QLineEdit* TextPuerto;
    QLineEdit* TextBase;
    QLineEdit* TextUsuario;
    QPushButton* Command2;
};
