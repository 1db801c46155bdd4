#include "posting/RejillaAsiento.h"

#include "store/Formato.h"
#include "store/Rutinas.h"

#include <cmath>

namespace {

QStringList cabecerasF4() {
    return {QStringLiteral("Fecha"),         QStringLiteral("Cuenta"),
            QStringLiteral("Concepto"),      QStringLiteral("Debe"),
            QStringLiteral("Haber"),         QStringLiteral("NCuenta"),
            QStringLiteral("Contrapartida"), QStringLiteral("Documento"),
            QStringLiteral("Factura"),       QStringLiteral("Base"),
            QStringLiteral("L. IVA"),        QStringLiteral("347"),
            QStringLiteral("Vto."),          QString(),
            QStringLiteral("Cas.")};
}

} // namespace

RejillaAsiento::RejillaAsiento(QObject* padre)
    : RejillaAsiento(cabecerasF4(), ColumnasAsiento{}, padre) {}

RejillaAsiento::RejillaAsiento(const QStringList& cabeceras, const ColumnasAsiento& columnas,
                               QObject* padre)
    : QAbstractTableModel(padre), cabeceras_(cabeceras), cols_(columnas) {
    celdas_ << cabeceras_;
}

QString RejillaAsiento::celda(int fila, int col) const {
    if (fila < 0 || fila >= filas() || col < 0 || col >= columnas())
        return {};
    return celdas_.at(fila).at(col);
}

void RejillaAsiento::fijar(int fila, int col, const QString& texto) {
    if (fila < 1 || fila >= filas() || col < 0 || col >= columnas())
        return;
    if (celdas_[fila][col] == texto)
        return;
    celdas_[fila][col] = texto;
    const QModelIndex i = index(fila - 1, col);
    Q_EMIT dataChanged(i, i);
    // The picture follows the mark.
    if (col == cols_.Casacion && cols_.Imagen >= 0 && cols_.Imagen < columnas()) {
        const QModelIndex img = index(fila - 1, cols_.Imagen);
        Q_EMIT dataChanged(img, img);
    }
}

double RejillaAsiento::valor(int fila, int col) const {
    return ValorImporte(celda(fila, col));
}

void RejillaAsiento::fijarImporte(int fila, int col, double importe) {
    fijar(fila, col, Formato(importe, QStringLiteral("standard")));
}

int RejillaAsiento::anadirFila() {
    const int n = filas();
    beginInsertRows({}, n - 1, n - 1);
    QStringList vacia;
    for (int i = 0; i < columnas(); ++i)
        vacia << QString();
    celdas_ << vacia;
    endInsertRows();
    return n;
}

void RejillaAsiento::quitarFila(int fila) {
    if (fila < 1 || fila >= filas())
        return;
    beginRemoveRows({}, fila - 1, fila - 1);
    celdas_.removeAt(fila);
    endRemoveRows();
}

void RejillaAsiento::vaciar() {
    beginResetModel();
    celdas_.resize(1);
    endResetModel();
}

void RejillaAsiento::setColumnasEditables(const QSet<int>& columnas) {
    editables_ = columnas;
    if (filas() > 1)
        Q_EMIT dataChanged(index(0, 0), index(filas() - 2, this->columnas() - 1));
}

int RejillaAsiento::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : filas() - 1;
}

int RejillaAsiento::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : columnas();
}

QVariant RejillaAsiento::data(const QModelIndex& indice, int rol) const {
    if (!indice.isValid())
        return {};
    const int fila = indice.row() + 1;
    const int col = indice.column();
    switch (rol) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return celda(fila, col);
    case Qt::TextAlignmentRole:
        if (col == cols_.Debe || col == cols_.Haber)
            return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
        if (col == cols_.Imagen)
            return QVariant::fromValue(Qt::AlignCenter);
        return {};
    case RolImagen:
        return col == cols_.Imagen ? ImagenCasacion(celda(fila, cols_.Casacion)) : -1;
    default:
        return {};
    }
}

bool RejillaAsiento::setData(const QModelIndex& indice, const QVariant& valor, int rol) {
    if (!indice.isValid() || rol != Qt::EditRole)
        return false;
    const int fila = indice.row() + 1;
    QString texto = valor.toString();
    if (validarCelda && !validarCelda(fila, indice.column(), texto))
        return false;
    fijar(fila, indice.column(), texto);
    Q_EMIT celdaEditada(fila, indice.column());
    return true;
}

QVariant RejillaAsiento::headerData(int seccion, Qt::Orientation orientacion, int rol) const {
    if (rol != Qt::DisplayRole)
        return {};
    if (orientacion == Qt::Horizontal)
        return seccion >= 0 && seccion < columnas() ? cabeceras_.at(seccion) : QVariant();
    return seccion + 1;
}

Qt::ItemFlags RejillaAsiento::flags(const QModelIndex& indice) const {
    if (!indice.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (editables_.contains(indice.column()))
        f |= Qt::ItemIsEditable;
    return f;
}

void CRepetidas(RejillaAsiento& r, const ColumnasAsiento& c) {
    int i = 1;
    while (i < r.ultima()) {
        bool filaQuitada = false;
        int j = i + 1;
        while (j <= r.ultima()) {
            if (r.celda(i, c.NCuenta).trimmed() != r.celda(j, c.NCuenta).trimmed()) {
                ++j;
                continue;
            }
            const double a = r.valor(i, c.Debe) + r.valor(j, c.Debe);
            const double h = r.valor(i, c.Haber) + r.valor(j, c.Haber);
            // Compared to the cent: float noise in the sums never keeps a line that nets to 0.
            const double neto = Centimos(a - h);
            if (neto > 0) {
                r.fijarImporte(i, c.Debe, a - h);
                r.fijar(i, c.Haber, QString());
                r.quitarFila(j);
            } else if (neto < 0) {
                r.fijarImporte(i, c.Haber, h - a);
                r.fijar(i, c.Debe, QString());
                r.quitarFila(j);
            } else {
                r.quitarFila(j);
                r.quitarFila(i);
                filaQuitada = true;
                break;
            }
        }
        // When row i went, the row that took its place is scanned next.
        if (!filaQuitada)
            ++i;
    }
}

double Aproxima(const RejillaAsiento& r, double importe, const ColumnasAsiento& c) {
    for (int f = 1; f <= r.ultima(); ++f) {
        double v = 0;
        if (!r.celda(f, c.Debe).trimmed().isEmpty() && r.valor(f, c.Debe) != 0)
            v = r.valor(f, c.Debe);
        else if (!r.celda(f, c.Haber).trimmed().isEmpty() && r.valor(f, c.Haber) != 0)
            v = r.valor(f, c.Haber);
        else
            continue;
        if (std::fabs(v - importe) < 0.039)
            return v;
    }
    return importe;
}

int ImagenCasacion(const QString& marca) {
    const QString m = marca.trimmed();
    if (m.isEmpty())
        return -1;
    return m.toInt() + 1;
}

QList<int> AdImagen(const RejillaAsiento& r, const ColumnasAsiento& c) {
    QList<int> imagenes;
    if (r.filas() < 2)
        return imagenes;
    for (int f = 0; f < r.filas(); ++f)
        imagenes << (f == 0 ? -1 : ImagenCasacion(r.celda(f, c.Casacion)));
    return imagenes;
}
