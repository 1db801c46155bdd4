#pragma once
// The tables that carry a chart of the old general plan to the 2007 plan for small firms: the
// groups that move (old four-character NGrupo to the new one), the groups added or renamed and
// those deleted, and the names of the new groups.

#include <QString>
#include <QStringList>
#include <utility>

struct ParGrupos {
    const char* antiguo;
    const char* nuevo;
};

// The group translation, in its order: the first pair of a group is the one that counts.
const QList<ParGrupos>& ParesGrupos();
// The new group of an old one, by the first pair that has it; empty when no pair does.
QString GrupoTraducido(const QString& ngrupo);

// Groups added or renamed, in two passes, and the groups deleted at the end.
const QStringList& GruposAnadirPrimero();
const QStringList& GruposAnadirSegundo();
const QStringList& GruposEliminar();

// The upper-case name of a group of the 2007 chart: the name of its plan account (the three
// digits after the area digit). Empty for an account the table does not hold.
QString NombreGrupo2007(const QString& ngrupo);
