#pragma once
// The company list of an installation, built from the company folders, and its repair.

#include <QList>
#include <QString>
#include <QStringList>

class Dialogo;
struct Sesion;

// One row of the access list: folder ("Emp001"), company name, exercise year.
struct FilaEmpresa {
    QString Codigo;
    QString Empresa;
    QString Ano;
};

// The six-character "Emp???" folders under a folder, in name order.
QStringList CarpetasEmpresa(const QString& carpeta);

// Rebuilds Nemp.dat from the Selan.dat of every company folder and returns one row per exercise,
// sorted by folder. A busy Selan.dat stops the run with "El archivo está en uso." (and an empty
// list).
QList<FilaEmpresa> CargarEmp(const Sesion& sesion, Dialogo& dialogo);

// Rebuilds Selan.dat of one company folder (under DataPath), or of every company folder of the
// program folder when the name is empty, from its exercise databases.
void ActEjercicios(const Sesion& sesion, const QString& carpeta, Dialogo& dialogo);

// The exercise years of a company folder, from the names of its Quilmar<yyyy>.db files.
QList<int> AnosEnCarpeta(const QString& carpetaEmpresa);
