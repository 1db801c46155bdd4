#include "store/Campos.h"

#include "platform/Errores.h"

#include <QList>

namespace {

struct DatosCampo {
    Campo campo;
    const char* etiqueta;
    int tamano;
};

// The sizes the screens have always enforced (concept 40, subaccount 30, account 60, company
// name 30, user 13) and, for the rest, room for what a Spanish firm writes there.
constexpr DatosCampo Tabla[] = {
    {Campo::Concepto, "Concepto", 40},
    {Campo::Documento, "Documento", 30},
    {Campo::Sector, "Sector", 20},
    {Campo::NFactura, "Factura", 30},
    {Campo::NombreCuenta, "Nombre de la Cuenta", 60},
    {Campo::NombreSubcuenta, "Nombre de la Subcuenta", 30},
    {Campo::NIF, "NIF", 15},
    {Campo::Domicilio, "Domicilio", 40},
    {Campo::NumeroCalle, "Nº", 10},
    {Campo::Municipio, "Municipio", 30},
    {Campo::CPostal, "Código Postal", 10},
    {Campo::Provincia, "Provincia", 30},
    {Campo::Pais, "País", 30},
    {Campo::Telefono, "Teléfono", 15},
    {Campo::Contacto, "Contacto", 30},
    {Campo::Observaciones, "Observaciones", 255},
    {Campo::NombreEmpresa, "Nombre de la Empresa", 30},
    {Campo::NombreConcepto, "Concepto predefinido", 40},
    {Campo::NombrePeriodico, "Nombre del asiento periódico", 30},
    {Campo::Usuario, "Usuario", 13},
    {Campo::NombrePredi, "Nombre del asiento prediseñado", 40},
    {Campo::ComentarioPredi, "Comentario", 100},
    {Campo::NombreElemento, "Nombre del elemento", 50},
    {Campo::Proveedor, "Fra / Proveedor", 50},
    {Campo::Localizacion, "Localización", 30},
    {Campo::Ciudad, "Ciudad", 30},
    {Campo::CPostalEmpresa, "Código Postal", 5},
    {Campo::Remesa, "Remesa", 20},
    {Campo::TextoAviso, "Texto del Aviso", 255},
};

const DatosCampo& datos(Campo campo) {
    for (const DatosCampo& d : Tabla)
        if (d.campo == campo)
            return d;
    return Tabla[0];
}

bool esControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0x2028 || c == 0x2029;
}

} // namespace

int TamanoCampo(Campo campo) {
    return datos(campo).tamano;
}

QString EtiquetaCampo(Campo campo) {
    return QString::fromUtf8(datos(campo).etiqueta);
}

bool TieneControles(const QString& texto) {
    // Every control character lies in the first plane: the halves of a surrogate pair never are.
    for (const QChar c : texto)
        if (esControl(c.unicode()))
            return true;
    return false;
}

QString SinControles(const QString& texto) {
    QString r;
    r.reserve(texto.size());
    for (const QChar c : texto)
        if (!esControl(c.unicode()))
            r += c;
    return r;
}

QString MsgControles(const QString& etiqueta) {
    return QStringLiteral(
               "El campo %1 no admite tabuladores, saltos de línea ni otros caracteres de control.")
        .arg(etiqueta);
}

QString TextoCampo(Campo campo, const QString& texto) {
    if (TieneControles(texto))
        throw Rechazo(MsgControles(EtiquetaCampo(campo)));
    const QString t = texto.trimmed();
    if (t.size() > TamanoCampo(campo))
        throw Rechazo(QStringLiteral("El campo %1 no puede tener más de %2 caracteres.")
                          .arg(EtiquetaCampo(campo))
                          .arg(TamanoCampo(campo)));
    return t;
}
