#pragma once
// The tax books on the board's "Listados" menu: mnuLIngresos, mnuLGastos, mnuLExpedidas and
// mnuLRecibidas each open Form25 and then their book, registered with the board as "LibrosIva"
// so that it is filled again when entries change. "Ver movimientos" of the books opens the
// movements of the row's subaccount (Form10) for the book's dates.

class Ajustes;
class Dialogo;
class Form1;
class VentanaLibroIva;
struct Sesion;
enum class LibroIva;

void ConectarLibrosIva(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

// Form25, then the book, registered with the board. Null when Form25 was cancelled.
VentanaLibroIva* AbrirLibroIva(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d, LibroIva libro);
