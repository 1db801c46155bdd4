#pragma once
// The Modelo 347 for the tax authority: Gen347.txt in ModIP10 under the installation folder, of
// 500-character records with CR LF (the declarant, then the properties, then the parties), and
// its hand-off to the authority's informative-returns platform, a Java 1.6 program
// (PlataformaModulosInformativas.jar) that prints the official form or validates the file for
// the upload. When the platform or its Java is not there the user is told so plainly, and the
// file is still written and offered for the upload as 347-<NIF>.txt.
//
// Usage ("Envío Telemático"):
//     Plataforma347 p;
//     p.elegirCarpeta = [] { return carpeta; };
//     if (auto f = Presentar347(sesion, ajustes, m, 1, dialogo, p)) ...   // told; focus on f

#include "tax/FicheroHacienda.h"
#include "tax/Modelo347.h"

class Ajustes;

inline const QString CarpetaModIP = QStringLiteral("ModIP10");
inline const QString NombrePlataforma = QStringLiteral("PlataformaModulosInformativas.jar");

// The three kinds of record, 500 characters each, without the line's end.
QByteArray RegistroDeclarante347(const Modelo347& m);
QByteArray RegistroInmueble347(const Modelo347& m, const Inmueble347& i);
// Empty when the party's NIF is longer than nine characters.
QByteArray RegistroDeclarado347(const Modelo347& m, const Declarado347& d);

// The whole file: the declarant, every property, every party, each record ended by CR LF.
// A party whose NIF is longer than nine characters stops it: the failure points at that party
// and nothing is returned in `contenido`.
std::optional<Fallo347> Fichero347(const Modelo347& m, QByteArray& contenido);

// The Java runtime the platform needs: the path kept in setting Java of section Datos (key
// QuilmarEmp) when it still names a file; otherwise the first candidate that exists and whose
// path, followed through its links, names version 1.6 ("jre1.6", "jdk1.6", "java-6"...),
// which is then kept in that setting. Empty when there is none.
QString LocalizarJava(Ajustes& a, const QStringList& candidatos);
// Where a Java runtime usually lies on this system: JAVA_HOME, the folders of PATH, the
// system's JVM folders.
QStringList CandidatosJava();

// What the hand-off needs from the one who runs it.
struct Plataforma347 {
    QStringList candidatosJava = CandidatosJava();
    // The folder for the copy to upload; empty when cancelled.
    ElegirCarpeta elegirCarpeta;
    // The Java program chosen by hand when none was found; empty when cancelled or not offered.
    std::function<QString()> elegirJava;
    // Opens the official form the platform printed (a PDF) with the system's viewer.
    std::function<void(const QString& ruta)> abrirDocumento;
};

// "Imprimir &Mod. oficial" (indice 0) and "Envío Telemático" (1): the checks (the first failure
// is told and returned), then Gen347.txt (old Gen347.txt, Gen347.pdf, ERRORES.RST and ERRORES.TXT
// deleted first), then the platform: the official form opened, or the file validated and copied
// for the upload; without the platform, the copy for the upload. Throws ErrorQuilmar when a file
// cannot be written.
std::optional<Fallo347> Presentar347(const Sesion& s, Ajustes& a, Modelo347& m, int indice,
                                     Dialogo& d, const Plataforma347& p,
                                     ResultadoEntrega* resultado = nullptr);

inline const QString MsgNifDeclaradoErroneo =
    QStringLiteral("NIF de Declarado erróneo. Tiene más de 9 dígitos");
extern const QString MsgSinPlataforma347;
extern const QString MsgSinJava347;
extern const QString MsgBuscarJava347;
