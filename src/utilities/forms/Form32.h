#pragma once
// Form32, the financial calculator: the display, the mode (E/P) and timing (Fin/Pri), the five
// registers, and the keys with their tips. Opened from the board, or with + from an amount field
// (AbrirCalculadora below), into which Enter hands the display back.

#include <QDialog>
#include <QPointer>
#include <functional>

class Ajustes;
class Calculadora;
class Dialogo;
class QLabel;
class QLineEdit;
class QPushButton;
struct Sesion;

class Form32 : public QDialog {
    Q_OBJECT
public:
    // etiqueta: the calling field's tag ("F4N1", "F470"...); campo gets the display on Enter.
    Form32(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr,
           const QString& etiqueta = {}, QLineEdit* campo = nullptr);
    ~Form32() override;

    QString Pantalla() const;
    QString Etiqueta() const { return etiqueta_; }
    // A key's button by its caption ("Pmt", "VA", "7"...), or null.
    QPushButton* boton(const QString& texto) const;

    // Enter: the display goes back to the calling field (and the window closes), else "=".
    void Intro();
    void Copiar();
    void Pegar();

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    QPushButton* nuevo(const QString& texto, const QString& tip, std::function<void()> hacer);
    void pulsar(int tecla);
    void refrescar();
    void abrirCuadro();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    Calculadora& k_;
    QString etiqueta_;
    QPointer<QLineEdit> campo_;
    QLineEdit* pantalla_;
    QLabel* modo_;
    QLabel* pagos_;
    QLabel* registros_;
};

// Makes + in an amount field open the calculator with the field's tag; Enter there writes the
// result in the field. The field keeps every other key.
void InstalarCalculadora(QLineEdit* campo, const QString& etiqueta, Sesion& s, Ajustes& a,
                         Dialogo& d);
