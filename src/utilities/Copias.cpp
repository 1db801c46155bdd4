#include "utilities/Copias.h"

#include "platform/Ajustes.h"
#include "platform/Carpetas.h"
#include "platform/CopiasBase.h"
#include "platform/Errores.h"
#include "store/BloqueoEmpresa.h"
#include "store/CargarEmp.h"
#include "store/CopiasServidor.h"
#include "store/ListasEmpresas.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <cstdio>

namespace {

// Beside each final folder (or file) of a copy: the one being made, and the older one set aside
// while the new one takes its place. Hidden, and never taken for a company folder.
QString enCurso(const QString& final) {
    const QFileInfo f(final);
    return QDir(f.absolutePath()).filePath(QStringLiteral(".%1.copia").arg(f.fileName()));
}
QString apartada(const QString& final) {
    const QFileInfo f(final);
    return QDir(f.absolutePath()).filePath(QStringLiteral(".%1.anterior").arg(f.fileName()));
}

bool esCarpetaEmpresa(const QString& nombre) {
    return nombre.size() == 6 && nombre.left(3).toUpper() == QLatin1String("EMP");
}

// A database's own passing files are not copied: the copy of the database holds their content.
bool esAcompanante(const QString& nombre) {
    return nombre.endsWith(QLatin1String("-wal")) || nombre.endsWith(QLatin1String("-shm")) ||
           nombre.endsWith(QLatin1String("-journal"));
}

bool esBase(const QString& nombre) {
    return nombre.endsWith(QLatin1String(".db"), Qt::CaseInsensitive);
}

QFileInfoList ficherosDe(const QString& carpeta) {
    QFileInfoList r;
    for (const QFileInfo& f : QDir(carpeta).entryInfoList(QDir::Files | QDir::Hidden, QDir::Name))
        if (!esAcompanante(f.fileName()))
            r << f;
    return r;
}

// Counts the files copied, for the progress of the whole run.
struct Avance {
    const Progreso& progreso;
    qint64 hecho = 0, total = 0;
    void uno() {
        ++hecho;
        if (progreso)
            progreso(hecho, total);
    }
};

// The files of a company folder into the empty folder `destino`: databases as consistent
// copies, the rest as they are.
void copiarFicheros(const QString& origen, const QString& destino, Avance& avance) {
    for (const QFileInfo& f : ficherosDe(origen)) {
        const QString a = QDir(destino).filePath(f.fileName());
        if (esBase(f.fileName()))
            CopiarBase(f.absoluteFilePath(), a);
        else
            CopiarFichero(f.absoluteFilePath(), a);
        avance.uno();
    }
    SincronizarCarpeta(destino);
}

// What an earlier run cut short may have left: a previous copy set aside goes back to its place,
// a half-made one goes away.
void recuperar(const QString& final) {
    if (!QFileInfo::exists(final) && QFileInfo::exists(apartada(final)))
        ::rename(QFile::encodeName(apartada(final)).constData(),
                 QFile::encodeName(final).constData());
    BorrarCarpeta(enCurso(final));
    if (QFileInfo::exists(final))
        BorrarCarpeta(apartada(final));
}

// A company's own documents kept beside its books on a server installation (notes, budgets, tax
// files): every file of its local folder but the databases and the lists the server holds.
QFileInfoList documentosDe(const QString& carpeta) {
    QFileInfoList r;
    for (const QFileInfo& f : ficherosDe(carpeta))
        if (!esBase(f.fileName()) &&
            f.fileName().compare(QLatin1String("Selan.dat"), Qt::CaseInsensitive) != 0)
            r << f;
    return r;
}

void copiarDocumentos(const QString& origen, const QString& destino, Avance* avance) {
    for (const QFileInfo& f : documentosDe(origen)) {
        CopiarFichero(f.absoluteFilePath(), QDir(destino).filePath(f.fileName()));
        if (avance)
            avance->uno();
    }
}

// Makes the folder `final` from what `llenar` writes into an empty folder, putting it in place
// only when complete.
void hacerCarpeta(const QString& final, const std::function<void(const QString&)>& llenar) {
    recuperar(final);
    const QString nueva = enCurso(final);
    if (!QDir().mkpath(nueva))
        throw ErrorAlmacen(QStringLiteral("No tiene permiso para escribir en la carpeta %1.")
                               .arg(QDir::toNativeSeparators(QFileInfo(final).absolutePath())));
    try {
        llenar(nueva);
        SincronizarCarpeta(nueva);
        const Colocacion c = ColocarCarpeta(nueva, final, apartada(final));
        // The older version is removed only now that the new one stands in its place.
        BorrarCarpeta(c == Colocacion::Intercambiada ? nueva : apartada(final));
    } catch (...) {
        BorrarCarpeta(nueva);
        throw;
    }
}

// Makes the folder `final` a copy of `origen`.
void copiarCarpeta(const QString& origen, const QString& final, Avance& avance) {
    hacerCarpeta(final, [&](const QString& nueva) { copiarFicheros(origen, nueva, avance); });
}

// The installation's database as the file `final`, replaced in one step.
void copiarBavis(const Sesion& s, const QString& final) {
    const QString nueva = enCurso(final);
    QFile::remove(nueva);
    if (s.enServidor())
        CopiarBavisDeServidor(s, nueva);
    else
        CopiarBase(s.rutaBavis(), nueva);
    if (::rename(QFile::encodeName(nueva).constData(), QFile::encodeName(final).constData()) != 0) {
        QFile::remove(nueva);
        throw ErrorAlmacen(QStringLiteral("No se pudo poner la copia en su lugar en la carpeta %1.")
                               .arg(QDir::toNativeSeparators(QFileInfo(final).absolutePath())));
    }
    SincronizarCarpeta(QFileInfo(final).absolutePath());
}

bool dentroDe(const QString& ruta, const QString& carpeta) {
    return ruta == carpeta || ruta.startsWith(carpeta + QLatin1Char('/'));
}

QString padreDe(const QString& carpeta) {
    return QFileInfo(QDir::cleanPath(QFileInfo(carpeta).absoluteFilePath())).absolutePath();
}

} // namespace

QString CarpetaCopiaRechazada(const Sesion& s, const QString& carpeta) {
    const QString c = RutaCanonica(carpeta);
    if (c == RutaCanonica(s.AppPath) || c == RutaCanonica(s.DataPath))
        return MsgCopiaCarpetaPrograma;
    for (const QString& e : CarpetasEmpresa(s.DataPath))
        if (dentroDe(c, RutaCanonica(s.carpetaEmpresa(e))))
            return MsgCopiaCarpetaPrograma;
    return {};
}

bool HacerCopiaSeguridad(Sesion& s, Ajustes& a, Dialogo& d, const QString& carpetaTecleada,
                         AlcanceCopia alcance, const Progreso& progreso) {
    const QString carpeta = carpetaTecleada.trimmed();
    if (carpeta.isEmpty()) {
        d.Informar(MsgCopiaSinCarpeta);
        return false;
    }
    if (const QString m = CarpetaCopiaRechazada(s, carpeta); !m.isEmpty()) {
        d.Informar(m);
        return false;
    }
    if (!QFileInfo(carpeta).isDir()) {
        d.Informar(MsgNoExisteCarpeta);
        return false;
    }
    QStringList todas;
    if (alcance == AlcanceCopia::Todas) {
        if (s.enServidor()) {
            try {
                for (const RegistroNemp& r : EmpresasDe(s))
                    todas << QStringLiteral("Emp") + r.Codigo;
            } catch (const ErrorQuilmar& e) {
                d.Informar(e.mensaje());
                return false;
            }
        } else {
            todas = CarpetasEmpresa(s.DataPath);
        }
    }
    const QStringList empresas = alcance == AlcanceCopia::Todas ? todas
                                 : s.EmpresaActual.isEmpty()    ? QStringList()
                                                                : QStringList{s.EmpresaActual};
    if (alcance == AlcanceCopia::EmpresaAbierta && empresas.isEmpty()) {
        d.Informar(MsgCopiaSinEmpresa);
        return false;
    }
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea hacer la copia de seguridad en la "
                                    "carpeta '%1'?")
                         .arg(QDir::toNativeSeparators(carpeta))))
        return false;
    a.escribir(QStringLiteral("Valores"), QStringLiteral("Ruta"), carpeta);

    Avance avance{progreso};
    const bool conBavis = s.enServidor() || QFileInfo::exists(s.rutaBavis());
    avance.total = conBavis ? 1 : 0;
    try {
        for (const QString& e : empresas)
            avance.total += s.enServidor() ? FicherosEmpresaServidor(s, e) +
                                                 documentosDe(s.carpetaEmpresa(e)).size()
                                           : ficherosDe(s.carpetaEmpresa(e)).size();
        if (conBavis) {
            copiarBavis(s, QDir(carpeta).filePath(QStringLiteral("Bavis.db")));
            avance.uno();
        }
        for (const QString& e : empresas) {
            // Nobody swaps the company's files while they are copied.
            BloqueoEmpresa abierta(s.DataPath, e, BloqueoEmpresa::Modo::Compartido,
                                   EsperaEmpresaOcupada);
            if (!abierta.conseguido() && abierta.ocupado())
                throw ErrorAlmacen(MsgEmpresaOcupada.arg(e));
            if (s.enServidor())
                hacerCarpeta(QDir(carpeta).filePath(e), [&](const QString& nueva) {
                    CopiarEmpresaDeServidor(s, e, nueva, [&] { avance.uno(); });
                    copiarDocumentos(s.carpetaEmpresa(e), nueva, &avance);
                });
            else
                copiarCarpeta(s.carpetaEmpresa(e), QDir(carpeta).filePath(e), avance);
        }
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
        return false;
    }
    d.Informar(MsgCopiaHecha);
    return true;
}

QString NombreEnCopia(const QString& carpeta) {
    return LeerSelan(QDir(carpeta).filePath(QStringLiteral("Selan.dat"))).value(0).Nombre;
}

void ComprobarCopiaEmpresa(const QString& carpeta) {
    const QDir dir(carpeta);
    const QString selan = dir.filePath(QStringLiteral("Selan.dat"));
    if (!QFileInfo::exists(selan))
        throw ErrorAlmacen(MsgRestaurarSinSelan);
    QFile f(selan);
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorAlmacen(QStringLiteral("No se puede leer el archivo Selan.dat de la copia."));
    f.close();
    const QList<RegistroSelan> ejercicios = LeerSelan(selan);
    if (ejercicios.isEmpty())
        throw ErrorAlmacen(
            QStringLiteral("El archivo Selan.dat de la copia no tiene ningún ejercicio."));
    static const QRegularExpression ano(QStringLiteral("^\\d{4}$"));
    QStringList comprobadas;
    auto comprobar = [&](const QString& nombre, TipoBase tipo) {
        ComprobarBase(dir.filePath(nombre), tipo);
        comprobadas << nombre;
    };
    comprobar(QStringLiteral("Bavar.db"), TipoBase::Bavar);
    for (const RegistroSelan& r : ejercicios) {
        if (!ano.match(r.Ano).hasMatch())
            throw ErrorAlmacen(QStringLiteral("El archivo Selan.dat de la copia está dañado."));
        const QString nombre = QStringLiteral("Quilmar%1.db").arg(r.Ano);
        if (!comprobadas.contains(nombre))
            comprobar(nombre, TipoBase::Ejercicio);
    }
    for (const QFileInfo& fi : ficherosDe(carpeta))
        if (esBase(fi.fileName()) && !comprobadas.contains(fi.fileName()))
            comprobar(fi.fileName(), TipoPorNombre(fi.fileName()));
    const QString bavis = QDir(padreDe(carpeta)).filePath(QStringLiteral("Bavis.db"));
    if (QFileInfo::exists(bavis))
        ComprobarBase(bavis, TipoBase::Bavis);
}

bool RestaurarCopia(Sesion& s, Dialogo& d, const QString& carpetaTecleada,
                    const Progreso& progreso) {
    const QString carpeta = QDir::cleanPath(carpetaTecleada.trimmed());
    if (carpetaTecleada.trimmed().isEmpty()) {
        d.Informar(MsgRestaurarSinCarpeta);
        return false;
    }
    if (!QFileInfo(carpeta).isDir()) {
        d.Informar(MsgNoExisteCarpeta);
        return false;
    }
    // A company folder of the program itself is no copy: restoring it onto itself would take
    // the installation's own Bavis.db as the copy's. (Checked first: on a server that folder
    // holds only the company's documents, and would be refused for lack of a Selan.dat.)
    const QString padre = RutaCanonica(padreDe(carpeta));
    if (padre == RutaCanonica(s.AppPath) || padre == RutaCanonica(s.DataPath)) {
        d.Informar(QStringLiteral("Esa carpeta es la de la propia empresa en el programa, no una "
                                  "copia de seguridad."));
        return false;
    }
    if (!QFileInfo::exists(QDir(carpeta).filePath(QStringLiteral("Selan.dat")))) {
        d.Informar(MsgRestaurarSinSelan);
        return false;
    }
    const QString empresa = QFileInfo(carpeta).fileName();
    if (!esCarpetaEmpresa(empresa)) {
        d.Informar(MsgRestaurarNombreCarpeta);
        return false;
    }
    try {
        ComprobarCopiaEmpresa(carpeta);
    } catch (const ErrorQuilmar& e) {
        d.Informar(QStringLiteral("No se puede restaurar esa copia. %1 No se ha modificado "
                                  "ningún dato.")
                       .arg(e.mensaje()));
        return false;
    }
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea restaurar los datos de la empresa "
                                    "%1, de nombre %2")
                         .arg(empresa, NombreEnCopia(carpeta))))
        return false;
    const QString destino = s.carpetaEmpresa(empresa);
    bool existe = false;
    try {
        existe = s.enServidor() ? !EjerciciosDe(s, empresa).isEmpty() : QFileInfo::exists(destino);
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
        return false;
    }
    if (existe &&
        !d.Preguntar(QStringLiteral("La empresa %1 ya existe en el directorio del programa. Desea "
                                    "seguir restaurando, de forma que los datos que se van a "
                                    "importar sustiruirían a los existentes?")
                         .arg(empresa)))
        return false;

    EmpresaEnExclusiva sola(s, empresa);
    if (!sola.conseguida()) {
        d.Informar(sola.ocupada()
                       ? MsgEmpresaAbiertaOtro.arg(empresa)
                       : QStringLiteral("No tiene permiso para escribir en la carpeta %1.")
                             .arg(QDir::toNativeSeparators(s.DataPath)));
        return false;
    }
    Avance avance{progreso};
    avance.total = ficherosDe(carpeta).size();
    const QString bavis = QDir(padreDe(carpeta)).filePath(QStringLiteral("Bavis.db"));
    const bool conBavis = QFileInfo::exists(bavis);
    if (conBavis)
        ++avance.total;
    if (s.enServidor()) {
        avance.total = 1 + documentosDe(carpeta).size();
        try {
            // The books in one server transaction, then the documents into the local folder.
            try {
                RestaurarEmpresaEnServidor(s, carpeta, conBavis ? bavis : QString());
            } catch (const ErrorQuilmar& e) {
                throw ErrorAlmacen(QStringLiteral("No se pudo restaurar la copia en el servidor. "
                                                  "%1 No se ha modificado ningún dato.")
                                       .arg(e.mensaje()));
            }
            avance.uno();
            if (!QDir().mkpath(destino))
                throw ErrorAlmacen(MsgNoSeEscribe(destino));
            copiarDocumentos(carpeta, destino, &avance);
            SincronizarCarpeta(destino);
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
            return false;
        }
        d.Informar(MsgRestaurarCerrar);
        return true;
    }
    try {
        copiarCarpeta(carpeta, destino, avance);
        if (conBavis) {
            SustituirBase(bavis, s.rutaBavis());
            avance.uno();
        }
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
        return false;
    }
    d.Informar(MsgRestaurarCerrar);
    return true;
}
