#pragma once
// "Quilmar [Calendario de Avisos]": a month of the reminders. Month and year boxes, buttons for
// the month before and after, "Actualizar", and six weeks of day cells from Monday, each with a
// mark when a reminder falls on it. Pressing a day lists its reminders below. Opening it with
// ElimAuto on deletes the reminders dated before today.

#include "utilities/CalendarioAvisos.h"

#include <QDate>
#include <QDialog>
#include <QList>

class Ajustes;
class Dialogo;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QToolButton;
struct Sesion;

class Form39 : public QDialog {
    Q_OBJECT
public:
    // `hoy` is the date the window works with (today on the desktop); it opens on its month.
    Form39(Sesion& s, Ajustes& a, Dialogo& d, const QDate& hoy, QWidget* padre = nullptr);

    static Form39* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    int mes() const;
    int ano() const;
    void MostrarMes(int ano, int mes);
    // The cells as shown.
    const MesCalendario& celdas() const { return celdas_; }

    QComboBox* Combo1;       // month
    QComboBox* Combo2;       // year
    QPushButton* Command1;   // month before
    QPushButton* Command2;   // month after
    QPushButton* Command3;   // Actualizar
    QList<QToolButton*> Dia; // the 42 day cells
    QList<QLabel*> Marca;    // their marks
    QListWidget* List1;      // the reminders of the day pressed

public Q_SLOTS:
    void Actualizar();
    void MesAnterior();
    void MesSiguiente();
    void ElegirDia(int celda);

private:
    void pintar();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QDate hoy_;
    QList<Aviso> avisos_;
    MesCalendario celdas_{};
};
