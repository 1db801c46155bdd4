#pragma once
// Form60, "Quilmar [Caja del día]": the day-cash pad. The movement's fields (date, "Cobro" or
// "Pago", the working subaccount and the other one, each by area, amount, description, document
// and sector) over the list of the pad, with a tick column in second place; "&Añadir",
// "&Modificar", "&Eliminar", "I&mprimir" (through FORM90, group "CDia"), "Al &Diario" (Form68),
// "Ay&uda" and "&Salir". A click on a row brings its movement to the fields.
//
// Usage (the board's menu):
//     Form60* f = Form60::Abrir(sesion, ajustes, dialogo, tablero);   // one window, raised again

#include "platform/Rejilla.h"
#include "posting/CajaDia.h"

#include <QPointer>
#include <QSet>
#include <QWidget>

class Ajustes;
class CajasArea;
class Dialogo;
class Form1;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;
struct Sesion;

class Form60 : public QWidget {
    Q_OBJECT
public:
    Form60(Sesion& s, Ajustes& a, Dialogo& d, Form1* tablero = nullptr, QWidget* padre = nullptr);
    ~Form60() override;

    static Form60* Abrir(Sesion& s, Ajustes& a, Dialogo& d, Form1* tablero);
    static Form60* Abierto();

    const Rejilla& rejilla() const { return rejilla_; }
    QTableWidget* grid() const { return Grid1; }
    // The numbers of the ticked rows.
    QSet<long> punteados() const { return punteados_; }
    // Ticks or unticks a row, as a click on its tick cell does.
    void puntear(int fila, bool punteado);

    // What the fields hold now, and the movement of a row put in them.
    CamposCaja campos() const;
    void ponerCampos(const CamposCaja& m);
    // The number of the movement in the fields (0 when none was taken from the list).
    long numero() const { return numero_; }

    // Who asks what to send: Form68 unless replaced (tests). Nothing when cancelled.
    std::function<std::optional<CriterioPasar>()> ElegirPasar;

public Q_SLOTS:
    void LlenarLista();
    void Anadir();
    void Modificar();
    void Eliminar();
    void Imprimir();
    void AlDiario();
    // A row's movement to the fields.
    void CargarFila(int fila);

Q_SIGNALS:
    // Entries were posted: open books should refresh.
    void asientosContabilizados();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void construir();
    void limpiar();
    // The buttons that need a row, or a pad with rows, follow what there is.
    void habilitar();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    Form1* tablero_; // the board, which outlives the window; may be null
    CajaDia k_;
    Rejilla rejilla_;
    QSet<long> punteados_;
    long numero_ = 0;
    bool llenando_ = false;

    QDateEdit* DTP1;       // "Fecha: "
    QRadioButton* Option1; // "Cobro"
    QRadioButton* Option2; // "Pago"
    CajasArea* Cuenta1_;   // "Cuenta de trabajo": Combo1 area, Combo2 subaccount
    CajasArea* Cuenta2_;   // "Cta origen/destino": Combo3 area, Combo4 subaccount
    QLineEdit* TDBN1;      // " Importe"
    QLineEdit* Text1;      // "Concepto"
    QLineEdit* Text2;      // " Documento"
    QComboBox* Combo5;     // " Sector"
    QTableWidget* Grid1;
    QLabel* Label1;        // the totals
    QPushButton* Command1; // "&Añadir"
    QPushButton* Command2; // "&Modificar"
    QPushButton* Command3; // "&Eliminar"
    QPushButton* Command4; // "I&mprimir"
    QPushButton* Command5; // "Al &Diario"
    QPushButton* Command6; // "Ay&uda"
    QPushButton* Command7; // "&Salir"
};
