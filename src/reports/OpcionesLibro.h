#pragma once
// The print options of every book: the settings of each group of books (margin, font and size
// under Valores: IzqDiario, NFuentDiario, TFuentDiario...), what each option form shows and asks
// (Form77, Form79, Form80, Form83, Form85, FORM52, FORM90), and what its boxes mean when the
// user accepts them: the options of one print run.
//
// Usage (an option form, or the command line, headless):
//     const ConfigOpciones config = ConfigFormOpciones(FormOpciones::Form79);
//     CajasOpciones cajas = CajasIniciales(config, ajustes);  // what the form shows on opening
//     cajas.margen = QStringLiteral("");                        // ... the user edits the boxes
//     OpcionesLibro op;
//     if (AceptarOpciones(config, cajas, ajustes, op) == ResultadoOpciones::Aceptado)
//         ...  // op.margen == 0, "0" stored under IzqSyS; op.cancelado == false
// The screen over this is forms/FormOpciones.h; a book draws with the result (MotorLibro.h).

#include <QDate>
#include <QString>
#include <QStringList>

class Ajustes;

// The option forms of the books.
enum class FormOpciones {
    Form77, // journal
    Form79, // trial balance
    Form80, // movements of a subaccount
    Form83, // balance sheet, profit and loss
    Form85, // whole ledger
    FORM52, // income, expense and invoice books
    FORM90, // due dates, fixed assets, day cash, predesigned entries (group given by the caller)
};

// What an option form is: its boxes beyond the common four (work date, margin, font, size), its
// settings group and how it stores them.
struct ConfigOpciones {
    FormOpciones form = FormOpciones::Form77;
    QString nombre; // object name, "Form77"
    QString titulo; // caption, "DIARIO"
    QString grupo;  // settings group: keys Izq<grupo>, NFuent<grupo>, TFuent<grupo>
    int numero = 0; // window size kept as WF<numero>, HF<numero>
    // Stored when the font box is left empty (the run itself uses "Courier New" in every form).
    QString fuenteSiVacia = QStringLiteral("Courier New");
    // Written under QuilmarEmp while read under QuilmarPro: what is typed lasts one run.
    bool guardaEnEmp = false;
    // A margin below 10 mm is raised to 10, and the box shows it.
    bool margenMinimo10 = false;
    bool paginaInicial = false;         // "Página inicial"
    bool paginaInicialMenosUno = false; // kept as the number typed minus 1
    bool sumasIniciales = false;        // "Suma inicial del Debe", "Suma inicial del Haber"
    bool modelo = false;        // "Borrador" / "Modelo oficial", "Incluir número de Documento"
    bool numeroAsiento = false; // "Imprimir Nº de Asiento"
    bool nuevaPagina = false;   // "Nueva página cada Cuenta", "Nueva página cada Subcuenta"
    bool anoAnterior = false;   // "Imprimir Año N-1"
    // Form83: the statement it is opened for, "Balance", "Balance2008", "PyG" or "PyG2008"
    // (the old and the PYMES layouts); its caption names that statement.
    QString modo;
    // The fonts the font box offers; empty: every font of the system.
    QStringList fuentes;
};

// The configuration of a form. variante: FORM90's group, one of "Venc", "Invent", "CDia",
// "Predi"; Form83's mode, one of "Balance", "Balance2008", "PyG", "PyG2008".
ConfigOpciones ConfigFormOpciones(FormOpciones form, const QString& variante = {});

// What the boxes hold, as typed.
struct CajasOpciones {
    QDate fechaTrabajo;
    QString margen; // millimetres
    QString fuente;
    QString tamano;
    QString paginaInicial;
    QString sumaDebe, sumaHaber;
    bool borrador = false; // else "Modelo oficial"
    bool conDocumento = false;
    bool numeroAsiento = false;
    bool nuevaPaginaCuenta = false;
    bool nuevaPaginaSubcuenta = false;
    bool anoAnterior = false;
};

// The stored margin, font and size of a group (defaults 10, "Arial Narrow", 9), as box texts.
struct AjustesGrupo {
    QString margen, fuente, tamano;
};
AjustesGrupo LeerAjustesGrupo(const Ajustes& ajustes, const QString& grupo);

// The boxes when the form opens: the group's settings, today as work date, the rest empty.
CajasOpciones CajasIniciales(const ConfigOpciones& config, const Ajustes& ajustes,
                             const QDate& hoy = QDate::currentDate());

// The options of one print run, held by the list window.
struct OpcionesLibro {
    // True from the moment the option form opens until its "&Aceptar" ends: a closed or
    // cancelled form leaves it set and the run does not start.
    bool cancelado = true;
    double margen = 0; // twips: Int(mm x 56.7), 0 for an empty box
    QString fuente = QStringLiteral("Arial Narrow");
    int tamano = 9;
    QDate fechaTrabajo;
    int paginaInicial = 0;
    double sumaDebe = 0, sumaHaber = 0; // initial running sums of the journal
    bool borrador = false;
    bool conDocumento = false;
    bool numeroAsiento = false;
    bool nuevaPaginaCuenta = false;
    bool nuevaPaginaSubcuenta = false;
    bool anoAnterior = false;
    QString modo; // Form83: the statement printed (ConfigOpciones::modo)
};

enum class ResultadoOpciones {
    Aceptado,
    // Form77: one initial sum typed and the other empty. The user has been told
    // MsgSumasIniciales; the journal window closes.
    SumasIncompletas,
    // Form77: an initial sum that is not an amount the books take; MsgSumaNoValida tells which.
    // The form stays open.
    ImporteNoValido,
};

// The initial sums of the journal as their boxes give them: both empty are 0 and 0; one without
// the other is SumasIncompletas; each must be an amount the books take, rounded to the cent.
ResultadoOpciones LeerSumasIniciales(const QString& sumaDebe, const QString& sumaHaber,
                                     double& debe, double& haber);
// The message of ImporteNoValido: that of the first box that is not an amount.
QString MsgSumaNoValida(const QString& sumaDebe, const QString& sumaHaber);

inline const QString MsgSumasIniciales =
    QStringLiteral("Si los valores iniciales del Debe o Haber son distintos de cero, deben tener "
                   "valor tanto el Debe como el Haber.");

// "&Aceptar": applies the empty-box rules (margin empty: 0, "0" stored; font empty: "Courier New"
// for the run and the form's fuenteSiVacia stored; size empty: 9, 9 stored; first page empty: 0;
// both initial sums empty: 0 and 0), FORM52's floor of 10 mm (written back into cajas.margen),
// and stores the group's settings unless guardar is false (the command line). Clears cancelado.
ResultadoOpciones AceptarOpciones(const ConfigOpciones& config, CajasOpciones& cajas,
                                  Ajustes& ajustes, OpcionesLibro& opciones, bool guardar = true);

// Millimetres to twips as the books take them: Int(mm x 56.7).
double MilimetrosATwips(double mm);
