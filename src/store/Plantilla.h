#pragma once
// The shipped data (embedded resources under :/data): the generic chart of a new company, the
// lists of provinces and countries, the street tables and the demo company.

#include <QList>
#include <QString>
#include <QStringList>

class Conexion;

// A tab-separated table with a header line.
struct TablaTsv {
    QStringList cabecera;
    QList<QStringList> filas;
    int columna(const QString& nombre) const { return cabecera.indexOf(nombre); }
    QString valor(int fila, const QString& nombre) const {
        const int c = columna(nombre);
        const QStringList& f = filas.at(fila);
        return c >= 0 && c < f.size() ? f.at(c) : QString();
    }
};

// Reads a table from a resource or a file; throws ErrorAlmacen when it can't.
TablaTsv LeerTsv(const QString& ruta);

// Fills an exercise database with the generic chart: accounts, subaccounts, VAT subaccounts with
// their rates, customer and supplier cards, provinces and countries.
void CargarPlanGenerico(Conexion& ejercicio);
// Adds subaccounts (NCuenta, Cuenta) and cards from two tables.
void CargarCuentas(Conexion& ejercicio, const TablaTsv& cuentas);
void CargarFichas(Conexion& ejercicio, const TablaTsv& fichas);
// Fills a new VIAS database.
void CargarVias(Conexion& vias);
