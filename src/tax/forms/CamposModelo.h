#pragma once
// The pieces the three return forms (Form109, Form93, Form95) are made of: amount boxes that
// recalculate, marks that take only an X, bank accounts in four digit fields, filtered text
// fields, and the frame of a return window (focus by field name, the draft's printing, the
// folder choice of the file for the upload).

#include "platform/Impresora.h"
#include "tax/CasillasModelo.h"
#include "tax/FicheroHacienda.h"

#include <QDialog>
#include <QLineEdit>
#include <QPageLayout>
#include <QValidator>
#include <functional>

class Ajustes;
class Dialogo;
class QGridLayout;
class QPushButton;
struct Sesion;

// A box of a return: right-aligned; takes digits, a sign and the decimal mark ("." or ","
// typed become the system's mark); Enter, or leaving it after a change, asks for the
// recalculation.
class CajaCasilla : public QLineEdit {
    Q_OBJECT
public:
    CajaCasilla(const QString& nombre, bool puntoDecimal, QWidget* padre = nullptr);

Q_SIGNALS:
    void editada();

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    bool puntoDecimal_;
    bool intro_ = false;
};

// A mark: one character, X or nothing. The key X or a double click writes the X, Backspace and
// Delete take it away; any other key is dropped. A payment mark also takes the X on a single
// click (and the form clears the other one).
class CajaMarca : public QLineEdit {
    Q_OBJECT
public:
    CajaMarca(const QString& nombre, bool alPulsar = false, QWidget* padre = nullptr);
    bool marcada() const { return text() == QLatin1String("X"); }
    void marcar(bool x) { setText(x ? QStringLiteral("X") : QString()); }

Q_SIGNALS:
    void marcadaPorUsuario();

protected:
    void keyPressEvent(QKeyEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;

private:
    bool alPulsar_;
};

// "Entidad", "Sucursal", "DC", "Número de cuenta": 4, 4, 2 and 10 digits; any other key is
// dropped with ten beeps. The frame carries the name; its parts are <name>Entidad,
// <name>Sucursal, <name>DC and <name>Numero.
class CajasCuenta : public QWidget {
    Q_OBJECT
public:
    explicit CajasCuenta(const QString& nombre, QWidget* padre = nullptr);
    CuentaBanco cuenta() const;
    void ponerCuenta(const CuentaBanco& c);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    QLineEdit* partes_[4];
};

// Capitals through CaracterNombre (the two name fields, and the month name as a first name).
class ValidadorNombre : public QValidator {
public:
    ValidadorNombre(CampoNombre campo, QObject* padre) : QValidator(padre), campo_(campo) {}
    State validate(QString& texto, int& pos) const override;

private:
    CampoNombre campo_;
};

// Capitals, letters and digits (NIF, period).
class ValidadorMayusculas : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& texto, int& pos) const override;
};

// The window of a return.
class PantallaModelo : public QDialog {
    Q_OBJECT
public:
    // The folder for the copy to upload; on the desktop, the system's folder dialog.
    ElegirCarpeta elegirCarpeta;
    // How the draft is printed; on the desktop, the print preview of the books.
    std::function<void(const DibujoLibro& dibujo, const QString& titulo)> imprimir;

    // Gives the focus to a field by its name ("Casilla48", "CuentaCargo", ...).
    void Enfocar(const QString& campo);

protected:
    PantallaModelo(Sesion& s, Ajustes& a, Dialogo& d, const QString& nombre, const QString& titulo,
                   QWidget* padre);

    // A box, a mark, an account, a text field, all named and kept for the focus.
    CajaCasilla* NuevaCasilla(const QString& nombre);
    CajaMarca* NuevaMarca(const QString& nombre, bool alPulsar = false);
    CajasCuenta* NuevaCuenta(const QString& nombre);
    QLineEdit* NuevoTexto(const QString& nombre, int largo, QValidator* validador = nullptr);
    QLineEdit* NuevasCifras(const QString& nombre, int largo);
    // Two payment marks that exclude each other on a click.
    void Excluyentes(CajaMarca* a, CajaMarca* b);

    // The draft through `imprimir`, with the print font of the settings.
    void
    Imprimir(const std::function<void(Impresora&, const QString& fuente, double tamano)>& dibujo,
             const QString& titulo);
    // Runs an action that may fail in the store or the files: the message is told.
    bool Intentar(const std::function<void()>& accion);

    // The window: the fields in a scrolling sheet above the row of buttons (named Command1, …),
    // a gap after the first `antesDelHueco` of them; placed on the board and sized.
    void Montar(QWidget* campos, const QList<QPushButton*>& botones, int antesDelHueco,
                const QSize& tamano);
    // "Lugar y fecha": place and day on row `fila` of g, month and year on the next one.
    void CamposFirma(QGridLayout* g, int fila);
    FirmaModelo Firma() const;
    void PonerFirma(const FirmaModelo& f);

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    // How the draft lies on the paper.
    QPageLayout::Orientation orientacion_ = QPageLayout::Portrait;
    QLineEdit *lugar_ = nullptr, *dia_ = nullptr, *mes_ = nullptr, *ano_ = nullptr;
};

// A label and its field on one row of a grid.
void Fila(QGridLayout* g, int fila, int columna, const QString& etiqueta, QWidget* campo);
