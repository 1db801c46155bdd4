#pragma once
// The two fixed-record lists: Selan.dat (one 37-byte record per exercise of a company, in the
// order they were created) and Nemp.dat (one 33-byte record per company, a cache rebuilt at
// every start).

#include <QList>
#include <QMap>
#include <QString>

struct RegistroSelan {
    QString Ano;    // four digits
    QString Codigo; // three digits
    QString Nombre; // cut at 30 characters
};

struct RegistroNemp {
    QString Codigo;
    QString Nombre;
};

constexpr int LongitudSelan = 37;
constexpr int LongitudNemp = 33;

// Fields come back trimmed.
QList<RegistroSelan> LeerSelan(const QString& ruta);
void AnadirSelan(const QString& ruta, const RegistroSelan& r);
void EscribirSelan(const QString& ruta, const QList<RegistroSelan>& registros);

QList<RegistroNemp> LeerNemp(const QString& ruta);
void AnadirNemp(const QString& ruta, const RegistroNemp& r);
void EscribirNemp(const QString& ruta, const QList<RegistroNemp>& registros);

struct Sesion;
class Conexion;

// The exercises of a company, in the order they were made, and the companies with the name of
// their latest exercise, wherever the session keeps these lists: Selan.dat and the company
// folders on files, the tables Ejercicios and Empresas of the installation's schema on a server.
QList<RegistroSelan> EjerciciosDe(const Sesion& s, const QString& empresa);
QList<RegistroNemp> EmpresasDe(const Sesion& s);
// The companies the screens offer to choose: Nemp.dat on files (rebuilt at every start), the
// table on a server.
QList<RegistroNemp> ListaEmpresas(const Sesion& s);
// On a server: records an exercise (and its company) in those tables, in the caller's
// transaction on the installation's schema.
void AnotarEjercicioServidor(Conexion& bavis, const RegistroSelan& r);
// On a server: the companies that have a schema there, by code ("001"), each with the years of
// its exercises' schemas in order (-1 first when the company's own schema is missing).
QMap<QString, QList<int>> EsquemasEnServidor(const Sesion& s);
// On a server: drops an exercise's schema and its line in the list, in one transaction. The
// company keeps the name of its latest exercise left.
void EliminarEjercicioServidor(const Sesion& s, const QString& codigo, int ano);
// On a server: drops the schemas of a company and of all its exercises and its lines in both
// lists, in one transaction.
void EliminarEmpresaServidor(const Sesion& s, const QString& codigo);
