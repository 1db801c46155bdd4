#pragma once
// The Modelo 347 as a list and as our own printed draft of its three sheets, for any year:
// the declarant and the summary, the parties and the rented properties with their totals.
//
// Usage:
//     Rejilla r = Rejilla347(m);                          // the command line's listing
//     DibujarBorrador347(imp, m, "Arial", 9);            // "Imprimir &Borrador", landscape

#include "tax/Modelo347.h"

class Impresora;
class Rejilla;

// Columns NIF, Nombre, Provincia, Clave, Importe, Op.Seguro, Arrend., Referencia catastral,
// Municipio, Vía pública, Nº; a bold heading row "Declarados" over the parties and, when there
// are any, "Inmuebles" over the properties; then bold rows with the count and sum of each list
// ("Total declarados: 4").
Rejilla Rejilla347(const Modelo347& m);

// Sum of the amounts of a list, to the cent.
double SumaDeclarados(const Modelo347& m);
double SumaInmuebles(const Modelo347& m);

// The draft on a landscape page: "Modelo 347", "Ejercicio: <year>", the summary sheet, the
// section "Declarados" closed by "Total declarados: " and "Total importes: ", the section
// "Inmuebles" closed by "Total Inmuebles declarados: " and "Total importes de Inmuebles: ",
// "Página nº <n>" at the foot of every page. Columns repeat their headings on a new page.
void DibujarBorrador347(Impresora& imp, const Modelo347& m, const QString& fuente, double tamano);
