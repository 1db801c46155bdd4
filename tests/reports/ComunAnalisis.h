#pragma once
// Shared by the tests of the income and expense analyses and the charts: the subaccounts of
// groups 6 and 7 of the generic chart, a year of income and expense, and an exercise closed the
// way the year close leaves it.

#include "Entorno.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "store/Conexiones.h"
#include "store/Formato.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSqlQuery>

namespace iyg {
inline const QString Ventas = "370000066", Servicios = "370500067", Diversos = "375900068",
                     Financieros = "376900069", Compras = "660000044", Alquiler = "662100046",
                     Reparaciones = "662200047", Publicidad = "662700052", Caja = "157000001",
                     Banco = "157200003", Capital = "010000004", Resultado = "012900002";
}

// Income and expense over 2024 in the sectors "Tienda" and "Web": income 12.000 + 3.000,50 + 500
// = 15.500,50, expense 4.000 + 2.400 + 600,25 = 7.000,25, and a line of Diversos that a second line
// cancels.
inline void AnoDeIngresosYGastos(Entorno& e) {
    using namespace iyg;
    e.crearEmpresa(QStringLiteral("001"), 2024);
    {
        Conexion c = e.datos();
        for (const char* s : {"Tienda", "Web"})
            c.ejecutar(QStringLiteral("INSERT INTO Sectores (Sector) VALUES (?)"),
                       {QString::fromLatin1(s)});
    }
    e.asiento(QDate(2024, 1, 2), {Debe(Banco, 20000), Haber(Capital, 20000)});
    auto conSector = [](Apunte a, const QString& sector) {
        a.Sector = sector;
        return a;
    };
    e.asiento(QDate(2024, 1, 15), {Debe(Caja, 7000), conSector(Haber(Ventas, 7000), "Tienda")});
    e.asiento(QDate(2024, 3, 10), {Debe(Caja, 5000), conSector(Haber(Ventas, 5000), "Web")});
    e.asiento(QDate(2024, 3, 20),
              {Debe(Banco, 3000.50), conSector(Haber(Servicios, 3000.50), "Tienda")});
    e.asiento(QDate(2024, 6, 30), {Debe(Banco, 500), Haber(Financieros, 500)});
    e.asiento(QDate(2024, 2, 1), {Debe(Caja, 80), Haber(Diversos, 80)});
    e.asiento(QDate(2024, 2, 3), {Debe(Diversos, 80), Haber(Caja, 80)});
    e.asiento(QDate(2024, 2, 5), {conSector(Debe(Compras, 4000), "Tienda"), Haber(Banco, 4000)});
    e.asiento(QDate(2024, 3, 1), {Debe(Alquiler, 1200), Haber(Banco, 1200)});
    e.asiento(QDate(2024, 9, 1), {Debe(Alquiler, 1200), Haber(Banco, 1200)});
    e.asiento(QDate(2024, 12, 30),
              {conSector(Debe(Publicidad, 600.25), "Web"), Haber(Caja, 600.25)});
}

// A subaccount of the plan account ngrupo (four digits, area first) with a serial of its own.
inline QString NuevaSubcuenta(Entorno& e, const QString& ngrupo, int serial,
                              const QString& nombre) {
    const QString nc = ngrupo + QStringLiteral("%1").arg(serial, 5, 10, QLatin1Char('0'));
    Conexion c = e.datos();
    c.ejecutar(QStringLiteral("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, ?)"),
               {nc, nombre, ngrupo});
    return nc;
}

// The close as the year close leaves an exercise: the regularisation (Clase "R") takes every
// income and expense subaccount to the result, the final entry (Clase "F") closes every
// subaccount left with a balance, and Empresa says the exercise is closed. Returns the two
// entry numbers.
inline std::pair<long, long> CerrarComoElCierre(Entorno& e) {
    Conexion c = e.datos();
    auto saldos = [&](bool regularizar) {
        QList<Apunte> lineas;
        double resultado = 0;
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, SaldoD, SaldoH FROM Mayor "
                                                "ORDER BY NCuenta"));
        while (q.next()) {
            const QString n = q.value(0).toString();
            const bool grupo67 = n.mid(1, 1) == "6" || n.mid(1, 1) == "7";
            if (grupo67 != regularizar)
                continue;
            const double saldo = Centimos(q.value(1).toDouble() - q.value(2).toDouble());
            if (saldo == 0)
                continue;
            lineas << (saldo > 0 ? Haber(n, saldo, "Cierre") : Debe(n, -saldo, "Cierre"));
            resultado += saldo;
        }
        if (regularizar && Centimos(resultado) != 0)
            lineas << (resultado > 0 ? Debe(iyg::Resultado, Centimos(resultado), "Cierre")
                                     : Haber(iyg::Resultado, Centimos(-resultado), "Cierre"));
        return lineas;
    };
    OpcionesEscritura r;
    r.Clase = QStringLiteral("R");
    const long nasReg = EscribirAsiento(c, e.sesion, e.sesion.FechaFinEj, saldos(true), r);
    OpcionesEscritura f;
    f.Clase = QStringLiteral("F");
    const long nasFin = EscribirAsiento(c, e.sesion, e.sesion.FechaFinEj, saldos(false), f);
    c.ejecutar(QStringLiteral("UPDATE Empresa SET EjCerrado = -1, NAsReg = ?, NAsFin = ?"),
               {qlonglong(nasReg), qlonglong(nasFin)});
    CargarEjercicio(e.sesion, c);
    return {nasReg, nasFin};
}

// The bytes of a database file, once every connection to it is closed.
inline QByteArray Huella(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256);
}
