#pragma once
// The VAT data of an entry's lines between the VAT screen and the writer: twelve arrays indexed
// by grid row from 1, shared by the posting screen and the entry maintenance screen. Base,
// percentage, quota and withholding are held as 32-bit floats, as the VAT records keep them.

#include "journal/Escritor.h"

#include <QList>
#include <QString>

struct TrabajoIva {
    QList<double> IvaIdIVA; // 0: no VAT data for this row
    QList<QString> IvaContra;
    QList<QString> IvaCuenta;
    QList<QString> IvaFactura;
    QList<float> IvaBase;
    QList<float> IvaPorcentaje;
    QList<float> IvaCuota;
    QList<QString> IvaClase;
    QList<bool> IvaLIVA;
    QList<bool> IvaL347;
    QList<QString> IvaTipOp;
    QList<float> IvaRetencion;

    // Emptied, then sized for rows 1 to filas.
    void dimensionar(int filas);
    // Grown up to index fila, keeping what is there.
    void crecer(int fila);
    void vaciar() { dimensionar(0); }
    int tamano() const { return static_cast<int>(IvaIdIVA.size()) - 1; }

    // Row fila has VAT data.
    bool tieneDatos(int fila) const;
    // The record of row fila as the writer takes it.
    DatosIvaApunte datos(int fila) const;
};
