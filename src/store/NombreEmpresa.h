#pragma once
// The company's name as the books head their pages: from the exercise database, trimmed; empty
// when the table holds no row.
//     const QString empresa = NombreEmpresa(s);   // "De Pruebas"

#include <QString>

class Conexion;
struct Sesion;

QString NombreEmpresa(Conexion& c);
// Opens the exercise database of the session for the reading.
QString NombreEmpresa(const Sesion& s);
