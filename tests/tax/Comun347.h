#pragma once
// Shared by the Modelo 347 tests: a company of 2010 (the one year whose file the program
// carries) with customers and suppliers of its own, their cards, and their invoices.

#include "ComunModelos.h"
#include "tax/Modelo347.h"

struct Empresa347 : Empresa2011 {
    Empresa347() : Empresa2011(2010) {}

    // A subaccount of the chart and, with a NIF or a province, its card.
    void tercero(const QString& ncuenta, const QString& nombre, const QVariant& nif = {},
                 const QVariant& provincia = {}) {
        Conexion c = datos();
        c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, ?)",
                   {ncuenta, nombre, ncuenta.mid(1, 4)});
        if (nif.isValid() || provincia.isValid())
            c.ejecutar("INSERT INTO CliPro (NCuenta, NIF, Provincia) VALUES (?, ?, ?)",
                       {ncuenta, nif, provincia});
    }

    // An invoice of a customer (area 4) or a supplier (area 2) with its VAT record.
    void factura(const QDate& fecha, const QString& tercero, double base, double tipo,
                 const QString& tipOp = "N") {
        using namespace cuentas;
        DatosIvaApunte v;
        v.Contra = tercero;
        v.Base = base;
        v.Porcentaje = tipo;
        v.Cuota = Centimos(base * tipo / 100);
        v.TipOp = tipOp;
        const double total = Centimos(base + v.Cuota);
        if (tercero.startsWith('4')) {
            Apunte iva = Haber(IvaRep, v.Cuota);
            iva.Iva = v;
            asiento(fecha, {Debe(tercero, total), Haber(Ventas, base), iva});
        } else {
            Apunte iva = Debe(IvaSop, v.Cuota);
            iva.Iva = v;
            asiento(fecha, {Debe(Compras, base), iva, Haber(tercero, total)});
        }
    }

    Modelo347 reunir(double limite = 3005.06, const QDate& desde = {2010, 1, 1},
                     const QDate& hasta = {2010, 12, 31}) {
        Conexion c = datos();
        return Nuevo347(c, desde, hasta, limite);
    }
};

// A return of 2010 that passes every check: the summary filled, three parties (the last one a
// landlord's tenant: key B with the rent mark) and one property rented to it.
inline Modelo347 Modelo347Valido() {
    Modelo347 m;
    m.desde = {2010, 1, 1};
    m.hasta = {2010, 12, 31};
    m.anoFechas = 2010;
    m.ejercicio = "2010";
    m.nif = "B50123454";
    m.nombre = "MUÑOZ GARCIA SL";
    m.contacto = "PEREZ LOPEZ ANA";
    m.telefono = "976123456";
    auto parte = [](const QString& nif, const QString& nombre, const QString& clave,
                    double importe) {
        Declarado347 d;
        d.nif = nif;
        d.nombre = nombre;
        d.provincia = "50";
        d.clave = clave;
        d.importe = importe;
        return d;
    };
    m.declarados = {parte("A50111111", "HIERROS DEL EBRO SA", "A", 12000.5),
                    parte("B50222222", "DISTRIBUCIONES ZETA SL", "B", 4100),
                    parte("25123456G", "RUIZ MARTIN JOSE", "B", 9600)};
    m.declarados[2].arrendamiento = true;
    Inmueble347 i;
    i.nif = "25123456G";
    i.nombre = "RUIZ MARTIN JOSE";
    i.importe = 9600;
    i.situacion = "1";
    i.referencia = "9872023VH5797S0001WX";
    i.tipoVia = "CL";
    i.via = "COSO";
    i.tipoNumero = "NUM";
    i.numero = "60";
    i.planta = "2";
    i.puerta = "B";
    i.municipio = "ZARAGOZA";
    i.codMunicipio = "50297";
    i.provincia = "ZARAGOZA";
    i.codProvincia = "50";
    i.cpostal = "50001";
    m.inmuebles = {i};
    m.numDeclarados = "3";
    m.totalDeclarados = 25700.5;
    m.numInmuebles = "1";
    m.totalInmuebles = 9600;
    return m;
}
