#include "posting/TrabajoIva.h"

namespace {

template <typename T> void redimensionar(QList<T>& l, int n, const T& vacio) {
    while (l.size() > n)
        l.removeLast();
    while (l.size() < n)
        l.append(vacio);
}

} // namespace

void TrabajoIva::dimensionar(int filas) {
    IvaIdIVA.clear();
    IvaContra.clear();
    IvaCuenta.clear();
    IvaFactura.clear();
    IvaBase.clear();
    IvaPorcentaje.clear();
    IvaCuota.clear();
    IvaClase.clear();
    IvaLIVA.clear();
    IvaL347.clear();
    IvaTipOp.clear();
    IvaRetencion.clear();
    crecer(filas);
}

void TrabajoIva::crecer(int fila) {
    const int n = std::max(fila + 1, static_cast<int>(IvaIdIVA.size()));
    redimensionar(IvaIdIVA, n, 0.0);
    redimensionar(IvaContra, n, QString());
    redimensionar(IvaCuenta, n, QString());
    redimensionar(IvaFactura, n, QString());
    redimensionar(IvaBase, n, 0.0f);
    redimensionar(IvaPorcentaje, n, 0.0f);
    redimensionar(IvaCuota, n, 0.0f);
    redimensionar(IvaClase, n, QString());
    redimensionar(IvaLIVA, n, false);
    redimensionar(IvaL347, n, false);
    redimensionar(IvaTipOp, n, QString());
    redimensionar(IvaRetencion, n, 0.0f);
}

bool TrabajoIva::tieneDatos(int fila) const {
    return fila >= 1 && fila < IvaIdIVA.size() && IvaIdIVA.at(fila) != 0;
}

DatosIvaApunte TrabajoIva::datos(int fila) const {
    DatosIvaApunte d;
    d.Contra = IvaContra.at(fila);
    d.Factura = IvaFactura.at(fila);
    d.Base = IvaBase.at(fila);
    d.Porcentaje = IvaPorcentaje.at(fila);
    d.Cuota = IvaCuota.at(fila);
    d.Clase = IvaClase.at(fila);
    d.LIVA = IvaLIVA.at(fila);
    d.L347 = IvaL347.at(fila);
    d.TipOp = IvaTipOp.at(fila);
    d.Retencion = IvaRetencion.at(fila);
    return d;
}
