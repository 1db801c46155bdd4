#pragma once
// "Modelo 303" — "Seleccionar Periodo:": the dates of the VAT return. With the argument "303"
// (exercises from 2009) "&Aceptar" checks the dates and closes accepted; with "300" (earlier
// exercises, whose return was another) it only closes.
//
// Usage (the menu entry mnuM300):
//     Form92 f(s, a, d, s.AnoActual >= 2009 ? "303" : "300", tablero);
//     if (f.exec() == QDialog::Accepted) ... f.desde(), f.hasta()

#include <QDate>
#include <QDialog>

class Ajustes;
class Dialogo;
class CajaFecha;
class QPushButton;
struct Sesion;

// The dates a period dialog of the returns starts with: the calendar quarter of today when it
// falls in the exercise, else the exercise's first quarter.
std::pair<QDate, QDate> TrimestreInicial(const Sesion& s, const QDate& hoy = QDate::currentDate());

class Form92 : public QDialog {
    Q_OBJECT
public:
    Form92(Sesion& s, Ajustes& a, Dialogo& d, const QString& argumento, QWidget* padre = nullptr);
    QDate desde() const;
    QDate hasta() const;
    QString argumento() const { return argumento_; }

    CajaFecha* DTPicker1;
    CajaFecha* DTPicker2;
    QPushButton* Command1; // &Aceptar

private:
    void aceptar();

    Dialogo& d_;
    QString argumento_;
};
