#pragma once
// What the quarterly returns (303, 130, 115) share: boxes that may be empty, bank accounts, the
// place and date of signature, the period text of a range of dates, the check that stops a
// generation, and the messages the three give alike.
//
// A box is an optional amount: an empty box and a box holding 0 are different values, told apart
// by the checks and by the files (an empty box is all zeros, a 0 is an amount).
//     Casilla c = LeerCasilla(QStringLiteral("1.234,5"));   // 1234.50; "" gives an empty box
//     TextoCasilla(c);                                       // "1.234,50"

#include <QDate>
#include <QString>
#include <optional>

class Conexion;

using Casilla = std::optional<double>;

// An empty box counts as 0 in sums.
inline double Valor(const Casilla& c) {
    return c.value_or(0.0);
}
// A computed amount, held to the cent.
Casilla Importe(double valor);
// "standard", or empty for an empty box.
QString TextoCasilla(const Casilla& c);
// A box as typed or given: an empty text (blanks only) is an empty box; anything else must be an
// amount (LeerImporte's rules, rounded to the cent). Throws Rechazo with MsgImporteNoValido.
Casilla LeerCasilla(const QString& texto);

// A bank account in its four parts: entity 4, branch 4, check digits 2, account 10.
struct CuentaBanco {
    QString entidad, sucursal, dc, numero;
    // Every part at its length, digits only, and none all zeros.
    bool Completa() const;
    // Any digit in any part.
    bool TieneCifras() const;
    void Limpiar() { *this = {}; }
    // The twenty characters of the files: each part blank-padded to its length.
    QString Texto() const;
};
// An account as given on the command line: twenty digits, blanks and hyphens allowed between
// them ("2100 0418 45 0200051332"); an empty text is no account. Throws Rechazo.
CuentaBanco CuentaDeTexto(const QString& texto);

// "Lugar y fecha" under the signature: place, day, month name, year.
struct FirmaModelo {
    QString lugar, dia, mes, ano;
};
// The month's name as the forms write it: "ENERO" ... "DICIEMBRE".
QString NombreMes(int mes);
// Today's signature: day, month name and year of the date, the place as given.
FirmaModelo FirmaDeFecha(const QDate& fecha, const QString& lugar = {});

// The period of a range of dates: a whole month gives its number in two digits ("05"), a whole
// calendar quarter "1T" to "4T", anything else an empty text.
QString PeriodoDeFechas(const QDate& d1, const QDate& d2);

// The two name fields of the taxpayer, as the authority's files take them: capitals only.
// "Apellidos o razón social" takes A to Z, Ñ, Ç, digits, blank and , - . & : ; _ (and Ð);
// "Nombre" letters, blank and hyphen.
enum class CampoNombre { Apellidos, Nombre };
// A character as the field takes it: small letters raised, accents dropped (é gives E); a null
// QChar when the field refuses it.
QChar CaracterNombre(QChar c, CampoNombre campo);
// A whole text through CaracterNombre, trimmed and at most `largo` long; throws Rechazo naming
// the field and the refused character.
QString TextoNombre(const QString& texto, CampoNombre campo, int largo);
// The same, dropping what the field refuses instead (a name taken from the company's card).
QString NombreAdmitido(const QString& texto, CampoNombre campo, int largo);
// A NIF as the returns take it: capitals, letters and digits, nine at most; throws Rechazo.
QString TextoNif(const QString& texto);

// The first check that fails: its message and the field that takes the focus (the object name
// of its box on the screen: "Ejercicio", "Periodo", "NIF", "Casilla48", "Importe", ...).
struct FalloModelo {
    QString mensaje;
    QString campo;
};

// The last checks of the 130 and the 115, in their order: one payment mark at most, the charge
// account complete with "Adeudo en cuenta" and empty without it, no negative payment.
std::optional<FalloModelo> ComprobarPago(bool efectivo, bool adeudo, const CuentaBanco& cargo,
                                         const Casilla& importe);

// The years whose file layout the program carries.
bool AnoConModelo(int ano);

// Who files the return, as a return starts: the company's NIF and name, which the user may
// change on the form.
struct Declarante {
    QString nif, nombre, ciudad;
};
// The company's NIF (capitals, nine characters at most), name (thirty) and town, from Empresa.
Declarante DeclaranteEmpresa(Conexion& c);

inline const QString MsgPeriodoInvertido =
    QStringLiteral("La fecha inicial debe ser menor o igual que la final.");
inline const QString MsgFechasOtroAno =
    QStringLiteral("La fecha inicial y final deben pertenecer al mismo año.");
QString MsgEjercicioDebeSer(int ano);
QString MsgModeloNoIncorporado(int ano);
inline const QString MsgDebeNif = QStringLiteral(
    "Debe introducir el NIF, si es persona física, o el CIF si es persona jurídica.");
inline const QString MsgDebeApellidos =
    QStringLiteral("Debe introducir los apellidos, si es persona física, o el nombre o razón "
                   "social si es persona jurídica.");
inline const QString MsgDebeNombre =
    QStringLiteral("Debe introducir el nombre si es persona física.");
inline const QString MsgPositivoAIngresar =
    QStringLiteral("Si el resultado  es positivo debe consignarlo en la casilla de Importe a "
                   "ingresar.");
inline const QString MsgFormaPagoDoble =
    QStringLiteral("Consigne si la forma de pago es 'En efectivo' o 'Adeudo en cuenta'.");
inline const QString MsgCuentaIncompleta =
    QStringLiteral("Tiene que introducir los 20 dígitos de la cuenta corriente donde desea "
                   "recibir la devolución.");
inline const QString MsgCuentaCargoSobra =
    QStringLiteral("Si no consigna ingreso con adeudo en cuenta no debe introducir ningún dígito "
                   "en la cuenta corriente de ese apartado.");
inline const QString MsgIngresoNegativo =
    QStringLiteral("El importe del Ingreso consignado no puede ser menor que cero.");
inline const QString MsgModeloOficial303 =
    QStringLiteral("Para el modelo 303 la Agencia Tributaria no facilita módulo de impresión, "
                   "pero puede generar el archivo para envío telemático. Si de acuerdo con la "
                   "normativa puede presentarlo en papel y desea hacerlo, imprima el borrador y "
                   "copie los datos al modelo oficial.");
