#pragma once
// The demo company "De Pruebas" (Emp100): the generic chart with some customers, suppliers and
// banks of its own, and a year of sample entries posted through the journal writer, so that a new
// installation is useful at once.

class Ajustes;
struct Sesion;

// Installs Emp100 for the current year and leaves the session on it.
void InstalarEmpresaDemo(Sesion& s, Ajustes& a);

// At the start of either executable: makes the installation if it isn't there and, on a first
// start whose data folder has no company, installs the demo company.
void PrimerArranque(Sesion& s, Ajustes& a);
