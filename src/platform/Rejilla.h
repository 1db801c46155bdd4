#pragma once
// The grid every list window shows and every book fills: columns with a header row and rows of
// text cells as they are shown ("1.234,56", "31/12/2024"), with bold cells, rows merged across
// columns, hidden columns, sorting, and totals shown under the list.
//
// Usage (a book's logic, headless):
//     Rejilla r({{"Asiento", TipoColumna::Entero}, {"Fecha", TipoColumna::Fecha},
//                {"Concepto"}, {"Debe", TipoColumna::Importe}, {"NCuenta", TipoColumna::Texto,
//                true}});
//     r.AgregarFila(QStringLiteral("1\t01/01/2024\tApertura\t1.234,56\t157000001"));
//     const int f = r.AgregarFila(QStringLiteral("Subcuenta : Caja"));
//     r.CombinarFila(f);                 // its first cell spans the row
//     r.PonerNegritaFila(f);
//     r.Ordenar(0, Orden::Numero);       // stable
//     r.PonerTotal(QStringLiteral("Totales"), Formato(suma, "standard"));
// The window shows it with TablaRejilla (forms/TablaRejilla.h); ExportarRejilla.h writes it as
// .xlsx or delimited text; a book's print walks Celda(fila, columna).
//
// Cells hold no tabs or line breaks (a tab would split the row): they are turned into blanks.
// Numeric columns (Importe, Entero, Numero) are right-aligned on screen and exported as
// numbers; Fecha as dates. Bold is kept for the first 64 columns; a row colour starts at any
// of the first 128.

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

enum class TipoColumna {
    Texto,
    Importe, // "1.234,56": a number with two decimals
    Entero,  // "1.234": a whole number (entry numbers)
    Numero,  // any other figure ("21", "12,5")
    Fecha,   // "31/12/2024"
};

struct Columna {
    QString titulo;
    TipoColumna tipo = TipoColumna::Texto;
    bool oculta = false;
};

enum class Orden {
    Texto,              // by character codes, case-sensitive ("10" before "9")
    TextoSinMayusculas, // the same, ignoring case
    Numero,             // by value; cells that are not numbers go first
    Fecha,              // by date; cells that are not dates go first
};

// The value of a number as a cell shows it: "." groups thousands and "," marks decimals
// ("-1.234,56"); without a comma a "." that does not group thousands is a decimal point
// ("12.5"). Empty or not a number gives nothing.
std::optional<double> ValorCelda(QStringView texto);
// A date as a cell shows it: d/m/yyyy or d/m/yy (00-29 are 2000s), or yyyy-MM-dd.
QDate FechaCelda(QStringView texto);

class Rejilla {
public:
    Rejilla() = default;
    explicit Rejilla(QList<Columna> columnas);

    int Columnas() const { return int(columnas_.size()); }
    const Columna& columna(int c) const { return columnas_.at(c); }
    const QList<Columna>& columnas() const { return columnas_; }
    QStringList Titulos() const;
    void PonerTitulo(int c, const QString& titulo) { columnas_[c].titulo = titulo; }
    void PonerTipo(int c, TipoColumna tipo) { columnas_[c].tipo = tipo; }
    void OcultarColumna(int c, bool oculta = true) { columnas_[c].oculta = oculta; }
    bool Numerica(int c) const;

    int Filas() const { return int(filas_.size()); }
    // Room for this many rows in all, so that a long fill does not move the rows as it grows.
    void Reservar(int filas) { filas_.reserve(static_cast<size_t>(filas)); }
    // Adds a row from its cells joined by tabs; extra cells are dropped, missing ones empty.
    // Returns the new row's index.
    int AgregarFila(const QString& celdas);
    int AgregarFila(const QStringList& celdas);
    void InsertarFila(int fila, const QString& celdas);
    void EliminarFila(int fila);
    void Vaciar();

    QString Celda(int fila, int columna) const { return celda(fila, columna).toString(); }
    QStringView celda(int fila, int columna) const;
    // The row's cells joined by tabs, as kept (trailing empty cells may be missing).
    QStringView TextoFila(int fila) const { return filas_.at(static_cast<size_t>(fila)).texto; }
    void PonerCelda(int fila, int columna, const QString& texto);
    QStringList Fila(int fila) const;

    bool Negrita(int fila, int columna) const;
    void PonerNegrita(int fila, int columna, bool negrita = true);
    void PonerNegritaFila(int fila, bool negrita = true);

    // A merged row: the cell at desde spans the columns desde..hasta (hasta -1: the last).
    void CombinarFila(int fila, int desde = 0, int hasta = -1);
    void SepararFila(int fila);
    struct Tramo {
        int desde = 0, hasta = 0;
    };
    std::optional<Tramo> Combinada(int fila) const;

    // The text colour of a row from a column on, as 0xRRGGBB (a book's total rows painted apart
    // from its records); nothing for the default colour.
    void PonerColorFila(int fila, quint32 rgb, int desde = 0);
    std::optional<quint32> Color(int fila, int columna) const;

    // Stable sort of the rows by one column; bold and merges go with their rows.
    void Ordenar(int columna, Orden orden, bool ascendente = true);

    // Totals shown under the list, in order: a caption and its value ("Totales", "1.234,56").
    struct Total {
        QString etiqueta;
        QString valor;
    };
    // Sets the value of a caption, adding it at the end the first time.
    void PonerTotal(const QString& etiqueta, const QString& valor);
    const QList<Total>& Totales() const { return totales_; }
    void QuitarTotales() { totales_.clear(); }

private:
    struct FilaDatos {
        QString texto; // the cells joined by tabs
        quint64 negritas = 0;
        qint8 desde = -1, hasta = -1;
        qint8 colorDesde = -1; // within the padding: a row costs no more
        quint32 color = 0;
    };
    FilaDatos nueva(const QString& celdas) const;

    QList<Columna> columnas_;
    std::vector<FilaDatos> filas_;
    QList<Total> totales_;
};
