#pragma once
// A company of the generic chart in a temporary folder, for the posting benchmarks.

#include "platform/Ajustes.h"
#include "store/Empresas.h"
#include "store/Instalacion.h"
#include "store/Sesion.h"

#include <QTemporaryDir>
#include <memory>

struct EmpresaDePrueba {
    QTemporaryDir dir;
    Sesion sesion;
    std::unique_ptr<Ajustes> ajustes;

    EmpresaDePrueba() {
        sesion.AppPath = sesion.DataPath = dir.path();
        ajustes = std::make_unique<Ajustes>(dir.path());
        EscribirPLoc(sesion, dir.path());
        PrepararInstalacion(sesion);
        DatosNuevaEmpresa d;
        d.Codigo = QStringLiteral("001");
        d.Nombre = QStringLiteral("Rendimiento SL");
        d.FechaIni = QDate(2024, 1, 1);
        CrearEmpresa(sesion, *ajustes, d);
    }
};
