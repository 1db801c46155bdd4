// Every text a verb takes ends in a field of the books: it is refused, naming the field, when it
// carries a control character (a forged line of a listing, an escape for the terminal) or is
// longer than the field, and nothing is stored.

#include "Entorno.h"
#include "store/Campos.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

QString Muchos(int n, char c) {
    return QString(n, QLatin1Char(c));
}

TEST(CliTextos, ControlesYLargosRechazadosEnCadaVerbo) {
    Entorno e;
    e.crearEmpresa();
    auto cli = [&](const QStringList& args) {
        return EjecutarCli(e.dir.path(),
                           QStringList{"--empresa", "Emp001", "--ano", "2024"} + args);
    };
    const QStringList empresa{"crear-empresa", "--codigo", "002", "--fecha-inicio", "1/1/2024"};
    const QStringList subcuenta{"crear-subcuenta", "--cuenta", "430", "--area", "4"};
    const struct {
        QStringList args;
        QString mensaje;
    } casos[] = {
        {empresa + QStringList{"--nombre", "Nueva\nSL"}, MsgControles("Nombre de la Empresa")},
        {empresa + QStringList{"--nombre", Muchos(31, 'n')},
         "El campo Nombre de la Empresa no puede tener más de 30 caracteres."},
        {empresa + QStringList{"--nombre", "Nueva SL", "--nif", Muchos(100000, '9')},
         "El campo NIF no puede tener más de 15 caracteres."},
        {empresa + QStringList{"--nombre", "Nueva SL", "--domicilio", "Mayor 1\tBajo"},
         MsgControles("Domicilio")},
        {empresa + QStringList{"--nombre", "Nueva SL", "--cpostal", "280011"},
         "El campo Código Postal no puede tener más de 5 caracteres."},
        {{"crear-cuenta", "--codigo", "626", "--area", "6", "--nombre", "Banca\ten línea"},
         MsgControles("Nombre de la Cuenta")},
        {subcuenta + QStringList{"--nombre", "Cliente\x1b[31m"},
         MsgControles("Nombre de la Subcuenta")},
        {subcuenta + QStringList{"--nombre", "Cliente nuevo", "--domicilio", Muchos(41, 'd')},
         "El campo Domicilio no puede tener más de 40 caracteres."},
        {subcuenta + QStringList{"--nombre", "Cliente nuevo", "--observaciones", "uno\ndos"},
         MsgControles("Observaciones")},
        {{"renombrar-subcuenta", "443000022", "--nif", "B12345678\r", "--si"}, MsgControles("NIF")},
        {{"sector-anadir", "Tienda\a"}, MsgControles("Sector")},
        {{"sector-anadir", Muchos(100000, 's')},
         "El campo Sector no puede tener más de 20 caracteres."},
        {{"concepto", "7", "--nombre", Muchos(500, 'c')},
         "El campo Concepto predefinido no puede tener más de 40 caracteres."},
        {{"concepto", "7", "--nombre", "Luz\r"}, MsgControles("Concepto predefinido")},
        {{"usuario-clave", "Administrador", "--clave", "secreta\t1"}, MsgControles("Contraseña")},
    };
    auto estado = [&] {
        Conexion datos = e.datos();
        return datos
                   .escalar("SELECT (SELECT COUNT(*) FROM Cuentas) || '|' || (SELECT COUNT(*) "
                            "FROM Grupos) || '|' || (SELECT COUNT(*) FROM Sectores) || '|'")
                   .toString() +
               Unidos(datos, "SELECT NIF FROM CliPro ORDER BY rowid");
    };
    const QString antes = estado();
    for (const auto& c : casos) {
        const ResultadoCli r = cli(c.args);
        EXPECT_EQ(r.codigo, 1) << c.args.join(' ').left(80).toStdString();
        EXPECT_EQ(r.error.trimmed(), c.mensaje) << c.args.join(' ').left(80).toStdString();
    }
    EXPECT_FALSE(QDir(e.ruta("Emp002")).exists());
    EXPECT_EQ(estado(), antes);
    Conexion datos = e.datos();
    Conexion bavar = e.bavar();
    EXPECT_EQ(bavar.escalar("SELECT COUNT(*) FROM Conceptos").toInt(), 0);
    // What fits goes in, trimmed.
    const ResultadoCli bien = cli({"sector-anadir", "  Tienda centro  "});
    EXPECT_EQ(bien.codigo, 0) << bien.error.toStdString();
    EXPECT_EQ(datos.escalar("SELECT Sector FROM Sectores").toString(), "Tienda centro");
}

} // namespace
