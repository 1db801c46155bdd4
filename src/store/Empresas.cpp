#include "store/Empresas.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "store/Campos.h"
#include "store/CargarEmp.h"
#include "store/Conexiones.h"
#include "store/Esquema.h"
#include "store/Instalacion.h"
#include "store/ListasEmpresas.h"
#include "store/Migracion.h"
#include "store/Plantilla.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

const QString MsgCodigoReservado =
    QStringLiteral("Por favor utilice otro código. Ese está reservado a la empresa 'De Pruebas'.");

namespace {

void copiarTablas(Conexion& destino, const QString& origen, const QStringList& tablas) {
    destino.ejecutar(QStringLiteral("ATTACH DATABASE ? AS origen"), {origen});
    try {
        Transaccion t(destino);
        for (const QString& tabla : tablas)
            destino.ejecutar(
                QStringLiteral("INSERT INTO main.%1 SELECT * FROM origen.%1").arg(tabla));
        t.confirmar();
    } catch (...) {
        destino.ejecutar(QStringLiteral("DETACH DATABASE origen"));
        throw;
    }
    destino.ejecutar(QStringLiteral("DETACH DATABASE origen"));
}

void copiarEsquema(Conexion& destino, const QString& esquemaOrigen, const QStringList& tablas) {
    if (tablas.isEmpty())
        return;
    destino.adjuntarEsquema(QStringLiteral("origen"), esquemaOrigen);
    Transaccion t(destino);
    for (const QString& tabla : tablas) {
        destino.ejecutar(QStringLiteral("DELETE FROM %1").arg(tabla));
        destino.ejecutar(QStringLiteral("INSERT INTO %1 SELECT * FROM origen.%1").arg(tabla));
        AjustarContadores(destino, tabla);
    }
    t.confirmar();
    destino.quitarEsquema(QStringLiteral("origen"));
}

QStringList tablasEjercicio(const DatosNuevaEmpresa& d) {
    QStringList tablas{"Grupos", "Cuentas", "TiposIVA", "CliPro", "Provincias", "Paises"};
    if (d.CopiarSectores)
        tablas << "Sectores";
    return tablas;
}

QStringList tablasBavar(const DatosNuevaEmpresa& d) {
    QStringList tablas;
    if (d.CopiarConceptos)
        tablas << "Conceptos";
    if (d.CopiarPeriodicos)
        tablas << "Periodicos";
    if (d.CopiarPredisenados)
        tablas << "AsPredi";
    if (d.CopiarInventario)
        tablas << "Inventario"
               << "Centros";
    if (d.CopiarVencimientos)
        tablas << "Vencimientos";
    return tablas;
}

// On a server, the new company (made with the generic chart) takes the chart, cards and lists of
// the latest exercise of another and the company tables chosen, as on files.
void copiarDeOtraServidor(const Sesion& s, const DatosNuevaEmpresa& d, int anoOrigen) {
    const QString origen =
        EsquemaServidor(s.carpetaEmpresa(d.EmpresaOrigen) + QStringLiteral("/Bavar.db"));
    const QString nueva = QStringLiteral("emp") + d.Codigo;
    {
        Conexion c = AbrirServidor(s, QStringLiteral("%1_%2").arg(nueva).arg(d.FechaIni.year()),
                                   TipoBase::Ejercicio);
        copiarEsquema(c, QStringLiteral("%1_%2").arg(origen).arg(anoOrigen), tablasEjercicio(d));
    }
    Conexion c = AbrirServidor(s, nueva, TipoBase::Bavar);
    copiarEsquema(c, origen, tablasBavar(d));
}

// The texts of the company as the screens limit them.
void comprobarTextos(const DatosNuevaEmpresa& d) {
    TextoCampo(Campo::NombreEmpresa, d.Nombre);
    TextoCampo(Campo::NIF, d.NIF);
    TextoCampo(Campo::Domicilio, d.Domicilio);
    TextoCampo(Campo::NumeroCalle, d.Numero);
    TextoCampo(Campo::Ciudad, d.Ciudad);
    TextoCampo(Campo::CPostalEmpresa, d.CPostal);
    TextoCampo(Campo::Provincia, d.Provincia);
}

void comprobar(const Sesion& s, const DatosNuevaEmpresa& d, bool reservadoPermitido) {
    static const QRegularExpression tresCifras(QStringLiteral("^\\d{3}$"));
    if (!tresCifras.match(d.Codigo).hasMatch())
        throw Rechazo(QStringLiteral("El código de la Empresa tiene que tener tres cifras."));
    if (d.Codigo == QLatin1String("100") && !reservadoPermitido)
        throw Rechazo(MsgCodigoReservado);
    if (d.Nombre.trimmed().isEmpty())
        throw Rechazo(QStringLiteral("Debe introducir el nombre de la Empresa."));
    comprobarTextos(d);
    if (!d.FechaIni.isValid())
        throw Rechazo(QStringLiteral("La fecha introducida no es una fecha válida."));
    QStringList codigos;
    if (s.enServidor())
        for (const RegistroNemp& r : EmpresasDe(s))
            codigos << r.Codigo;
    else
        for (const QString& c : CarpetasEmpresa(s.DataPath))
            codigos << c.mid(3);
    if (codigos.contains(d.Codigo))
        throw Rechazo(QStringLiteral("Ya existe una Empresa con el código %1.").arg(d.Codigo));
}

} // namespace

int UltimoEjercicio(const Sesion& s, const QString& empresa) {
    const QList<RegistroSelan> selan = EjerciciosDe(s, empresa);
    if (!selan.isEmpty())
        return selan.last().Ano.toInt();
    if (s.enServidor())
        return 0;
    const QString carpeta = s.carpetaEmpresa(empresa);
    const QList<int> anos = AnosEnCarpeta(carpeta);
    return anos.isEmpty() ? 0 : anos.last();
}

void SeleccionarEmpresa(Sesion& s, Ajustes& a, const QString& empresa, const QString& nombre,
                        int ano) {
    s.EmpresaActual = empresa;
    s.AnoActual = static_cast<qint16>(ano);
    a.escribir(QStringLiteral("Inicio"), QStringLiteral("Año"), QString::number(ano));
    a.escribir(QStringLiteral("Inicio"), QStringLiteral("Empresa"), empresa);
    a.escribir(QStringLiteral("Inicio"), QStringLiteral("Nombre"), nombre);
    CargarEjercicio(s);
}

void CrearEmpresa(Sesion& s, Ajustes& a, const DatosNuevaEmpresa& d, bool reservadoPermitido) {
    if (s.enServidor()) {
        comprobar(s, d, reservadoPermitido);
        int anoOrigen = 0;
        if (!d.EmpresaOrigen.isEmpty()) {
            anoOrigen = UltimoEjercicio(s, d.EmpresaOrigen);
            const QDir dirOrigen(s.carpetaEmpresa(d.EmpresaOrigen));
            AbrirBaseEmpresa(s, dirOrigen.filePath(QStringLiteral("Quilmar%1.db").arg(anoOrigen)),
                             TipoBase::Ejercicio);
            AbrirBaseEmpresa(s, dirOrigen.filePath(QStringLiteral("Bavar.db")), TipoBase::Bavar);
        }
        // The company is made as ever in a passing installation of its own and then copied to
        // the server; the tables of another company are then copied there, schema to schema.
        QTemporaryDir carpeta;
        if (!carpeta.isValid())
            throw ErrorAlmacen(QStringLiteral("No se pudo crear una carpeta temporal."));
        Sesion paso;
        paso.AppPath = paso.DataPath = carpeta.path();
        Ajustes ajustesPaso(carpeta.path());
        DatosNuevaEmpresa generica = d;
        generica.EmpresaOrigen.clear();
        CrearEmpresa(paso, ajustesPaso, generica, reservadoPermitido);
        MigrarEmpresaAServidor(paso, Servidor::DeUrl(s.UrlServidor), paso.EmpresaActual);
        if (!d.EmpresaOrigen.isEmpty()) {
            try {
                copiarDeOtraServidor(s, d, anoOrigen);
            } catch (...) {
                // Whole or not at all: the company just made goes again.
                try {
                    EliminarEmpresaServidor(s, d.Codigo);
                } catch (const ErrorQuilmar&) {
                    // The first failure is the one to tell.
                }
                throw;
            }
        }
        // The company's documents (notes, budgets, tax files) stay on this machine, in its
        // folder as ever.
        QDir().mkpath(s.carpetaEmpresa(paso.EmpresaActual));
        SeleccionarEmpresa(s, a, paso.EmpresaActual, d.Nombre.trimmed(), d.FechaIni.year());
        return;
    }
    // Never beside the program or in the current folder: only where the companies are.
    ComprobarCarpetaDatos(s);
    comprobar(s, d, reservadoPermitido);
    const QString empresa = QStringLiteral("Emp") + d.Codigo;
    const int ano = d.FechaIni.year();
    const QString nombre = d.Nombre.trimmed();

    QString ejercicioOrigen, bavarOrigen;
    if (!d.EmpresaOrigen.isEmpty()) {
        const int anoOrigen = UltimoEjercicio(s, d.EmpresaOrigen);
        const QDir dirOrigen(s.carpetaEmpresa(d.EmpresaOrigen));
        ejercicioOrigen = dirOrigen.filePath(QStringLiteral("Quilmar%1.db").arg(anoOrigen));
        bavarOrigen = dirOrigen.filePath(QStringLiteral("Bavar.db"));
        // Opening checks that both are ours and sound before anything is made.
        AbrirBaseEmpresa(s, ejercicioOrigen, TipoBase::Ejercicio);
        AbrirBaseEmpresa(s, bavarOrigen, TipoBase::Bavar);
    }

    // Everything is made in a folder of its own and renamed into place at the end, so that a
    // failure never leaves half a company.
    QDir datos(s.DataPath);
    const QString temporal =
        QStringLiteral(".nueva-%1-%2").arg(empresa).arg(QCoreApplication::applicationPid());
    datos.mkpath(temporal);
    const QDir dir(datos.filePath(temporal));
    try {
        const QString rutaEj = dir.filePath(QStringLiteral("Quilmar%1.db").arg(ano));
        const QString rutaBavar = dir.filePath(QStringLiteral("Bavar.db"));
        CrearBaseDatos(rutaEj, TipoBase::Ejercicio, ModoDiarioEmpresas(s));
        CrearBaseDatos(rutaBavar, TipoBase::Bavar, ModoDiarioEmpresas(s));
        {
            Conexion c = AbrirBaseEmpresa(s, rutaEj, TipoBase::Ejercicio);
            if (ejercicioOrigen.isEmpty()) {
                CargarPlanGenerico(c);
            } else {
                copiarTablas(c, ejercicioOrigen, tablasEjercicio(d));
            }
            c.ejecutar(
                QStringLiteral("INSERT INTO Empresa (Codigo, Nombre, NIF, Domicilio, \"Nº\", "
                               "Ciudad, CPostal, Provincia, FechaIni, EjCerrado, NAsReg, "
                               "NAsFin) VALUES (?,?,?,?,?,?,?,?,?,0,0,0)"),
                {d.Codigo, nombre, d.NIF.trimmed(), d.Domicilio.trimmed(),
                 d.Numero.trimmed().isEmpty() ? QVariant() : QVariant(d.Numero.trimmed()),
                 d.Ciudad.trimmed(), d.CPostal.trimmed(), d.Provincia.trimmed(),
                 FechaISO(d.FechaIni)});
        }
        if (!bavarOrigen.isEmpty()) {
            const QStringList tablas = tablasBavar(d);
            if (!tablas.isEmpty()) {
                Conexion c = AbrirBaseEmpresa(s, rutaBavar, TipoBase::Bavar);
                copiarTablas(c, bavarOrigen, tablas);
            }
        }
        AnadirSelan(dir.filePath(QStringLiteral("Selan.dat")),
                    {QString::number(ano), d.Codigo, nombre});
        if (!datos.rename(temporal, empresa))
            throw ErrorAlmacen(
                QStringLiteral("No se pudo crear la carpeta de la empresa %1.").arg(empresa));
    } catch (...) {
        QDir(dir).removeRecursively();
        throw;
    }
    AnadirNemp(s.rutaNemp(), {d.Codigo, nombre});
    SeleccionarEmpresa(s, a, empresa, nombre, ano);
}

const QString MsgSeleccioneEmpresa = QStringLiteral("Tiene que seleccionar una Empresa.");
const QString MsgSituarseEnOtraEmpresa =
    QStringLiteral("Para eliminar una empresa tiene que situarse en otra.");

DatosNuevaEmpresa LeerDatosEmpresa(const Sesion& s) {
    Conexion c = AbrirDatos(s);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT Codigo, Nombre, NIF, Domicilio, \"Nº\", "
                                            "Ciudad, CPostal, Provincia, FechaIni FROM Empresa"));
    DatosNuevaEmpresa d;
    if (!q.next())
        return d;
    auto texto = [&](int i) {
        return q.value(i).toString().trimmed();
    };
    d.Codigo = texto(0);
    d.Nombre = texto(1);
    d.NIF = texto(2);
    d.Domicilio = texto(3);
    d.Numero = texto(4);
    d.Ciudad = texto(5);
    d.CPostal = texto(6);
    d.Provincia = texto(7);
    d.FechaIni = DeISO(texto(8));
    return d;
}

void GuardarDatosEmpresa(Sesion& s, const DatosNuevaEmpresa& d) {
    if (d.Nombre.trimmed().isEmpty())
        throw Rechazo(QStringLiteral("Debe introducir el nombre de la Empresa."));
    comprobarTextos(d);
    if (!d.FechaIni.isValid())
        throw Rechazo(QStringLiteral("La fecha introducida no es una fecha válida."));
    Conexion c = AbrirDatos(s);
    Transaccion t(c);
    c.ejecutar(QStringLiteral("UPDATE Empresa SET Nombre = ?, NIF = ?, Domicilio = ?, \"Nº\" = ?, "
                              "Ciudad = ?, CPostal = ?, Provincia = ?, FechaIni = ?"),
               {d.Nombre.trimmed(), d.NIF.trimmed(), d.Domicilio.trimmed(),
                d.Numero.trimmed().isEmpty() ? QVariant() : QVariant(d.Numero.trimmed()),
                d.Ciudad.trimmed(), d.CPostal.trimmed(), d.Provincia.trimmed(),
                FechaISO(d.FechaIni)});
    t.confirmar();
    CargarEjercicio(s, c);
}

bool EliminarEmpresa(Sesion& s, Dialogo& d, const QString& codigo, const QString& nombre) {
    if (nombre.trimmed().isEmpty()) {
        d.Informar(MsgSeleccioneEmpresa);
        return false;
    }
    static const QRegularExpression tresCifras(QStringLiteral("^\\d{3}$"));
    if (!tresCifras.match(codigo).hasMatch())
        throw Rechazo(QStringLiteral("El código de la Empresa tiene que tener tres cifras."));
    const QString carpeta = QStringLiteral("Emp") + codigo;
    if (carpeta.compare(s.EmpresaActual, Qt::CaseInsensitive) == 0) {
        d.Informar(MsgSituarseEnOtraEmpresa);
        return false;
    }
    if (!d.Preguntar(QStringLiteral("Está se guro de que desea eliminar la Empresa ") +
                     nombre.trimmed() + QStringLiteral("?")))
        return false;
    if (!d.Preguntar(QStringLiteral("Al eliminar la Empresa ") + nombre.trimmed() +
                     QStringLiteral(" se borrarán definitivamente todos sus datos, incluidos "
                                    "todos los ejercicios de la misma. Confirma que desea "
                                    "eliminarla?")))
        return false;

    if (s.enServidor())
        EliminarEmpresaServidor(s, codigo);
    QDir dir(s.carpetaEmpresa(carpeta));
    if (dir.exists() && !dir.removeRecursively())
        throw ErrorAlmacen(QStringLiteral("No se pudieron borrar todos los archivos de la "
                                          "carpeta %1.")
                               .arg(QDir::toNativeSeparators(dir.path())));
    if (s.enServidor())
        return true;
    // Nemp.dat is rewritten through a copy without the company's record.
    QList<RegistroNemp> quedan;
    for (const RegistroNemp& r : LeerNemp(s.rutaNemp()))
        if (r.Codigo != codigo)
            quedan << r;
    const QString nemp2 = QDir(s.AppPath).filePath(QStringLiteral("2Nemp.dat"));
    EscribirNemp(nemp2, quedan);
    QFile::remove(s.rutaNemp());
    if (!QFile::rename(nemp2, s.rutaNemp()))
        throw ErrorAlmacen(QStringLiteral("No se pudo escribir el archivo %1.")
                               .arg(QDir::toNativeSeparators(s.rutaNemp())));
    return true;
}
