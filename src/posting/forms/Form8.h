#pragma once
// Form8, "Quilmar [Imágenes]": the picture of each area and the colour of the board.

#include <QColor>
#include <QDialog>
#include <functional>

class Ajustes;
class Dialogo;
class QComboBox;
class QLabel;
class QPushButton;
struct Sesion;

extern const QString MsgSeleccionarArea; // "Tiene primero que seleccionar el Area"
extern const QString FiltroImagenes;

class Form8 : public QDialog {
    Q_OBJECT
public:
    Form8(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    QComboBox* Combo1;     // Area:
    QLabel* Image1;        // the picture chosen
    QLabel* Label3;        // its file
    QPushButton* Command1; // Buscar imagen
    QPushButton* Command2; // Predeterminada
    QPushButton* Command3; // Aceptar (picture)
    QLabel* Picture1;      // the colour
    QPushButton* Command4; // Seleccionar
    QPushButton* Command5; // Predeterminado
    QPushButton* Command6; // Aceptar (colour)
    QPushButton* Command7; // Salir

    // The file and colour dialogs; tests answer them.
    std::function<QString(const QString& carpeta, const QString& filtro)> ElegirFichero;
    std::function<QColor(const QColor& actual)> ElegirColor;

    QString rutaElegida() const { return ruta_; }
    QColor colorElegido() const { return color_; }

Q_SIGNALS:
    void imagenCambiada(int area);
    void colorCambiado(const QColor& color);

private:
    void alElegirArea(int area);
    void buscar();
    void predeterminada();
    void aceptarImagen();
    void seleccionarColor();
    void predeterminado();
    void aceptarColor();
    void mostrarImagen();
    void mostrarColor();
    bool hayArea();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QString ruta_;
    QColor color_;
};
