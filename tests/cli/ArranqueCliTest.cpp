// quilmar-cli end to end: the login every command passes, the users' verbs, and exercises and
// companies made and deleted.

#include "Entorno.h"
#include "store/Instalacion.h"
#include "store/ListasEmpresas.h"
#include "store/Sesion.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

namespace {

QString primeraLinea(const QString& t) {
    return t.section('\n', 0, 0);
}

TEST(CliArranque, ElAccesoSeExigeConLasMismasReglas) {
    QTemporaryDir dir;
    const QString d = dir.path();
    // No users, no password: everything works without a login.
    ASSERT_EQ(EjecutarCli(d, {"usuarios"}).salida, "Administrador\n");
    ResultadoCli r = EjecutarCli(d, {"usuario-clave", "Administrador", "--clave", "admin1"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.error, "Se ha puesto la contraseña.\n");

    r = EjecutarCli(d, {"empresas"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error, "Debe introducir nombre de Usuario y contraseña.\n");
    EXPECT_TRUE(r.salida.isEmpty());
    r = EjecutarCli(d, {"--clave", "admin2", "empresas"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error, "La clave no es correcta.\n");
    // Alone with a password, the administrator's name may be left out, as the desktop fills it.
    EXPECT_EQ(EjecutarCli(d, {"--clave", "admin1", "empresas"}).codigo, 0);
    EXPECT_EQ(
        EjecutarCli(d, {"empresas", "--usuario", "administrador", "--clave", "admin1"}).codigo, 0);

    // A user with quotes and accents, made by the administrator, logs in.
    const QString nombre = "Iñaki O'Neil";
    const QString clave = "c'la\"vé ñ 2";
    r = EjecutarCli(d, {"--clave", "admin1", "usuario-anadir", nombre, "--clave", clave});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.error, "Se ha creado el Usuario.\n");
    r = EjecutarCli(d, {"--usuario", nombre, "--clave", clave, "empresas"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(primeraLinea(r.salida), "Código\tEmpresa\tAño");
    // Now that there are users, the name is asked for again.
    r = EjecutarCli(d, {"--clave", "admin1", "empresas"});
    EXPECT_EQ(r.error, "Debe introducir nombre de Usuario y contraseña.\n");

    // A user is no administrator.
    r = EjecutarCli(d, {"--usuario", nombre, "--clave", clave, "usuarios"});
    EXPECT_EQ(r.codigo, 1);
    r = EjecutarCli(d, {"--usuario", nombre, "--clave", clave, "usuario-clave", "Administrador",
                        "--clave", "robada"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error, "Proceso cancelado.\n");
    r = EjecutarCli(
        d, {"--usuario", nombre, "--clave", clave, "usuario-clave", nombre, "--clave", "nueva12"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(EjecutarCli(d, {"--usuario", nombre, "--clave", "nueva12", "empresas"}).codigo, 0);

    // The administrator lists and deletes users; deleting asks, and --si answers.
    const QStringList admin{"--usuario", "Administrador", "--clave", "admin1"};
    EXPECT_EQ(EjecutarCli(d, admin + QStringList{"usuarios"}).salida,
              "Administrador\n" + nombre + "\n");
    r = EjecutarCli(d, admin + QStringList{"usuario-eliminar", nombre});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.startsWith("Está seguro de que desea eliminar el Usuario " + nombre + "?"));
    r = EjecutarCli(d, admin + QStringList{"usuario-eliminar", nombre, "--si"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(EjecutarCli(d, admin + QStringList{"usuarios"}).salida, "Administrador\n");
    r = EjecutarCli(d, admin + QStringList{"usuario-eliminar", "Administrador", "--si"});
    EXPECT_EQ(r.error, "No se puede eliminar el usuario 'Administrador'.\n");
}

TEST(CliArranque, EjerciciosYEmpresasSeCreanYSeEliminan) {
    QTemporaryDir dir;
    const QString d = dir.path();
    const int ano = QDate::currentDate().year();
    ResultadoCli r = EjecutarCli(
        d, {"crear-empresa", "--codigo", "001", "--nombre", "Uno", "--fecha-inicio", "01/01/2020"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();

    r = EjecutarCli(d, {"crear-ejercicio", "--empresa", "Emp001", "--ano", "2021"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Emp001\tUno\t2021\n");
    r = EjecutarCli(
        d, {"crear-ejercicio", "--empresa", "001", "--ano", "2019", "--desde-ano", "2020"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    r = EjecutarCli(d, {"crear-ejercicio", "--empresa", "Emp001", "--ano", "2021"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error, "Ya existe el ejercicio 2021.\n");
    r = EjecutarCli(d, {"crear-ejercicio", "--empresa", "Emp001", "--ano", "21"});
    EXPECT_EQ(r.error, "Indique el año (con cuatro cifras)\n");
    EXPECT_EQ(EjecutarCli(d, {"empresas"}).salida,
              "Código\tEmpresa\tAño\nEmp001\tUno\t2020\nEmp001\tUno\t2021\nEmp001\tUno\t2019\n"
              "Emp100\tDe Pruebas\t" +
                  QString::number(ano) + "\n");

    // The year the desktop works in (the company's last chosen one) can't be deleted.
    r = EjecutarCli(d, {"eliminar-ejercicio", "--empresa", "Emp001", "--ano", "2020", "--si"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error, "Para eliminar un ejercicio tiene antes que situarse en otro.\n");
    r = EjecutarCli(d, {"eliminar-ejercicio", "--empresa", "Emp001", "--ano", "2021"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(QFile::exists(dir.filePath("Emp001/Quilmar2021.db")));
    r = EjecutarCli(d, {"eliminar-ejercicio", "--empresa", "Emp001", "--ano", "2021", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_FALSE(QFile::exists(dir.filePath("Emp001/Quilmar2021.db")));
    EXPECT_TRUE(QFile::exists(dir.filePath("Emp001/Quilmar2020.db")));
    QStringList anos;
    for (const RegistroSelan& s : LeerSelan(dir.filePath("Emp001/Selan.dat")))
        anos << s.Ano;
    EXPECT_EQ(anos, QStringList({"2020", "2019"}));

    // The company last chosen is the current one; another goes with everything it has.
    r = EjecutarCli(d, {"eliminar-empresa", "--empresa", "Emp001", "--si"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error, "Para eliminar una empresa tiene que situarse en otra.\n");
    r = EjecutarCli(d, {"eliminar-empresa", "--empresa", "Emp100"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(QDir(dir.filePath("Emp100")).exists());
    r = EjecutarCli(d, {"eliminar-empresa", "--empresa", "Emp100", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_FALSE(QDir(dir.filePath("Emp100")).exists());
    EXPECT_TRUE(QFile::exists(dir.filePath("Emp001/Bavar.db")));
    EXPECT_EQ(EjecutarCli(d, {"empresas"}).salida,
              "Código\tEmpresa\tAño\nEmp001\tUno\t2020\nEmp001\tUno\t2019\n");
    r = EjecutarCli(d, {"eliminar-empresa", "--empresa", "Emp555", "--si"});
    EXPECT_EQ(r.error, "No existe la empresa Emp555.\n");
}

// With PLoc.dat empty or garbled nothing is created, neither in the current folder nor under a
// garbage name: the command says what is wrong and how to repair it, and the repair works.
TEST(CliArranque, PLocDanadoNoCreaNadaFueraYSeRepara) {
    QTemporaryDir dir, actual;
    const QString d = dir.path();
    ASSERT_EQ(EjecutarCli(d, {"empresas"}).codigo, 0); // a main installation with the demo
    auto crear = [&](const QString& codigo) {
        QProcess p;
        p.setWorkingDirectory(actual.path());
        p.start(QUILMAR_CLI, {"--datos", d, "crear-empresa", "--codigo", codigo, "--nombre", "X"});
        p.waitForFinished(120000);
        return std::make_pair(p.exitCode(), QString::fromUtf8(p.readAllStandardError()));
    };
    Sesion s;
    s.AppPath = d;
    const QString esperado = MsgPLocDanado(s) + "\n";
    for (const QByteArray& danado : {QByteArray(""), QByteArray("\x01\x02garbage\x7f")}) {
        QFile f(dir.filePath("PLoc.dat"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(danado);
        f.close();
        const auto [codigo, error] = crear("002");
        EXPECT_EQ(codigo, 1);
        EXPECT_EQ(error, esperado);
        EXPECT_EQ(QDir(actual.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                  QStringList());
        EXPECT_EQ(QDir(d).entryList({"Emp*", "*garbage*"}, QDir::Dirs), QStringList({"Emp100"}));
        EXPECT_EQ(EjecutarCli(d, {"empresas"}).error, esperado) << "every verb says it";
    }

    ResultadoCli r = EjecutarCli(d, {"instalacion"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error, esperado);
    r = EjecutarCli(d, {"instalacion", "--principal"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Servidor o principal: las empresas están en " + d + "\n");
    EXPECT_EQ(crear("002").first, 0);
    EXPECT_TRUE(QFile::exists(dir.filePath("Emp002/Bavar.db")));

    // A client names the server's folder; one out of reach is told as such.
    QTemporaryDir servidor;
    r = EjecutarCli(d, {"instalacion", "--servidor", servidor.path()});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Cliente o secundario: las empresas están en " + servidor.path() + "\n");
    const QString apagado = servidor.path();
    servidor.remove();
    r = EjecutarCli(d, {"empresas"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error, MsgSinCarpetaDatos(apagado) + "\n");
    EXPECT_FALSE(QDir(apagado).exists()) << "nothing makes the server's folder here";
}

} // namespace
