#pragma once
// "Quilmar [Avisos]": the reminders. The fields make a new reminder or change the one loaded by a
// double click; the list below, by date, copies, prints ("Listados de Avisos"), loads or deletes
// through its context menu. The two settings of reminders (ElimAuto, DiasAv) are saved when the
// window closes, which a wrong number of days stops. Opening it with ElimAuto on deletes the
// reminders dated before today.

#include "platform/Rejilla.h"

#include <QDate>
#include <QDialog>

class Ajustes;
class Dialogo;
class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class TablaRejilla;
struct Sesion;

class Form37 : public QDialog {
    Q_OBJECT
public:
    // `hoy` is the date the window works with (today on the desktop).
    Form37(Sesion& s, Ajustes& a, Dialogo& d, const QDate& hoy, QWidget* padre = nullptr);

    // Opens the window (or brings forward the one open), with reminder `naviso` loaded to be
    // changed when given. A null `hoy` is today.
    static Form37* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr,
                         long naviso = 0, const QDate& hoy = {});

    // Loads a reminder into the fields and selects "Modificar"; false when it is not found.
    bool Cargar(long naviso);
    void LlenarFlex();
    const Rejilla& rejilla() const { return rejilla_; }
    long cargado() const { return cargado_; }

    QLineEdit* Text1;      // Fecha
    QLineEdit* Text2;      // Texto del Aviso
    QCheckBox* Check1;     // repeated
    QLineEdit* Text3;      // times a year
    QRadioButton* Option1; // Añadir
    QRadioButton* Option2; // Modificar
    QPushButton* Command1; // &Aceptar
    QPushButton* Command2; // &Salir
    QCheckBox* Check2;     // ElimAuto
    QLineEdit* Text4;      // DiasAv
    TablaRejilla* MSFlexGrid1;

public Q_SLOTS:
    void Aceptar();
    void Imprimir();
    void EliminarFila(int fila);
    void CargarFila(int fila);

Q_SIGNALS:
    // A reminder was added, changed or deleted.
    void avisosCambiados();

protected:
    void closeEvent(class QCloseEvent* e) override;
    void reject() override;

private:
    bool comprobarPeriodo();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QDate hoy_;
    Rejilla rejilla_;
    long cargado_ = 0;
};
