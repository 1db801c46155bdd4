#pragma once
// Shared by the inventory tests: a company of the generic chart with two locations, the
// subaccounts of depreciation, a ready element form, and reads of the inventory's rows.

#include "Entorno.h"
#include "assets/Centros.h"
#include "assets/Inventario.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <QSqlQuery>
#include <gtest/gtest.h>

namespace inv {
// Accumulated depreciation (028) and charge (668) subaccounts of the generic chart.
inline const QString AmortIntangible = "028000039", AmortMobiliario = "028100040",
                     AmortInformatica = "028100041", DotaIntangible = "668000063",
                     DotaMaterial = "668100064";
inline const QString Oficina = "Oficina", Almacen = "Almacén";
} // namespace inv

// A company of year `ano` with the locations "Oficina" and "Almacén".
inline void EmpresaInventario(Entorno& e, int ano = 2025) {
    e.crearEmpresa(QStringLiteral("001"), ano);
    AnadirCentro(e.sesion, e.dialogo, inv::Oficina);
    AnadirCentro(e.sesion, e.dialogo, inv::Almacen);
}

// A depreciable element of 1.000,00 at 10 %, bought long ago, in the office.
inline FichaElemento Ficha(const QString& nombre = QStringLiteral("Mesa de reuniones")) {
    FichaElemento f;
    f.Nombre = nombre;
    f.Naturaleza = QStringLiteral("Material");
    f.FechaAdq = QStringLiteral("15/06/2020");
    f.Importe = QStringLiteral("1000");
    f.Localizacion = inv::Oficina;
    f.Amortizable = QStringLiteral("SI");
    f.Porcentaje = QStringLiteral("10");
    f.SubctaAmort = inv::AmortMobiliario;
    f.SubctaDota = inv::DotaMaterial;
    return f;
}

// Adds an element and returns its number; fails the test when refused.
inline qint64 Alta(Entorno& e, const FichaElemento& f) {
    const ResultadoFicha r = AnadirElemento(e.sesion, e.dialogo, f);
    EXPECT_TRUE(r.hecho) << e.dialogo.textos.join(" | ").toStdString();
    return r.numero;
}

// One element as stored.
inline Elemento Leer(Entorno& e, qint64 n) {
    const std::optional<Elemento> el = LeerElemento(e.sesion, n);
    EXPECT_TRUE(el.has_value()) << n;
    return el.value_or(Elemento{});
}

// Sets stored fields directly, as a test's starting state.
inline void Poner(Entorno& e, qint64 n, const QString& asignaciones, const QVariantList& valores) {
    Conexion c = e.bavar();
    c.ejecutar(QStringLiteral("UPDATE Inventario SET %1 WHERE NElemento = ?").arg(asignaciones),
               valores + QVariantList{n});
}
