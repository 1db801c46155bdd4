#pragma once
// "Quilmar [Gráficos]" (menu mnuGráficos): the eleven charts of the books. Combo1 picks one; the
// chart of one account asks its subaccount in Form41 first, the comparison of exercises its area
// or subaccount and its years in Form2. "&2-D" and "&3-D" keep Valores\Dimensiones, "&Barras"
// and "&Circular" Valores\TipoChart, "Ver cantidades" Valores\VerImport; each redraws the chart
// on show, except "&Circular" on a chart that has two series or compares years, which stays bars
// (the setting is kept for the next chart that admits a pie). "I&mprimir" prints the chart on one
// page (preview, printer or PDF); "Copiar" (menu mnuGraf, the chart's context menu, Ctrl+C)
// copies it to the clipboard as a picture. Nothing here writes to the books: a closed exercise
// is charted on its balances before the close, read as they are.
//
// Usage (the board): Form40* f = Form40::Abrir(sesion, ajustes, dialogo, this);
// Tests choose charts without the modal forms: Mostrar(indice), MostrarCuenta(...),
// MostrarAnos(...).

#include "reports/Graficos.h"

#include <QMainWindow>
#include <functional>
#include <optional>

class QAction;
class QCheckBox;
class QChartView;
class QComboBox;
class QPushButton;
struct Sesion;

class Form40 : public QMainWindow {
    Q_OBJECT
public:
    Form40(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    ~Form40() override;
    static Form40* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // The chart of an entry of Combo1 (kinds 2 and 6 ask Form41 and Form2). False when nothing
    // was drawn (cancelled, or a failure told to the user).
    bool Mostrar(int indice);
    bool MostrarCuenta(const CuentaGrafico& cuenta);
    bool MostrarAnos(const SeleccionAnosGrafico& sel, const QList<int>& anos);

    // What is on show: its series and whether it is drawn as a pie.
    const std::optional<DatosGrafico>& datos() const { return datos_; }
    bool circularEnVista() const;
    bool tresDEnVista() const { return aspectoVista_.tresD; }
    bool cantidadesEnVista() const { return aspectoVista_.cantidades; }
    QChartView* vista() const { return vista_; }
    // The picture "Copiar" puts on the clipboard.
    QImage imagen() const;

public Q_SLOTS:
    void Copiar();
    void Imprimir();
    // Entries changed elsewhere: the chart on show is computed again with the same choices.
    void Refrescar();

private:
    void pulsarDimension(bool tresD);
    void pulsarBarras();
    void pulsarCircular();
    void pulsarCantidades(bool ver);
    bool calcular(const std::function<DatosGrafico()>& calculo);
    // The chart of an entry of the list, computed; on a failure the list goes back to the chart
    // on show.
    bool mostrarDe(int indice, const std::function<DatosGrafico()>& calculo);
    void dibujar();
    void marcarBotones();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    std::optional<DatosGrafico> datos_;
    AspectoGrafico aspectoVista_;
    // The last choices of Form41 and Form2, for a refresh.
    std::optional<CuentaGrafico> cuenta_;
    std::optional<std::pair<SeleccionAnosGrafico, QList<int>>> anos_;
    int indice_ = -1;

    QComboBox* Combo1;
    QChartView* vista_;
    QPushButton* Command1; // "&2-D"
    QPushButton* Command2; // "&3-D"
    QPushButton* Command3; // "&Barras"
    QPushButton* Command4; // "&Circular"
    QCheckBox* Check1;     // "Ver cantidades"
    QPushButton* Command5; // "I&mprimir"
    QPushButton* Command6; // "Ay&uda"
    QPushButton* Command7; // "&Salir"
    QAction* copiar_;      // mnuGraf, "Copiar": the picture to the clipboard
};
