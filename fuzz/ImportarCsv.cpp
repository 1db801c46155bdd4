// The import of entries from a delimited file: any file is posted whole, every entry balanced
// and Mayor equal to the journal, or refused with a Spanish message that names the line, leaving
// the books as they were.

#include "Comun.h"
#include "journal/Escritor.h"
#include "platform/Ajustes.h"
#include "platform/Errores.h"
#include "posting/Importar.h"
#include "store/Conexiones.h"
#include "store/Empresas.h"
#include "store/Instalacion.h"
#include "store/Sesion.h"

#include <QFile>
#include <QTemporaryDir>
#include <memory>

namespace {

struct Instalacion {
    QTemporaryDir dir;
    Sesion s;
    std::unique_ptr<Ajustes> ajustes;
    Instalacion() {
        s.AppPath = s.DataPath = dir.path();
        ajustes = std::make_unique<Ajustes>(dir.path());
        EscribirPLoc(s, s.AppPath);
        PrepararInstalacion(s);
        DatosNuevaEmpresa d;
        d.Codigo = QStringLiteral("001");
        d.Nombre = QStringLiteral("Pruebas SL");
        d.FechaIni = QDate(2024, 1, 1);
        CrearEmpresa(s, *ajustes, d);
    }
};

qint64 lineasDiario(Conexion& c) {
    return c.escalar(QStringLiteral("SELECT COUNT(*) FROM Diario")).toLongLong();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t largo) {
    fuzz::ArrancarQt();
    static Instalacion inst;
    const QByteArray bytes(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(largo));
    const QString entrada = QString::fromUtf8(bytes);
    const QString ruta = inst.dir.filePath(QStringLiteral("entrada.csv"));
    {
        QFile f(ruta);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(bytes) != bytes.size())
            return 0;
    }
    Sesion& s = inst.s;
    qint64 antes = 0;
    {
        Conexion c = AbrirDatos(s);
        antes = lineasDiario(c);
    }
    try {
        const ResultadoImportacion r = ImportarAsientos(s, ruta);
        Conexion c = AbrirDatos(s);
        if (lineasDiario(c) != antes + r.lineas)
            fuzz::Fallo("se escriben las líneas contadas", entrada);
        if (!DescuadresMayor(c).isEmpty())
            fuzz::Fallo("Mayor igual al Diario tras importar", entrada);
        if (c.existe(QStringLiteral("SELECT NAs FROM Diario GROUP BY NAs "
                                    "HAVING round(SUM(Debe) - SUM(Haber), 2) <> 0")))
            fuzz::Fallo("cada asiento importado cuadra", entrada);
        // The books go back to empty, so that every input meets the same company.
        for (long n = r.primero; r.asientos > 0 && n <= r.ultimo; ++n)
            ElimAsiento(c, s, n);
        if (lineasDiario(c) != antes || !DescuadresMayor(c).isEmpty())
            fuzz::Fallo("borrar lo importado deja los libros como estaban", entrada);
    } catch (const Rechazo& e) {
        if (!e.mensaje().startsWith(QStringLiteral("Línea ")))
            fuzz::Fallo("un rechazo nombra la línea", entrada + " -> " + e.mensaje());
        Conexion c = AbrirDatos(s);
        if (lineasDiario(c) != antes)
            fuzz::Fallo("un archivo rechazado no deja nada", entrada);
    } catch (const ErrorQuilmar& e) {
        fuzz::Fallo("solo rechazos por las reglas de los libros",
                    entrada + " -> " + e.mensaje());
    }
    return 0;
}
