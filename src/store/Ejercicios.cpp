#include "store/Ejercicios.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Ficheros.h"
#include "store/Conexiones.h"
#include "store/Esquema.h"
#include "store/ListasEmpresas.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

const QString MsgEnUso = QStringLiteral("El archivo está en uso.");
const QString MsgIndiqueAno = QStringLiteral("Indique el año (con cuatro cifras)");
const QString MsgSeleccioneEjercicio = QStringLiteral("Tiene que seleccionar un ejercicio.");
const QString MsgSituarseEnOtroEjercicio =
    QStringLiteral("Para eliminar un ejercicio tiene antes que situarse en otro.");

namespace {

const QString CuentaResultadosNegativos = QStringLiteral("012100104");

// The Empresa row of a new year copied from another: its start moved to that year (same day and
// month), not closed, no closing entries; gives back the company's code and name.
void abrirEmpresaDelAno(Conexion& c, int ano, QString& codigo, QString& nombre) {
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT FechaIni, Codigo, Nombre FROM Empresa"));
    if (!q.next())
        return;
    const QDate antes = DeISO(q.value(0).toString());
    codigo = q.value(1).toString().trimmed();
    nombre = q.value(2).toString().trimmed();
    QDate nueva(ano, antes.isValid() ? antes.month() : 1, antes.isValid() ? antes.day() : 1);
    if (!nueva.isValid()) // 29 February of a year that has none
        nueva = QDate(ano, antes.month(), 28);
    q.finish();
    c.ejecutar(QStringLiteral("UPDATE Empresa SET FechaIni = ?, EjCerrado = 0, NAsReg = 0, "
                              "NAsFin = 0"),
               {FechaISO(nueva)});
}

// The new year on a server: a schema of its own with the chart, cards and lists of the year it
// comes from, its journal empty, and its line in the list of exercises; all or nothing.
void crearEjercicioServidor(const Sesion& s, int ano, int desde) {
    if (ExisteEjercicio(s, ano) || EjerciciosEmpresa(s).contains(ano))
        throw Rechazo(QStringLiteral("Ya existe el ejercicio %1.").arg(ano));
    if (!ExisteEjercicio(s, desde))
        throw Rechazo(MsgFaltaEjercicio(s, desde));
    const QString nuevo = EsquemaServidor(s.rutaEjercicio(ano));
    Conexion c = AbrirServidor(s, nuevo, TipoBase::Cualquiera, true);
    try {
        CrearEsquema(c, TipoBase::Ejercicio);
        c.adjuntarEsquema(QStringLiteral("origen"), EsquemaServidor(s.rutaEjercicio(desde)));
        QString codigo, nombre;
        {
            Transaccion t(c);
            const QStringList vacias{"DatosIVA", "Mayor", "Diario", "DelDia"};
            for (const QString& tabla : TablasDe(TipoBase::Ejercicio)) {
                if (vacias.contains(tabla))
                    continue;
                c.ejecutar(QStringLiteral("INSERT INTO %1 SELECT * FROM origen.%1").arg(tabla));
                AjustarContadores(c, tabla);
            }
            abrirEmpresaDelAno(c, ano, codigo, nombre);
            t.confirmar();
        }
        const QList<RegistroSelan> lista = EjerciciosDe(s, s.EmpresaActual);
        RegistroSelan r =
            lista.isEmpty() ? RegistroSelan{QString(), codigo, nombre} : lista.first();
        r.Ano = QString::number(ano);
        if (r.Codigo.isEmpty())
            r.Codigo = s.codigoEmpresa();
        Conexion bavis = AbrirAvisos(s);
        Transaccion t(bavis);
        AnotarEjercicioServidor(bavis, r);
        t.confirmar();
    } catch (...) {
        c.quitarEsquema(QStringLiteral("origen"));
        try {
            c.ejecutar(QStringLiteral("DROP SCHEMA IF EXISTS %1 CASCADE").arg(nuevo));
        } catch (const ErrorQuilmar&) {
            // The first failure is the one to tell.
        }
        throw;
    }
}

QString rutaSelan2(const Sesion& s) {
    return QDir(s.carpetaEmpresa()).filePath(QStringLiteral("2Selan.dat"));
}

// The exercise state of a year, loaded into a copy so that a failure leaves the session as it
// was. Tells the user and answers false when the database is missing or unreadable.
bool cargarEn(Sesion& copia, Dialogo& d) {
    if (!ExisteEjercicio(copia, copia.AnoActual)) {
        d.Informar(MsgFaltaEjercicio(copia, copia.AnoActual));
        return false;
    }
    try {
        CargarEjercicio(copia);
    } catch (const ErrorAlmacen& e) {
        d.Informar(e.mensaje());
        return false;
    }
    return true;
}

void borrarBase(const QString& ruta) {
    for (const char* sufijo : {"", "-wal", "-shm"})
        QFile::remove(ruta + QLatin1String(sufijo));
}

} // namespace

GanchoAdaptacion& AdaptacionPlan() {
    static GanchoAdaptacion gancho;
    return gancho;
}

void ComprobarAdaptacionPlan(Sesion& s, Dialogo& d, int anoAnterior) {
    if (AdaptacionPlan())
        AdaptacionPlan()(s, d, anoAnterior);
}

QList<int> EjerciciosEmpresa(const Sesion& s) {
    QList<int> r;
    for (const RegistroSelan& reg : EjerciciosDe(s, s.EmpresaActual))
        r << reg.Ano.toInt();
    return r;
}

QString MsgFaltaEjercicio(const Sesion& s, int ano) {
    return QStringLiteral("No se encuentra la base de datos del ejercicio %1 de la empresa %2 "
                          "(Quilmar%1.db). Elija otro ejercicio, o use Restaurar en el acceso a "
                          "empresas para actualizar la lista.")
        .arg(ano)
        .arg(s.EmpresaActual);
}

void AnadirCuentaResultadosNegativos(Conexion& c) {
    if (c.existe(QStringLiteral("SELECT 1 FROM Cuentas WHERE NCuenta = ?"),
                 {CuentaResultadosNegativos}))
        return;
    c.ejecutar(QStringLiteral("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, ?)"),
               {CuentaResultadosNegativos, QStringLiteral("Res.negativos años anteriores"),
                QStringLiteral("0121")});
}

bool EntrarEnEmpresa(Sesion& s, Ajustes& a, Dialogo& d, const QString& empresa,
                     const QString& nombre, int ano) {
    Sesion copia = s;
    copia.EmpresaActual = empresa;
    copia.AnoActual = static_cast<qint16>(ano);
    if (!cargarEn(copia, d))
        return false;
    s = copia;
    a.escribir(QStringLiteral("Inicio"), QStringLiteral("Año"), QString::number(ano));
    a.escribir(QStringLiteral("Inicio"), QStringLiteral("Empresa"), empresa);
    a.escribir(QStringLiteral("Inicio"), QStringLiteral("Nombre"), nombre);
    {
        Conexion c = AbrirDatos(s);
        AnadirCuentaResultadosNegativos(c);
    }
    ComprobarAdaptacionPlan(s, d, 0);
    return true;
}

bool CambiarEjercicio(Sesion& s, Ajustes& a, Dialogo& d, int ano, bool adaptar) {
    Sesion copia = s;
    copia.AnoActual = static_cast<qint16>(ano);
    if (!cargarEn(copia, d))
        return false;
    s = copia;
    a.escribir(QStringLiteral("Inicio"), QStringLiteral("Año"), QString::number(ano));
    if (adaptar)
        ComprobarAdaptacionPlan(s, d, 0);
    return true;
}

void CrearEjercicio(Sesion& s, Dialogo& d, int ano, int desde) {
    if (ano < 1000 || ano > 9999)
        throw Rechazo(MsgIndiqueAno);
    if (desde == 0)
        desde = s.AnoActual;
    if (s.enServidor()) {
        crearEjercicioServidor(s, ano, desde);
        s.AnoActual = static_cast<qint16>(ano);
        CargarEjercicio(s);
        ComprobarAdaptacionPlan(s, d, desde);
        return;
    }
    const QDir dir(s.carpetaEmpresa());
    const QString origen = s.rutaEjercicio(desde);
    const QString destino = s.rutaEjercicio(ano);
    if (QFile::exists(destino) || EjerciciosEmpresa(s).contains(ano))
        throw Rechazo(QStringLiteral("Ya existe el ejercicio %1.").arg(ano));
    if (!QFile::exists(origen))
        throw Rechazo(MsgFaltaEjercicio(s, desde));
    if (!FicheroLibre(s.rutaSelan()))
        throw Rechazo(MsgEnUso);

    // The copy is made under a passing name and renamed into place once it is whole.
    const QString temporal = dir.filePath(
        QStringLiteral(".Quilmar%1-%2.db").arg(ano).arg(QCoreApplication::applicationPid()));
    borrarBase(temporal);
    QString codigo, nombre;
    try {
        {
            Conexion c = AbrirBaseEmpresa(s, origen, TipoBase::Ejercicio);
            c.ejecutar(QStringLiteral("VACUUM INTO ?"), {temporal});
        }
        Conexion c = AbrirBaseEmpresa(s, temporal, TipoBase::Ejercicio);
        Transaccion t(c);
        for (const char* tabla : {"DatosIVA", "Mayor", "Diario", "DelDia"})
            c.ejecutar(QStringLiteral("DELETE FROM %1").arg(QLatin1String(tabla)));
        abrirEmpresaDelAno(c, ano, codigo, nombre);
        t.confirmar();
    } catch (...) {
        borrarBase(temporal);
        throw;
    }
    if (!QFile::rename(temporal, destino)) {
        borrarBase(temporal);
        throw ErrorAlmacen(QStringLiteral("No se pudo crear el archivo %1.")
                               .arg(QDir::toNativeSeparators(destino)));
    }

    const QList<RegistroSelan> selan = LeerSelan(s.rutaSelan());
    RegistroSelan r = selan.isEmpty() ? RegistroSelan{QString(), codigo, nombre} : selan.first();
    r.Ano = QString::number(ano);
    if (r.Codigo.isEmpty())
        r.Codigo = s.codigoEmpresa();
    try {
        AnadirSelan(s.rutaSelan(), r);
    } catch (...) {
        borrarBase(destino);
        throw;
    }

    s.AnoActual = static_cast<qint16>(ano);
    CargarEjercicio(s);
    ComprobarAdaptacionPlan(s, d, desde);
}

bool EliminarEjercicio(Sesion& s, Dialogo& d, int ano) {
    if (ano == 0) {
        d.Informar(MsgSeleccioneEjercicio);
        return false;
    }
    if (ano == s.AnoActual) {
        d.Informar(MsgSituarseEnOtroEjercicio);
        return false;
    }
    const QString a = QString::number(ano);
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea eliminar el ejercicio contable ") +
                     a + QStringLiteral("?")))
        return false;
    if (!d.Preguntar(QStringLiteral("Atención!! Si elimina el ejercicio contable ") + a +
                     QStringLiteral(" se borrarán permanentemente todos sus datos. Está seguro "
                                    "de que desea eliminarlo?")))
        return false;
    if (s.enServidor()) {
        EliminarEjercicioServidor(s, s.codigoEmpresa(), ano);
        return true;
    }
    if (!FicheroLibre(s.rutaSelan())) {
        d.Informar(MsgEnUso);
        return false;
    }
    QList<RegistroSelan> quedan;
    for (const RegistroSelan& r : LeerSelan(s.rutaSelan()))
        if (r.Ano.toInt() != ano)
            quedan << r;
    const QString selan2 = rutaSelan2(s);
    EscribirSelan(selan2, quedan);
    QFile::remove(s.rutaSelan());
    if (!QFile::rename(selan2, s.rutaSelan()))
        throw ErrorAlmacen(QStringLiteral("No se pudo escribir el archivo %1.")
                               .arg(QDir::toNativeSeparators(s.rutaSelan())));
    borrarBase(s.rutaEjercicio(ano));
    return true;
}
