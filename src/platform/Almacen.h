#pragma once
// The store: short-lived SQLite connections (one per user action), bound parameters everywhere,
// a busy timeout, and transactions that take the write lock at once. Every failure is told in
// Spanish by its cause (no space, no permission, in use, damaged); the engine's own text never
// leaves this layer.
//
// The same classes also reach a PostgreSQL server: each database of the files becomes a schema of
// one server database, named from the company code and year (EsquemaServidor). What only SQLite
// understands stays here, with its server equivalent beside it.

#include "platform/Errores.h"

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

// What kind of database a file must be; opening checks it so that a foreign or damaged file is
// refused with a clear message instead of failing later.
enum class TipoBase { Ejercicio, Bavar, Bavis, Vias, Cualquiera };

// How a connection keeps its journal. WAL lets readers go on while one user posts, but it needs
// memory shared between the processes of one machine: databases reached over a network folder
// (a client installation) use the rollback journal. Both write with synchronous=FULL, so that an
// action confirmed to the user survives a power cut.
enum class ModoDiario { WAL, Rollback };

// A PostgreSQL server and database, given as postgresql://usuario@host:puerto/base. The password
// is never part of it: libpq finds it in PGPASSWORD, the file PGPASSFILE or ~/.pgpass.
struct Servidor {
    QString host;
    int puerto = 5432;
    QString base;
    QString usuario;

    bool vacio() const { return base.isEmpty(); }
    QString url() const;
    // Throws Rechazo with the reason when the address is not one we can use (a password in it
    // included: it would be kept in clear).
    static Servidor DeUrl(const QString& url);
};
bool EsUrlServidor(const QString& texto);

// A password the user typed for a server in this run: kept in memory only, never written, and
// given to every later connection to that address (libpq's own sources still come first).
void RecordarClaveServidor(const Servidor& servidor, const QString& clave);
bool ClaveServidorRecordada(const Servidor& servidor);

// Why a server cannot be reached, for the screen that chooses it.
enum class FalloServidor {
    Ninguno,
    SinControlador,
    Inalcanzable,
    FaltaClave,
    Acceso,
    SinBase,
    Otro
};
struct PruebaServidor {
    FalloServidor fallo = FalloServidor::Ninguno;
    QString mensaje; // in Spanish, by its cause; empty when it connects
};
// Opens a connection to the server and closes it again.
PruebaServidor ProbarServidor(const Servidor& servidor);

// The schema that holds, on a server, what the file at ruta holds on disk: "emp001_2026" for
// .../Emp001/Quilmar2026.db, "emp001" for .../Emp001/Bavar.db, "bavis" and "vias" for the
// installation's own. Empty for a file of no such name.
QString EsquemaServidor(const QString& ruta);

class Conexion {
public:
    // Opens an existing database. With crear, a missing file is created (empty).
    explicit Conexion(const QString& ruta, TipoBase tipo = TipoBase::Cualquiera, bool crear = false,
                      ModoDiario modo = ModoDiario::WAL);
    // Opens a schema of a server database; with crear a missing schema is made (empty).
    Conexion(const Servidor& servidor, const QString& esquema, TipoBase tipo = TipoBase::Cualquiera,
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
    bool enServidor() const { return !esquema_.isEmpty(); }
    // The schema on a server; empty on a file.
    const QString& esquema() const { return esquema_; }
    // Before one long writing transaction (an import): on a file, a page cache big enough that
    // the pages written don't spill to disk before the commit (64 MB); a server needs nothing.
    void prepararEscrituraLarga();
    // The columns of a table of this database, in order, on either engine.
    QStringList columnas(const QString& tabla);
    // Server only: unqualified tables are from then on those of another schema of the same
    // database. Allowed inside a transaction (a copy reads every schema of a company in one
    // snapshot); the connection should not be used further after that transaction rolls back.
    void usarEsquema(const QString& esquema);
    // Server only: the tables of another schema are named "alias.Tabla" in this connection's
    // statements, as an attached file's are. Call it before any transaction.
    void adjuntarEsquema(const QString& alias, const QString& esquema);
    void quitarEsquema(const QString& alias);

private:
    friend class Transaccion;
    friend class BaseAdjunta;
    friend class Lector;
    void comprobarTipo(TipoBase tipo, const QString& esquema = QStringLiteral("main"));
    void comprobarTipoServidor(TipoBase tipo, const QString& esquema);
    void ponerDiario(ModoDiario modo);
    // The statement as the engine must read it.
    QString traducir(const QString& sql) const;
    [[noreturn]] void fallo(const QSqlQuery& q) const;

    QString nombre_;
    QString ruta_;
    QString esquema_;
    QHash<QString, QString> adjuntos_; // alias -> schema, on a server
    int nivel_ = 0;
    int puntos_ = 0;
    std::unique_ptr<QHash<QString, QSqlQuery>> preparadas_;
};

struct sqlite3;
struct sqlite3_stmt;

// A long forward read straight from SQLite, for lists of hundreds of thousands of rows: values are
// read in place, without a QVariant each. Values are bound as in Conexion::ejecutar. Read-only
// statements only; the connection must outlive the reader.
//     Lector l(c, "SELECT NAs, Concepto FROM Diario WHERE NCuenta = ?", {ncuenta});
//     while (l.siguiente()) use(l.entero(0), l.texto(1));
class Lector {
public:
    Lector(Conexion& c, const QString& sql, const QVariantList& valores = {});
    ~Lector();
    Lector(const Lector&) = delete;
    Lector& operator=(const Lector&) = delete;

    // Moves to the next row; false after the last. Throws ErrorAlmacen on failure.
    bool siguiente();
    qint64 entero(int columna) const;
    double real(int columna) const;
    QString texto(int columna) const;
    // The text in place, valid until the next siguiente(): no copy.
    QStringView vista(int columna) const;

private:
    [[noreturn]] void fallo();

    QString ruta_;
    sqlite3* bd_ = nullptr;
    sqlite3_stmt* st_ = nullptr;
    // On a server the rows come through Qt's driver; texts are kept until the next row so that
    // vista() can hand out a view.
    std::unique_ptr<QSqlQuery> q_;
    mutable QHash<int, QString> textos_;
};

// One writing action. The outermost takes the write lock at once (BEGIN IMMEDIATE), so entry
// numbers drawn inside it are unique between processes; inner ones are savepoints. Anything not
// confirmed is rolled back when the object goes out of scope. On a server the same lock is an
// advisory lock per schema (the connection's own and every adjoined one, in one order so that two
// writers never wait on each other), held to the end of the transaction: writers of one exercise
// take turns, readers never wait.
class Transaccion {
public:
    // Escritura: as above. Lectura: a read-only snapshot that no writer changes while it lasts
    // (REPEATABLE READ on a server, a deferred read transaction on a file), for a copy that must
    // be consistent across tables and schemas while others post. It takes no lock.
    enum class Modo { Escritura, Lectura };
    explicit Transaccion(Conexion& c, Modo modo = Modo::Escritura);
    ~Transaccion();
    Transaccion(const Transaccion&) = delete;
    Transaccion& operator=(const Transaccion&) = delete;
    void confirmar();

private:
    Conexion& c_;
    QString punto_;
    bool hecha_ = false;
};

// A second database file written in the same transactions as the connection's own: ATTACHed
// under an alias (its tables are "alias.Diario", ...) for the life of this object, which must
// outlive every transaction that uses it. Meanwhile both files keep a rollback journal, since only
// then does SQLite commit several files as one: with WAL each file commits on its own, and a crash
// between the two would leave one written and the other not. Their journal modes come back at the
// end. The switch needs both files to this connection alone: another connection open on either
// is reported as the database being in use.
class BaseAdjunta {
public:
    BaseAdjunta(Conexion& c, const QString& ruta, const QString& alias,
                TipoBase tipo = TipoBase::Cualquiera);
    ~BaseAdjunta();
    BaseAdjunta(const BaseAdjunta&) = delete;
    BaseAdjunta& operator=(const BaseAdjunta&) = delete;
    const QString& alias() const { return alias_; }

private:
    void restaurar() noexcept;

    Conexion& c_;
    QString alias_;
    QString modoPrincipal_;
    QString modoAdjunta_;
    QString sincroniaPrincipal_;
};

// Why a plain file of the installation (a fixed-record list, PLoc.dat) could not be written, by
// the same causes as the databases: a full disk, no permission, a folder that is gone.
QString MsgNoSeEscribe(const QString& ruta);

// Identifies our database files (PRAGMA application_id).
constexpr int IdAplicacionQuilmar = 0x51554c4d;
