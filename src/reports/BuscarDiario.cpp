#include "reports/BuscarDiario.h"

#include "platform/Rejilla.h"

const QList<CampoBusqueda>& CamposBusquedaDiario() {
    static const QList<CampoBusqueda> campos = {
        {QStringLiteral("Nº Asiento"), 0},
        {QStringLiteral("Fecha"), 2},
        {QStringLiteral("Subcuenta"), 3},
        {QStringLiteral("Concepto"), 4},
        {QStringLiteral("Debe"), 5},
        {QStringLiteral("Haber"), 6},
        {QStringLiteral("Sector"), 7},
        {QStringLiteral("Documento"), 9},
        {QStringLiteral("Base IVA"), 10},
        {QStringLiteral("Cuota IVA"), 11},
        {QStringLiteral("Cliente/Proveedor"), 12},
        {QStringLiteral("Factura"), 13},
    };
    return campos;
}

int BuscarEnRejilla(const Rejilla& rejilla, int columna, const QString& texto, int desde) {
    if (texto.isEmpty() || columna < 0 || columna >= rejilla.Columnas())
        return -1;
    for (int f = qMax(0, desde); f < rejilla.Filas(); ++f)
        if (rejilla.celda(f, columna).contains(texto, Qt::CaseInsensitive))
            return f;
    return -1;
}
