#pragma once
// A company with the generic chart in 2024, and helpers for the chart tests: another exercise,
// new subaccounts, and reading rows back.

#include "Entorno.h"
#include "chart/PlanCuentas.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/ListasEmpresas.h"

#include <QFile>
#include <gtest/gtest.h>

class PlanPrueba : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(QStringLiteral("001"), 2024); }

    // Another exercise of the company, made from this one (its chart, an empty journal, its own
    // line in the list after the present ones), on the engine of the run. The session stays.
    void otroEjercicio(int ano) {
        Sesion copia = e.sesion;
        CrearEjercicio(copia, e.dialogo, ano, e.sesion.AnoActual);
    }
    Conexion ejercicio(int ano) const {
        Sesion s = e.sesion;
        s.AnoActual = static_cast<qint16>(ano);
        return AbrirDatos(s);
    }

    // Adds a subaccount and returns its code; fails the test when refused.
    QString nueva(int area, const QString& ngrupo, const QString& nombre,
                  const FichaCliPro& ficha = {}) {
        NuevaSubcuenta n;
        n.area = area;
        n.NGrupo = ngrupo;
        n.Cuenta = nombre;
        n.ficha = ficha;
        const ResultadoPlan r = AnadirSubcuenta(e.sesion, e.dialogo, n);
        EXPECT_TRUE(r.hecho) << e.dialogo.textos.join(QStringLiteral(" | ")).toStdString();
        return r.NCuenta;
    }

    bool existe(const QString& sql, const QVariantList& valores = {}) {
        Conexion c = e.datos();
        return c.existe(sql, valores);
    }
    QVariant valor(const QString& sql, const QVariantList& valores = {}) {
        Conexion c = e.datos();
        return c.escalar(sql, valores);
    }
    void cerrarEjercicio() {
        Conexion c = e.datos();
        c.ejecutar(QStringLiteral("UPDATE Empresa SET EjCerrado = -1"));
    }
    QString ultimoMensaje() const {
        return e.dialogo.informados.isEmpty() ? QString() : e.dialogo.informados.last();
    }

    Entorno e;
};
