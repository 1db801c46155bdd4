#pragma once
// Form66, "Ayuda para empezar a contabilizar": a guide in pages, with pictures, that teaches the
// drag of the board: the areas, an entry, an income, an expense split in two.

#include <QDialog>
#include <QImage>
#include <QStringList>

class Ajustes;
class QLabel;
class QPushButton;
struct Sesion;

class Form66 : public QDialog {
    Q_OBJECT
public:
    Form66(const Sesion& s, const Ajustes& a, QWidget* padre = nullptr);

    int pagina() const { return pagina_; }
    int paginas() const;
    QString tituloPagina() const;
    QString textoPagina() const;

    QLabel* Titulo;
    QLabel* Imagen1;
    QLabel* Texto;
    QLabel* Numero;
    QPushButton* Anterior;
    QPushButton* Siguiente;
    QPushButton* Finalizar;

private:
    void mostrar(int pagina);
    QPixmap dibujo(int pagina) const;

    QImage imagenes_[7];
    int pagina_ = 0;
};
