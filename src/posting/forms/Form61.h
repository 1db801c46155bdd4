#pragma once
// "Confirmar asiento": a periodic entry falls due. "&Contabilizar" opens the posting screen with
// its lines; "C&ontabilizar todos" posts it, and its later dates, without asking (off when the
// entry has a VAT line, whose data have to be typed); "&No contabilizar" leaves it for another
// time; "No contabilizar y &eliminar asiento periódico" deletes it. Closing the window is "&No
// contabilizar".

#include "posting/ContAsPer.h"

#include <QDialog>

class Ajustes;
class QLabel;
class QPushButton;

class Form61 : public QDialog {
    Q_OBJECT
public:
    Form61(Ajustes& a, const QString& nombre, const QDate& fecha, bool todos,
           QWidget* padre = nullptr);

    AccionForm61 accion() const { return accion_; }

    QLabel* Label1;        // "Asiento: " + name
    QLabel* Label2;        // "Fecha: " + date
    QPushButton* Command1; // &Contabilizar
    QPushButton* Command2; // C&ontabilizar todos
    QPushButton* Command3; // &No contabilizar
    QPushButton* Command4; // No contabilizar y &eliminar asiento periódico
    QPushButton* Command5; // &Ayuda

private:
    AccionForm61 accion_ = AccionForm61::NoContabilizar;
};
