#pragma once
// The store: short-lived SQLite connections (one per user action), bound parameters everywhere,
// WAL with a busy timeout, and transactions that take the write lock at once.

#include "platform/Errores.h"

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <memory>

// What kind of database a file must be; opening checks it so that a foreign or damaged file is
// refused with a clear message instead of failing later.
enum class TipoBase { Ejercicio, Bavar, Bavis, Vias, Cualquiera };

class Conexion {
public:
    // Opens an existing database. With crear, a missing file is created (empty).
    explicit Conexion(const QString& ruta, TipoBase tipo = TipoBase::Cualquiera,
                      bool crear = false);
    ~Conexion();
    Conexion(const Conexion&) = delete;
    Conexion& operator=(const Conexion&) = delete;

    // Runs one statement with its values bound in order; throws ErrorAlmacen on failure.
    QSqlQuery ejecutar(const QString& sql, const QVariantList& valores = {});
    // Same, reusing a prepared statement kept for the life of the connection (hot paths).
    QSqlQuery& preparada(const QString& sql, const QVariantList& valores = {});
    // First column of the first row, or an invalid QVariant when there is no row.
    QVariant escalar(const QString& sql, const QVariantList& valores = {});
    bool existe(const QString& sql, const QVariantList& valores = {});
    // Runs a script of several statements separated by ';' (no values).
    void ejecutarGuion(const QString& guion);

    QString ruta() const { return ruta_; }
    QSqlDatabase bd() const { return QSqlDatabase::database(nombre_, false); }
    bool enTransaccion() const { return nivel_ > 0; }

private:
    friend class Transaccion;
    void comprobarTipo(TipoBase tipo);
    [[noreturn]] void fallo(const QSqlQuery& q, const QString& sql) const;

    QString nombre_;
    QString ruta_;
    int nivel_ = 0;
    int puntos_ = 0;
    std::unique_ptr<QHash<QString, QSqlQuery>> preparadas_;
};

// One writing action. The outermost takes the write lock at once (BEGIN IMMEDIATE), so entry
// numbers drawn inside it are unique between processes; inner ones are savepoints. Anything not
// confirmed is rolled back when the object goes out of scope.
class Transaccion {
public:
    explicit Transaccion(Conexion& c);
    ~Transaccion();
    Transaccion(const Transaccion&) = delete;
    Transaccion& operator=(const Transaccion&) = delete;
    void confirmar();

private:
    Conexion& c_;
    QString punto_;
    bool hecha_ = false;
};

// Identifies our database files (PRAGMA application_id).
constexpr int IdAplicacionQuilmar = 0x51554c4d;
