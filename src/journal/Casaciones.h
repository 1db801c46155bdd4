#pragma once
// Matching groups of journal lines (casación). A starting line and the lines joined to it share
// the key CasacionH; CasacionN gives each line's role and the state of its group:
//     0 start, group open          3 joined, group open           ("Casados parcialmente")
//     2 start, group balanced      1 joined, group balanced       ("Casados totalmente")
// A group is balanced when the sum of Debe - Haber over its lines is zero to the cent. Whatever
// changes the lines of a group (an entry rewritten or deleted) grades it again, inside the same
// transaction, so that the marks never tell a state the amounts no longer have.

#include <QList>
#include <QString>

class Conexion;

namespace EstadoCasacion {
enum : int { Inicio = 0, CasadoTotal = 1, InicioCasado = 2, Casado = 3 };
}

// True for the roles of a starting line (0 and 2).
inline bool EsInicioCasacion(int casacionN) {
    return casacionN == EstadoCasacion::Inicio || casacionN == EstadoCasacion::InicioCasado;
}

// A group key as it is written: the day number with nine decimals and a tenth when it is not
// zero ("######0.000000000#"), with a decimal point.
QString TextoClaveCasacion(double clave);
// The value a key takes once written: rounded to the ten decimals it is written with.
double RedondearClave(double clave);

// A new key: the present moment as a day number, above every key in use, so that two starts
// marked within the same instant (two lines of one entry) never share a group. Draw it inside
// the writing transaction.
double NuevaClaveCasacion(Conexion& c);

// The sum of Debe - Haber over a group, to the cent.
double SumaGrupo(Conexion& c, double clave);

// Grades a group by its sum: balanced, its starts take 2 and its other lines 1; otherwise 0 and
// 3. Returns the lines whose mark changed.
int GraduarGrupo(Conexion& c, double clave);
// The same for several keys (0 is no group and is skipped).
int GraduarGrupos(Conexion& c, const QList<double>& claves);

// Grades every group of the journal: the repair after entries were changed or deleted. Returns
// the lines whose mark changed.
int CompCasa(Conexion& c);
