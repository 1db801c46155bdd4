#pragma once
// The books on the board's menus: mnuVerDiario (Form6, then the journal Form5, registered with
// the board as "Diario"; also toolbar button 6), mnuSumas (Form78, then the trial balance Form11,
// registered as "SyS"; also toolbar button 7) and mnuBuscarAs (Form57 over the open journal,
// opening one first when there is none). "Ver/Modificar Asiento" of the books opens the entry in
// the maintenance screen (VMAsiento); deleting an entry from a book refreshes the open books.

class Ajustes;
class Dialogo;
class Form1;
class Form11;
class Form5;
struct Sesion;

void ConectarLibros(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

// Form6, then the journal, registered with the board. Null when Form6 was cancelled.
Form5* AbrirDiario(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

// Form78, then the trial balance, registered with the board. Null when Form78 was cancelled.
Form11* AbrirSumasSaldos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);
