// The arithmetic of predesigned entries and notes: any text gives a finite value or a message
// with a position inside the text, and never hangs or crashes.

#include "Comun.h"
#include "platform/Evaluar.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t largo) {
    fuzz::ArrancarQt();
    const QString entrada = fuzz::Texto(datos, largo);
    const ResultadoEvaluar r = Evaluar(entrada);
    if (r.ok()) {
        if (!std::isfinite(*r.valor) || !r.mensaje.isEmpty())
            fuzz::Fallo("un valor es finito y sin mensaje", entrada);
    } else if (r.mensaje.isEmpty() || r.posicion < 0 || r.posicion > entrada.size()) {
        fuzz::Fallo("un error tiene mensaje y posición en el texto", entrada);
    }
    return 0;
}
