#include "platform/forms/ModeloRejilla.h"

#include "platform/Rejilla.h"

#include <QColor>

ModeloRejilla::ModeloRejilla(QObject* padre) : QAbstractTableModel(padre) {
    negrita_.setBold(true);
}

void ModeloRejilla::ponerRejilla(const Rejilla* rejilla) {
    beginResetModel();
    rejilla_ = rejilla;
    endResetModel();
}

void ModeloRejilla::recargar() {
    beginResetModel();
    endResetModel();
}

void ModeloRejilla::ponerFuente(const QFont& fuente) {
    negrita_ = fuente;
    negrita_.setBold(true);
}

int ModeloRejilla::rowCount(const QModelIndex& padre) const {
    return padre.isValid() || !rejilla_ ? 0 : rejilla_->Filas();
}

int ModeloRejilla::columnCount(const QModelIndex& padre) const {
    return padre.isValid() || !rejilla_ ? 0 : rejilla_->Columnas();
}

QVariant ModeloRejilla::data(const QModelIndex& i, int rol) const {
    if (!rejilla_ || !i.isValid())
        return {};
    switch (rol) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return rejilla_->Celda(i.row(), i.column());
    case Qt::FontRole:
        if (rejilla_->Negrita(i.row(), i.column()))
            return negrita_;
        return {};
    case Qt::ForegroundRole:
        if (const auto color = rejilla_->Color(i.row(), i.column()))
            return QColor(QRgb(*color));
        return {};
    case Qt::TextAlignmentRole: {
        // A merged row's text reads from the left whatever its column holds.
        const auto tramo = rejilla_->Combinada(i.row());
        const bool derecha =
            rejilla_->Numerica(i.column()) && !(tramo && tramo->desde == i.column());
        return QVariant::fromValue(Qt::AlignVCenter | (derecha ? Qt::AlignRight : Qt::AlignLeft));
    }
    default:
        return {};
    }
}

QVariant ModeloRejilla::headerData(int seccion, Qt::Orientation orientacion, int rol) const {
    if (!rejilla_ || orientacion != Qt::Horizontal || seccion < 0 ||
        seccion >= rejilla_->Columnas())
        return QAbstractTableModel::headerData(seccion, orientacion, rol);
    if (rol == Qt::DisplayRole)
        return rejilla_->columna(seccion).titulo;
    if (rol == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::AlignVCenter |
                                   (rejilla_->Numerica(seccion) ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

Qt::ItemFlags ModeloRejilla::flags(const QModelIndex& i) const {
    Qt::ItemFlags f = QAbstractTableModel::flags(i);
    if (rejilla_ && i.isValid() && escribible(i.column())) {
        // A cell covered by a merged text belongs to that text, not to the column.
        const auto tramo = rejilla_->Combinada(i.row());
        if (!tramo || i.column() < tramo->desde || i.column() > tramo->hasta)
            f |= Qt::ItemIsEditable;
    }
    return f;
}

bool ModeloRejilla::setData(const QModelIndex& i, const QVariant& valor, int rol) {
    if (rol != Qt::EditRole || !(flags(i) & Qt::ItemIsEditable))
        return false;
    Q_EMIT celdaEscrita(i.row(), i.column(), valor.toString());
    Q_EMIT dataChanged(i, i);
    return true;
}
