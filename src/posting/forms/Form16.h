#pragma once
// "Quilmar [Renumerar Diario]": the whole journal numbered anew by date, or one entry given a
// free number. The board closes an open journal screen before showing it (its numbers would be
// stale). A long journal shows how far the renumbering got.

#include <QDialog>

class Ajustes;
class Dialogo;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
struct Sesion;

class Form16 : public QDialog {
    Q_OBJECT
public:
    Form16(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    QRadioButton* Option1; // Renumerar Diario completo
    QRadioButton* Option2; // Renumerar un asiento
    QLineEdit* Text1;      // Asiento nº
    QLineEdit* Text2;      // pasa a nº
    QProgressBar* Barra;
    QPushButton* Command1; // &Aceptar
    QPushButton* Command2; // &Cancelar
    QPushButton* Command3; // Ay&uda

Q_SIGNALS:
    // The journal was renumbered: open books refresh.
    void renumerado();

private:
    void opcion();
    void aceptar();

    Sesion& s_;
    Dialogo& d_;
};
