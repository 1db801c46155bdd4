#include "posting/ComprobarAsiento.h"

#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "posting/Contabilizar.h"
#include "store/Campos.h"
#include "store/Rutinas.h"

const QString MsgAsientoSinImportes = QStringLiteral(
    "El asiento no tiene ningún importe: todos son 0,00 al redondearlos al céntimo.");

namespace {

// The sector names compare as their column does: the letters A to Z without regard to case, every
// other character as it is.
QString clave(const QString& nombre) {
    QString r = nombre.trimmed();
    for (QChar& c : r)
        if (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
            c = QChar(c.unicode() + ('a' - 'A'));
    return r;
}

} // namespace

ComprobarAsiento::ComprobarAsiento(Conexion& datos) {
    QSqlQuery q = datos.ejecutar(QStringLiteral("SELECT Sector FROM Sectores ORDER BY IdSector"));
    while (q.next()) {
        const QString nombre = q.value(0).toString().trimmed();
        if (!nombre.isEmpty() && !sectores_.contains(clave(nombre)))
            sectores_.insert(clave(nombre), nombre);
    }
}

QString ComprobarAsiento::Concepto(const QString& texto) {
    const QString t = TextoCampo(Campo::Concepto, texto);
    if (t.isEmpty())
        throw Rechazo(MsgCumplimentar);
    return t;
}

QString ComprobarAsiento::Documento(const QString& texto) {
    return TextoCampo(Campo::Documento, texto);
}

double ComprobarAsiento::Importe(const QString& texto) {
    return texto.trimmed().isEmpty() ? 0.0 : ImporteDeTexto(texto);
}

QString ComprobarAsiento::Sector(const QString& texto) const {
    const QString t = TextoCampo(Campo::Sector, texto);
    if (t.isEmpty())
        return {};
    const auto i = sectores_.constFind(clave(t));
    if (i == sectores_.cend())
        throw Rechazo(QStringLiteral("No existe el sector %1.").arg(t));
    return *i;
}
