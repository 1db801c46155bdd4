#pragma once
// Shared by the tests of the tax books: subaccounts of the generic chart, lines with their VAT
// record, and a book filled from a company.

#include "Entorno.h"
#include "platform/Rejilla.h"
#include "tax/LibrosIva.h"

namespace iva {
inline const QString Ventas = "370000066", Servicios = "370500067", Intereses = "376900069",
                     Compras = "660000044", Alquiler = "662100046", Banco = "157200003",
                     Clientes = "443000022", Deudores = "444000023", Proveedor = "240000009",
                     Acreedor = "241000010", Rep21 = "247700016", Rep10 = "247700017",
                     Rep4 = "247700018", Rec52 = "247700019", Sop21 = "447200028",
                     Sop10 = "447200029";
}

// The line with its VAT record: the quota is the line's amount.
inline Apunte ConIva(Apunte a, const QString& contra, const QString& factura, double base,
                     double tipo, const QString& clase = QStringLiteral("IVA")) {
    DatosIvaApunte v;
    v.Contra = contra;
    v.Factura = factura;
    v.Base = base;
    v.Porcentaje = tipo;
    v.Cuota = a.Debe + a.Haber;
    v.Clase = clase;
    a.Iva = v;
    return a;
}

inline Apunte EnSector(Apunte a, const QString& sector) {
    a.Sector = sector;
    return a;
}

struct LibroLleno {
    Rejilla r;
    ResultadoLibroIva res;
};

inline LibroLleno Libro(Entorno& e, SeleccionLibroIva sel) {
    if (!sel.desde.isValid())
        sel.desde = e.sesion.FechaIniEj;
    if (!sel.hasta.isValid())
        sel.hasta = e.sesion.FechaFinEj;
    LibroLleno l{RejillaLibroIva(sel), {}};
    Conexion c = e.datos();
    l.res = LlenarLibroIva(c, sel, l.r);
    return l;
}

inline LibroLleno Libro(Entorno& e, LibroIva libro, bool verAsiento = true, bool verNif = true,
                        const QString& sector = {}) {
    SeleccionLibroIva sel;
    sel.libro = libro;
    sel.sector = sector;
    sel.verAsiento = verAsiento;
    sel.verNIF = verNif;
    return Libro(e, sel);
}

inline QString TotalBajoLista(const Rejilla& r) {
    for (const Rejilla::Total& t : r.Totales())
        if (t.etiqueta == TotalLibroIva)
            return t.valor;
    return QStringLiteral("<ninguno>");
}
