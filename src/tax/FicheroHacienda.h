#pragma once
// The files the tax returns hand to the tax authority: the encoding of amounts, the fixed
// record built piece by piece in Windows-1252, its writing under the installation folder, the
// authority's validator MIPF32.exe and the copy the user uploads.
//
// Usage (a return's "Presentación internet", after its checks):
//     RegistroHacienda r;
//     r.Texto("<T30301>").Texto(" ").Campo(nif, 9).Importe(casilla01, 15).Porcentaje(casilla02);
//     r.Texto("\r\n");
//     EntregaHacienda e;
//     e.modelo = "303"; e.nif = nif;             // Modtr/Gen303.txt, then 303-<NIF>.txt
//     const ResultadoEntrega res = EntregarFichero(sesion, e, r.Bytes(), dialogo, elegirCarpeta);
// Modelo 347 uses the same encoder and the same copy under its own folder.

#include <QByteArray>
#include <QString>
#include <functional>
#include <optional>

class Dialogo;
struct Sesion;

// An amount as the tax files take it: the whole part zero-padded to `entero` digits (15 for
// the 303, 11 for the 130 and 115, 3 for a percentage), "N" in front of a negative, two
// decimals without a separator; an empty box is all zeros (entero + 2 of them). The value is
// first rounded to cents and then held in single precision, so amounts over 2^24 lose cents.
// The zero padding comes from a text of thirteen zeros: with entero = 15 a positive amount
// below 10 (0 included) comes out one character short, a property of the layout the
// validator expects. A whole part longer than the field is never cut. The quarterly returns hold
// the amount in single precision; the Modelo 347 keeps it in double precision, cents and all.
enum class Precision { Simple, Doble };
QByteArray CodificarImporte(const std::optional<double>& valor, int entero,
                            Precision precision = Precision::Simple);

// A fixed-position record written by appending pieces, as the validator reads it: every piece
// lands right after the previous one, so a short amount moves what follows.
class RegistroHacienda {
public:
    // Text as it stands (Windows-1252).
    RegistroHacienda& Texto(const QString& texto);
    // A text field: Windows-1252, cut to the width, left-aligned and blank-padded.
    RegistroHacienda& Campo(const QString& texto, int ancho);
    // Blanks.
    RegistroHacienda& Blancos(int ancho);
    // An amount of CodificarImporte.
    RegistroHacienda& Importe(const std::optional<double>& valor, int entero,
                              Precision precision = Precision::Simple);
    // A percentage: CodificarImporte with three whole digits.
    RegistroHacienda& Porcentaje(const std::optional<double>& valor);
    // The line's end, CR LF.
    RegistroHacienda& FinLinea();
    const QByteArray& Bytes() const { return bytes_; }
    qsizetype Tamano() const { return bytes_.size(); }

private:
    QByteArray bytes_;
};

// The folder of the tax files under the installation folder.
inline const QString CarpetaModtr = QStringLiteral("Modtr");
inline const QString NombreValidador = QStringLiteral("MIPF32.exe");
inline const QString NombreErrores = QStringLiteral("errores.txt");
inline const QString DireccionAgencia = QStringLiteral("www.agenciatributaria.es");

extern const QString MsgValidadorAusente;

// What to deliver and how.
struct EntregaHacienda {
    QString modelo;                 // "303": the file is Gen303.txt, the copy 303-<NIF>.txt
    QString nif;                    // of the return, for the copy's name
    QString carpeta = CarpetaModtr; // under the installation folder
    // After a run of the validator that found no error, the copy for the upload is still made.
    // The 130's validator prints the official form itself instead.
    bool copiaTrasValidador = true;
};

// Where the user wants the copy for the upload: a folder, or an empty text when cancelled.
using ElegirCarpeta = std::function<QString()>;

enum class ResultadoEntrega {
    Errores,   // the validator listed errors, shown to the user
    Validado,  // the validator found none and takes it from there (no copy)
    Cancelado, // the folder choice was cancelled
    Copiado,   // the copy for the upload is made
};

// The generated file's path: <AppPath>/<carpeta>/Gen<modelo>.txt.
QString RutaGenerado(const Sesion& s, const EntregaHacienda& e);
// The copy's name: <modelo>-<NIF>.txt.
QString NombreCopia(const EntregaHacienda& e);

// Writes a file whole, replacing it; throws ErrorQuilmar telling the cause (and leaves no
// partial file) when it cannot.
void EscribirFicheroHacienda(const QString& ruta, const QByteArray& contenido);

// The copy for the upload of a file already written: tells the user, asks for the folder,
// copies the file there as <modelo>-<NIF>.txt and tells again. Cancelado when no folder is
// chosen. Throws ErrorQuilmar when the folder is gone or the copy fails.
ResultadoEntrega CopiarParaEnvio(const QString& generado, const EntregaHacienda& e, Dialogo& d,
                                 const ElegirCarpeta& elegir);

// Writes the file under the installation folder (old Gen<modelo>.txt and errores.txt deleted
// first), runs the validator when it is there (a start that fails counts as absent, and its
// absence is told with MsgValidadorAusente), shows errores.txt after "Errores: " when it holds
// anything, and otherwise asks for a folder and copies the file there as <modelo>-<NIF>.txt,
// telling the user before and after. Throws ErrorQuilmar when a file cannot be written.
ResultadoEntrega EntregarFichero(const Sesion& s, const EntregaHacienda& e,
                                 const QByteArray& contenido, Dialogo& d,
                                 const ElegirCarpeta& elegir);
