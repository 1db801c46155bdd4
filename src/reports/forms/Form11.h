#pragma once
// "Quilmar [Balance de Sumas y Saldos]": the trial balance's list window. Its grid (LlenarSyS)
// with the totals "ACUMULADOS" under it, and the actions of its toolbar and context menu (PPSys):
// copy, the movements of a row's subaccount, print (Form79, then the book) and export.
//
// Usage (the board):
//     if (Form11* f = Form11::Abrir(sesion, ajustes, dialogo, this))   // Form78 first
//         registrarLibro(f, QStringLiteral("SyS"));
//
// "Ver movimientos Cuenta" and the double click on a subaccount's row open the movements of that
// subaccount with the list's dates through a hook, installed by whoever builds that screen; while
// it is empty the action stays disabled:
//     Form11::VerMovimientos() = [](QWidget* ventana, const PeticionMovimientos& p) { ... };

#include "reports/OpcionesLibro.h"
#include "reports/forms/Form5.h"
#include "reports/forms/VentanaLibro.h"

class QLabel;

class Form11 : public VentanaLibro {
    Q_OBJECT
public:
    Form11(Sesion& s, Ajustes& a, Dialogo& d, const QDate& desde, const QDate& hasta,
           QWidget* padre = nullptr);
    ~Form11() override;

    // Form78, then the list, shown, with its fill started. Null when Form78 was cancelled.
    static Form11* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    static Form5::GanchoMovimientos& VerMovimientos();

    QDate desde() const { return desde_; }
    QDate hasta() const { return hasta_; }
    // What the movements of a row would be asked for; nothing on a group row.
    std::optional<PeticionMovimientos> peticionDeFila(int fila) const;
    // Print-job options of the last run.
    const OpcionesLibro& opciones() const { return opciones_; }

public Q_SLOTS:
    void LlenarSyS();
    // "Imprimir": Form79, then the book (preview, printer or PDF).
    void Imprimir();
    void Refrescar() override;

private:
    void verMovimientos(int fila);
    void actualizarAcciones();

    QDate desde_, hasta_;
    OpcionesLibro opciones_;
    QLabel* fechas_;
};
