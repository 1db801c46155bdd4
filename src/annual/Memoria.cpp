#include "annual/Memoria.h"

#include "annual/Estados.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Evaluar.h"
#include "platform/Ficheros.h"
#include "platform/Impresora.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUrl>

namespace {

constexpr int NivelMaximo = 3;

bool esDigito(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool nombreFormula(const QString& n) {
    return n.size() == 4 && n[0].toUpper() == u'F' && esDigito(n[1]) && esDigito(n[2]) &&
           esDigito(n[3]);
}

ClaseSaldo claseDePeriodo(const QString& periodo) {
    if (periodo == PeriodoInicial)
        return ClaseSaldo::Ini;
    if (periodo == PeriodoAno)
        return ClaseSaldo::Ano;
    return ClaseSaldo::N; // "Año N", "Año N-1", "Fecha Final"
}

// The accounts of areas 0, 2 and 3 are of credit nature.
double PorNaturaleza(const SaldoEstado& s) {
    const QChar area = s.NCuenta.isEmpty() ? QChar() : s.NCuenta[0];
    return area == u'0' || area == u'2' || area == u'3' ? s.SaldoH - s.SaldoD : s.SaldoD - s.SaldoH;
}

// A value inserted in an RTF document: its control characters escaped, the rest in Windows-1252
// escapes so that the file stays 7-bit as RTF wants it.
QString TextoRtf(const QString& v) {
    QString r;
    for (const QChar c : v) {
        const char16_t u = c.unicode();
        if (u == u'\\' || u == u'{' || u == u'}') {
            r += u'\\';
            r += c;
        } else if (u >= 0x20 && u < 0x80) {
            r += c;
        } else if (u < 0x20) {
            r += u' ';
        } else {
            const QByteArray b = ACp1252(QString(c));
            if (b.size() == 1 && b[0] != '?')
                r += QStringLiteral("\\'%1").arg(static_cast<uchar>(b[0]), 2, 16, QLatin1Char('0'));
            else
                r += QStringLiteral("\\u%1?").arg(static_cast<qint16>(u));
        }
    }
    return r;
}

} // namespace

struct CalculoMemoria::Datos {
    DatosEjercicio estado;     // balances before closing and the year's result
    QList<SaldoEstado> inicio; // the lines of the first day, by subaccount
};

QString RellenarValor(const QString& valor) {
    if (valor.size() >= 25)
        return valor;
    const QString arial = QStringLiteral("Arial");
    static const double columna = AnchoTextoImpresion(QStringLiteral("999.999.999,99"), arial, 10);
    QString r = valor;
    while (r.size() < 60 && AnchoTextoImpresion(r, arial, 10) < columna)
        r.prepend(u' ');
    return r;
}

CalculoMemoria::CalculoMemoria(const Sesion& s, PlanMemoria plan) : s_(s), plan_(plan) {
    formulas_ = LeerFormulas(RutaFormulas(s, plan));
}

CalculoMemoria::~CalculoMemoria() = default;

const CalculoMemoria::Datos* CalculoMemoria::datos(bool anterior) {
    auto leer = [](Conexion& c) {
        auto d = std::make_unique<Datos>();
        d->estado = LeerDatosEstado(c);
        const QVariant ini = c.escalar(QStringLiteral("SELECT FechaIni FROM Empresa"));
        Lector l(c,
                 QStringLiteral("SELECT NCuenta, SUM(Debe), SUM(Haber) FROM Diario WHERE Fecha = "
                                "? AND Clase <> ? AND Clase <> ? GROUP BY NCuenta"),
                 {ini.toString().left(10), QStringLiteral("R"), QStringLiteral("F")});
        while (l.siguiente())
            d->inicio.append({l.texto(0), {}, Centimos(l.real(1)), Centimos(l.real(2))});
        return d;
    };
    if (!anterior) {
        if (!actual_) {
            Conexion c = AbrirDatos(s_);
            actual_ = leer(c);
        }
        return actual_.get();
    }
    if (!anteriorLeido_) {
        anteriorLeido_ = true;
        if (ExisteEjercicio(s_, s_.AnoActual - 1)) {
            Conexion c =
                AbrirBaseEmpresa(s_, s_.rutaEjercicio(s_.AnoActual - 1), TipoBase::Ejercicio);
            anterior_ = leer(c);
        }
    }
    return anterior_.get();
}

std::optional<double> CalculoMemoria::SaldoF(const QString& cuenta, ClaseSaldo clase,
                                             bool anterior) {
    const Datos* d = datos(anterior);
    if (!d)
        return std::nullopt;
    if (cuenta == QLatin1String("129"))
        return clase == ClaseSaldo::N ? d->estado.resultado : 0.0;
    // The whole year before closing is what the journal holds without the closing entries: the
    // same lines as the final balance, so "Año" and "N" differ only for the result above.
    const QList<SaldoEstado>& lista = clase == ClaseSaldo::Ini ? d->inicio : d->estado.saldos;
    double v = 0;
    for (const SaldoEstado& s : lista)
        if (QStringView(s.NCuenta).mid(1, cuenta.size()) == cuenta)
            v += PorNaturaleza(s);
    return Centimos(v);
}

std::optional<QString> CalculoMemoria::valorNivel(const QString& nombre, int nivel, bool& esTexto) {
    esTexto = false;
    if (!nombreFormula(nombre))
        return std::nullopt;
    const FormulaMemoria* f = nullptr;
    for (const FormulaMemoria& x : formulas_)
        if (x.Nombre.compare(nombre, Qt::CaseInsensitive) == 0) {
            f = &x;
            break;
        }
    if (!f)
        return std::nullopt;
    if (f->Tipo.compare(TipoTexto, Qt::CaseInsensitive) == 0) {
        esTexto = true;
        return f->Contenido;
    }
    const bool anterior = plan_ == PlanMemoria::Nuevo && f->Periodo == PeriodoAnoN1;
    const ClaseSaldo clase = claseDePeriodo(f->Periodo);
    if (anterior && !datos(true))
        return std::nullopt;

    const QString& t = f->Contenido;
    QString expresion;
    bool cortada = false; // a formula token past the last level
    for (int i = 0; i < t.size(); ++i) {
        if (t[i] != u'<') {
            expresion += t[i];
            continue;
        }
        if (i + 5 >= t.size() || t[i + 5] != u'>')
            continue; // a stray "<" is dropped, what follows is copied
        const QChar k = t[i + 1].toUpper();
        const QString digitos = t.mid(i + 2, 3);
        if (k == u'S') {
            if (const auto v = SaldoF(digitos, clase, anterior))
                expresion += Formato(*v, QStringLiteral("General Number"));
            i += 5;
        } else if (k == u'F') {
            if (nivel < NivelMaximo) {
                bool texto = false;
                if (const auto v = valorNivel(QLatin1Char('F') + digitos, nivel + 1, texto))
                    expresion += *v;
            } else {
                cortada = true;
            }
            i += 5;
        }
    }
    if (cortada || expresion.trimmed().isEmpty())
        return std::nullopt;
    const ResultadoEvaluar r = Evaluar(NormalizarNumero(expresion));
    if (!r.ok())
        return std::nullopt;
    return Formato(Centimos(*r.valor), QStringLiteral("General Number"));
}

QString CalculoMemoria::Valor(const QString& nombre) {
    bool esTexto = false;
    const std::optional<QString> v = valorNivel(nombre, 1, esTexto);
    if (!v)
        return {};
    if (esTexto)
        return *v;
    const double importe = ValorImporte(*v);
    return RellenarValor(Formato(importe, QStringLiteral("standard")).trimmed());
}

QByteArray CalculoMemoria::Elaborar(const QByteArray& modelo) {
    // Latin-1 maps every byte to one character and back, so the document passes unchanged
    // wherever there is no token.
    const QString t = QString::fromLatin1(modelo);
    QString r;
    r.reserve(t.size() + t.size() / 8);
    for (int i = 0; i < t.size(); ++i) {
        if (t[i] == u'<' && i + 5 < t.size() && t[i + 5] == u'>') {
            r += TextoRtf(Valor(t.mid(i + 1, 4)));
            i += 5;
            continue;
        }
        r += t[i];
    }
    return r.toLatin1();
}

QString RutaModeloMemoria(const Sesion& s) {
    return QDir(s.carpetaEmpresa()).filePath(QStringLiteral("Memabrev%1.rtf").arg(s.AnoActual));
}

QString RutaMemoria(const Sesion& s) {
    return QDir(s.carpetaEmpresa()).filePath(QStringLiteral("Memoria%1.rtf").arg(s.AnoActual));
}

QString RutaModeloPrograma(const Sesion& s, PlanMemoria p) {
    return QDir(s.AppPath).filePath(p == PlanMemoria::Nuevo ? QStringLiteral("MemabrevNP.rtf")
                                                            : QStringLiteral("Memabrev.rtf"));
}

QString MsgSinModeloPrograma(const QString& ruta) {
    return QStringLiteral("No se encuentra el modelo de Memoria %1.")
        .arg(QDir::toNativeSeparators(ruta));
}

QString MsgModeloNoRtf(const QString& ruta) {
    return QStringLiteral("El archivo %1 no es un documento en formato rtf.")
        .arg(QDir::toNativeSeparators(ruta));
}

namespace {

bool EsRtf(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) && f.read(5) == "{\\rtf";
}

void Copiar(const QString& origen, const QString& destino) {
    QFile::remove(destino);
    if (!QFile::copy(origen, destino))
        throw ErrorAlmacen(MsgNoSeEscribe(destino));
    QFile::setPermissions(destino, QFile::permissions(destino) | QFileDevice::WriteOwner);
}

} // namespace

std::optional<QString> NuevaMemoria(const Sesion& s, Dialogo& d,
                                    const std::function<QString(const QString&)>& elegirModelo) {
    const QString ruta = RutaModeloMemoria(s);
    if (QFileInfo::exists(ruta)) {
        if (!d.Preguntar(PreguntaEliminarMemoria) || !d.Preguntar(PreguntaConfirmarEliminarMemoria))
            return std::nullopt;
        if (!FicheroLibre(ruta)) {
            d.Informar(MsgArchivoEnUso);
            return std::nullopt;
        }
    }
    const PlanMemoria plan = PlanMemoriaDe(s);
    QString origen;
    if (d.Preguntar(PreguntaModeloPredeterminado)) {
        origen = RutaModeloPrograma(s, plan);
        if (!QFileInfo::exists(origen)) {
            d.Informar(MsgSinModeloPrograma(origen));
            return std::nullopt;
        }
    } else {
        origen = elegirModelo ? elegirModelo(plan == PlanMemoria::Nuevo ? TituloElegirModeloNuevo
                                                                        : TituloElegirModelo)
                              : QString();
        if (origen.isEmpty())
            return std::nullopt;
        if (!EsRtf(origen)) {
            d.Informar(MsgModeloNoRtf(origen));
            return std::nullopt;
        }
    }
    Copiar(origen, ruta);
    return ruta;
}

std::optional<QString> ModeloParaEditar(const Sesion& s, Dialogo& d) {
    const QString ruta = RutaModeloMemoria(s);
    if (!QFileInfo::exists(ruta)) {
        d.Informar(MsgSinModelo);
        return std::nullopt;
    }
    return ruta;
}

std::optional<QString> GenerarMemoria(const Sesion& s, Dialogo& d, bool preguntar) {
    const PlanMemoria plan = PlanMemoriaDe(s);
    if (!AsegurarFormulas(s, plan, d))
        return std::nullopt;
    const QString ruta = RutaMemoria(s);
    if ((QFileInfo::exists(ruta) && !FicheroLibre(ruta)) || !FicheroLibre(RutaFormulas(s, plan))) {
        d.Informar(MsgArchivoEnUso);
        return std::nullopt;
    }
    if (preguntar && !d.PreguntarSi(PreguntaProcesoLargo))
        return std::nullopt;
    const QString modelo = RutaModeloMemoria(s);
    QFile f(modelo);
    if (!f.exists()) {
        d.Informar(MsgSinModeloActual);
        return std::nullopt;
    }
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorAlmacen(QStringLiteral("No se puede leer el archivo %1.")
                               .arg(QDir::toNativeSeparators(modelo)));
    const QByteArray texto = f.readAll();
    f.close();
    CalculoMemoria calculo(s, plan);
    const QByteArray memoria = calculo.Elaborar(texto);
    // The old notes are replaced only once the new ones are whole.
    QSaveFile salida(ruta);
    salida.setDirectWriteFallback(true);
    if (!salida.open(QIODevice::WriteOnly) || salida.write(memoria) != memoria.size() ||
        !salida.commit())
        throw ErrorAlmacen(MsgNoSeEscribe(ruta));
    return ruta;
}

namespace {

bool AbrirConElEscritorio(const QString& ruta) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    // Desktops open documents through xdg-open; without it nothing would say it failed.
    if (QStandardPaths::findExecutable(QStringLiteral("xdg-open")).isEmpty())
        return false;
#endif
    return QDesktopServices::openUrl(QUrl::fromLocalFile(ruta));
}

} // namespace

QString MsgEditorNoArranca(const QString& editor) {
    return QStringLiteral("No se pudo abrir el editor %1. Compruebe el editor indicado en la "
                          "configuración.")
        .arg(QDir::toNativeSeparators(editor));
}

bool AbrirEnEditor(const QString& ruta, const Ajustes& a, Dialogo& d,
                   const std::function<bool(const QString&)>& abrir,
                   const std::function<bool(const QString&, const QString&)>& arrancar) {
    const QString editor = a.leer(QStringLiteral("Datos"), QStringLiteral("Editor")).trimmed();
    if (!editor.isEmpty()) {
        const bool hecho =
            arrancar ? arrancar(editor, ruta) : QProcess::startDetached(editor, {ruta});
        if (!hecho)
            d.Informar(MsgEditorNoArranca(editor));
        return hecho;
    }
    const bool hecho = abrir ? abrir(ruta) : AbrirConElEscritorio(ruta);
    if (!hecho)
        d.Informar(MsgSinEditor);
    return hecho;
}
