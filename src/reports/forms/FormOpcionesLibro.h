#pragma once
// The option form of every printed book (Form77, Form79, Form80, Form83, Form85, FORM52, FORM90):
// "Fecha de trabajo", "Margen izquierdo (milímetros)", "Fuente", "Tamaño de la Fuente" and the
// boxes of its book, "&Aceptar" and "&Cancelar". What the boxes mean is OpcionesLibro.h; this is
// the screen: it shows the stored settings, filters keys (digits only in the margin and first
// page, digits and the decimal comma in the money boxes, ten beeps for any other key there),
// moves on with Enter, and on "&Aceptar" hands the options to the list window.
//
// Usage (a list window's print action):
//     FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form79), a_, d_, this);
//     f.exec();
//     const OpcionesLibro& op = f.opciones();
//     if (f.sumasIncompletas()) { close(); return; }   // Form77 only, the user has been told
//     if (op.cancelado) return;                         // "&Cancelar" or the form closed
//     ... draw the book with op

#include "reports/OpcionesLibro.h"

#include <QDialog>

class Ajustes;
class Dialogo;
class QCheckBox;
class QComboBox;
class CajaFecha;
class QLineEdit;
class QPushButton;
class QRadioButton;

class FormOpcionesLibro : public QDialog {
    Q_OBJECT
public:
    FormOpcionesLibro(const ConfigOpciones& config, Ajustes& a, Dialogo& d,
                      QWidget* padre = nullptr);

    const ConfigOpciones& config() const { return config_; }
    // The options of the run; cancelado stays true unless "&Aceptar" ended well.
    const OpcionesLibro& opciones() const { return opciones_; }
    // Form77: one initial sum without the other. The message has been shown.
    bool sumasIncompletas() const { return sumasIncompletas_; }
    // What the boxes hold now.
    CajasOpciones cajas() const;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void aceptar();
    bool filtrarTecla(QObject* objeto, class QKeyEvent* tecla);

    ConfigOpciones config_;
    Ajustes& a_;
    Dialogo& d_;
    OpcionesLibro opciones_;
    bool sumasIncompletas_ = false;

    CajaFecha* DTPicker1;            // "Fecha de trabajo"
    QLineEdit* Text1;                // margin
    QComboBox* Combo1;               // font
    QComboBox* Combo2;               // size
    QLineEdit* Text2 = nullptr;      // "Página inicial"
    QLineEdit* Text3 = nullptr;      // "Suma inicial del Debe"
    QLineEdit* Text4 = nullptr;      // "Suma inicial del Haber"
    QRadioButton* Option1 = nullptr; // "Borrador"
    QRadioButton* Option2 = nullptr; // "Modelo oficial"
    QCheckBox* Check1 = nullptr;     // "Incluir número de Documento" / "Imprimir Nº de Asiento" /
                                     // "Nueva página cada Cuenta" / "Imprimir Año N-1"
    QCheckBox* Check2 = nullptr;     // "Nueva página cada Subcuenta"
    QPushButton* Command1;           // "&Aceptar"
    QPushButton* Command2;           // "&Cancelar"
    QList<QWidget*> orden_;          // the boxes in the order Enter walks them
};
