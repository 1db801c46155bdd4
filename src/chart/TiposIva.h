#pragma once
// The VAT subaccounts and their rates (table TiposIVA): which subaccounts posting treats as VAT
// lines, at what rate, and whether VAT or equivalence surcharge. One rate per subaccount.

#include "chart/VistaArea.h"

#include <QList>
#include <QString>

class Conexion;
class Dialogo;
struct Sesion;

struct FilaTipoIva {
    QString NCuenta;
    QString Cuenta;
    double Porcentaje = 0;
    QString Clase; // "IVA" or "Recargo"
};

extern const QStringList ClasesIva; // "IVA", "Recargo"

// The rows of TiposIVA with the names of their subaccounts, by name.
QList<FilaTipoIva> ListaTiposIva(Conexion& c);
// The subaccounts that may be VAT subaccounts: account 472 in area 4 (input VAT) and 477 in
// area 2 (output VAT), by name.
QList<SubcuentaDeLista> SubcuentasIva(Conexion& c);

// Adds the rate of a subaccount, or changes it when it has one. The rate is typed text ("21",
// "5,2"). False, after telling the user, when refused.
bool GuardarTipoIva(Sesion& s, Dialogo& d, const QString& ncuenta, const QString& porcentaje,
                    const QString& clase);
bool EliminarTipoIva(Sesion& s, Dialogo& d, const QString& ncuenta);

extern const QString TituloListadoTiposIva; // "Subcuentas de IVA"
