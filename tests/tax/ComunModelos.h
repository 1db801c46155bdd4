#pragma once
// Shared by the tests of the returns: a company of 2011 (a year whose files the program
// carries) with its NIF and town, and entries that leave VAT records.

#include "Entorno.h"
#include "store/Formato.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace cuentas {
inline const QString Caja = "157000001", Banco = "157200003", Compras = "660000044",
                     Alquiler = "662100046", Proveedor = "240000009", Acreedor = "241000010",
                     IvaSop = "447200028", IvaRep = "247700016", Retenciones = "247500013",
                     Clientes = "443000022", Ventas = "370000066";
}

struct Empresa2011 : Entorno {
    explicit Empresa2011(int ano = 2011) {
        crearEmpresa("001", ano, "Muñoz García SL");
        datos().ejecutar("UPDATE Empresa SET NIF = ?, Ciudad = ?", {"b-50123454", "Zaragoza"});
    }

    // A sale with its output VAT record (account 477, side C).
    void venta(const QDate& fecha, double base, double tipo, const QString& clase = "IVA",
               bool libro = true, const QString& sector = {}) {
        using namespace cuentas;
        DatosIvaApunte v;
        v.Contra = Clientes;
        v.Base = base;
        v.Porcentaje = tipo;
        v.Cuota = Centimos(base * tipo / 100);
        v.Clase = clase;
        v.LIVA = libro;
        Apunte iva = Haber(IvaRep, v.Cuota);
        iva.Iva = v;
        Apunte venta = Haber(Ventas, base);
        venta.Sector = sector;
        asiento(fecha, {Debe(Clientes, Centimos(base + v.Cuota)), venta, iva});
    }

    // A purchase with its input VAT record (account 472, side P).
    void compra(const QDate& fecha, double base, double tipo, const QString& clase = "IVA") {
        using namespace cuentas;
        DatosIvaApunte v;
        v.Contra = Proveedor;
        v.Base = base;
        v.Porcentaje = tipo;
        v.Cuota = Centimos(base * tipo / 100);
        v.Clase = clase;
        Apunte iva = Debe(IvaSop, v.Cuota);
        iva.Iva = v;
        asiento(fecha, {Debe(Compras, base), iva, Haber(Proveedor, Centimos(base + v.Cuota))});
    }

    // A rent with its withholding: the record is of type A.
    void alquiler(const QDate& fecha, double base, double retencion, bool l347 = false) {
        using namespace cuentas;
        DatosIvaApunte v;
        v.Contra = Acreedor;
        v.Base = base;
        v.Porcentaje = 21;
        v.Cuota = Centimos(base * 0.21);
        v.L347 = l347;
        v.TipOp = "A";
        v.Retencion = retencion;
        Apunte iva = Debe(IvaSop, v.Cuota);
        iva.Iva = v;
        asiento(fecha, {Debe(Alquiler, base), iva, Haber(Retenciones, retencion),
                        Haber(Banco, Centimos(base + v.Cuota - retencion))});
    }

    QString destino() {
        const QString d = ruta("destino");
        QDir().mkpath(d);
        return d;
    }
};

inline QByteArray LeerFichero(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no existe)");
}

// A file against its fixture: each piece at its offset, the pieces one after another with no
// gap, up to the end of the file.
inline void CompararCampos(const QByteArray& fichero,
                           const QList<std::pair<int, QByteArray>>& campos, int tamano) {
    ASSERT_EQ(fichero.size(), tamano);
    int siguiente = 0;
    for (const auto& [posicion, esperado] : campos) {
        EXPECT_EQ(posicion, siguiente) << "the fixture leaves a gap before " << posicion;
        EXPECT_EQ(fichero.mid(posicion, esperado.size()), esperado) << "at offset " << posicion;
        siguiente = posicion + static_cast<int>(esperado.size());
    }
    EXPECT_EQ(siguiente, tamano);
}
