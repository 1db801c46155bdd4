#pragma once
// "Sumas y Saldos": the two dates of the trial balance ("Seleccionar Fecha", "Desde", "Hasta"),
// the whole exercise by default.
//
// Usage: Form11::Abrir shows it modally and, when accepted, opens the list with desde()/hasta().

#include <QDate>
#include <QDialog>

class Ajustes;
class CajaFecha;
class Dialogo;
class QPushButton;
struct Sesion;

class Form78 : public QDialog {
    Q_OBJECT
public:
    Form78(const Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    QDate desde() const;
    QDate hasta() const;

private:
    CajaFecha* DTPicker1;  // "Desde"
    CajaFecha* DTPicker2;  // "Hasta"
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
};
