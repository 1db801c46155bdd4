#pragma once
// The list window every book shows itself in: its grid with the totals under it, a toolbar by
// index, the fill with the busy pointer and a progress bar, copy and export. A book's window
// derives from it, fills the grid with its logic and adds its own actions.
//
// Usage (a book's window):
//     Form11::Form11(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
//         : VentanaLibro(s, a, d, 11, QStringLiteral("Quilmar [Balance de Sumas y Saldos]"),
//                        padre) {
//         QAction* imprimir = nuevaAccion("mnuImprimir", "Imprimir", Accion::Imprimir, [this]
//         {...}); ponerBarra({{1, accionCerrar()}, {3, accionCopiar()}, {4, imprimir}, ...});
//         alMenu(imprimir);                  // also in the grid's context menu
//         rejilla() = RejillaSyS();
//     }
//     void Form11::LlenarSyS() {
//         Llenar([&](const Progreso& p) { Conexion c = AbrirDatos(s_); ::LlenarSyS(c, ...,
//         rejilla(), p); });
//     }
// Llenar shows the window's grid again when the fill ends, also after an error, which it tells
// through the Dialogo. Refrescar() (called by the board when entries change) runs the fill again.

#include "platform/Dialogo.h"
#include "platform/Rejilla.h"
#include "platform/forms/Iconos.h"

#include <QList>
#include <QMainWindow>
#include <QPair>
#include <functional>
#include <optional>

class Ajustes;
class QAction;
class QLabel;
class QMenu;
class QProgressBar;
class TablaRejilla;
class VistaRejilla;
struct Sesion;

class VentanaLibro : public QMainWindow {
    Q_OBJECT
public:
    // numero: the form's number, for its kept size (WF<n>, HF<n>).
    VentanaLibro(Sesion& s, Ajustes& a, Dialogo& d, int numero, const QString& titulo,
                 QWidget* padre = nullptr);
    ~VentanaLibro() override;

    Rejilla& rejilla() { return rejilla_; }
    const Rejilla& rejilla() const { return rejilla_; }
    VistaRejilla* vista() const { return vista_; }
    TablaRejilla* tabla() const;
    // The row of the current cell, or -1.
    int filaActual() const;

    // An action of the window by its name ("mnuCopiar", "mnuImprimir"...), or null.
    QAction* accion(const QString& nombre) const;
    // A toolbar entry by its index (from 1); separators are separator actions; null when none.
    QAction* boton(int indice) const;

    // The fill: busy pointer, a progress bar in the status line, the grid shown again at the end.
    void Llenar(const std::function<void(const Progreso&)>& llenar);
    // "Exportar": the platform's save dialog, Excel or text.
    void Exportar();
    // "Copiar": the selected cells to the clipboard.
    void Copiar();

public Q_SLOTS:
    // Entries changed elsewhere: fill again. The base does nothing.
    virtual void Refrescar();

protected:
    // A named action of the window; its text without "&" is its tooltip.
    QAction* nuevaAccion(const QString& nombre, const QString& texto, std::optional<Accion> dibujo,
                         std::function<void()> hacer);
    QAction* accionCerrar() const { return cerrar_; }
    QAction* accionCopiar() const { return copiar_; }
    QAction* accionExportar() const { return exportar_; }
    // The toolbar: (index, action) in order, separators standing in the gaps between indexes.
    void ponerBarra(const QList<QPair<int, QAction*>>& botones);
    // Entries of the grid's context menu after "Copiar", in order.
    void alMenu(QAction* accion);
    // Deletes entry nas after the journal's question (and its refusals, told to the user); true
    // when it went. A number of 0 or below is no entry.
    bool borrarAsiento(long nas);

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;

private:
    Rejilla rejilla_;
    VistaRejilla* vista_;
    QProgressBar* progreso_;
    QAction* cerrar_;
    QAction* copiar_;
    QAction* exportar_;
    QList<QAction*> botones_;
    QList<QAction*> menu_;
    bool llenando_ = false;
};
