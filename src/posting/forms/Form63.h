#pragma once
// "Quilmar [Ver/Modificar Asiento Periódico]": the lines of a periodic entry, changed one by one
// with the fields and checks of the maintenance screen, its next date, rhythm and sector.
// "&Aceptar" writes it anew; "Eliminar Asiento" deletes it; "Imprimir Asiento" prints it. The
// rules live in EditorPeriodico.

#include "posting/EditorPeriodico.h"

#include <QDialog>

class Ajustes;
class Dialogo;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;
struct Sesion;

class Form63 : public QDialog {
    Q_OBJECT
public:
    Form63(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // Loads an entry; false (nothing to show) when it has no rows.
    bool Cargar(const QString& nombre);
    EditorPeriodico& Logica() { return k_; }

    // The public operations of the line editor.
    void Descuadre();
    void Resaltar();

    QLabel* Label1;    // "Asiento periódico: " + name
    QLineEdit* Date1;  // next date
    QComboBox* Combo6; // rhythm
    QComboBox* Combo4; // sector
    QComboBox* Combo5; // area
    QComboBox* Combo1; // subaccount names
    QComboBox* Combo3; // Concepto
    QLineEdit* TDBN2;  // Debe
    QLineEdit* TDBN3;  // Haber
    QLineEdit* Text3;  // Documento
    QLabel* LabelSaldo;
    QLineEdit* TDBN1; // Descuadre
    QTableView* MSFlexGrid1;
    QPushButton* Command2; // Añadir Apunte
    QPushButton* Command3; // Modificar Apunte
    QPushButton* Command4; // Eliminar Apunte
    QPushButton* Command5; // Eliminar Asiento
    QPushButton* Command6; // Imprimir Asiento
    QPushButton* Command1; // &Aceptar
    QPushButton* Command7; // &Salir
    QPushButton* Command8; // Ay&uda

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void desdeLogica();
    void aLogica();
    void hacer(const std::function<void()>& accion);
    int filaActual() const;
    void imprimir();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    EditorPeriodico k_;
    bool cargando_ = false;
};
