#pragma once
// The ledger on the board: mnuMovimientos (toolbar button 13: Form9, then Form10, registered as
// "Movimientos"), mnuMayor (button 8: Form53, then Form55, registered as "Mayor"), and the
// journal's "Ver Movimientos de la Subcuenta", which opens Form10 on the row's subaccount.
// Deleting an entry from these lists empties the maintenance screen if it shows that entry and
// refreshes the open books.

class Ajustes;
class Dialogo;
class Form1;
class Form10;
struct PeticionMovimientos;
struct Sesion;

void ConectarMayor(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

// Form10 on a subaccount and dates, registered with the board (for the other books' actions).
Form10* AbrirMovimientos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d,
                         const PeticionMovimientos& p);
