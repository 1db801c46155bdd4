#include "platform/Almacen.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlRecord>
#include <QStorageInfo>
#include <QUrl>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <sqlite3.h>

namespace {

std::atomic<unsigned> contador{0};

// How long a statement waits for another user's write to end before telling that the file is
// in use (milliseconds).
constexpr int EsperaOcupada = 15000;

// Text is never stored as NULL by accident: a null QString binds as an empty text. Only an
// invalid QVariant() writes NULL.
QVariant valorLigado(const QVariant& v) {
    if (v.typeId() == QMetaType::QString && v.toString().isNull())
        return QVariant(QStringLiteral(""));
    return v;
}

QString nombreVisible(const QString& ruta) {
    return QFileInfo(ruta).fileName();
}

// The engine's handle behind a Qt connection.
sqlite3* manejador(const QSqlDatabase& db) {
    const QVariant h = db.driver() ? db.driver()->handle() : QVariant();
    if (h.isValid() && qstrcmp(h.typeName(), "sqlite3*") == 0)
        return *static_cast<sqlite3* const*>(h.constData());
    return nullptr;
}

// SQLite's result code of a failed statement: the one Qt reports, else the connection's last.
int codigoDe(const QSqlError& e, const QSqlDatabase& db) {
    bool ok = false;
    const int codigo = e.nativeErrorCode().toInt(&ok);
    if (ok && codigo != SQLITE_OK)
        return codigo;
    sqlite3* bd = manejador(db);
    const int ultimo = bd ? sqlite3_extended_errcode(bd) : SQLITE_ERROR;
    return ultimo == SQLITE_OK || ultimo == SQLITE_ROW || ultimo == SQLITE_DONE ? SQLITE_ERROR
                                                                                : ultimo;
}

enum class Causa { Ocupada, SinEspacio, SinPermiso, Danada, SinCarpeta, NoSeAbre, Disco, Otra };

// Below this the disk is taken as full: SQLite needs room for its journal besides the data.
constexpr qint64 EspacioMinimo = 1024 * 1024;

bool discoLleno(const QString& carpeta) {
    const QStorageInfo disco(carpeta);
    return disco.isValid() && disco.bytesAvailable() >= 0 && disco.bytesAvailable() < EspacioMinimo;
}

bool sinEscritura(const QString& ruta, const QString& carpeta) {
    const QFileInfo archivo(ruta);
    return QStorageInfo(carpeta).isReadOnly() || !QFileInfo(carpeta).isWritable() ||
           (archivo.exists() && !archivo.isWritable());
}

// The engine's codes name some causes outright; opening and disk errors are vague, so the disk
// itself is asked whether it is full or cannot be written.
Causa causaDe(int codigo, const QString& ruta) {
    const QString carpeta = QFileInfo(ruta).absolutePath();
    switch (codigo & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Causa::Ocupada;
    case SQLITE_FULL:
        return Causa::SinEspacio;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return Causa::SinPermiso;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return Causa::Danada;
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
        if (!QFileInfo(carpeta).isDir())
            return Causa::SinCarpeta;
        if (discoLleno(carpeta))
            return Causa::SinEspacio;
        if (sinEscritura(ruta, carpeta))
            return Causa::SinPermiso;
        return (codigo & 0xff) == SQLITE_CANTOPEN ? Causa::NoSeAbre : Causa::Disco;
    default:
        return Causa::Otra;
    }
}

QString mensajeDe(Causa causa, const QString& ruta, int codigo) {
    const QString nombre = nombreVisible(ruta);
    const QString carpeta = QDir::toNativeSeparators(QFileInfo(ruta).absolutePath());
    switch (causa) {
    case Causa::Ocupada:
        return QStringLiteral(
            "La base de datos está siendo utilizada por otro usuario. Inténtelo de nuevo.");
    case Causa::SinEspacio:
        return QStringLiteral("No queda espacio en el disco para guardar en el archivo %1 (carpeta "
                              "%2). Libere espacio y repita la operación: lo que ya estaba "
                              "guardado no se ha perdido.")
            .arg(nombre, carpeta);
    case Causa::SinPermiso:
        return QStringLiteral("No tiene permiso para escribir en el archivo %1 (carpeta %2): el "
                              "archivo o su carpeta son de solo lectura. Pida permiso de escritura "
                              "o copie los datos a una carpeta en la que pueda escribir.")
            .arg(nombre, carpeta);
    case Causa::Danada:
        return QStringLiteral("El archivo %1 está dañado o no es una base de datos de Quilmar.")
            .arg(nombre);
    case Causa::SinCarpeta:
        return QStringLiteral("No se encuentra la carpeta %1. Compruebe que existe y que está "
                              "accesible (si está en otro ordenador, que la red funciona).")
            .arg(carpeta);
    case Causa::NoSeAbre:
        return QStringLiteral("No se pudo abrir el archivo %1 (carpeta %2). Compruebe que está "
                              "accesible y repita la operación.")
            .arg(nombre, carpeta);
    case Causa::Disco:
        return QStringLiteral("Error de lectura o escritura en el disco con el archivo %1 (carpeta "
                              "%2). Compruebe el disco, o la red si la carpeta está en otro "
                              "ordenador, y repita la operación.")
            .arg(nombre, carpeta);
    case Causa::Otra:
        break;
    }
    return QStringLiteral("Error en la base de datos %1 (código %2).").arg(nombre).arg(codigo);
}

// Tells the failure to the user by its cause. The engine's own words go to the log only, for
// whoever diagnoses it.
[[noreturn]] void lanzarFallo(const QString& ruta, int codigo, const QString& texto) {
    qWarning("SQLite %d en %s: %s", codigo, qPrintable(ruta), qPrintable(texto));
    throw ErrorAlmacen(mensajeDe(causaDe(codigo, ruta), ruta, codigo));
}

// The table that every database of a kind must have.
QString tablaTestigo(TipoBase tipo) {
    switch (tipo) {
    case TipoBase::Ejercicio:
        return QStringLiteral("Empresa");
    case TipoBase::Bavar:
        return QStringLiteral("Conceptos");
    case TipoBase::Bavis:
        return QStringLiteral("Usuarios");
    case TipoBase::Vias:
        return QStringLiteral("MUNICIPE");
    case TipoBase::Cualquiera:
        break;
    }
    return {};
}

// ---- Server ------------------------------------------------------------------------------

const QLatin1String DriverServidor("QPSQL");

QString nombreServidor(const Servidor& s) {
    return QStringLiteral("%1 en %2:%3").arg(s.base, s.host).arg(s.puerto);
}

// A server failure told by its cause, from the SQLSTATE the driver reports.
[[noreturn]] void lanzarFalloServidor(const QString& donde, const QSqlError& e) {
    const QString estado = e.nativeErrorCode();
    qWarning("PostgreSQL %s en %s: %s", qPrintable(estado), qPrintable(donde),
             qPrintable(e.text()));
    QString m;
    if (estado == QLatin1String("40P01") || estado == QLatin1String("55P03") ||
        estado == QLatin1String("40001") || estado == QLatin1String("57014"))
        m = QStringLiteral(
            "La base de datos está siendo utilizada por otro usuario. Inténtelo de nuevo.");
    else if (estado == QLatin1String("53100"))
        m = QStringLiteral("No queda espacio en el disco del servidor de bases de datos (%1). "
                           "Avise a quien lo administra y repita la operación: lo que ya estaba "
                           "guardado no se ha perdido.")
                .arg(donde);
    else if (estado == QLatin1String("42501"))
        m = QStringLiteral("El usuario no tiene permiso para esta operación en el servidor de "
                           "bases de datos (%1). Pida el permiso a quien lo administra.")
                .arg(donde);
    else if (estado.startsWith(QLatin1String("08")) || estado.startsWith(QLatin1String("57P")) ||
             estado.isEmpty())
        m = QStringLiteral("Se ha perdido la comunicación con el servidor de bases de datos (%1). "
                           "Compruebe la red y que el servidor está en marcha, y repita la "
                           "operación.")
                .arg(donde);
    else
        m = QStringLiteral("Error en la base de datos %1 (código %2).").arg(donde, estado);
    throw ErrorAlmacen(m);
}

bool esIdentificador(const QString& t) {
    static const QRegularExpression re(QStringLiteral("^[a-z][a-z0-9_]{0,62}$"));
    return re.match(t).hasMatch();
}

// The columns of names that the files declare NOCASE, which users see lists sorted by.
bool esColumnaDeNombre(QStringView columna) {
    static const QStringList nombres{
        QStringLiteral("Cuenta"), QStringLiteral("Nombre"),  QStringLiteral("Grupo"),
        QStringLiteral("Sector"), QStringLiteral("Usuario"), QStringLiteral("Provincia"),
        QStringLiteral("Pais"),   QStringLiteral("Cuenta1"), QStringLiteral("Cuenta2")};
    return std::any_of(nombres.begin(), nombres.end(), [&](const QString& n) {
        return columna.compare(n, Qt::CaseInsensitive) == 0;
    });
}

// SQLite's NOCASE orders by the bytes of the text with only A-Z folded to a-z (an accented
// capital sorts after z). The server's own collations follow a language instead, so a list sorted
// by name on a column of names orders by the same key written out: ASCII folded, then code
// points (the "C" collation: UTF-8 bytes). Statements with DISTINCT or UNION keep theirs, since
// there an ORDER BY may only name what is selected.
QString ordenarComoNocase(const QString& sql) {
    static const QRegularExpression ordenar(QStringLiteral("\\bORDER\\s+BY\\b"),
                                            QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression conjunto(QStringLiteral("\\b(DISTINCT|UNION)\\b"),
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression fin(
        QStringLiteral("\\s*(LIMIT|OFFSET|ROWS|RANGE|FOR|FETCH)\\b"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression termino(
        QStringLiteral("^(\\s*)((?:\\w+\\.)?(\\w+))(\\s+(?:ASC|DESC))?(\\s*)$"),
        QRegularExpression::CaseInsensitiveOption);
    if (!sql.contains(ordenar) || sql.contains(conjunto))
        return sql;
    QString r;
    qsizetype desde = 0;
    for (auto m = ordenar.match(sql); m.hasMatch(); m = ordenar.match(sql, desde)) {
        qsizetype i = m.capturedEnd();
        r += QStringView(sql).mid(desde, i - desde);
        // The terms of this ORDER BY, up to a closing parenthesis, a keyword or the end.
        QStringList terminos;
        qsizetype inicio = i;
        int nivel = 0;
        bool comillas = false;
        for (; i < sql.size(); ++i) {
            const QChar ch = sql.at(i);
            if (ch == QLatin1Char('\'') || ch == QLatin1Char('"'))
                comillas = !comillas;
            if (comillas)
                continue;
            if (ch == QLatin1Char('('))
                ++nivel;
            else if (ch == QLatin1Char(')') && nivel-- == 0)
                break;
            else if (nivel == 0 && ch == QLatin1Char(';'))
                break;
            else if (nivel == 0 && ch == QLatin1Char(',')) {
                terminos << sql.mid(inicio, i - inicio);
                inicio = i + 1;
            } else if (nivel == 0 && ch.isSpace() &&
                       fin.match(sql, i, QRegularExpression::NormalMatch,
                                 QRegularExpression::AnchorAtOffsetMatchOption)
                           .hasMatch())
                break;
        }
        terminos << sql.mid(inicio, i - inicio);
        for (QString& t : terminos) {
            const auto c = termino.match(t);
            if (c.hasMatch() && esColumnaDeNombre(c.capturedView(3)))
                t = c.captured(1) +
                    QStringLiteral("translate(%1, 'ABCDEFGHIJKLMNOPQRSTUVWXYZ', "
                                   "'abcdefghijklmnopqrstuvwxyz') COLLATE \"C\"")
                        .arg(c.captured(2)) +
                    c.captured(4) + c.captured(5);
        }
        r += terminos.join(QLatin1Char(','));
        desde = i;
    }
    r += QStringView(sql).mid(desde);
    return r;
}

// What SQLite reads one way and the server another, for the portable statements of the program:
// LIKE ignores case in SQLite (ASCII), "temp." is SQLite's name of the temporary schema, an
// adjoined schema is named by its alias as an attached file is, WITHOUT ROWID is a storage choice
// the server has no need of, and names sort as NOCASE sorts them.
QString traducirServidor(QString sql, const QHash<QString, QString>& adjuntos) {
    static const QRegularExpression sinRowid(QStringLiteral("\\)\\s*WITHOUT\\s+ROWID\\b"),
                                             QRegularExpression::CaseInsensitiveOption);
    sql.replace(sinRowid, QStringLiteral(")"));
    sql = ordenarComoNocase(sql);
    static const QRegularExpression like(QStringLiteral("\\bLIKE\\b"),
                                         QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression temp(QStringLiteral("\\btemp\\."),
                                         QRegularExpression::CaseInsensitiveOption);
    // SQLite's CROSS JOIN ... ON only fixes the order of the loops; the server plans it itself.
    static const QRegularExpression cruzada(QStringLiteral("\\bCROSS JOIN\\b"),
                                            QRegularExpression::CaseInsensitiveOption);
    sql.replace(like, QStringLiteral("ILIKE"));
    sql.replace(cruzada, QStringLiteral("INNER JOIN"));
    sql.replace(temp, QStringLiteral("pg_temp."));
    for (auto it = adjuntos.begin(); it != adjuntos.end(); ++it)
        sql.replace(QRegularExpression(QStringLiteral("\\b%1\\.").arg(it.key()),
                                       QRegularExpression::CaseInsensitiveOption),
                    it.value() + QLatin1Char('.'));
    return sql;
}

// The server gives a bare parameter the type of what it is compared with, so a 2.5 set against
// an integer column would be read as 3 (SQLite compares the numbers as they are). A value with a
// fraction is therefore passed typed as a real.
QString tiparReales(const QString& sql, const QVariantList& valores) {
    const auto fraccion = [](const QVariant& v) {
        if (v.typeId() != QMetaType::Double && v.typeId() != QMetaType::Float)
            return false;
        const double d = v.toDouble();
        return std::isfinite(d) && d != std::trunc(d);
    };
    if (std::none_of(valores.begin(), valores.end(), fraccion))
        return sql;
    QString r;
    r.reserve(sql.size() + 32);
    QChar comilla;
    int n = 0;
    for (const QChar ch : sql) {
        if (!comilla.isNull()) {
            if (ch == comilla)
                comilla = QChar();
        } else if (ch == QLatin1Char('\'') || ch == QLatin1Char('"')) {
            comilla = ch;
        } else if (ch == QLatin1Char('?')) {
            if (n < valores.size() && fraccion(valores.at(n))) {
                r += QStringLiteral("CAST(? AS DOUBLE PRECISION)");
                ++n;
                continue;
            }
            ++n;
        }
        r += ch;
    }
    return r;
}

// Passwords typed in this run, by user and server (any database of it).
QHash<QString, QString>& clavesEnMemoria() {
    static QHash<QString, QString> claves;
    return claves;
}
QString claveDe(const Servidor& s) {
    return QStringLiteral("%1@%2:%3").arg(s.usuario, s.host).arg(s.puerto);
}

// libpq tells why a connection failed only in words (no SQLSTATE before the session exists);
// they are read here, in English and in libpq's Spanish, and never shown.
FalloServidor falloDeConexion(const QString& texto) {
    const QString t = texto.toLower();
    auto hay = [&](std::initializer_list<const char*> claves) {
        for (const char* c : claves)
            if (t.contains(QLatin1String(c)))
                return true;
        return false;
    };
    if (hay({"no password supplied", "fe_sendauth", "no se especific", "contraseña no"}))
        return FalloServidor::FaltaClave;
    // A server that admits nobody from this machine (pg_hba.conf) refuses the user as well.
    if (hay({"password authentication failed", "authentication failed", "role \"", "pg_hba.conf",
             "autentificación", "autenticación", "no existe el rol"}))
        return FalloServidor::Acceso;
    if (hay({"database \"", "no existe la base de datos"}))
        return FalloServidor::SinBase;
    if (hay({"could not connect", "connection refused", "could not translate host",
             "timeout expired", "no route to host", "network is unreachable", "no se pudo conectar",
             "no se pudo traducir", "conexión rehusada", "connection timed out"}))
        return FalloServidor::Inalcanzable;
    return FalloServidor::Otro;
}

QString mensajeConexion(FalloServidor fallo, const Servidor& s) {
    const QString donde = nombreServidor(s);
    switch (fallo) {
    case FalloServidor::Ninguno:
        return {};
    case FalloServidor::SinControlador:
        return QStringLiteral(
            "Falta el controlador de PostgreSQL de Qt (paquete libqt6sql6-psql): sin él no se "
            "puede trabajar con un servidor de bases de datos.");
    case FalloServidor::Inalcanzable:
        return QStringLiteral("No se puede llegar al servidor de bases de datos %1:%2. Compruebe "
                              "el nombre del servidor y el puerto, que el servidor está en marcha "
                              "y que la red funciona.")
            .arg(s.host)
            .arg(s.puerto);
    case FalloServidor::FaltaClave:
        return QStringLiteral("El servidor de bases de datos %1 pide la contraseña del usuario "
                              "%2, y no está en el archivo .pgpass (o PGPASSFILE) ni en "
                              "PGPASSWORD.")
            .arg(donde, s.usuario);
    case FalloServidor::Acceso:
        return QStringLiteral("El servidor de bases de datos %1 no admite al usuario %2 con esa "
                              "contraseña. Compruebe el usuario y la contraseña.")
            .arg(donde, s.usuario);
    case FalloServidor::SinBase:
        return QStringLiteral("El servidor %1:%2 no tiene ninguna base de datos llamada %3. "
                              "Compruebe el nombre, o pida a quien lo administra que la cree.")
            .arg(s.host)
            .arg(s.puerto)
            .arg(s.base);
    case FalloServidor::Otro:
        break;
    }
    return QStringLiteral("No se puede conectar con el servidor de bases de datos %1 como usuario "
                          "%2. Compruebe que el servidor está en marcha y accesible, y la "
                          "contraseña del archivo .pgpass (o PGPASSFILE, PGPASSWORD).")
        .arg(donde, s.usuario);
}

// Opens the Qt connection `nombre` to the server; on failure removes it and says why.
PruebaServidor abrirServidor(const Servidor& servidor, const QString& nombre) {
    PruebaServidor r;
    if (!QSqlDatabase::isDriverAvailable(DriverServidor)) {
        r.fallo = FalloServidor::SinControlador;
        r.mensaje = mensajeConexion(r.fallo, servidor);
        return r;
    }
    QSqlDatabase db = QSqlDatabase::addDatabase(DriverServidor, nombre);
    db.setHostName(servidor.host);
    db.setPort(servidor.puerto);
    db.setDatabaseName(servidor.base);
    db.setUserName(servidor.usuario);
    // A password typed in this run; otherwise libpq reads PGPASSWORD, PGPASSFILE or ~/.pgpass.
    const auto clave = clavesEnMemoria().constFind(claveDe(servidor));
    if (clave != clavesEnMemoria().constEnd())
        db.setPassword(clave.value());
    db.setConnectOptions(QStringLiteral("connect_timeout=15;application_name=quilmar"));
    if (db.open())
        return r;
    const QSqlError e = db.lastError();
    qWarning("PostgreSQL: %s", qPrintable(e.text()));
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase(nombre);
    r.fallo = falloDeConexion(e.databaseText() + QLatin1Char(' ') + e.driverText());
    r.mensaje = mensajeConexion(r.fallo, servidor);
    return r;
}

quint32 claveBloqueo(const QString& esquema) {
    // A stable key per schema for the advisory lock (FNV-1a of the name).
    quint32 h = 2166136261u;
    for (const char c : esquema.toUtf8()) {
        h ^= static_cast<unsigned char>(c);
        h *= 16777619u;
    }
    return h;
}

} // namespace

QString MsgNoSeEscribe(const QString& ruta) {
    switch (const Causa causa = causaDe(SQLITE_CANTOPEN, ruta)) {
    case Causa::SinCarpeta:
    case Causa::SinEspacio:
    case Causa::SinPermiso:
        return mensajeDe(causa, ruta, SQLITE_CANTOPEN);
    default:
        return QStringLiteral("No se pudo escribir el archivo %1.")
            .arg(QDir::toNativeSeparators(ruta));
    }
}

// ---- Servidor ----------------------------------------------------------------------------

bool EsUrlServidor(const QString& texto) {
    const QString t = texto.trimmed();
    return t.startsWith(QLatin1String("postgresql://"), Qt::CaseInsensitive) ||
           t.startsWith(QLatin1String("postgres://"), Qt::CaseInsensitive);
}

Servidor Servidor::DeUrl(const QString& url) {
    const QString forma =
        QStringLiteral("La dirección del servidor %1 no es válida. Escríbala como "
                       "postgresql://usuario@servidor:puerto/base.");
    if (!EsUrlServidor(url))
        throw Rechazo(forma.arg(url));
    const QUrl u(url.trimmed(), QUrl::StrictMode);
    if (!u.isValid())
        throw Rechazo(forma.arg(url));
    if (!u.password().isEmpty())
        throw Rechazo(QStringLiteral(
            "No ponga la contraseña en la dirección del servidor: quedaría guardada sin cifrar. "
            "Póngala en el archivo .pgpass (o PGPASSFILE) o en la variable PGPASSWORD."));
    Servidor s;
    s.host = u.host().isEmpty() ? QStringLiteral("localhost") : u.host();
    s.puerto = u.port(5432);
    s.base = u.path().mid(1);
    s.usuario = u.userName();
    if (s.base.isEmpty() || s.base.contains(QLatin1Char('/')) || s.puerto <= 0)
        throw Rechazo(forma.arg(url));
    return s;
}

void RecordarClaveServidor(const Servidor& servidor, const QString& clave) {
    clavesEnMemoria().insert(claveDe(servidor), clave);
}

bool ClaveServidorRecordada(const Servidor& servidor) {
    return clavesEnMemoria().contains(claveDe(servidor));
}

PruebaServidor ProbarServidor(const Servidor& servidor) {
    const QString nombre = QStringLiteral("quilmar_prueba_%1").arg(contador.fetch_add(1));
    const PruebaServidor r = abrirServidor(servidor, nombre);
    if (r.fallo == FalloServidor::Ninguno) {
        QSqlDatabase::database(nombre, false).close();
        QSqlDatabase::removeDatabase(nombre);
    }
    return r;
}

QString Servidor::url() const {
    QUrl u;
    u.setScheme(QStringLiteral("postgresql"));
    u.setHost(host);
    u.setPort(puerto);
    u.setUserName(usuario);
    u.setPath(QLatin1Char('/') + base);
    return u.toString();
}

QString EsquemaServidor(const QString& ruta) {
    const QFileInfo f(ruta);
    const QString archivo = f.fileName();
    if (archivo.compare(QLatin1String("Bavis.db"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("bavis");
    if (archivo.compare(QLatin1String("VIAS.db"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("vias");
    static const QRegularExpression empresa(QStringLiteral("^Emp(\\d{3})$"),
                                            QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression ejercicio(QStringLiteral("^Quilmar(\\d{4})\\.db$"),
                                              QRegularExpression::CaseInsensitiveOption);
    const auto e = empresa.match(f.dir().dirName());
    if (!e.hasMatch())
        return {};
    const QString prefijo = QStringLiteral("emp") + e.captured(1);
    if (archivo.compare(QLatin1String("Bavar.db"), Qt::CaseInsensitive) == 0)
        return prefijo;
    const auto a = ejercicio.match(archivo);
    return a.hasMatch() ? prefijo + QLatin1Char('_') + a.captured(1) : QString();
}

Conexion::Conexion(const Servidor& servidor, const QString& esquema, TipoBase tipo, bool crear)
    : nombre_(QStringLiteral("quilmar_%1").arg(contador.fetch_add(1))),
      ruta_(QStringLiteral("%1 (%2)").arg(esquema, nombreServidor(servidor))), esquema_(esquema),
      preparadas_(std::make_unique<QHash<QString, QSqlQuery>>()) {
    if (!esIdentificador(esquema))
        throw ErrorAlmacen(QStringLiteral("No se encuentra la base de datos %1.").arg(ruta_));
    const PruebaServidor abierta = abrirServidor(servidor, nombre_);
    if (abierta.fallo != FalloServidor::Ninguno)
        throw ErrorAlmacen(abierta.mensaje);
    try {
        // The same patience with another user's lock as the files have.
        ejecutar(QStringLiteral("SET lock_timeout = %1").arg(EsperaOcupada));
        // The server's notices (a schema already there) are not for the user.
        ejecutar(QStringLiteral("SET client_min_messages = warning"));
        if (crear)
            ejecutar(QStringLiteral("CREATE SCHEMA IF NOT EXISTS ") + esquema_);
        else if (!existe(QStringLiteral("SELECT 1 FROM pg_namespace WHERE nspname = ?"),
                         {esquema_}))
            throw ErrorAlmacen(
                QStringLiteral("No se encuentra la base de datos %1 en el servidor %2.")
                    .arg(esquema_, nombreServidor(servidor)));
        // The program's helper functions (quilmar) come after the schema's own tables and before
        // the server's catalogue, which they stand in for.
        ejecutar(QStringLiteral("SET search_path TO %1, quilmar, pg_catalog").arg(esquema_));
        if (!crear && tipo != TipoBase::Cualquiera)
            comprobarTipoServidor(tipo, esquema_);
    } catch (...) {
        preparadas_.reset();
        QSqlDatabase::database(nombre_, false).close();
        QSqlDatabase::removeDatabase(nombre_);
        throw;
    }
}

void Conexion::comprobarTipoServidor(TipoBase tipo, const QString& esquema) {
    if (tipo == TipoBase::Cualquiera)
        return;
    if (!existe(QStringLiteral("SELECT 1 FROM information_schema.tables WHERE table_schema = ? "
                               "AND table_name = ?"),
                {esquema, tablaTestigo(tipo).toLower()}))
        throw ErrorAlmacen(
            QStringLiteral("La base de datos %1 del servidor está dañada o no es de Quilmar.")
                .arg(esquema));
}

void Conexion::adjuntarEsquema(const QString& alias, const QString& esquema) {
    if (!enServidor() || enTransaccion() || !esIdentificador(esquema))
        throw ErrorAlmacen(QStringLiteral("No se puede abrir la base de datos %1 junto a %2.")
                               .arg(esquema, esquema_));
    if (!existe(QStringLiteral("SELECT 1 FROM pg_namespace WHERE nspname = ?"), {esquema}))
        throw ErrorAlmacen(
            QStringLiteral("No se encuentra la base de datos %1 en el servidor.").arg(esquema));
    adjuntos_.insert(alias, esquema);
}

void Conexion::usarEsquema(const QString& esquema) {
    if (!enServidor() || !esIdentificador(esquema))
        throw ErrorAlmacen(QStringLiteral("No se encuentra la base de datos %1.").arg(esquema));
    for (QSqlQuery& q : *preparadas_)
        q.finish();
    preparadas_->clear();
    ejecutar(QStringLiteral("SET search_path TO %1, quilmar, pg_catalog").arg(esquema));
    esquema_ = esquema;
}

void Conexion::quitarEsquema(const QString& alias) {
    const QString prefijo = alias + QLatin1Char('.');
    for (auto it = preparadas_->begin(); it != preparadas_->end();) {
        it.value().finish();
        if (it.key().contains(prefijo, Qt::CaseInsensitive))
            it = preparadas_->erase(it);
        else
            ++it;
    }
    adjuntos_.remove(alias);
}

QStringList Conexion::columnas(const QString& tabla) {
    QStringList r;
    if (enServidor()) {
        QSqlQuery q = ejecutar(
            QStringLiteral("SELECT column_name FROM information_schema.columns WHERE "
                           "table_schema = ? AND table_name = ? ORDER BY ordinal_position"),
            {esquema_, tabla.toLower()});
        while (q.next())
            r << q.value(0).toString();
    } else {
        QSqlQuery q = ejecutar(QStringLiteral("SELECT name FROM pragma_table_info(?)"), {tabla});
        while (q.next())
            r << q.value(0).toString();
    }
    return r;
}

void Conexion::prepararEscrituraLarga() {
    if (!enServidor())
        ejecutar(QStringLiteral("PRAGMA cache_size = -65536"));
}

QString Conexion::traducir(const QString& sql) const {
    return enServidor() ? traducirServidor(sql, adjuntos_) : sql;
}

Conexion::Conexion(const QString& ruta, TipoBase tipo, bool crear, ModoDiario modo)
    : nombre_(QStringLiteral("quilmar_%1").arg(contador.fetch_add(1))), ruta_(ruta),
      preparadas_(std::make_unique<QHash<QString, QSqlQuery>>()) {
    const bool nueva = !QFile::exists(ruta);
    if (nueva && !crear)
        throw ErrorAlmacen(QStringLiteral("No se encuentra la base de datos %1.")
                               .arg(QDir::toNativeSeparators(ruta)));
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nombre_);
        db.setDatabaseName(ruta);
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(EsperaOcupada));
        if (!db.open()) {
            const QSqlError e = db.lastError();
            const int codigo = codigoDe(e, db);
            db = QSqlDatabase();
            QSqlDatabase::removeDatabase(nombre_);
            lanzarFallo(ruta, codigo, e.text());
        }
    }
    try {
        ponerDiario(modo);
        if (!nueva && tipo != TipoBase::Cualquiera)
            comprobarTipo(tipo);
    } catch (...) {
        preparadas_.reset();
        QSqlDatabase::database(nombre_, false).close();
        QSqlDatabase::removeDatabase(nombre_);
        throw;
    }
}

void Conexion::ponerDiario(ModoDiario modo) {
    QSqlQuery q(bd());
    const QString pedido =
        modo == ModoDiario::WAL ? QStringLiteral("WAL") : QStringLiteral("DELETE");
    // The journal can change only while no other connection has the file open; the other kind
    // of installation may hold it now, and then this connection keeps the file's journal rather
    // than wait for it.
    sqlite3* motor = manejador(bd());
    if (motor)
        sqlite3_busy_timeout(motor, 0);
    const bool cambiado = q.exec(QStringLiteral("PRAGMA journal_mode=") + pedido);
    if (motor)
        sqlite3_busy_timeout(motor, EsperaOcupada);
    if (!cambiado) {
        const int codigo = codigoDe(q.lastError(), bd());
        const Causa causa = causaDe(codigo, ruta_);
        // A file that can be read but not changed now (read-only, a full disk, held by another
        // user) keeps the journal it has: the books can still be read, and a write is refused
        // by its cause when it is tried. Only what is not a sound database stops here.
        if (causa == Causa::Danada || causa == Causa::Otra)
            lanzarFallo(ruta_, codigo, q.lastError().text());
    }
    q.exec(QStringLiteral("PRAGMA synchronous=FULL"));
}

Conexion::~Conexion() {
    while (nivel_ > 0) {
        QSqlQuery q(bd());
        q.exec(QStringLiteral("ROLLBACK"));
        nivel_ = 0;
    }
    preparadas_.reset();
    {
        QSqlDatabase db = QSqlDatabase::database(nombre_, false);
        db.close();
    }
    QSqlDatabase::removeDatabase(nombre_);
}

void Conexion::comprobarTipo(TipoBase tipo, const QString& esquema) {
    QSqlQuery q(bd());
    // The file named in the message is the attached one when it is checked.
    QString nombre = nombreVisible(ruta_);
    if (esquema != QLatin1String("main")) {
        if (q.exec(QStringLiteral("PRAGMA database_list")))
            while (q.next())
                if (q.value(1).toString() == esquema)
                    nombre = nombreVisible(q.value(2).toString());
        q.finish();
    }
    const QString mal =
        QStringLiteral("El archivo %1 está dañado o no es una base de datos de Quilmar.")
            .arg(nombre);
    if (!q.exec(QStringLiteral("PRAGMA %1.application_id").arg(esquema)))
        fallo(q);
    if (!q.next())
        throw ErrorAlmacen(mal);
    if (q.value(0).toInt() != IdAplicacionQuilmar)
        throw ErrorAlmacen(mal);
    q.finish();
    if (tipo != TipoBase::Cualquiera &&
        !existe(QStringLiteral("SELECT 1 FROM %1.sqlite_master WHERE type='table' AND name=?")
                    .arg(esquema),
                {tablaTestigo(tipo)}))
        throw ErrorAlmacen(mal);
}

void Conexion::fallo(const QSqlQuery& q) const {
    const QSqlError e = q.lastError();
    if (enServidor())
        lanzarFalloServidor(ruta_, e);
    lanzarFallo(ruta_, codigoDe(e, bd()), e.text());
}

QSqlQuery Conexion::ejecutar(const QString& texto, const QVariantList& valores) {
    const QString sql = traducir(texto);
    QSqlQuery q(bd());
    // The server's driver reads a forward-only result row by row and then allows no other
    // statement on the connection until it ends; the program interleaves them, so the server's
    // results are read whole.
    q.setForwardOnly(!enServidor());
    if (valores.isEmpty()) {
        if (!q.exec(sql))
            fallo(q);
        return q;
    }
    if (!q.prepare(enServidor() ? tiparReales(sql, valores) : sql))
        fallo(q);
    for (const QVariant& v : valores)
        q.addBindValue(valorLigado(v));
    if (!q.exec())
        fallo(q);
    return q;
}

QSqlQuery& Conexion::preparada(const QString& sql, const QVariantList& valores) {
    auto it = preparadas_->find(sql);
    if (it == preparadas_->end()) {
        QSqlQuery q(bd());
        q.setForwardOnly(!enServidor());
        if (!q.prepare(traducir(sql)))
            fallo(q);
        it = preparadas_->insert(sql, q);
    }
    QSqlQuery& q = it.value();
    q.finish();
    for (int i = 0; i < valores.size(); ++i)
        q.bindValue(i, valorLigado(valores.at(i)));
    if (!q.exec())
        fallo(q);
    return q;
}

QVariant Conexion::escalar(const QString& sql, const QVariantList& valores) {
    QSqlQuery q = ejecutar(sql, valores);
    if (!q.next()) {
        // A row that cannot be read is a failure, not an empty answer.
        if (q.lastError().isValid())
            fallo(q);
        return {};
    }
    return q.value(0);
}

bool Conexion::existe(const QString& sql, const QVariantList& valores) {
    QSqlQuery q = ejecutar(sql, valores);
    if (q.next())
        return true;
    if (q.lastError().isValid())
        fallo(q);
    return false;
}

void Conexion::ejecutarGuion(const QString& guion) {
    const QStringList partes = guion.split(QLatin1Char(';'));
    for (const QString& parte : partes) {
        const QString sql = parte.trimmed();
        if (!sql.isEmpty())
            ejecutar(sql);
    }
}

Transaccion::Transaccion(Conexion& c, Modo modo) : c_(c) {
    if (c_.nivel_ == 0 && modo == Modo::Lectura) {
        c_.ejecutar(c_.enServidor()
                        ? QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY")
                        : QStringLiteral("BEGIN DEFERRED"));
    } else if (c_.nivel_ == 0 && c_.enServidor()) {
        QList<QString> esquemas = c_.adjuntos_.values();
        esquemas << c_.esquema_;
        std::sort(esquemas.begin(), esquemas.end());
        c_.ejecutar(QStringLiteral("BEGIN"));
        try {
            for (const QString& e : esquemas)
                c_.ejecutar(QStringLiteral("SELECT pg_advisory_xact_lock(?)"),
                            {qint64(claveBloqueo(e))});
        } catch (...) {
            QSqlQuery q(c_.bd());
            q.exec(QStringLiteral("ROLLBACK"));
            throw;
        }
    } else if (c_.nivel_ == 0) {
        c_.ejecutar(QStringLiteral("BEGIN IMMEDIATE"));
    } else {
        punto_ = QStringLiteral("p%1").arg(++c_.puntos_);
        c_.ejecutar(QStringLiteral("SAVEPOINT ") + punto_);
    }
    ++c_.nivel_;
}

void Transaccion::confirmar() {
    if (hecha_)
        return;
    for (QSqlQuery& q : *c_.preparadas_)
        q.finish();
    if (punto_.isEmpty())
        c_.ejecutar(QStringLiteral("COMMIT"));
    else
        c_.ejecutar(QStringLiteral("RELEASE ") + punto_);
    hecha_ = true;
    --c_.nivel_;
}

Transaccion::~Transaccion() {
    if (hecha_)
        return;
    for (QSqlQuery& q : *c_.preparadas_)
        q.finish();
    QSqlQuery q(c_.bd());
    if (punto_.isEmpty()) {
        q.exec(QStringLiteral("ROLLBACK"));
    } else {
        q.exec(QStringLiteral("ROLLBACK TO ") + punto_);
        q.exec(QStringLiteral("RELEASE ") + punto_);
    }
    --c_.nivel_;
}

// ---- BaseAdjunta --------------------------------------------------------------------------

namespace {

bool esWal(const QString& modo) {
    return modo.compare(QLatin1String("wal"), Qt::CaseInsensitive) == 0;
}

} // namespace

BaseAdjunta::BaseAdjunta(Conexion& c, const QString& ruta, const QString& alias, TipoBase tipo)
    : c_(c), alias_(alias) {
    static const QRegularExpression identificador(QStringLiteral("^[A-Za-z][A-Za-z0-9_]*$"));
    if (c.enServidor()) {
        // Two schemas of one server database already commit together.
        const QString esquema = EsquemaServidor(ruta);
        if (!identificador.match(alias).hasMatch())
            throw ErrorAlmacen(QStringLiteral("No se puede abrir la base de datos %1 junto a %2.")
                                   .arg(nombreVisible(ruta), c.esquema()));
        c.adjuntarEsquema(alias, esquema);
        try {
            c.comprobarTipoServidor(tipo, esquema);
        } catch (...) {
            c.quitarEsquema(alias);
            throw;
        }
        return;
    }
    if (!identificador.match(alias).hasMatch() || c.enTransaccion())
        throw ErrorAlmacen(QStringLiteral("No se puede abrir la base de datos %1 junto a %2.")
                               .arg(nombreVisible(ruta), nombreVisible(c.ruta())));
    // ATTACH would make an empty file of a missing one.
    if (!QFile::exists(ruta))
        throw ErrorAlmacen(QStringLiteral("No se encuentra la base de datos %1.")
                               .arg(QDir::toNativeSeparators(ruta)));
    c.ejecutar(QStringLiteral("ATTACH DATABASE ? AS ") + alias, {ruta});
    try {
        c.comprobarTipo(tipo, alias);
        modoPrincipal_ = c.escalar(QStringLiteral("PRAGMA main.journal_mode")).toString();
        modoAdjunta_ = c.escalar(QStringLiteral("PRAGMA %1.journal_mode").arg(alias)).toString();
        sincroniaPrincipal_ = c.escalar(QStringLiteral("PRAGMA main.synchronous")).toString();
        for (const QString& esquema : {QStringLiteral("main"), alias}) {
            const QString modo = esquema == alias ? modoAdjunta_ : modoPrincipal_;
            if (esWal(modo) &&
                esWal(c.escalar(QStringLiteral("PRAGMA %1.journal_mode=DELETE").arg(esquema))
                          .toString()))
                lanzarFallo(ruta, SQLITE_BUSY, QStringLiteral("journal_mode stays WAL"));
            c.ejecutar(QStringLiteral("PRAGMA %1.synchronous=FULL").arg(esquema));
        }
    } catch (...) {
        restaurar();
        throw;
    }
}

BaseAdjunta::~BaseAdjunta() {
    restaurar();
}

void BaseAdjunta::restaurar() noexcept {
    if (c_.enServidor()) {
        c_.quitarEsquema(alias_);
        return;
    }
    // Statements kept for the alias would outlive its tables.
    const QString prefijo = alias_ + QLatin1Char('.');
    for (auto it = c_.preparadas_->begin(); it != c_.preparadas_->end();) {
        it.value().finish();
        if (it.key().contains(prefijo))
            it = c_.preparadas_->erase(it);
        else
            ++it;
    }
    QSqlQuery q(c_.bd());
    if (esWal(modoAdjunta_))
        q.exec(QStringLiteral("PRAGMA %1.journal_mode=WAL").arg(alias_));
    q.exec(QStringLiteral("DETACH DATABASE ") + alias_);
    if (esWal(modoPrincipal_))
        q.exec(QStringLiteral("PRAGMA main.journal_mode=WAL"));
    if (!sincroniaPrincipal_.isEmpty())
        q.exec(QStringLiteral("PRAGMA main.synchronous=") + sincroniaPrincipal_);
}

// ---- Lector ------------------------------------------------------------------------------

Lector::Lector(Conexion& c, const QString& sql, const QVariantList& valores) : ruta_(c.ruta()) {
    if (c.enServidor()) {
        q_ = std::make_unique<QSqlQuery>(c.ejecutar(sql, valores));
        return;
    }
    bd_ = manejador(c.bd());
    if (!bd_)
        lanzarFallo(ruta_, SQLITE_MISUSE, QStringLiteral("conexión no válida"));
    if (sqlite3_prepare16_v2(bd_, sql.utf16(), -1, &st_, nullptr) != SQLITE_OK)
        fallo();
    int i = 1;
    for (const QVariant& v : valores) {
        int r = SQLITE_OK;
        switch (v.isNull() && v.typeId() != QMetaType::QString ? QMetaType::UnknownType
                                                               : v.typeId()) {
        case QMetaType::UnknownType:
            r = sqlite3_bind_null(st_, i);
            break;
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Bool:
            r = sqlite3_bind_int64(st_, i, v.toLongLong());
            break;
        case QMetaType::Double:
        case QMetaType::Float:
            r = sqlite3_bind_double(st_, i, v.toDouble());
            break;
        default: {
            // A null text binds as '', as every other statement of the store does.
            const QString t = v.toString();
            r = sqlite3_bind_text16(st_, i, t.utf16(), int(t.size() * 2), SQLITE_TRANSIENT);
            break;
        }
        }
        if (r != SQLITE_OK)
            fallo();
        ++i;
    }
}

Lector::~Lector() {
    sqlite3_finalize(st_);
}

bool Lector::siguiente() {
    if (q_) {
        textos_.clear();
        if (q_->next())
            return true;
        if (q_->lastError().isValid())
            lanzarFalloServidor(ruta_, q_->lastError());
        return false;
    }
    const int r = sqlite3_step(st_);
    if (r == SQLITE_ROW)
        return true;
    if (r == SQLITE_DONE)
        return false;
    fallo();
}

qint64 Lector::entero(int columna) const {
    if (q_)
        return q_->value(columna).toLongLong();
    return sqlite3_column_int64(st_, columna);
}

double Lector::real(int columna) const {
    if (q_)
        return q_->value(columna).toDouble();
    return sqlite3_column_double(st_, columna);
}

QString Lector::texto(int columna) const {
    const QStringView v = vista(columna);
    return v.isNull() ? QString() : v.toString();
}

QStringView Lector::vista(int columna) const {
    if (q_) {
        const QVariant v = q_->value(columna);
        if (v.isNull())
            return {};
        auto it = textos_.find(columna);
        if (it == textos_.end())
            it = textos_.insert(columna, v.toString());
        return it.value();
    }
    const auto* datos = static_cast<const char16_t*>(sqlite3_column_text16(st_, columna));
    if (!datos)
        return {};
    return QStringView(datos, sqlite3_column_bytes16(st_, columna) / 2);
}

void Lector::fallo() {
    const int codigo = sqlite3_extended_errcode(bd_);
    const QString texto = QString::fromUtf8(sqlite3_errmsg(bd_));
    // A constructor that throws runs no destructor: the statement goes here.
    sqlite3_finalize(st_);
    st_ = nullptr;
    lanzarFallo(ruta_, codigo, texto);
}
