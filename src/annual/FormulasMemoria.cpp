#include "annual/FormulasMemoria.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Ficheros.h"
#include "store/Sesion.h"
#include "yearend/Adaptacion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>

namespace {

// Offsets and widths of the record.
constexpr int AnchoNombre = 4, AnchoTipo = 7, AnchoPeriodo = 15, AnchoContenido = 100;

QString campo(const QByteArray& r, int desde, int ancho) {
    return DeCp1252(r.mid(desde, ancho)).trimmed();
}

bool esDigito(QChar c) {
    return c >= u'0' && c <= u'9';
}

} // namespace

QByteArray RegistroFormula(const FormulaMemoria& f) {
    return CampoFijo(f.Nombre, AnchoNombre) + CampoFijo(f.Tipo, AnchoTipo) +
           CampoFijo(f.Periodo, AnchoPeriodo) + CampoFijo(f.Contenido, AnchoContenido);
}

FormulaMemoria FormulaDeRegistro(const QByteArray& r) {
    return {campo(r, 0, AnchoNombre), campo(r, AnchoNombre, AnchoTipo),
            campo(r, AnchoNombre + AnchoTipo, AnchoPeriodo),
            campo(r, AnchoNombre + AnchoTipo + AnchoPeriodo, AnchoContenido)};
}

PlanMemoria PlanMemoriaDe(const Sesion& s) {
    return s.AnoActual >= 2008 && PlanAdaptado(s) ? PlanMemoria::Nuevo : PlanMemoria::Antiguo;
}

QString FicheroFormulas(PlanMemoria p, int ano) {
    if (p == PlanMemoria::Nuevo)
        return QStringLiteral("Fmemor8np.dat");
    return ano < 2008 ? QStringLiteral("Fmemor.dat") : QStringLiteral("Fmemor8.dat");
}

QString RutaFormulas(const Sesion& s, PlanMemoria p) {
    return QDir(s.carpetaEmpresa()).filePath(FicheroFormulas(p, s.AnoActual));
}

QString RutaFormulasPrograma(const Sesion& s, PlanMemoria p) {
    return QDir(s.AppPath).filePath(FicheroFormulas(p, s.AnoActual));
}

bool AsegurarFormulas(const Sesion& s, PlanMemoria p, Dialogo& d) {
    const QString ruta = RutaFormulas(s, p);
    if (QFileInfo::exists(ruta))
        return true;
    const QString programa = RutaFormulasPrograma(s, p);
    if (!QFileInfo::exists(programa)) {
        d.Informar(MsgSinFormulas);
        return false;
    }
    if (!QFile::copy(programa, ruta))
        throw ErrorAlmacen(MsgNoSeEscribe(ruta));
    // A copy keeps the permissions of the shipped file, which may be read-only.
    QFile::setPermissions(ruta, QFile::permissions(ruta) | QFileDevice::WriteOwner);
    return true;
}

QList<FormulaMemoria> LeerFormulas(const QString& ruta) {
    QList<FormulaMemoria> r;
    for (const QByteArray& b : FicheroRegistros(ruta, LongitudFormula).leerTodos())
        r.append(FormulaDeRegistro(b));
    return r;
}

void EscribirFormulas(const QString& ruta, const QList<FormulaMemoria>& formulas) {
    const QFileInfo fi(ruta);
    const QString temporal = fi.dir().filePath(QLatin1Char('2') + fi.fileName());
    QList<QByteArray> registros;
    for (const FormulaMemoria& f : formulas)
        registros.append(RegistroFormula(f));
    QFile::remove(temporal);
    FicheroRegistros(temporal, LongitudFormula).reescribir(registros);
    // rename() replaces the old file in one step: a failure leaves the old list whole.
    if (std::rename(QFile::encodeName(temporal).constData(), QFile::encodeName(ruta).constData()) !=
        0) {
        QFile::remove(temporal);
        throw ErrorAlmacen(MsgNoSeEscribe(ruta));
    }
}

QStringList PeriodosFormula(PlanMemoria p) {
    if (p == PlanMemoria::Antiguo)
        return {PeriodoAnoN, PeriodoInicial};
    return {PeriodoAnoN, PeriodoAnoN1, PeriodoFinal, PeriodoInicial, PeriodoAno};
}

QStringList EjerciciosFormula() {
    return {PeriodoAnoN, PeriodoAnoN1};
}

QStringList PeriodosEjercicio(const QString& ejercicio) {
    if (ejercicio == PeriodoAnoN1)
        return {PeriodoFinal};
    return {PeriodoFinal, PeriodoInicial, PeriodoAno};
}

QString PeriodoGuardado(const QString& ejercicio, const QString& periodo) {
    if (periodo == PeriodoNinguno)
        return periodo;
    return ejercicio == PeriodoAnoN1 ? PeriodoAnoN1 : periodo;
}

QString EjercicioDePeriodo(const QString& guardado) {
    return guardado == PeriodoAnoN1 ? PeriodoAnoN1 : PeriodoAnoN;
}

QString PeriodoDeGuardado(const QString& guardado) {
    return guardado == PeriodoAnoN || guardado == PeriodoAnoN1 ? PeriodoFinal : guardado;
}

QString PreguntaEliminarFormula(const QString& nombre) {
    return QStringLiteral("Está seguro de que desea eliminar la Fórmula ") + nombre +
           QStringLiteral("?");
}

bool ContenidoValido(const QString& t) {
    const int n = t.size();
    for (int i = 0; i < n; ++i) {
        if (t[i] == u'>')
            return false; // one that closes a token is skipped below
        if (t[i] != u'<')
            continue;
        if (i + 5 >= n)
            return false;
        const QChar k = t[i + 1].toUpper();
        if ((k != u'F' && k != u'S') || !esDigito(t[i + 2]) || !esDigito(t[i + 3]) ||
            !esDigito(t[i + 4]) || t[i + 5] != u'>')
            return false;
        i += 5;
    }
    return true;
}

bool TeclaFormula(QChar c) {
    return QStringLiteral("()*+-/0123456789<>FSfs").contains(c);
}

std::optional<ErrorFormula> ComprobarFormula(const EntradaFormula& e, PlanMemoria p) {
    const QString nombre = e.digitos.trimmed();
    if (nombre.size() != 3 || !std::all_of(nombre.begin(), nombre.end(), esDigito))
        return ErrorFormula{MsgNombreFormula, CampoFormula::Nombre};
    if (e.contenido.trimmed().isEmpty())
        return ErrorFormula{MsgSinContenido, CampoFormula::Contenido};
    if (e.tipo != TipoImporte && e.tipo != TipoTexto)
        return ErrorFormula{MsgSinTipo, CampoFormula::Tipo};
    if (p == PlanMemoria::Nuevo && !EjerciciosFormula().contains(e.ejercicio))
        return ErrorFormula{MsgSinEjercicio, CampoFormula::Ejercicio};
    const bool periodoValido =
        e.tipo == TipoTexto ? e.periodo == PeriodoNinguno : PeriodosFormula(p).contains(e.periodo);
    if (!periodoValido)
        return ErrorFormula{MsgSinPeriodo, CampoFormula::Periodo};
    if (e.tipo == TipoImporte && !ContenidoValido(e.contenido))
        return ErrorFormula{MsgContenidoErroneo, CampoFormula::Contenido};
    return std::nullopt;
}

FormulaMemoria FormulaDeEntrada(const EntradaFormula& e) {
    return {QLatin1Char('F') + e.digitos.trimmed(), e.tipo, e.periodo, e.contenido.trimmed()};
}

bool GuardarFormula(const QString& ruta, PlanMemoria p, const FormulaMemoria& f, Dialogo& d,
                    const std::optional<QString>& anterior) {
    BloqueoFichero bloqueo(ruta);
    if (!bloqueo.conseguido()) {
        d.Informar(MsgArchivoEnUso);
        return false;
    }
    QList<FormulaMemoria> lista = LeerFormulas(ruta);
    auto posicion = [&lista](const QString& nombre) {
        for (int i = 0; i < lista.size(); ++i)
            if (lista[i].Nombre.compare(nombre, Qt::CaseInsensitive) == 0)
                return i;
        return -1;
    };
    const int igual = posicion(f.Nombre);
    const int previa = anterior ? posicion(*anterior) : -1;
    if (igual >= 0 && igual != previa) {
        if (p == PlanMemoria::Antiguo) {
            d.Informar(MsgFuncionExiste);
            return false;
        }
        if (!d.Preguntar(PreguntaSustituir))
            return false;
    }
    if (previa >= 0) {
        lista[previa] = f;
        if (igual >= 0 && igual != previa)
            lista.removeAt(igual);
    } else if (igual >= 0) {
        lista[igual] = f;
    } else {
        lista.append(f);
    }
    EscribirFormulas(ruta, lista);
    return true;
}

bool EliminarFormula(const QString& ruta, const QString& nombre, Dialogo& d) {
    if (!d.Preguntar(PreguntaEliminarFormula(nombre)))
        return false;
    BloqueoFichero bloqueo(ruta);
    if (!bloqueo.conseguido()) {
        d.Informar(MsgArchivoEnUso);
        return false;
    }
    QList<FormulaMemoria> lista = LeerFormulas(ruta);
    const auto quitadas = lista.removeIf([&nombre](const FormulaMemoria& f) {
        return f.Nombre.compare(nombre, Qt::CaseInsensitive) == 0;
    });
    if (quitadas == 0)
        return false;
    EscribirFormulas(ruta, lista);
    return true;
}
