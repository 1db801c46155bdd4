// Amounts as typed or given: LeerImporte accepts only finite amounts within the books' maximum,
// exact to the cent, and what it accepts reads back the same once shown.

#include "Comun.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t largo) {
    fuzz::ArrancarQt();
    const QString entrada = fuzz::Texto(datos, largo);
    bool ok = false;
    const double bruto = ValorImporte(entrada, &ok);
    if (!ok && bruto != 0.0)
        fuzz::Fallo("un número ilegible vale 0", entrada);
    const std::optional<double> v = LeerImporte(entrada);
    if (!v)
        return 0;
    if (!std::isfinite(*v) || !ImporteAdmitido(*v))
        fuzz::Fallo("un importe aceptado es finito y cabe en los libros", entrada);
    if (Centimos(*v) != *v)
        fuzz::Fallo("un importe aceptado está en céntimos", entrada);
    for (const char* formato : {"standard", "General Number"}) {
        const QString mostrado = Formato(*v, QString::fromLatin1(formato));
        const std::optional<double> otra = LeerImporte(mostrado);
        if (!otra || *otra != *v)
            fuzz::Fallo("un importe mostrado se lee igual", entrada + " -> " + mostrado);
    }
    return 0;
}
