#pragma once
// Backup and restore of whole companies (Form46, Form110).
//
// A backup folder holds Bavis.db (the installation's users and reminders) beside one folder per
// company, Emp<ccc>, with the company's files. Databases are copied as consistent copies, so a
// backup taken while another user posts holds whole entries; each company folder is made beside
// its final place and put there only when complete, so an interrupted backup leaves the previous
// one as it was. A restore checks the whole copy before it touches anything, and keeps the
// replaced company folder aside until the restored one is in place.
//
// Usage (the command line; the screens alike):
//     if (HacerCopiaSeguridad(s, a, d, carpeta, AlcanceCopia::Todas, progreso)) ...
//     if (RestaurarCopia(s, d, carpetaEmpresa, progreso)) ... // then the program ends

#include "platform/Dialogo.h"

#include <QString>
#include <QStringList>

class Ajustes;
struct Sesion;

inline const QString MsgCopiaSinCarpeta =
    QStringLiteral("Tiene que introducir la carpeta donde se va a relizar la copia de seguridad");
inline const QString MsgCopiaCarpetaPrograma =
    QStringLiteral("Tiene que hacer la copia en una carpeta distinta de la del programa.");
inline const QString MsgNoExisteCarpeta = QStringLiteral("No existe esa carpeta");
inline const QString MsgCopiaHecha = QStringLiteral("Se realizó la copia correctamente.");
inline const QString MsgCopiaSinElegir =
    QStringLiteral("No se ha seleccionado la carpeta donde se va a hacer la copia de seguridad.");
inline const QString MsgCopiaSinEmpresa =
    QStringLiteral("No hay ninguna empresa abierta de la que hacer la copia.");
inline const QString MsgRestaurarSinCarpeta =
    QStringLiteral("Tiene que seleccionar la carpeta de la empresa que se quiere restaurar.");
inline const QString MsgRestaurarSinSelan =
    QStringLiteral("La carpeta elegida no es la copia de una empresa: falta el archivo Selan.dat.");
inline const QString MsgRestaurarNombreCarpeta =
    QStringLiteral("La carpeta de una empresa se llama Emp seguido de las tres cifras de su "
                   "código, como Emp001. Seleccione esa carpeta dentro de la copia.");
inline const QString MsgRestaurarCerrar =
    QStringLiteral("Se cerrará el programa para completar la copia");
// "%1": the company folder.
inline const QString MsgEmpresaAbiertaOtro =
    QStringLiteral("La empresa %1 está abierta en otro puesto o en otra ventana del programa. "
                   "Ciérrela allí antes de continuar.");

// Which companies a backup takes.
enum class AlcanceCopia { EmpresaAbierta, Todas };

// "&Guardar" of Form46: the checks (an empty folder, the program's own folders, a folder that
// doesn't exist), the question, then Ruta is saved and the copy made, ending with
// MsgCopiaHecha. False when refused, not confirmed or failed (the user has been told why, and
// every earlier backup in the folder is as it was). Progress counts the files copied.
bool HacerCopiaSeguridad(Sesion& s, Ajustes& a, Dialogo& d, const QString& carpeta,
                         AlcanceCopia alcance, const Progreso& progreso = {});

// What a backup folder named on a screen must not be: the installation's folder, the data
// folder, or anything inside a company folder. Empty when acceptable, else the message.
QString CarpetaCopiaRechazada(const Sesion& s, const QString& carpeta);

// Checks a company's copy without writing anything: Selan.dat readable with at least one
// exercise; Bavar.db and the database of every exercise present; every database sound and ours
// of its kind; the parent folder's Bavis.db, when present, likewise. Throws ErrorAlmacen with
// what is wrong.
void ComprobarCopiaEmpresa(const QString& carpeta);

// The company's name in a copy: the trimmed name of the first record of its Selan.dat.
QString NombreEnCopia(const QString& carpeta);

// "&Restaurar" of Form110: checks the copy, asks, and replaces the company (and the
// installation's Bavis.db, when the copy's parent folder has one); ends with
// MsgRestaurarCerrar, after which the program must end. False when refused, not confirmed or
// failed (nothing of the current data changed).
bool RestaurarCopia(Sesion& s, Dialogo& d, const QString& carpeta, const Progreso& progreso = {});
