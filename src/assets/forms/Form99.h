#pragma once
// Form99, "Quilmar [Inventario]": the company's fixed assets. The element form (its fields above,
// "&Añadir", "&Modificar", "&Eliminar"), the list of one view ("Ver") with a last "..." column
// that runs the depreciation of that element, its context menu (export, locations, modify,
// delete, delete the retired), the printed inventory through FORM90 and "Realizar
// amortizaciones" (Form101).
//
// Controls: Text1 "Nº Elemento" (read-only), Text2 "Nombre", Combo1 "Naturaleza", Text3 "Fecha
// adquis.", Text4 "Importe", Text5 "Fra / Proveedor", Combo2 "Localización" (+ opens Form100),
// Text6 "Fecha Baja", Combo3 "Causa", Combo4 "Amortizable", Text7 "Porcentaje", Text8 "Fin
// Amortiz.", Text9 "Ultima Amort.", Text10 "Amortizado", Combo5 "Subcuenta de amortización" and
// Combo6 "Subcuenta de dotación" (codes as item data; + opens the chart). In date fields + opens
// a calendar. Ver: Option1..Option11, Combo7 (location), Text11 and Text12 (dates), Command8
// "Ver". Buttons Command1..Command7. Grid1 the list.
//
// Usage (the board's menu):
//     Form99* f = Form99::Abrir(sesion, ajustes, dialogo, tablero);  // one window, raised again

#include "assets/Inventario.h"
#include "platform/Rejilla.h"

#include <QPointer>
#include <QWidget>

class Ajustes;
class Dialogo;
class QComboBox;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QTableWidget;
struct Sesion;

class Form99 : public QWidget {
    Q_OBJECT
public:
    Form99(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    ~Form99() override;

    // Shows the window (the open one when there is one), filled.
    static Form99* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    static Form99* Abierto();

    const Rejilla& rejilla() const { return rejilla_; }
    QTableWidget* grid() const { return Grid1; }
    // The element loaded into the form (0 when none).
    qint64 cargado() const { return cargado_; }

    // What the fields hold now.
    FichaElemento ficha() const;
    void ponerFicha(const FichaElemento& f);
    // Empties the fields.
    void Limpiar();

public Q_SLOTS:
    // The list again, with the view chosen in "Ver".
    void Ver();
    // After a depreciation run: the list, and the element loaded in the form as it now stands,
    // so that a later "&Modificar" does not take the run's dates for the user's changes.
    void Refrescar();
    void Anadir();
    void Modificar();
    void Eliminar();
    void Imprimir();
    void Exportar();
    void EliminarBajas();
    // Loads a row of the list into the form (double click, "Modificar" of the context menu).
    void CargarFila(int fila);
    // The "..." cell of a row: that element's depreciation.
    void AmortizarFila(int fila);
    // Form100; the location list is filled again when it closes.
    void AbrirCentros();
    // Form101; the list is filled again after the run.
    void RealizarAmortizaciones();

Q_SIGNALS:
    // Entries were posted: open books should refresh.
    void asientosContabilizados();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void construir();
    void llenarCentros();
    void llenarSubcuentas();
    void alCambiarAmortizable();
    void enfocar(CampoElemento campo);
    void mostrarLista();
    void abrirCalendario(QLineEdit* campo);
    void elegirSubcuenta(QComboBox* lista);
    FiltroInventario filtro() const;
    qint64 numeroDeFila(int fila) const;

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    Rejilla rejilla_;
    qint64 cargado_ = 0;

    QLineEdit* Text1;  // Nº Elemento
    QLineEdit* Text2;  // Nombre
    QComboBox* Combo1; // Naturaleza
    QLineEdit* Text3;  // Fecha adquis.
    QLineEdit* Text4;  // Importe
    QLineEdit* Text5;  // Fra / Proveedor
    QComboBox* Combo2; // Localización
    QLineEdit* Text6;  // Fecha Baja
    QComboBox* Combo3; // Causa
    QComboBox* Combo4; // Amortizable
    QLineEdit* Text7;  // Porcentaje
    QLineEdit* Text8;  // Fin Amortiz.
    QLineEdit* Text9;  // Ultima Amort.
    QLineEdit* Text10; // Amortizado
    QComboBox* Combo5; // Subcuenta de amortización
    QComboBox* Combo6; // Subcuenta de dotación
    QRadioButton* Option[11];
    QComboBox* Combo7; // location of "Con localización en"
    QLineEdit* Text11; // "Adquiridos entre fechas": from
    QLineEdit* Text12; // to
    QTableWidget* Grid1;
    QMenu* menu_;
    QPointer<QWidget> calendario_;
};
