#pragma once
// A company with the generic chart in 2024, and helpers for the chart tests: another exercise made
// by copying the database, new subaccounts, and reading rows back.

#include "Entorno.h"
#include "chart/PlanCuentas.h"
#include "store/ListasEmpresas.h"

#include <QFile>
#include <gtest/gtest.h>

class PlanPrueba : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(QStringLiteral("001"), 2024); }

    // Another exercise of the company, as a copy of this one's database with its own record in
    // Selan.dat (after the present ones). Its journal starts empty.
    void otroEjercicio(int ano) {
        const QString destino = e.sesion.rutaEjercicio(ano);
        EXPECT_TRUE(QFile::copy(e.sesion.rutaEjercicio(), destino));
        AnadirSelan(e.sesion.rutaSelan(),
                    {QString::number(ano), QStringLiteral("001"), QStringLiteral("Pruebas SL")});
        Conexion c = ejercicio(ano);
        c.ejecutar(QStringLiteral("DELETE FROM Diario"));
        c.ejecutar(QStringLiteral("DELETE FROM Mayor"));
        c.ejecutar(QStringLiteral("DELETE FROM DatosIVA"));
        c.ejecutar(QStringLiteral("UPDATE Empresa SET FechaIni = ?"),
                   {QStringLiteral("%1-01-01").arg(ano)});
    }
    Conexion ejercicio(int ano) const {
        return Conexion(e.sesion.rutaEjercicio(ano), TipoBase::Ejercicio);
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
