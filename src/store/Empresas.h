#pragma once
// Making a company: its folder with the exercise database (chart of the generic template or of
// another company), the company database, Selan.dat, its Nemp.dat record and the start settings.

#include <QDate>
#include <QString>

class Ajustes;
class Dialogo;
struct Sesion;

struct DatosNuevaEmpresa {
    QString Codigo; // three digits
    QString Nombre;
    QString NIF;
    QString Domicilio;
    QString Numero;
    QString Ciudad;
    QString CPostal;
    QString Provincia;
    QDate FechaIni; // first day of the first exercise; its year names the exercise
    // Empty: the generic chart. Otherwise the folder ("Emp001") whose latest exercise gives the
    // chart, VAT subaccounts, cards and lists, and whose company tables are copied as chosen.
    QString EmpresaOrigen;
    bool CopiarConceptos = false;
    bool CopiarPeriodicos = false;
    bool CopiarPredisenados = false;
    bool CopiarInventario = false;
    bool CopiarSectores = false;
    bool CopiarVencimientos = false;
};

extern const QString MsgCodigoReservado;

// Creates the company and leaves the session on it (EmpresaActual, AnoActual, exercise state)
// with the Inicio settings written. Throws Rechazo with the user's message when refused, and
// ErrorAlmacen on a store failure; nothing is left on disk in either case. Code 100 belongs to
// the demo company and is refused unless reservadoPermitido.
void CrearEmpresa(Sesion& s, Ajustes& a, const DatosNuevaEmpresa& d,
                  bool reservadoPermitido = false);

// The year of a company's latest exercise (last record of its Selan.dat, else its newest file);
// 0 when it has none.
int UltimoEjercicio(const Sesion& s, const QString& empresa);

// Makes a company the session's current one on a year: settings Inicio\Empresa, Inicio\Año and
// Inicio\Nombre, and the exercise state loaded from its database.
void SeleccionarEmpresa(Sesion& s, Ajustes& a, const QString& empresa, const QString& nombre,
                        int ano);

// The row of Empresa of the current exercise, as the modification screen shows it (EmpresaOrigen
// and the copy flags stay empty).
DatosNuevaEmpresa LeerDatosEmpresa(const Sesion& s);
// Writes it back, texts trimmed, an empty number as Null, and the start date; the session's
// exercise dates follow. The code and the lists of companies and exercises are not touched.
void GuardarDatosEmpresa(Sesion& s, const DatosNuevaEmpresa& d);

extern const QString MsgSeleccioneEmpresa;     // "Tiene que seleccionar una Empresa."
extern const QString MsgSituarseEnOtraEmpresa; // "Para eliminar una empresa tiene que ..."

// Deletes a company after two confirmations: its folder with everything in it and its record of
// Nemp.dat. The session's current company is refused. False when refused or not confirmed.
bool EliminarEmpresa(Sesion& s, Dialogo& d, const QString& codigo, const QString& nombre);
