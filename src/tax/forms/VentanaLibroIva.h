#pragma once
// The window of each tax book: Form18 "Quilmar [Libro de Ingresos]", Form34 "Quilmar [Libro de
// Gastos]", Form26 "Quilmar [Libro de Facturas expedidas]" and Form51 "Quilmar [Libro de Facturas
// recibidas]". The dates of the book above the grid with the sector box, which fills the book
// anew for the sector chosen; the "TOTAL" under the income and expense books; the buttons
// "&Imprimir" (FORM52, then the book), "&Exportar", "Ay&uda" and "&Salir"; and the context menu
// with "Copiar" and "Ver movimientos" ("Ver Movimientos" in the invoice books), which, like a
// double click on a record's row, opens the movements of the row's subaccount for the same dates.
//
// Usage (the board's menu entries):
//     if (VentanaLibroIva* f = VentanaLibroIva::Abrir(s, a, d, LibroIva::Gastos, tablero))
//         tablero->registrarLibro(f, QStringLiteral("LibrosIva"));
// The movements open through a hook, installed by whoever builds that screen; while it is empty
// the action stays disabled:
//     VentanaLibroIva::VerMovimientos() = [](QWidget* ventana, const PeticionMovimientos& p) {...};

#include "reports/Movimientos.h"
#include "reports/OpcionesLibro.h"
#include "reports/forms/VentanaLibro.h"
#include "tax/LibrosIva.h"

#include <functional>
#include <optional>

class QComboBox;
class QLabel;
class QPushButton;

class VentanaLibroIva : public VentanaLibro {
    Q_OBJECT
public:
    VentanaLibroIva(Sesion& s, Ajustes& a, Dialogo& d, const SeleccionLibroIva& sel,
                    QWidget* padre = nullptr);
    ~VentanaLibroIva() override;

    // Form25 for the book, then its window, shown and filled. Null when Form25 was cancelled.
    static VentanaLibroIva* Abrir(Sesion& s, Ajustes& a, Dialogo& d, LibroIva libro,
                                  QWidget* padre = nullptr);

    using GanchoMovimientos = std::function<void(QWidget* ventana, const PeticionMovimientos&)>;
    static GanchoMovimientos& VerMovimientos();

    const SeleccionLibroIva& seleccion() const { return sel_; }
    const ResultadoLibroIva& resultado() const { return res_; }
    // What the movements of a row would be asked for; nothing on the empty row and the totals.
    std::optional<PeticionMovimientos> peticionDeFila(int fila) const;
    QComboBox* sectores() const { return Combo1; }
    // Print-job options of the last run.
    const OpcionesLibro& opciones() const { return opciones_; }

public Q_SLOTS:
    // The book again with the sector of the box.
    void LlenarLibro();
    // "&Imprimir": FORM52, whose "Imprimir Nº de Asiento" shows or hides the entry numbers of
    // the book, then the book (preview, printer or PDF).
    void Imprimir();
    void Refrescar() override;

private:
    void verMovimientos(int fila);

    SeleccionLibroIva sel_;
    ResultadoLibroIva res_;
    OpcionesLibro opciones_;
    QLabel* fechas_;
    QComboBox* Combo1;     // "Sector"
    QPushButton* Command1; // "&Imprimir"
    QPushButton* Command2; // "&Exportar"
    QPushButton* Command3; // "Ay&uda"
    QPushButton* Command4; // "&Salir"
};
