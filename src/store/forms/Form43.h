#pragma once
// Access keys: a user changes his password; the administrator, once he has one, also adds and
// deletes users, lists them, and can remove his password.

#include <QDialog>

class Ajustes;
class Dialogo;
class QLineEdit;
class QListWidget;
class QPushButton;
class QWidget;
struct Sesion;

class Form43 : public QDialog {
    Q_OBJECT
public:
    Form43(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

private:
    enum class Modo { Normal, Anadiendo, Eliminando };

    void aplicarPermisos();
    void volverANormal();
    void ponerContrasena();
    void quitarContrasena();
    void anadirUsuario();
    void eliminarUsuario();
    void verUsuarios();
    void aceptar();
    bool vaciarSiNoCoinciden();

    Sesion& s_;
    Dialogo& d_;
    Modo modo_ = Modo::Normal;
    QLineEdit* Text1;      // Usuario
    QLineEdit* Text2;      // Contraseña
    QLineEdit* Text3;      // Repetir contraseña
    QPushButton* Command1; // Poner Contraseña
    QPushButton* Command2; // Quitar Contraseña
    QPushButton* Command3; // Añadir Usuario
    QPushButton* Command4; // Eliminar Usuario
    QPushButton* Command5; // Ver Usuarios
    QPushButton* Command6; // Aceptar
    QPushButton* Command7; // Salir
    QPushButton* Command8; // Cerrar (the list)
    QWidget* marcoLista_;
    QListWidget* List1;
};
