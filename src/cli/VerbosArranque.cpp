// Verbs of the installation's users and of the exercises and deletion of companies, and the
// login every command passes first.

#include "cli/Cli.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Arranque.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/Empresas.h"
#include "store/Instalacion.h"
#include "store/ListasEmpresas.h"
#include "store/Sesion.h"
#include "store/Usuarios.h"

#include <QDir>
#include <QFile>

void ComprobarAccesoCli(ContextoCli& c) {
    if (c.accesoComprobado)
        return;
    const DecisionAcceso decision = DecidirAcceso(c.sesion);
    if (decision.necesario) {
        QString usuario = c.global(QStringLiteral("usuario"));
        // With only the administrator asking for a password, his name may be left out.
        if (usuario.isEmpty())
            usuario = decision.usuario;
        const QString fallo = ComprobarAcceso(c.sesion, usuario, c.global(QStringLiteral("clave")));
        if (!fallo.isEmpty())
            throw Rechazo(fallo);
    }
    c.accesoComprobado = true;
}

namespace {

// "Emp001", "emp001" or "001" name the folder Emp001.
QString carpetaEmpresa(const QString& texto) {
    QString t = texto.trimmed();
    if (t.startsWith(QLatin1String("Emp"), Qt::CaseInsensitive))
        t = t.mid(3);
    return QStringLiteral("Emp") + t;
}

QString empresaPedida(ContextoCli& c) {
    const QString opcion = c.opcion(QStringLiteral("empresa"));
    if (opcion.isEmpty())
        throw Rechazo(QStringLiteral("Indique la empresa con --empresa EmpNNN (quilmar-cli "
                                     "empresas muestra la lista)."));
    const QString empresa = carpetaEmpresa(opcion);
    const bool existe = c.sesion.enServidor() ? !EjerciciosDe(c.sesion, empresa).isEmpty()
                                              : QDir(c.sesion.carpetaEmpresa(empresa)).exists();
    if (empresa.size() != 6 || !existe)
        throw Rechazo(QStringLiteral("No existe la empresa %1.").arg(empresa));
    return empresa;
}

int anoPedido(ContextoCli& c, const QString& opcion) {
    const QString t = c.opcion(opcion);
    bool ok = false;
    const int ano = t.toInt(&ok);
    if (!ok || t.size() != 4)
        throw Rechazo(MsgIndiqueAno);
    return ano;
}

// The year the desktop would be on in that company: the last one chosen there, else its latest.
int anoDeTrabajo(ContextoCli& c, const QString& empresa) {
    if (c.ajustes.leer(QStringLiteral("Inicio"), QStringLiteral("Empresa"))
            .compare(empresa, Qt::CaseInsensitive) == 0) {
        const int ano = c.ajustes.leer(QStringLiteral("Inicio"), QStringLiteral("Año")).toInt();
        if (ano > 0)
            return ano;
    }
    return UltimoEjercicio(c.sesion, empresa);
}

QString nombreEmpresa(const Sesion& s, const QString& empresa) {
    const QList<RegistroSelan> selan = EjerciciosDe(s, empresa);
    return selan.isEmpty() ? QString() : selan.last().Nombre;
}

int crearEjercicio(ContextoCli& c) {
    const QString empresa = empresaPedida(c);
    const int ano = anoPedido(c, QStringLiteral("ano"));
    const int desde = c.tiene(QStringLiteral("desde-ano"))
                          ? anoPedido(c, QStringLiteral("desde-ano"))
                          : anoDeTrabajo(c, empresa);
    c.sesion.EmpresaActual = empresa;
    c.sesion.AnoActual = static_cast<qint16>(desde);
    if (!ExisteEjercicio(c.sesion, desde))
        throw Rechazo(MsgFaltaEjercicio(c.sesion, desde));
    CargarEjercicio(c.sesion);
    CrearEjercicio(c.sesion, c.dialogo, ano, desde);
    c.salida << empresa << '\t' << nombreEmpresa(c.sesion, empresa) << '\t' << ano << '\n';
    return 0;
}

int eliminarEjercicio(ContextoCli& c) {
    const QString empresa = empresaPedida(c);
    const int ano = anoPedido(c, QStringLiteral("ano"));
    c.sesion.EmpresaActual = empresa;
    c.sesion.AnoActual = static_cast<qint16>(anoDeTrabajo(c, empresa));
    if (!EjerciciosEmpresa(c.sesion).contains(ano))
        throw Rechazo(
            QStringLiteral("La empresa %1 no tiene el ejercicio %2.").arg(empresa).arg(ano));
    if (!EliminarEjercicio(c.sesion, c.dialogo, ano))
        return 1;
    c.salida << QStringLiteral("Eliminado el ejercicio %1 de la empresa %2.").arg(ano).arg(empresa)
             << '\n';
    return 0;
}

int eliminarEmpresa(ContextoCli& c) {
    const QString empresa = empresaPedida(c);
    // The company the desktop works in is the current one.
    c.sesion.EmpresaActual = c.ajustes.leer(QStringLiteral("Inicio"), QStringLiteral("Empresa"));
    const QString nombre = nombreEmpresa(c.sesion, empresa);
    if (!EliminarEmpresa(c.sesion, c.dialogo, empresa.mid(3), nombre.isEmpty() ? empresa : nombre))
        return 1;
    c.salida << QStringLiteral("Eliminada la empresa %1 (%2).").arg(empresa, nombre) << '\n';
    return 0;
}

// Shows or sets the kind of installation: what the desktop asks at its first start.
int instalacion(ContextoCli& c) {
    Sesion& s = c.sesion;
    const bool principal = c.bandera(QStringLiteral("principal"));
    const bool archivos = c.bandera(QStringLiteral("archivos"));
    // Its own --servidor names a folder, not the database server of the global option.
    const QString servidor = c.propia(QStringLiteral("servidor"));
    const QString postgresql = c.opcion(QStringLiteral("postgresql"));
    if (int(principal) + int(archivos) + int(!servidor.isEmpty()) + int(!postgresql.isEmpty()) > 1)
        throw Rechazo(QStringLiteral("Indique sólo una de --principal, --servidor CARPETA, "
                                     "--postgresql URL o --archivos."));
    if (!postgresql.isEmpty()) {
        s.DataPath = CarpetaDatos(s);
        ElegirServidor(s, c.ajustes, c.dialogo, Servidor::DeUrl(postgresql));
    } else if (principal || !servidor.isEmpty()) {
        ElegirInstalacion(s, principal,
                          servidor.isEmpty() ? QString() : QDir(servidor).absolutePath());
        QuitarServidor(s, c.ajustes);
    } else {
        s.DataPath = CarpetaDatos(s);
        if (archivos)
            QuitarServidor(s, c.ajustes);
    }
    if (const QString url = ServidorElegido(c.ajustes); !url.isEmpty())
        c.salida << QStringLiteral("Servidor PostgreSQL: los libros están en %1").arg(url) << '\n';
    else if (s.esPrincipal())
        c.salida << QStringLiteral("Servidor o principal: las empresas están en %1")
                        .arg(QDir::toNativeSeparators(s.DataPath))
                 << '\n';
    else
        c.salida << QStringLiteral("Cliente o secundario: las empresas están en %1")
                        .arg(QDir::toNativeSeparators(s.DataPath))
                 << '\n';
    return 0;
}

int usuarios(ContextoCli& c) {
    if (!EsAdministrador(c.sesion.UsuarioActual))
        throw Rechazo(MsgSoloAdministrador);
    for (const QString& u : ListaUsuarios(c.sesion))
        c.salida << u << '\n';
    return 0;
}

QString nombrePedido(ContextoCli& c) {
    if (c.posicionales.isEmpty())
        throw Rechazo(MsgFaltaNombreUsuario);
    return c.posicionales.first();
}

int usuarioAnadir(ContextoCli& c) {
    const QString clave = c.propia(QStringLiteral("clave"));
    return AnadirUsuario(c.sesion, c.dialogo, nombrePedido(c), clave, clave) ? 0 : 1;
}

int usuarioEliminar(ContextoCli& c) {
    return EliminarUsuario(c.sesion, c.dialogo, nombrePedido(c)) ? 0 : 1;
}

int usuarioClave(ContextoCli& c) {
    const QString clave = c.propia(QStringLiteral("clave"));
    return PonerContrasena(c.sesion, c.dialogo, nombrePedido(c), clave, clave) ? 0 : 1;
}

const QString AyudaAcceso = QStringLiteral(
    "\n\nCuando la instalación pide contraseña, el acceso se indica antes del verbo:\n"
    "  quilmar-cli --usuario Administrador --clave ACTUAL VERBO ...\n"
    "y la --clave que sigue al verbo es la contraseña nueva.");

const AltaVerbo altaCrearEjercicio{
    {QStringLiteral("crear-ejercicio"),
     QStringLiteral("crea un ejercicio nuevo a partir de otro de la empresa"),
     QStringLiteral("Uso: quilmar-cli crear-ejercicio --empresa EmpNNN --ano AAAA "
                    "[--desde-ano AAAA]\n\n"
                    "Copia el ejercicio indicado con --desde-ano (por defecto el último elegido\n"
                    "en la empresa, o el más reciente) con su plan de cuentas y listas, vacía el\n"
                    "Diario, el Mayor, los datos del IVA y la caja del día, y lo deja abierto y\n"
                    "empezando el mismo día y mes del año nuevo."),
     {},
     crearEjercicio}};

const AltaVerbo altaEliminarEjercicio{
    {QStringLiteral("eliminar-ejercicio"),
     QStringLiteral("elimina un ejercicio de una empresa (con --si)"),
     QStringLiteral("Uso: quilmar-cli eliminar-ejercicio --empresa EmpNNN --ano AAAA --si\n\n"
                    "Borra la base de datos del ejercicio y lo quita de la lista de ejercicios\n"
                    "de la empresa. No se puede eliminar el ejercicio en el que se trabaja (el\n"
                    "último elegido en la empresa, o el más reciente)."),
     {},
     eliminarEjercicio}};

const AltaVerbo altaEliminarEmpresa{
    {QStringLiteral("eliminar-empresa"),
     QStringLiteral("elimina una empresa con todos sus ejercicios (con --si)"),
     QStringLiteral("Uso: quilmar-cli eliminar-empresa --empresa EmpNNN --si\n\n"
                    "Borra la carpeta de la empresa con todos sus ejercicios (en un servidor,\n"
                    "también sus esquemas) y la quita de la lista de empresas. No se puede\n"
                    "eliminar la última empresa elegida en el programa."),
     {},
     eliminarEmpresa}};

const AltaVerbo altaInstalacion{
    {QStringLiteral("instalacion"),
     QStringLiteral("muestra o elige dónde están las empresas (servidor o cliente)"),
     QStringLiteral("Uso: quilmar-cli instalacion [--principal | --servidor CARPETA |\n"
                    "                             --postgresql URL | --archivos]\n\n"
                    "Sin opciones, dice cómo se usa esta instalación y dónde están las empresas.\n"
                    "--principal: las empresas están en la carpeta de la instalación.\n"
                    "--servidor CARPETA: las empresas están en la carpeta de la instalación\n"
                    "principal, en otro ordenador de la red (instalación cliente).\n"
                    "--postgresql postgresql://usuario@servidor:puerto/base: los libros están en\n"
                    "un servidor PostgreSQL (la contraseña, en .pgpass, PGPASSFILE o PGPASSWORD;\n"
                    "nunca se guarda). Se prueba la conexión antes de guardarlo; si la base no\n"
                    "tiene aún ninguna instalación, copia a ella las empresas (con --si).\n"
                    "--archivos: deja el servidor y vuelve a los archivos de la carpeta.\n"
                    "Repara también un PLoc.dat vacío o dañado."),
     {QStringLiteral("principal"), QStringLiteral("archivos")},
     instalacion,
     {QStringLiteral("servidor")},
     true}};

const AltaVerbo altaUsuarios{
    {QStringLiteral("usuarios"),
     QStringLiteral("lista los usuarios (administrador)"),
     QStringLiteral("Uso: quilmar-cli usuarios\n\nLista los nombres de los usuarios de la "
                    "instalación. Sólo para el Administrador.") +
         AyudaAcceso,
     {},
     usuarios}};

const AltaVerbo altaUsuarioAnadir{
    {QStringLiteral("usuario-anadir"),
     QStringLiteral("añade un usuario (administrador)"),
     QStringLiteral("Uso: quilmar-cli usuario-anadir NOMBRE --clave CONTRASEÑA\n\n"
                    "Añade un usuario con su contraseña inicial (de 6 caracteres al menos). Sólo\n"
                    "el Administrador, y sólo cuando él tiene contraseña.") +
         AyudaAcceso,
     {},
     usuarioAnadir,
     {QStringLiteral("clave")}}};

const AltaVerbo altaUsuarioEliminar{
    {QStringLiteral("usuario-eliminar"),
     QStringLiteral("elimina un usuario (con --si)"),
     QStringLiteral("Uso: quilmar-cli usuario-eliminar NOMBRE --si\n\n"
                    "Elimina un usuario. Sólo el Administrador, con contraseña; el usuario\n"
                    "Administrador no se puede eliminar.") +
         AyudaAcceso,
     {},
     usuarioEliminar}};

const AltaVerbo altaUsuarioClave{
    {QStringLiteral("usuario-clave"),
     QStringLiteral("pone la contraseña de un usuario"),
     QStringLiteral("Uso: quilmar-cli usuario-clave NOMBRE --clave CONTRASEÑA\n\n"
                    "Pone la contraseña (de 6 caracteres al menos) de un usuario. Cada usuario\n"
                    "cambia la suya; el Administrador, la de cualquiera. La primera contraseña\n"
                    "del Administrador hace que el programa pida acceso.") +
         AyudaAcceso,
     {},
     usuarioClave,
     {QStringLiteral("clave")}}};

} // namespace
