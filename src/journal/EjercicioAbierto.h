#pragma once
// Every change to the chart and the master tables begins by refusing a closed exercise. The flag
// is read again from the exercise database, since another user may have closed it meanwhile.

class Conexion;
class Dialogo;
struct Sesion;

// False, after telling the user, when the exercise is closed. Updates s.EjCerrado.
bool EjercicioAbierto(Conexion& datos, Sesion& s, Dialogo& d);
bool EjercicioAbierto(Sesion& s, Dialogo& d);
