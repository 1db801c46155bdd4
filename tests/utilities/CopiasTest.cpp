// Backup and restore: the checks and questions, the layout of a backup folder and its
// replacement one for one, a backup taken while another process posts, a backup killed at any
// point, a damaged copy refused before anything is touched, and the round trip.

#include "utilities/Copias.h"
#include "ComunUtilidades.h"
#include "ServidorPruebas.h"
#include "platform/CopiasBase.h"
#include "store/BloqueoEmpresa.h"
#include "store/Instalacion.h"
#include "utilities/Avisos.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

using namespace utiles;

namespace {

const char* const VarHijo = "QUILMAR_COPIAS_HIJO";
// The server the child posts into, in the server run.
const char* const VarServidorHijo = "QUILMAR_COPIAS_SERVIDOR";

// Waits for a file to appear (written by another process), up to two minutes.
bool esperarFichero(const QString& ruta) {
    const QDeadlineTimer plazo(120000);
    while (!QFile::exists(ruta)) {
        if (plazo.hasExpired())
            return false;
        QThread::msleep(2);
    }
    return true;
}

// The child mode: posts entries 1 to 1,000 of Emp001, each in its own transaction. Entry 500 is
// written and then held uncommitted until the parent, told by the file "listo", has taken its
// backup and answers with the file "sigue".
TEST(PublicadorCopias, Publica) {
    if (!qEnvironmentVariableIsSet(VarHijo))
        GTEST_SKIP() << "only as a child of the backup tests";
    const QDir dir(qEnvironmentVariable(VarHijo));
    Sesion s;
    s.AppPath = s.DataPath = dir.path();
    s.UrlServidor = qEnvironmentVariable(VarServidorHijo);
    s.EmpresaActual = "Emp001";
    s.AnoActual = 2024;
    CargarEjercicio(s);
    Conexion c = AbrirDatos(s);
    for (int i = 1; i <= 1000; ++i) {
        Transaccion t(c);
        EscribirAsiento(c, s, QDate(2024, 1 + i % 12, 1 + i % 28), asientoContado(i));
        if (i == 500) {
            QFile(dir.filePath("listo")).open(QIODevice::WriteOnly);
            ASSERT_TRUE(esperarFichero(dir.filePath("sigue")));
        }
        t.confirmar();
    }
}

class Copias : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(copia.isValid()); }
    QString enCopia(const QString& relativa = {}) const {
        return relativa.isEmpty() ? copia.path() : copia.filePath(relativa);
    }
    bool copiar(AlcanceCopia alcance = AlcanceCopia::EmpresaAbierta, Entorno* en = nullptr) {
        Entorno& x = en ? *en : e;
        x.dialogo.responder({true});
        return HacerCopiaSeguridad(x.sesion, *x.ajustes, x.dialogo, copia.path(), alcance);
    }
    // Restores a company of the backup into `destino`, answering yes to every question.
    bool restaurar(Entorno& destino, const QString& empresa) {
        destino.dialogo.responder({true, true});
        return RestaurarCopia(destino.sesion, destino.dialogo, enCopia(empresa));
    }
    // What is in the backup folder, hidden entries included.
    QStringList contenido(const QString& relativa = {}) const {
        return QDir(enCopia(relativa))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    Entorno e;
    QTemporaryDir copia;
};

TEST_F(Copias, ComprobacionesAntesDeCopiar) {
    e.crearEmpresa();
    // Each is refused before any question, so no answer is scripted.
    auto intentar = [&](const QString& carpeta) {
        return HacerCopiaSeguridad(e.sesion, *e.ajustes, e.dialogo, carpeta,
                                   AlcanceCopia::EmpresaAbierta);
    };
    EXPECT_FALSE(intentar("  "));
    EXPECT_FALSE(intentar(e.dir.path()));
    EXPECT_FALSE(intentar(e.dir.path() + "/./"));
    EXPECT_FALSE(intentar(e.ruta("Emp001")));
    QDir().mkpath(e.ruta("Emp001/Dentro"));
    EXPECT_FALSE(intentar(e.ruta("Emp001/Dentro")));
    EXPECT_FALSE(intentar(enCopia("no-existe")));
    EXPECT_EQ(e.dialogo.informados,
              QStringList({MsgCopiaSinCarpeta, MsgCopiaCarpetaPrograma, MsgCopiaCarpetaPrograma,
                           MsgCopiaCarpetaPrograma, MsgCopiaCarpetaPrograma, MsgNoExisteCarpeta}));
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
    // No: nothing is written, not even the folder remembered.
    e.dialogo.responder({false});
    EXPECT_FALSE(HacerCopiaSeguridad(e.sesion, *e.ajustes, e.dialogo, copia.path(),
                                     AlcanceCopia::EmpresaAbierta));
    EXPECT_EQ(e.dialogo.preguntas.last(),
              QStringLiteral("Está seguro de que desea hacer la copia de seguridad en la carpeta "
                             "'%1'?")
                  .arg(copia.path()));
    EXPECT_TRUE(contenido().isEmpty());
    EXPECT_EQ(e.ajustes->leer("Valores", "Ruta"), "Nada");
}

TEST_F(Copias, EstructuraYSustitucionUnoPorUno) {
    e.crearEmpresa("001", 2024);
    e.crearEmpresa("002", 2025, "Otra SL");
    ASSERT_TRUE(copiar());
    EXPECT_EQ(e.dialogo.informados.last(), MsgCopiaHecha);
    EXPECT_EQ(e.ajustes->leer("Valores", "Ruta"), copia.path());
    // The open company only (the last made), beside the installation's database.
    EXPECT_EQ(contenido(), QStringList({"Bavis.db", "Emp002"}));
    EXPECT_EQ(contenido("Emp002"), QStringList({"Bavar.db", "Quilmar2025.db", "Selan.dat"}));
    for (const char* f : {"Bavis.db", "Emp002/Bavar.db", "Emp002/Quilmar2025.db"})
        EXPECT_NO_THROW(ComprobarBase(enCopia(f), TipoPorNombre(QFileInfo(f).fileName()))) << f;
    // The list of exercises goes as Selan.dat, from the files or from the server's list.
    auto lista = [](const QList<RegistroSelan>& l) {
        QStringList r;
        for (const RegistroSelan& x : l)
            r << x.Ano + '|' + x.Codigo + '|' + x.Nombre;
        return r;
    };
    EXPECT_EQ(lista(LeerSelan(enCopia("Emp002/Selan.dat"))), QStringList({"2025|002|Otra SL"}));
    EXPECT_EQ(lista(LeerSelan(enCopia("Emp002/Selan.dat"))),
              lista(EjerciciosDe(e.sesion, "Emp002")));

    // A second backup replaces the company's files and drops those no longer in the source.
    QFile(enCopia("Emp002/Viejo.txt")).open(QIODevice::WriteOnly);
    QFile(e.ruta("Emp002/Notas.rtf")).open(QIODevice::WriteOnly);
    ASSERT_TRUE(copiar(AlcanceCopia::Todas));
    EXPECT_EQ(contenido(), QStringList({"Bavis.db", "Emp001", "Emp002"}));
    EXPECT_EQ(contenido("Emp002"),
              QStringList({"Bavar.db", "Notas.rtf", "Quilmar2025.db", "Selan.dat"}));
    EXPECT_EQ(contenido("Emp001"), QStringList({"Bavar.db", "Quilmar2024.db", "Selan.dat"}));
}

TEST_F(Copias, IdaYVueltaDanElMismoBalance) {
    e.instalarDemo();
    e.sesion.EmpresaActual = "Emp100";
    e.sesion.AnoActual = 2026;
    const QList<QStringList> antes = SumasSaldos(e.sesion);
    ASSERT_GT(antes.size(), 10);
    {
        Conexion c = AbrirAvisos(e.sesion);
        c.ejecutar("INSERT INTO Avisos (NAviso, Fecha, Texto, Periodo) VALUES "
                   "(1, '2026-12-01', 'Cerrar el año', 0)");
    }
    ASSERT_TRUE(copiar());

    // The books change (entries posted, one deleted), a reminder goes; the restore brings both
    // back as they were at the moment of the backup.
    long maxCopia = 0;
    QString cuentaA, cuentaB;
    {
        Conexion c = e.datos();
        maxCopia = Contar(c, "SELECT MAX(NAs) FROM Diario");
        cuentaA = c.escalar("SELECT MIN(NCuenta) FROM Diario").toString();
        cuentaB = c.escalar("SELECT MAX(NCuenta) FROM Diario").toString();
    }
    auto otroAsiento = [&](int i) {
        return e.asiento(QDate(2026, 6, 1 + i % 28), {Debe(cuentaA, 10 + i, "Tras la copia"),
                                                      Haber(cuentaB, 10 + i, "Tras la copia")});
    };
    for (int i = 1; i <= 30; ++i)
        otroAsiento(i);
    {
        Conexion c = e.datos();
        ElimAsiento(c, e.sesion, Contar(c, "SELECT MIN(NAs) FROM Diario WHERE NAs > 1"));
        Conexion b = AbrirAvisos(e.sesion);
        b.ejecutar("DELETE FROM Avisos");
    }
    ASSERT_NE(SumasSaldos(e.sesion), antes);
    ASSERT_TRUE(restaurar(e, "Emp100"));
    EXPECT_EQ(e.dialogo.preguntas.mid(1),
              QStringList({"Está seguro de que desea restaurar los datos de la empresa Emp100, de "
                           "nombre De Pruebas",
                           "La empresa Emp100 ya existe en el directorio del programa. Desea "
                           "seguir restaurando, de forma que los datos que se van a importar "
                           "sustiruirían a los existentes?"}));
    EXPECT_EQ(e.dialogo.informados.last(), MsgRestaurarCerrar);
    EXPECT_EQ(SumasSaldos(e.sesion), antes);
    {
        // The entries posted after the backup are gone, and a new one takes the next number.
        Conexion c = e.datos();
        EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario WHERE Concepto = 'Tras la copia'"), 0);
        EXPECT_EQ(Contar(c, "SELECT MAX(NAs) FROM Diario"), maxCopia);
        CargarEjercicio(e.sesion);
        EXPECT_EQ(otroAsiento(1), maxCopia + 1);
    }
    {
        Conexion b = AbrirAvisos(e.sesion);
        EXPECT_EQ(LeerAvisos(b).size(), 1);
    }
    // Nothing is left beside the company folder.
    EXPECT_EQ(QDir(e.dir.path()).entryList({".Emp*"}, QDir::AllEntries | QDir::Hidden),
              QStringList());

    // Into an installation without that company: the folder is made, one question only.
    Entorno otra;
    ASSERT_TRUE(restaurar(otra, "Emp100"));
    EXPECT_EQ(otra.dialogo.preguntas.size(), 1);
    otra.sesion.EmpresaActual = "Emp100";
    otra.sesion.AnoActual = 2026;
    EXPECT_EQ(SumasSaldos(otra.sesion), antes);
}

TEST_F(Copias, CopiaDanadaNoTocaNada) {
    e.crearEmpresa();
    publicar(e, 1, 400);
    ASSERT_TRUE(copiar());
    // The books read first: reading them may set a file's journal, which is no change of data.
    const QStringList libros = Libros(e.sesion, "Emp001");
    ASSERT_GT(libros.size(), 800);
    const QMap<QString, QByteArray> instalacion = Firma(e.dir.path());
    const QMap<QString, QByteArray> buena = Firma(enCopia());

    // Each way a copy can be bad, on a fresh copy of the good one.
    const QList<std::pair<const char*, std::function<void()>>> danos{
        {"Quilmar2024.db",
         [&] {
             QFile f(enCopia("Emp001/Quilmar2024.db"));
             f.open(QIODevice::ReadWrite);
             f.seek(f.size() / 2);
             f.write(QByteArray(8192, '\x5a'));
         }},
        {"Quilmar2024.db",
         [&] {
             QFile::remove(enCopia("Emp001/Quilmar2024.db"));
         }},
        {"Bavar.db",
         [&] {
             QFile::remove(enCopia("Emp001/Bavar.db"));
             Conexion ajena(enCopia("Emp001/Bavar.db"), TipoBase::Cualquiera, true);
             ajena.ejecutar("CREATE TABLE Otra (x)");
         }},
        {"Selan.dat",
         [&] {
             QFile(enCopia("Emp001/Selan.dat")).open(QIODevice::WriteOnly);
         }},
        {"Bavis.db",
         [&] {
             QFile f(enCopia("Bavis.db"));
             f.open(QIODevice::WriteOnly);
             f.write("esto no es una base de datos");
         }},
    };
    for (const auto& [nombre, danar] : danos) {
        SCOPED_TRACE(nombre);
        danar();
        e.dialogo = DialogoGuion();
        e.dialogo.responder({true, true});
        EXPECT_FALSE(RestaurarCopia(e.sesion, e.dialogo, enCopia("Emp001")));
        ASSERT_EQ(e.dialogo.informados.size(), 1);
        const QString m = e.dialogo.informados.first();
        EXPECT_TRUE(m.startsWith("No se puede restaurar esa copia.")) << m.toStdString();
        EXPECT_TRUE(m.contains(nombre)) << m.toStdString();
        EXPECT_TRUE(m.endsWith("No se ha modificado ningún dato.")) << m.toStdString();
        EXPECT_TRUE(e.dialogo.preguntas.isEmpty()) << "refused before asking";
        EXPECT_EQ(Firma(e.dir.path()), instalacion);
        EXPECT_EQ(Libros(e.sesion, "Emp001"), libros);
        // Back to the good copy for the next case.
        QDir(enCopia()).removeRecursively();
        QDir().mkpath(enCopia());
        ASSERT_TRUE(copiar());
        ASSERT_EQ(Firma(enCopia()).keys(), buena.keys());
    }
}

// On a server a copy that passes every check can still be refused by the server halfway through
// (here a subaccount twice in Mayor, which the server's unique index refuses, after the company's
// schemas were dropped in the same transaction): the books stay exactly as they were.
TEST_F(Copias, RestauracionQueElServidorRechazaAMitadNoTocaNada) {
    if (!e.sesion.enServidor())
        GTEST_SKIP() << "sólo en la pasada del servidor";
    e.crearEmpresa("001", 2024);
    publicar(e, 1, 200);
    ASSERT_TRUE(copiar());
    publicar(e, 201, 260);
    const QStringList libros = Libros(e.sesion, "Emp001");
    {
        Conexion c(enCopia("Emp001/Quilmar2024.db"));
        c.ejecutar("DROP INDEX IxMayorNCuenta");
        c.ejecutar("INSERT INTO Mayor SELECT * FROM Mayor LIMIT 1");
    }
    ASSERT_NO_THROW(ComprobarCopiaEmpresa(enCopia("Emp001")));
    e.dialogo = DialogoGuion();
    EXPECT_FALSE(restaurar(e, "Emp001"));
    ASSERT_EQ(e.dialogo.informados.size(), 1);
    const QString m = e.dialogo.informados.first();
    EXPECT_TRUE(m.startsWith("No se pudo restaurar la copia en el servidor.")) << m.toStdString();
    EXPECT_TRUE(m.endsWith("No se ha modificado ningún dato.")) << m.toStdString();
    EXPECT_FALSE(m.contains("duplicate")) << m.toStdString();
    EXPECT_EQ(Libros(e.sesion, "Emp001"), libros);
    // And they go on taking entries under the next number.
    Conexion c = e.datos();
    EXPECT_EQ(ComprobarLibro(c), 260);
    CargarEjercicio(e.sesion);
    const long siguiente = long(e.sesion.UltimoAsiento) + 1;
    EXPECT_EQ(e.asiento(QDate(2024, 5, 5), asientoContado(261)), siguiente);
}

// A backup has one layout on both engines: one taken from the server restores into a file
// installation, and one taken from the files into a server, with the same books.
TEST_F(Copias, UnaCopiaDeUnMotorSeRestauraEnElOtro) {
    if (!e.sesion.enServidor())
        GTEST_SKIP() << "sólo en la pasada del servidor: necesita los dos motores";
    e.instalarDemo();
    e.sesion.EmpresaActual = "Emp100";
    e.sesion.AnoActual = 2026;
    const QList<QStringList> sumas = SumasSaldos(e.sesion);
    ASSERT_GT(sumas.size(), 10);
    ASSERT_TRUE(copiar());

    // An installation of this run whose books are left on its files.
    Entorno archivos;
    archivos.sesion.UrlServidor.clear();
    ASSERT_TRUE(restaurar(archivos, "Emp100"));
    archivos.sesion.EmpresaActual = "Emp100";
    archivos.sesion.AnoActual = 2026;
    EXPECT_TRUE(QFileInfo::exists(archivos.ruta("Emp100/Quilmar2026.db")));
    EXPECT_EQ(SumasSaldos(archivos.sesion), sumas);

    QTemporaryDir segunda;
    archivos.dialogo.responder({true});
    ASSERT_TRUE(HacerCopiaSeguridad(archivos.sesion, *archivos.ajustes, archivos.dialogo,
                                    segunda.path(), AlcanceCopia::EmpresaAbierta));
    Entorno servidor;
    ASSERT_TRUE(servidor.sesion.enServidor());
    servidor.dialogo.responder({true, true});
    ASSERT_TRUE(
        RestaurarCopia(servidor.sesion, servidor.dialogo, QDir(segunda.path()).filePath("Emp100")));
    servidor.sesion.EmpresaActual = "Emp100";
    servidor.sesion.AnoActual = 2026;
    EXPECT_EQ(SumasSaldos(servidor.sesion), sumas);
    // Every row of every table came back through the files unchanged.
    EXPECT_EQ(Libros(servidor.sesion, "Emp100"), Libros(e.sesion, "Emp100"));
}

TEST_F(Copias, RestaurarRechazaLoQueNoEsUnaCopiaYLaEmpresaAbiertaEnOtroPuesto) {
    e.crearEmpresa();
    ASSERT_TRUE(copiar());
    auto intentar = [&](const QString& carpeta) {
        e.dialogo = DialogoGuion();
        e.dialogo.responder({true, true});
        EXPECT_FALSE(RestaurarCopia(e.sesion, e.dialogo, carpeta));
        return e.dialogo.informados.value(0);
    };
    EXPECT_EQ(intentar(""), MsgRestaurarSinCarpeta);
    EXPECT_EQ(intentar(enCopia("Emp009")), MsgNoExisteCarpeta);
    EXPECT_EQ(intentar(enCopia()), MsgRestaurarSinSelan);
    QDir().rename(enCopia("Emp001"), enCopia("Copia"));
    EXPECT_EQ(intentar(enCopia("Copia")), MsgRestaurarNombreCarpeta);
    QDir().rename(enCopia("Copia"), enCopia("Emp001"));
    EXPECT_TRUE(intentar(e.ruta("Emp001")).contains("no una copia"));

    // Another process (here another holder of the lock) has the company open.
    const QMap<QString, QByteArray> antes = Firma(e.ruta("Emp001"));
    {
        BloqueoEmpresa otro(e.dir.path(), "Emp001", BloqueoEmpresa::Modo::Compartido);
        ASSERT_TRUE(otro.conseguido());
        EXPECT_EQ(intentar(enCopia("Emp001")), MsgEmpresaAbiertaOtro.arg("Emp001"));
        EXPECT_EQ(Firma(e.ruta("Emp001")), antes);
    }
    // This process's own hold doesn't stand in the way, and is held again afterwards.
    MarcarEmpresaAbierta(e.sesion);
    e.dialogo = DialogoGuion();
    e.dialogo.responder({true, true});
    EXPECT_TRUE(RestaurarCopia(e.sesion, e.dialogo, enCopia("Emp001")));
    BloqueoEmpresa solo(e.dir.path(), "Emp001", BloqueoEmpresa::Modo::Exclusivo);
    EXPECT_FALSE(solo.conseguido());
    EXPECT_TRUE(solo.ocupado());
}

TEST_F(Copias, CopiaMientrasOtroProcesoPublicaMilAsientos) {
    e.crearEmpresa("001", 2024);
    QProcess hijo;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(VarHijo, e.dir.path());
    env.insert(VarServidorHijo, e.sesion.UrlServidor);
    hijo.setProcessEnvironment(env);
    hijo.setProcessChannelMode(QProcess::ForwardedChannels);
    hijo.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=PublicadorCopias.*"});
    ASSERT_TRUE(hijo.waitForStarted());

    // While entry 500 is written but not committed.
    ASSERT_TRUE(esperarFichero(e.ruta("listo")));
    ASSERT_TRUE(copiar());
    QFile(e.ruta("sigue")).open(QIODevice::WriteOnly);
    // And once more while the rest are being posted.
    QTemporaryDir segunda;
    e.dialogo.responder({true});
    ASSERT_TRUE(HacerCopiaSeguridad(e.sesion, *e.ajustes, e.dialogo, segunda.path(),
                                    AlcanceCopia::EmpresaAbierta));
    ASSERT_TRUE(hijo.waitForFinished(240000));
    ASSERT_EQ(hijo.exitStatus(), QProcess::NormalExit);
    ASSERT_EQ(hijo.exitCode(), 0);

    Entorno a, b;
    ASSERT_TRUE(restaurar(a, "Emp001"));
    b.dialogo.responder({true, true});
    ASSERT_TRUE(RestaurarCopia(b.sesion, b.dialogo, QDir(segunda.path()).filePath("Emp001")));
    for (Entorno* x : {&a, &b}) {
        x->sesion.EmpresaActual = "Emp001";
        x->sesion.AnoActual = 2024;
    }
    Conexion ca = a.datos(), cb = b.datos();
    EXPECT_EQ(ComprobarLibro(ca), 499) << "the entry being written is not in the copy";
    const int enSegunda = ComprobarLibro(cb);
    EXPECT_GE(enSegunda, 499);
    EXPECT_LE(enSegunda, 1000);
    Conexion c = e.datos();
    EXPECT_EQ(ComprobarLibro(c), 1000);
}

// A backup killed anywhere leaves the folder with a whole backup: the one before, or the new one
// once it was in place. The kills land after a random number of the copy's steps and a random
// wait; whatever the moment, the same must hold.
TEST_F(Copias, CopiaMatadaDejaUsableLaAnterior) {
    e.crearEmpresa("001", 2024);
    CliComoLaSesion(e);
    // Enough entries that a backup takes several steps; fewer on a server, where each of the
    // twelve restores below loads them over a connection.
    const int n = e.sesion.enServidor() ? 1500 : 6000;
    publicar(e, 1, n);
    ASSERT_TRUE(copiar());
    const QList<QStringList> vieja = SumasSaldos(e.sesion);
    // The old backup, to put back whenever a round let the new one into place.
    QTemporaryDir guardada;
    for (const QString& f : contenido("Emp001"))
        ASSERT_TRUE(QFile::copy(enCopia("Emp001/" + f), guardada.filePath(f)));
    publicar(e, n + 1, n + n / 2);
    const QList<QStringList> nueva = SumasSaldos(e.sesion);
    ASSERT_NE(vieja, nueva);

    QRandomGenerator azar(27);
    int viejas = 0, nuevas = 0;
    for (int ronda = 0; ronda < 12; ++ronda) {
        const int pasos = azar.bounded(0, 5);
        const int esperaMs = azar.bounded(0, 40);
        SCOPED_TRACE(QStringLiteral("ronda %1: %2 pasos, %3 ms")
                         .arg(ronda)
                         .arg(pasos)
                         .arg(esperaMs)
                         .toStdString());
        QProcess p;
        p.start(QUILMAR_CLI, {"--datos", e.dir.path(), "--empresa", "Emp001", "copia-seguridad",
                              "--carpeta", copia.path(), "--si"});
        ASSERT_TRUE(p.waitForStarted());
        QByteArray progreso;
        while (progreso.count("Copiando:") < pasos && p.state() == QProcess::Running) {
            p.waitForReadyRead(50);
            progreso += p.readAllStandardError();
        }
        if (esperaMs > 0)
            p.waitForFinished(esperaMs);
        p.kill();
        p.waitForFinished();

        // Whatever the moment, the folder holds one whole backup.
        ASSERT_NO_THROW(ComprobarCopiaEmpresa(enCopia("Emp001")));
        ASSERT_NO_THROW(ComprobarBase(enCopia("Bavis.db"), TipoBase::Bavis));
        Entorno x;
        ASSERT_TRUE(restaurar(x, "Emp001"));
        x.sesion.EmpresaActual = "Emp001";
        x.sesion.AnoActual = 2024;
        const QList<QStringList> sumas = SumasSaldos(x.sesion);
        ASSERT_TRUE(sumas == vieja || sumas == nueva);
        if (sumas == vieja) {
            ++viejas;
            continue;
        }
        ++nuevas;
        // The next round kills a backup that replaces the old one again; what an interrupted
        // round left beside the folder stays there for the next run to clear.
        ASSERT_TRUE(QDir(enCopia("Emp001")).removeRecursively());
        QDir().mkpath(enCopia("Emp001"));
        for (const QString& f : QDir(guardada.path()).entryList(QDir::Files))
            ASSERT_TRUE(QFile::copy(guardada.filePath(f), enCopia("Emp001/" + f)));
    }
    RecordProperty("rondas_con_la_copia_anterior", viejas);
    RecordProperty("rondas_con_la_copia_nueva", nuevas);
    // A backup run to its end after all that leaves nothing of the interrupted ones behind.
    ASSERT_TRUE(copiar());
    EXPECT_EQ(contenido(), QStringList({"Bavis.db", "Emp001"}));
    Entorno x;
    ASSERT_TRUE(restaurar(x, "Emp001"));
    x.sesion.EmpresaActual = "Emp001";
    x.sesion.AnoActual = 2024;
    EXPECT_EQ(SumasSaldos(x.sesion), nueva);
}

} // namespace
