#pragma once
// The lines of an entry under construction, as the posting screen holds them: a grid of text
// cells, row 0 the headings and the lines from row 1, amounts as "standard" text. The same grid
// is the model the screen shows, so what the logic writes is what the user sees.

#include <QAbstractTableModel>
#include <QList>
#include <QSet>
#include <QStringList>
#include <functional>

// Columns of the posting grid.
namespace ColF4 {
enum : int {
    Fecha = 0,     // date of the line; row 1's is the entry's
    Cuenta = 1,    // subaccount name
    Concepto = 2,  //
    Debe = 3,      //
    Haber = 4,     //
    NCuenta = 5,   // hidden
    Contra = 6,    // default counterparty of a VAT line; hidden
    Documento = 7, //
    Factura = 8,   // invoice number offered to the VAT screen
    Base = 9,      // base offered to the VAT screen
    LibroIva = 10, // preset of the VAT-book box: "True", "False" or empty
    L347 = 11,     // preset of the 347 box: "True", "False" or empty
    Venc = 12,     // due-date button: "..."
    Imagen = 13,   // reconciliation picture
    Casacion = 14, // reconciliation mark (CasacionN); empty when not marked
    Total = 15
};
}

// Where a grid keeps the cells the shared routines read (CRepetidas, Aproxima, AdImagen, the
// printout of the entry), so the maintenance screen's grid can use them with its own layout.
struct ColumnasAsiento {
    int Cuenta = ColF4::Cuenta;
    int Concepto = ColF4::Concepto;
    int NCuenta = ColF4::NCuenta;
    int Debe = ColF4::Debe;
    int Haber = ColF4::Haber;
    int Casacion = ColF4::Casacion;
    int Imagen = ColF4::Imagen;
};

class RejillaAsiento : public QAbstractTableModel {
    Q_OBJECT
public:
    // Roles beyond Qt's: the reconciliation image number of a row (col 13), -1 for none.
    static constexpr int RolImagen = Qt::UserRole + 1;

    // The posting grid: fifteen columns with their headings in row 0.
    explicit RejillaAsiento(QObject* padre = nullptr);
    // Any other layout.
    RejillaAsiento(const QStringList& cabeceras, const ColumnasAsiento& columnas,
                   QObject* padre = nullptr);

    // Rows as the grid counts them, headings included: 1 when there are no lines.
    int filas() const { return static_cast<int>(celdas_.size()); }
    // The last row (L); 0 when there are no lines.
    int ultima() const { return filas() - 1; }
    int columnas() const { return static_cast<int>(cabeceras_.size()); }

    QString celda(int fila, int col) const;
    void fijar(int fila, int col, const QString& texto);
    // The value of an amount cell; an empty or non-numeric cell is 0.
    double valor(int fila, int col) const;
    // Writes an amount in "standard" format.
    void fijarImporte(int fila, int col, double importe);

    // Adds an empty line at the end and returns its row.
    int anadirFila();
    void quitarFila(int fila);
    // Back to the headings alone.
    void vaciar();

    // Which columns the user may edit.
    void setColumnasEditables(const QSet<int>& columnas);
    const QSet<int>& columnasEditables() const { return editables_; }
    // Decides on a cell edited in the view (grid row, column, the text, which it may rewrite);
    // false keeps what the cell held. Unset, every edit is taken as typed.
    std::function<bool(int fila, int col, QString& texto)> validarCelda;

    // The model for the view: view row r is grid row r + 1.
    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& indice, const QVariant& valor, int rol = Qt::EditRole) override;
    QVariant headerData(int seccion, Qt::Orientation orientacion,
                        int rol = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& indice) const override;

Q_SIGNALS:
    // A cell was edited by the user in the view (grid row, column).
    void celdaEditada(int fila, int col);

private:
    QStringList cabeceras_;
    QList<QStringList> celdas_; // celdas_[0] are the headings
    QSet<int> editables_;
    ColumnasAsiento cols_;
};

// Merges the lines that use the same subaccount, netting debit against credit; a subaccount that
// nets to zero leaves no line. Afterwards a subaccount stands at most once in the entry.
void CRepetidas(RejillaAsiento& r, const ColumnasAsiento& c = {});

// The amount of a line lying within 0.039 of the given one, else the given one: a base worked out
// from a rounded quota snaps to the amount typed on another line.
double Aproxima(const RejillaAsiento& r, double importe, const ColumnasAsiento& c = {});

// The reconciliation image of each row (index = grid row), mark + 1, or -1 for an unmarked row.
// Empty when the grid has no lines.
QList<int> AdImagen(const RejillaAsiento& r, const ColumnasAsiento& c = {});
int ImagenCasacion(const QString& marca);
