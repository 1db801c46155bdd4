#include "platform/Almacen.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlRecord>
#include <QStorageInfo>
#include <atomic>
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
    lanzarFallo(ruta_, codigoDe(e, bd()), e.text());
}

QSqlQuery Conexion::ejecutar(const QString& sql, const QVariantList& valores) {
    QSqlQuery q(bd());
    q.setForwardOnly(true);
    if (valores.isEmpty()) {
        if (!q.exec(sql))
            fallo(q);
        return q;
    }
    if (!q.prepare(sql))
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
        q.setForwardOnly(true);
        if (!q.prepare(sql))
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

Transaccion::Transaccion(Conexion& c) : c_(c) {
    if (c_.nivel_ == 0) {
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
    const int r = sqlite3_step(st_);
    if (r == SQLITE_ROW)
        return true;
    if (r == SQLITE_DONE)
        return false;
    fallo();
}

qint64 Lector::entero(int columna) const {
    return sqlite3_column_int64(st_, columna);
}

double Lector::real(int columna) const {
    return sqlite3_column_double(st_, columna);
}

QString Lector::texto(int columna) const {
    const QStringView v = vista(columna);
    return v.isNull() ? QString() : v.toString();
}

QStringView Lector::vista(int columna) const {
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
