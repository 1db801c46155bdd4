#pragma once
// The two fixed-record lists: Selan.dat (one 37-byte record per exercise of a company, in the
// order they were created) and Nemp.dat (one 33-byte record per company, a cache rebuilt at
// every start).

#include <QList>
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
