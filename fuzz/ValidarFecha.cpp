// Typed dates: whatever the user types, ValidarFecha answers a date text that is a real date, or
// nothing after telling why.

#include "Comun.h"
#include "store/Rutinas.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t largo) {
    fuzz::ArrancarQt();
    const QString entrada = fuzz::Texto(datos, largo);
    fuzz::DialogoMudo d;
    const QString r = ValidarFecha(entrada, d);
    if (!r.isEmpty() && !FechaDeTexto(r).isValid())
        fuzz::Fallo("una fecha aceptada es una fecha real", entrada);
    if (r.isEmpty() && !entrada.trimmed().isEmpty() && d.informados == 0)
        fuzz::Fallo("una fecha rechazada se explica", entrada);
    if (!r.isEmpty() && d.informados != 0)
        fuzz::Fallo("una fecha aceptada no da mensajes", entrada);
    return 0;
}
