#pragma once
// "AVISOS": one reminder that falls due, in a small window of its own that doesn't block the
// program. "&Modificar" opens the reminders' window on it, "&Eliminar" deletes it, "&Salir"
// closes.

#include "utilities/Avisos.h"

#include <QWidget>
#include <functional>

class Ajustes;
class Dialogo;
class QLabel;
class QPushButton;
struct Sesion;

class Form38 : public QWidget {
    Q_OBJECT
public:
    // `hoy` is the date the reminders' window opened from here works with (null: today).
    Form38(Sesion& s, Ajustes& a, Dialogo& d, const Aviso& aviso, const QDate& hoy = {},
           QWidget* padre = nullptr);

    // A new window for a reminder due, shown without blocking (it deletes itself when closed).
    static Form38* NuevoAviso(Sesion& s, Ajustes& a, Dialogo& d, const Aviso& aviso,
                              const QDate& hoy = {}, QWidget* padre = nullptr);

    long naviso() const { return aviso_.NAviso; }

    QLabel* Label1;        // AVISOS
    QLabel* Label2;        // the date
    QLabel* Label3;        // the text
    QPushButton* Command1; // &Modificar
    QPushButton* Command2; // &Eliminar
    QPushButton* Command3; // &Salir

    // What "&Modificar" does; by default it opens the reminders' window on this reminder.
    std::function<void(long naviso)> Modificar;

private:
    void eliminar();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    Aviso aviso_;
    QDate hoy_;
};
