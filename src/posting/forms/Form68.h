#pragma once
// Form68, "Quilmar [Caja del Día]": what goes to the journal: "Todas", "Sólo las punteadas" or
// "Las comprendidas entre Fechas:" with two dates (both included).
//
// Usage:
//     Form68 f(sesion, !punteados.isEmpty(), this);
//     if (f.exec() == QDialog::Accepted) { CriterioPasar c = f.criterio(); ... }

#include "posting/CajaDia.h"

#include <QDialog>

class QDateEdit;
class QPushButton;
class QRadioButton;
struct Sesion;

class Form68 : public QDialog {
    Q_OBJECT
public:
    // hayPunteadas: whether any row is ticked; without one "Sólo las punteadas" is off.
    Form68(const Sesion& s, bool hayPunteadas, QWidget* padre = nullptr);

    // The choice; the ticked numbers are the caller's to add.
    CriterioPasar criterio() const;

    QRadioButton* Option1; // "Todas"
    QRadioButton* Option2; // "Sólo las punteadas"
    QRadioButton* Option3; // "Las comprendidas entre Fechas:"
    QDateEdit* DTPicker1;
    QDateEdit* DTPicker2;
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
};
