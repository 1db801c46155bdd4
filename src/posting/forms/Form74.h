#pragma once
// "Quilmar [Crear o modificar Asiento Prediseñado]": the code and name of a template, one line at
// a time in the fields (its side, and for each of the nine fields a kind from its list and a
// text), the lines in a grid, and "&Guardar". The rules and messages live in EditorPredisenado;
// this screen adds the typing filters of the date and the formulas.

#include "posting/EditorPredisenado.h"

#include <QDialog>
#include <array>

class Ajustes;
class Dialogo;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;
struct Sesion;

class Form74 : public QDialog {
    Q_OBJECT
public:
    Form74(const Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // A stored template to the screen. False when it has no rows.
    bool Cargar(int codigo);
    EditorPredisenado& Logica() { return k_; }

    // Sets a field as the user would: its kind and its text.
    void FijarCampo(int campo, TipoCelda tipo, const QString& valor);

    QLineEdit* Text1;                                  // Código
    QLineEdit* Text2;                                  // Nombre
    QLabel* Label1;                                    // "Apunte: C1"
    QRadioButton* Option1;                             // Debe
    QRadioButton* Option2;                             // Haber
    QCheckBox* Check1;                                 // Libro de IVA
    QCheckBox* Check2;                                 // Mod. 347
    QLineEdit* Text3;                                  // Comentario
    std::array<QLabel*, CampoPredi::Total> Nombres{};  // "C10" ... "C18"
    std::array<QComboBox*, CampoPredi::Total> Tipos{}; // kind of each field
    std::array<QWidget*, CampoPredi::Total> Valores{}; // its text: a line edit or an editable list
    QTableWidget* MSFlexGrid1;
    QPushButton* Command1; // Nu&evo Ap.
    QPushButton* Command2; // &Añadir Ap.
    QPushButton* Command3; // &Modificar Ap
    QPushButton* Command4; // &Guardar
    QPushButton* Command5; // Borrar &Todo
    QPushButton* Command6; // &Salir

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void desdeLogica();
    void aLogica();
    void hacer(const std::function<void()>& accion);
    void tipoCambiado(int campo);
    QLineEdit* edicion(int campo) const;
    QString valor(int campo) const;

    const Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    EditorPredisenado k_;
    bool cargando_ = false;
};
