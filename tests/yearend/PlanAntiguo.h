#pragma once
// A small chart of the old general plan for the tests of the adaptation and of the close into an
// adapted exercise.

#include "Entorno.h"
#include "store/Conexiones.h"

inline const QString NombreLargo = QStringLiteral("Otro inmovilizado material antiguo");

// A small chart of the old plan: no group 5219, groups that move, chain and collision cases.
inline void planAntiguo(Entorno& e, int ano = 2008) {
    e.crearEmpresa("001", ano, "Antigua SL");
    Conexion c = e.datos();
    c.ejecutar("DELETE FROM Cuentas");
    c.ejecutar("DELETE FROM Grupos");
    c.ejecutar("DELETE FROM TiposIVA");
    c.ejecutar("DELETE FROM CliPro");
    const QList<QStringList> grupos{{"0110", "Prima de emision de acciones"},
                                    {"0111", "Reservas de revalorizacion"},
                                    {"0293", "Provision participaciones"},
                                    {"0294", "Provision depreciacion valores"},
                                    {"1570", "Caja"},
                                    {"2402", "Proveedores empresas grupo"},
                                    {"2403", "Proveedores empresas asociadas"},
                                    {"5210", "Gastos de investigacion"},
                                    {"5220", "Terrenos"},
                                    {"5229", "Otro inmovilizado material"}};
    for (const QStringList& g : grupos)
        c.ejecutar("INSERT INTO Grupos (NGrupo, Grupo) VALUES (?, ?)", {g[0], g[1]});
    const QList<QStringList> cuentas{{"029300070", "Provisión participaciones", "0293"},
                                     {"029400070", "Deterioro de valores", "0294"},
                                     {"157000001", "Caja", "1570"},
                                     {"240200060", "Proveedor del grupo", "2402"},
                                     {"240300061", "Proveedor asociado", "2403"},
                                     {"521000051", "Investigación", "5210"},
                                     {"522000051", "Terreno rústico", "5220"},
                                     {"522900050", NombreLargo, "5229"}};
    for (const QStringList& k : cuentas)
        c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, ?)",
                   {k[0], k[1], k[2]});
}
