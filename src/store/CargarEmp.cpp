#include "store/CargarEmp.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Ficheros.h"
#include "store/Conexiones.h"
#include "store/ListasEmpresas.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <functional>

namespace {

const QString MsgEnUso = QStringLiteral("El archivo está en uso.");

QString selanDe(const QString& carpeta) {
    return QDir(carpeta).filePath(QStringLiteral("Selan.dat"));
}

// Walks the folders into Nemp.dat (the last record of each Selan.dat). False when a Selan.dat is
// busy.
bool llenarNemp(const Sesion& s, Dialogo& dialogo) {
    QFile::remove(s.rutaNemp());
    QFile nuevo(s.rutaNemp());
    nuevo.open(QIODevice::WriteOnly);
    nuevo.close();
    for (const QString& nombre : CarpetasEmpresa(s.DataPath)) {
        const QString selan = selanDe(QDir(s.DataPath).filePath(nombre));
        if (!FicheroLibre(selan)) {
            dialogo.Informar(MsgEnUso);
            return false;
        }
        const QList<RegistroSelan> registros = LeerSelan(selan);
        if (!registros.isEmpty())
            AnadirNemp(s.rutaNemp(), {registros.last().Codigo, registros.last().Nombre});
    }
    return true;
}

} // namespace

QStringList CarpetasEmpresa(const QString& carpeta) {
    QStringList r;
    const QStringList nombres = QDir(carpeta).entryList(
        {QStringLiteral("Emp*")}, QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    for (const QString& n : nombres)
        if (n.size() == 6 && n.left(3).toUpper() == QLatin1String("EMP"))
            r << n;
    return r;
}

QList<FilaEmpresa> CargarEmp(const Sesion& s, Dialogo& dialogo) {
    QList<FilaEmpresa> filas;
    // On a server the lists are tables, kept as companies and exercises are made: nothing to
    // rebuild.
    if (s.enServidor()) {
        for (const RegistroNemp& e : EmpresasDe(s))
            for (const RegistroSelan& a : EjerciciosDe(s, QStringLiteral("Emp") + e.Codigo))
                filas << FilaEmpresa{QStringLiteral("Emp") + e.Codigo, a.Nombre, a.Ano};
        return filas;
    }
    // A Nemp.dat record whose folder is missing makes the walk begin again; a Selan.dat that
    // names a company of another folder would do so for ever, so after a few rounds such
    // records are left out.
    for (int vuelta = 0; vuelta < 4; ++vuelta) {
        filas.clear();
        if (!llenarNemp(s, dialogo))
            return {};
        bool falta = false;
        for (const RegistroNemp& r : LeerNemp(s.rutaNemp())) {
            const QString carpeta = QDir(s.DataPath).filePath(QStringLiteral("Emp") + r.Codigo);
            if (!QDir(carpeta).exists()) {
                falta = true;
                if (vuelta < 3)
                    break;
                continue;
            }
            for (const RegistroSelan& sel : LeerSelan(selanDe(carpeta)))
                filas << FilaEmpresa{QStringLiteral("Emp") + r.Codigo, sel.Nombre, sel.Ano};
        }
        if (!falta || vuelta == 3)
            break;
    }
    std::stable_sort(filas.begin(), filas.end(), [](const FilaEmpresa& a, const FilaEmpresa& b) {
        return a.Codigo.compare(b.Codigo, Qt::CaseInsensitive) < 0;
    });
    return filas;
}

QList<int> AnosEnCarpeta(const QString& carpetaEmpresa) {
    static const QRegularExpression patron(QStringLiteral("^Quilmar(\\d{4})\\.db$"),
                                           QRegularExpression::CaseInsensitiveOption);
    QList<int> anos;
    for (const QString& f :
         QDir(carpetaEmpresa).entryList({QStringLiteral("Quilmar*.db")}, QDir::Files, QDir::Name)) {
        const auto m = patron.match(f);
        if (m.hasMatch())
            anos << m.captured(1).toInt();
    }
    std::sort(anos.begin(), anos.end());
    return anos;
}

namespace {

// The Selan records of a company's exercises, each with the name its database holds; a database
// that cannot be read, or that names another company than the first, is told and left out.
QList<RegistroSelan> registrosDeAnos(const QList<int>& anos, const QString& codigo,
                                     const QString& nombre, Dialogo& dialogo,
                                     const std::function<Conexion(int)>& abrir) {
    QList<RegistroSelan> registros;
    QString nombreEmpresa;
    for (int ano : anos) {
        QString leido;
        try {
            Conexion c = abrir(ano);
            QSqlQuery q = c.ejecutar(QStringLiteral("SELECT Nombre FROM Empresa"));
            if (!q.next())
                throw ErrorAlmacen(QString());
            leido = q.value(0).toString().trimmed();
        } catch (const ErrorAlmacen&) {
            dialogo.Informar(QStringLiteral("Error en base de datos de la empresa ") + nombre);
            continue;
        }
        if (registros.isEmpty()) {
            nombreEmpresa = leido;
        } else if (leido != nombreEmpresa) {
            dialogo.Informar(QStringLiteral("La base de datos Quilmar%1 no corresponde a la la "
                                            "actual empresa.")
                                 .arg(ano));
            continue;
        }
        registros << RegistroSelan{QString::number(ano), codigo, leido};
    }
    return registros;
}

// The server keeps the lists as tables: they are rebuilt from the schemas there, with the same
// checks as the files.
void actEjerciciosServidor(const Sesion& s, const QString& carpeta, Dialogo& dialogo) {
    const QMap<QString, QList<int>> esquemas = EsquemasEnServidor(s);
    QStringList codigos;
    if (carpeta.trimmed().isEmpty())
        codigos = esquemas.keys();
    else
        codigos << carpeta.trimmed().mid(3);
    for (const QString& codigo : codigos) {
        const QString nombre = QStringLiteral("Emp") + codigo;
        QList<int> anos = esquemas.value(codigo, {-1});
        if (anos.value(0) == -1) {
            dialogo.Informar(QStringLiteral("Falta base de datos en la empresa ") + nombre);
            continue;
        }
        if (anos.isEmpty())
            dialogo.Informar(QStringLiteral("No está la base de datos de la empresa ") + nombre);
        const QList<RegistroSelan> registros =
            registrosDeAnos(anos, codigo, nombre, dialogo, [&](int ano) {
                return AbrirServidor(s, QStringLiteral("emp%1_%2").arg(codigo).arg(ano),
                                     TipoBase::Ejercicio);
            });
        Conexion bavis = AbrirAvisos(s);
        Transaccion t(bavis);
        bavis.ejecutar(QStringLiteral("DELETE FROM Ejercicios WHERE Codigo = ?"), {codigo});
        bavis.ejecutar(QStringLiteral("DELETE FROM Empresas WHERE Codigo = ?"), {codigo});
        for (const RegistroSelan& r : registros)
            AnotarEjercicioServidor(bavis, r);
        t.confirmar();
    }
}

} // namespace

void ActEjercicios(const Sesion& s, const QString& carpeta, Dialogo& dialogo) {
    if (s.enServidor()) {
        actEjerciciosServidor(s, carpeta, dialogo);
        return;
    }
    QStringList carpetas;
    QString raiz;
    if (carpeta.trimmed().isEmpty()) {
        // The program folder, not DataPath: on a client only the local folders are repaired.
        raiz = s.AppPath;
        carpetas = CarpetasEmpresa(raiz);
    } else {
        raiz = s.DataPath;
        carpetas << carpeta.trimmed();
    }
    // The program folder is this machine's own; DataPath may be another's.
    const ModoDiario modo = raiz == s.AppPath ? ModoDiario::WAL : ModoDiarioEmpresas(s);
    for (const QString& nombre : carpetas) {
        const QDir dir(QDir(raiz).filePath(nombre));
        if (!QFile::exists(dir.filePath(QStringLiteral("Bavar.db")))) {
            dialogo.Informar(QStringLiteral("Falta base de datos en la empresa ") + nombre);
            continue;
        }
        const QString selan = dir.filePath(QStringLiteral("Selan.dat"));
        BloqueoFichero bloqueo(selan);
        if (!bloqueo.conseguido()) {
            dialogo.Informar(MsgEnUso);
            continue;
        }
        const QList<int> anos = AnosEnCarpeta(dir.path());
        if (anos.isEmpty())
            dialogo.Informar(QStringLiteral("No está la base de datos de la empresa ") + nombre);
        const QList<RegistroSelan> registros =
            registrosDeAnos(anos, nombre.mid(3), nombre, dialogo, [&](int ano) {
                return Conexion(dir.filePath(QStringLiteral("Quilmar%1.db").arg(ano)),
                                TipoBase::Ejercicio, false, modo);
            });
        EscribirSelan(selan, registros);
    }
}
