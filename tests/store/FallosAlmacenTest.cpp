// The store's failures as the user meets them: each told in Spanish by its cause, none of them
// leaving the books half written or looking damaged afterwards. The causes are made with
// SQLite's own means (tests run as root, whom file permissions do not stop): a page limit for a
// full disk, a read-only connection, a held write lock, a cut copy of a database.

#include "Entorno.h"
#include "ServidorPruebas.h"
#include "store/Conexiones.h"
#include "store/Esquema.h"
#include "store/Instalacion.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

const QString Caja = QStringLiteral("157000001");
const QString Banco = QStringLiteral("157200003");

QList<Apunte> asientoLargo(int i) {
    QList<Apunte> r;
    for (int k = 0; k < 10; ++k)
        r << Debe(Caja, 10 + k, QStringLiteral("Cobro %1 con un concepto largo de verdad").arg(i));
    r << Haber(Banco, 145, QStringLiteral("Cobro %1").arg(i));
    return r;
}

// The message of the first store failure of f, or empty when nothing failed.
template <class F> QString fallo(F f) {
    try {
        f();
    } catch (const ErrorAlmacen& e) {
        return e.mensaje();
    }
    return {};
}

int contar(Conexion& c, const char* sql) {
    return c.escalar(QString::fromLatin1(sql)).toInt();
}

// Words of the engine's own messages that must never reach the user.
void sinTextoDelMotor(const QString& m) {
    for (const char* ingles : {"database", "disk", "locked", "readonly", "read-only", "unable",
                               "error:", "malformed", "constraint", "SQL"})
        EXPECT_FALSE(m.contains(QLatin1String(ingles), Qt::CaseInsensitive)) << m.toStdString();
}

class FallosAlmacen : public ::testing::Test {
protected:
    void SetUp() override {
        SOLO_EN_ARCHIVOS("fallos provocados con los medios de SQLite");
        e.crearEmpresa();
        e.asiento(QDate(2024, 1, 2), {Debe(Caja, 100), Haber(Banco, 100)});
    }
    QString carpeta() const { return QDir::toNativeSeparators(e.ruta("Emp001")); }
    Entorno e;
};

TEST_F(FallosAlmacen, DiscoLlenoSeDiceComoTalYLosLibrosSiguenSanos) {
    int escritos = 0;
    QString mensaje;
    {
        Conexion c = AbrirDatos(e.sesion);
        // The database may not grow by one more page: a full disk, as SQLite meets it.
        c.ejecutar(
            QStringLiteral("PRAGMA max_page_count = %1").arg(contar(c, "PRAGMA page_count")));
        mensaje = fallo([&] {
            for (int i = 0; i < 1000; ++i) {
                EscribirAsiento(c, e.sesion, QDate(2024, 2, 1), asientoLargo(i));
                ++escritos;
            }
        });
    }
    EXPECT_EQ(mensaje, QStringLiteral("No queda espacio en el disco para guardar en el archivo "
                                      "Quilmar2024.db (carpeta %1). Libere espacio y repita la "
                                      "operación: lo que ya estaba guardado no se ha perdido.")
                           .arg(carpeta()));
    sinTextoDelMotor(mensaje);
    EXPECT_LT(escritos, 1000);

    // Afterwards the installation opens as before: nothing says "damaged", the entry that did
    // not fit is wholly absent, and posting goes on.
    Conexion c = AbrirDatos(e.sesion);
    EXPECT_EQ(c.escalar("PRAGMA integrity_check").toString(), "ok");
    EXPECT_EQ(DescuadresMayor(c), QStringList());
    EXPECT_EQ(contar(c, "SELECT COUNT(DISTINCT NAs) FROM Diario"), 1 + escritos);
    EXPECT_EQ(contar(c, "SELECT COUNT(*) FROM Diario"), 2 + 11 * escritos);
    CargarEjercicio(e.sesion, c);
    EXPECT_EQ(EscribirAsiento(c, e.sesion, QDate(2024, 3, 1), asientoLargo(9999)), 2 + escritos);
    EXPECT_NO_THROW(AbrirAvisos(e.sesion));
}

TEST_F(FallosAlmacen, SinPermisoDeEscrituraSeDiceYSePuedeLeer) {
    Conexion c = AbrirDatos(e.sesion);
    c.ejecutar(QStringLiteral("PRAGMA query_only = 1")); // what a read-only file gives
    const QString mensaje =
        fallo([&] { EscribirAsiento(c, e.sesion, QDate(2024, 2, 1), asientoLargo(1)); });
    EXPECT_EQ(mensaje, QStringLiteral("No tiene permiso para escribir en el archivo Quilmar2024.db "
                                      "(carpeta %1): el archivo o su carpeta son de solo lectura. "
                                      "Pida permiso de escritura o copie los datos a una carpeta "
                                      "en la que pueda escribir.")
                           .arg(carpeta()));
    sinTextoDelMotor(mensaje);
    EXPECT_FALSE(mensaje.contains(QStringLiteral("dañado")));
    EXPECT_EQ(contar(c, "SELECT COUNT(*) FROM Diario"), 2) << "the books are still read";
    EXPECT_EQ(fallo([&] { ElimAsiento(c, e.sesion, 1); }), mensaje);
    EXPECT_EQ(contar(c, "SELECT COUNT(*) FROM Diario"), 2);
}

TEST_F(FallosAlmacen, OtroUsuarioEscribiendoSeDiceComoEnUso) {
    Conexion a = AbrirDatos(e.sesion);
    Transaccion escribiendo(a);
    a.ejecutar("UPDATE Empresa SET Nombre = Nombre");
    Conexion b = AbrirDatos(e.sesion);
    b.ejecutar(QStringLiteral("PRAGMA busy_timeout = 0")); // no waiting in a test
    const QString mensaje =
        fallo([&] { EscribirAsiento(b, e.sesion, QDate(2024, 2, 1), asientoLargo(1)); });
    EXPECT_EQ(mensaje,
              "La base de datos está siendo utilizada por otro usuario. Inténtelo de nuevo.");
    EXPECT_EQ(contar(b, "SELECT COUNT(*) FROM Diario"), 2) << "readers go on meanwhile";
}

TEST_F(FallosAlmacen, UnaCopiaCortadaEsUnArchivoDanado) {
    const QString copia = e.ruta("Emp001/Quilmar2023.db");
    {
        // The last connection's close writes everything back into the main file.
        QFile original(e.sesion.rutaEjercicio());
        ASSERT_TRUE(original.open(QIODevice::ReadOnly));
        ASSERT_GT(original.size(), 16 * 4096);
        QFile f(copia);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(original.read(8 * 4096));
    }
    const QString mensaje = fallo([&] {
        Conexion c(copia, TipoBase::Ejercicio);
        Lector l(c, "SELECT NCuenta FROM Diario");
        while (l.siguiente())
            ;
        c.escalar("SELECT COUNT(*) FROM Mayor WHERE SaldoD > 0");
    });
    EXPECT_EQ(mensaje,
              "El archivo Quilmar2023.db está dañado o no es una base de datos de Quilmar.");

    // An empty file is no database of ours either; a folder that is gone is told as such.
    QFile(copia).resize(0);
    EXPECT_EQ(fallo([&] { Conexion c(copia, TipoBase::Ejercicio); }),
              "El archivo Quilmar2023.db está dañado o no es una base de datos de Quilmar.");
    const QString fuera = e.ruta("Servidor/Emp001");
    EXPECT_EQ(fallo([&] { CrearBaseDatos(fuera + "/Bavar.db", TipoBase::Bavar); }),
              QStringLiteral("No se encuentra la carpeta %1. Compruebe que existe y que está "
                             "accesible (si está en otro ordenador, que la red funciona).")
                  .arg(QDir::toNativeSeparators(fuera)));
    EXPECT_FALSE(QDir(fuera).exists());
}

// A main installation keeps its company databases in WAL; a client reaches them over a network
// folder and uses the rollback journal; the installation's own databases are always local.
// Every writing connection syncs fully (2).
TEST(Almacen, DiarioSegunLaClaseDeInstalacion) {
    SOLO_EN_ARCHIVOS("el diario (journal_mode) de los archivos");
    Entorno e;
    e.crearEmpresa();
    Sesion cliente = e.sesion;
    QTemporaryDir programa;
    cliente.AppPath = programa.path();
    PrepararInstalacion(cliente);
    ASSERT_FALSE(cliente.esPrincipal());

    auto modo = [](Conexion c) {
        return QStringLiteral("%1 %2").arg(c.escalar("PRAGMA journal_mode").toString(),
                                           c.escalar("PRAGMA synchronous").toString());
    };
    EXPECT_EQ(modo(AbrirDatos(e.sesion)), "wal 2");
    EXPECT_EQ(modo(AbrirBavar(e.sesion)), "wal 2");
    EXPECT_EQ(modo(AbrirAvisos(e.sesion)), "wal 2");
    EXPECT_EQ(modo(AbrirDatos(cliente)), "delete 2");
    EXPECT_EQ(modo(AbrirBavar(cliente)), "delete 2");
    EXPECT_EQ(modo(AbrirAvisos(cliente)), "wal 2");
    EXPECT_EQ(modo(AbrirDatos(e.sesion)), "wal 2") << "the main installation takes WAL back";

    // What a client creates on the server is made without WAL from the start.
    CrearBaseDatos(e.ruta("Emp001/Nueva.db"), TipoBase::Bavar, ModoDiarioEmpresas(cliente));
    EXPECT_EQ(
        modo(Conexion(e.ruta("Emp001/Nueva.db"), TipoBase::Bavar, false, ModoDiario::Rollback)),
        "delete 2");
    EXPECT_FALSE(QFile::exists(e.ruta("Emp001/Nueva.db-wal")));
}

} // namespace
