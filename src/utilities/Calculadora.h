#pragma once
// The pocket calculator behind its window: a four-function chain, percentages, the peseta-euro
// conversion and five financial registers (n, i, PV, PMT, FV) with payments at the end or the
// start of each period. It lives as long as the program: the window shows and drives one.
//
// Usage:
//     Calculadora& k = CalculadoraDelPrograma(ajustes);   // mode Euros/Ptas from the settings
//     k.Teclear("1000"); k.Tecla(TeclaCalc::VA);           // stores PV
//     k.Teclear("12"); k.Tecla(TeclaCalc::N);
//     k.Teclear("1"); k.Tecla(TeclaCalc::I);               // i is typed in percent per period
//     k.Tecla(TeclaCalc::Pmt);  k.Pantalla();              // "-88,85"
//
// A figure typed and then given to n, i, VA, VF or Pmt is stored in that register; pressed
// again without typing, the key solves for its register from the others. Registers hold 0 when
// empty. Any failure shows "Error" and leaves the registers as they were.

#include <QString>

class Ajustes;
class Rejilla;

enum class TeclaCalc {
    Sumar,
    Restar,
    Multiplicar,
    Dividir,
    Igual,
    CE,
    C,
    Porcentaje,
    CambioSigno,
    Euro,
    Pta,
    EP,
    PF,
    Int,
    TAE,
    IAc,
    AAc,
    IV,
    AV,
    Pmt,
    VA,
    VF,
    N,
    I,
};

class Calculadora {
public:
    static constexpr double CambioPeseta = 166.386;

    double n = 0, i = 0, PV = 0, PMT = 0, FV = 0; // i in percent per period
    bool pesetas = false;                         // mode P, else E
    bool alPrincipio = false;                     // timing Pri, else Fin

    // Digits, "," or "." (the decimal mark) one by one; other characters are ignored.
    void Teclear(const QString& teclas);
    // A key; conCtrl on C also clears the registers; conMayus on TAE gives the nominal rate.
    void Tecla(TeclaCalc tecla, bool conCtrl = false, bool conMayus = false);
    // A figure from the clipboard; false (and nothing changes) when it is no number.
    bool Pegar(const QString& texto);

    QString Pantalla() const { return pantalla_; }
    double Valor() const { return valor_; }
    bool EnError() const { return error_; }
    // The display as an amount field takes it: "standard", or nothing on "Error".
    QString ParaCampo() const;
    QString Modo() const { return pesetas ? QStringLiteral("P") : QStringLiteral("E"); }
    QString Pagos() const { return alPrincipio ? QStringLiteral("Pri") : QStringLiteral("Fin"); }

    // The display of a value in the present mode: two decimals in euros and none in pesetas,
    // the typed decimals (up to nine) when given, scientific notation for very large values.
    QString FormatoPantalla(double v, int decimales = -1) const;

    // Reads and saves the mode (setting Formato of Valores: "Euros" or "Ptas").
    void LeerModo(const Ajustes& a);
    void GuardarModo(Ajustes& a) const;

private:
    void mostrar(double v, int decimales = -1);
    void mostrarTexto(double v, const QString& texto);
    void fallo();
    void cerrarEntrada();
    bool hayEntrada() const { return tecleando_; }
    double r() const { return i / 100; }
    void operar(char op);
    bool registroOResolver(double& registro, TeclaCalc t);
    void periodo(TeclaCalc t);

    double valor_ = 0;
    QString entrada_;
    bool tecleando_ = false;
    double operando_ = 0;
    char pendiente_ = 0;
    bool error_ = false;
    QString pantalla_ = QStringLiteral("0,00");
};

// The calculator of this run of the program.
Calculadora& CalculadoraDelPrograma();

// The repayment table of the registers: payment PMT(i, n, -PV, -FV), one row per period with
// the interest and principal, and a row of totals. Columns Vencmtº, Total Pago, Intereses,
// Amortización. Empty when n is not a whole number of periods from 1 to 1200 or the figures admit
// no table (the window then shows "Error").
Rejilla CuadroPrestamo(const Calculadora& k);

struct DisenoTabla;
// The print design of the loan table: "Cuadro de Amortización" and the registers.
DisenoTabla DisenoCuadro(const Calculadora& k);
