#pragma once
// "Quilmar [Diario]": the journal's list window. Its grid (LlenarDiario), the totals under it, and
// the actions of its toolbar and context menu (PPDiario): copy, view/modify the entry of a row,
// delete it, the movements of its subaccount, search (Form57), print (Form77, then the official
// layout or the draft) and export.
//
// Usage (the board):
//     if (Form5* f = Form5::Abrir(sesion, ajustes, dialogo, this))   // Form6 first
//         registrarLibro(f, QStringLiteral("Diario"));
// The window deletes itself when closed, and Form57 with it.
//
// Two actions open screens of other parts of the program through hooks, installed by whoever
// builds those screens; while a hook is empty its action stays disabled:
//     Form5::VerModificarAsiento() = [](QWidget* ventana, long nas) { ... Form7 ... };
//     Form5::VerMovimientos() = [](QWidget* ventana, const PeticionMovimientos& p) { ... Form10 };

#include "reports/Diario.h"
#include "reports/Movimientos.h"
#include "reports/OpcionesLibro.h"
#include "reports/forms/VentanaLibro.h"

#include <QPointer>
#include <functional>

class Form57;

class Form5 : public VentanaLibro {
    Q_OBJECT
public:
    Form5(Sesion& s, Ajustes& a, Dialogo& d, const SeleccionDiario& sel, QWidget* padre = nullptr);
    ~Form5() override;

    // Form6, then the journal window, shown, with its fill started. Null when Form6 was cancelled.
    static Form5* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    using GanchoAsiento = std::function<void(QWidget* ventana, long nas)>;
    static GanchoAsiento& VerModificarAsiento();
    using GanchoMovimientos = std::function<void(QWidget* ventana, const PeticionMovimientos&)>;
    static GanchoMovimientos& VerMovimientos();

    const SeleccionDiario& seleccion() const { return sel_; }
    // The entry number of a row, or 0.
    long asientoDeFila(int fila) const;
    // The search form, opened on demand.
    Form57* Buscar();
    Form57* buscador() const;

    // Print-job options of the last run and its running sums after the last copy.
    const OpcionesLibro& opciones() const { return opciones_; }
    double sumaDebe() const { return sumaDebe_; }
    double sumaHaber() const { return sumaHaber_; }

public Q_SLOTS:
    void LlenarDiario();
    // "Imprimir": Form77, then the book (preview, printer or PDF).
    void Imprimir();
    void Refrescar() override;

Q_SIGNALS:
    // An entry was deleted from this window (the window then closes).
    void asientoEliminado(long nas);

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void verAsiento(int fila);
    void eliminarAsiento();
    void verMovimientos();
    void actualizarAcciones();

    SeleccionDiario sel_;
    OpcionesLibro opciones_;
    double sumaDebe_ = 0, sumaHaber_ = 0;
    QPointer<Form57> buscador_;
};
