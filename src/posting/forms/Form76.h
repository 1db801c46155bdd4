#pragma once
// "Quilmar [Contabilizar Asiento Prediseñado]": the fields of one line of a template that are
// asked at posting. Every field is shown; those that aren't asked, disabled, for information.
// Enter moves to the next field. "&Aceptar" checks the asked fields (RespuestasApunte) and writes
// them back; "&Cancelar" gives the posting up.

#include "posting/Predisenados.h"

#include <QDialog>
#include <array>

class Ajustes;
class Dialogo;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
struct Sesion;

class Form76 : public QDialog {
    Q_OBJECT
public:
    Form76(const Sesion& s, Ajustes& a, Dialogo& d, TrabajoPredisenado& trabajo, int linea,
           const QDate& hoy, QWidget* padre = nullptr);

    RespuestasApunte& Logica() { return k_; }

    QLabel* Label1; // "Asiento Prediseñado:" code and name
    QLabel* Label2; // "Apunte:" the line
    // The field of each digit: a line edit, or the edit of a list for the subaccount, the
    // description, the sector and the counterparty.
    std::array<QWidget*, CampoPredi::Total> Campos{};
    QPushButton* Command1; // &Aceptar
    QPushButton* Command2; // &Cancelar

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void aceptar();
    QString valor(int campo) const;

    const Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    RespuestasApunte k_;
};

// Form76 as AsTipo asks each line; the date typed is remembered under Valores\DateF76.
class PantallaApunteForm76 : public PantallaApunte {
public:
    PantallaApunteForm76(const Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
        : s_(s), a_(a), d_(d), padre_(padre) {}
    bool Pedir(TrabajoPredisenado& trabajo, int linea) override;

private:
    const Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QWidget* padre_;
};
