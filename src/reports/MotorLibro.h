#pragma once
// The print run shared by every paged book: page head, rows cut and aligned in their columns,
// carried sums, page ends with "Suma y sigue . . ." and the page number, and the foot of the last
// page with the totals at a fixed place. A book gives only its columns, its constants and its
// rows; positions are absolute twips on an Impresora (1 mm = 56.7 twips).
//
// Usage (a book that walks its grid: the trial balance, say):
//     void DibujarSyS(Impresora& imp, const Rejilla& r, const OpcionesLibro& op, ...) {
//         const MargenLibro m = Margen(op.margen);          // left edge L and shift d
//         const double W = imp.AnchoPagina();
//         DisenoLibro diseno;
//         diseno.titulo = QStringLiteral("BALANCE DE SUMAS Y SALDOS");
//         diseno.cabecera = nombreEmpresa;
//         diseno.desde = d1; diseno.hasta = d2;
//         diseno.bajadaCabecera = 250; diseno.bajadaFila = 20;
//         diseno.finPagina = 2150; diseno.regla = 2035; diseno.totales = 1835;
//         diseno.columnas = {{"CODIGO", m.L}, {"CUENTA", 1500 + m.d * 5 / 6, false, ancho},
//                            {"DEBE", W - 4400 + m.d / 3, true, 1500, 0}, ... };
//         QList<double> sumas(3, 0.0);                       // debit, credit, difference
//         ImpresionLibro p(imp, diseno, op, sumas);
//         p.Empezar();
//         for (int f = 0; f < r.Filas(); ++f) {
//             p.Fila({r.Celda(f, 0), r.Celda(f, 1), ImporteLibro(debe), ...}, grupo);
//             if (!grupo) { sumas[0] += debe; sumas[1] += haber; sumas[2] = sumas[0] - sumas[1]; }
//             p.FinDePaginaSiToca();
//         }
//         p.Terminar();                                      // nothing at all when no row came
//     }
// Books with rows of their own shape (the journal's draft blocks) call CabeceraSiToca() before
// each line they write and Celda()/FinFila() or the Impresora directly.
//
// Geometry: L is the margin, or 600 when the margin is 0; the shift d is margin - 600 when the
// margin is over 600, else 0, so a margin under 600 moves only the left edge. The rules of the
// head run from L to W - 600. Copies: draw the book once per copy; whether the sums run on from
// one copy to the next is the book's business (they live in the list given to the run).

#include "reports/OpcionesLibro.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

class Impresora;

struct ColumnaLibro {
    QString titulo;        // heading; numeric headings are right-aligned like their figures
    double x = 0;          // text: left edge; figures (aDerecha): right edge
    bool aDerecha = false; // figures, right-aligned at x
    double ancho = 0;      // room of the column; texts are cut to ancho - 200 (0: never cut)
    int suma = -1;         // index of the running sum shown under this column, or -1
    // A stroke ahead of it in the box of the headings; false for the indent columns of a text
    // whose heading stands in the column before (the levels of a statement).
    bool raya = true;
};

// A line of the foot: its words at X = 4000, bold, and its figures under the sum columns.
struct LineaCierre {
    QString palabras;
    QList<double> sumas; // by sum index, like the running sums
    // A note in plain type from the left edge, without figures (the day cash's last words).
    bool nota = false;
};

struct DisenoLibro {
    QString titulo;     // at size + 6, bold: "LIBRO DIARIO"
    QString cabecera;   // at size + 3, bold: the company name (or "SubCuenta: " and its name)
    QDate desde, hasta; // "Desde … hasta …" on the same line; invalid: no dates
    // A line under the company's, at the same size ("Sector: Tienda"); empty: none.
    QString subcabecera;
    double bajadaCabecera = 150; // pen down after the double rule (250 in trial balance, ledger)
    double bajadaFila = 10;      // pen down after each row (20 in trial balance, ledger)
    double finPagina = 2150;     // T: a page ends when the pen reaches H - T
    std::optional<double> regla = 1985; // T2: short rules of the foot at H - T2; none: no rules
    double totales = 1835;              // T3: the foot's first line at H - T3
    QString palabrasTotales = QStringLiteral("Totales . . . . . . . . . . . .");
    // The words of the carried sums at the top of a page and at its end.
    QString palabrasAnteriores = QStringLiteral("Sumas anteriores . . .");
    QString palabrasSigue = QStringLiteral("Suma y sigue . . .");
    // Carried sums ("Sumas anteriores . . ." at the top of each page after the first,
    // "Suma y sigue . . ." at each page end) and totals. False: pages end with the page number
    // alone at H - T3 (the whole ledger).
    bool sumas = true;
    // The journal's rule: carried sums stand on any page, the first included, when either sum is
    // above zero.
    bool arrastreSiPositivas = false;
    QList<ColumnaLibro> columnas;
};

struct MargenLibro {
    double L = 600; // left edge
    double d = 0;   // shift of the columns
};
MargenLibro Margen(double margenTwips);

// An amount as a book prints it: "standard", and nothing for zero.
QString ImporteLibro(double valor);

class ImpresionLibro {
public:
    // sumas: the running sums, kept by the caller (they may run on between copies).
    ImpresionLibro(Impresora& imp, DisenoLibro diseno, const OpcionesLibro& opciones,
                   QList<double>& sumas);

    Impresora& imp() { return imp_; }
    const DisenoLibro& diseno() const { return diseno_; }
    double L() const { return margen_.L; }
    double d() const { return margen_.d; }
    double W() const;
    double H() const;
    // Right end of the rules: W - 600.
    double R() const;

    // Start of a copy: the font of the options, the left edge, a page due.
    void Empezar();
    // The page head, when a page is due (at the first line of each page).
    void CabeceraSiToca();
    // A row: each cell in its column (empty cells print nothing), then FinFila().
    void Fila(const QStringList& celdas, bool negrita = false);
    // One cell on the current line: a figure right-aligned at x, a text at x cut to its column.
    void Celda(int columna, const QString& texto);
    // Ends the line and moves the pen down bajadaFila.
    void FinFila();
    // The page-end test after a row: at H - T the page ends. True when it did.
    bool FinDePaginaSiToca();
    // Ends the page now: sums and page number (or the page number alone), then a new page.
    void FinDePagina();
    // The foot of the last page and the end of the document. Without lines, the totals of the
    // running sums. When nothing was drawn nothing is printed at all.
    void Terminar(const QList<LineaCierre>& cierre = {});

    // The text cut to a column: the longest left part within ancho - 200.
    QString Cortar(int columna, const QString& texto) const;
    // "Página nº " and the number with the first-page rule, in "#,##0".
    QString TextoPagina() const;
    bool Dibujado() const { return dibujado_; }
    bool PaginaPendiente() const { return paginaNueva_; }

private:
    void escribirSumas(const QList<double>& valores);
    void escribirPagina();

    Impresora& imp_;
    DisenoLibro diseno_;
    OpcionesLibro op_;
    QList<double>& sumas_;
    MargenLibro margen_;
    bool paginaNueva_ = true;
    bool dibujado_ = false;
};
