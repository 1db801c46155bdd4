#include "platform/Ajustes.h"

#include <QDir>
#include <QHash>
#include <QSettings>

namespace {

QString clave(const QString& seccion, const QString& nombre) {
    return seccion + QLatin1Char('/') + nombre;
}

// Report groups whose font, size and margin keys share one default.
const char* const GruposInforme[] = {"Diario", "Mayor",  "SyS",   "Libros", "Anuales",
                                     "CDia",   "Invent", "Predi", "Venc"};

const QHash<QString, QString>& tablaDefectos() {
    static const QHash<QString, QString> tabla = [] {
        QHash<QString, QString> t;
        t.insert(clave("Inicio", "Presenta"), "SI");
        t.insert(clave("Valores", "NLetra"), "Arial");
        t.insert(clave("Valores", "TLetra"), "9");
        t.insert(clave("Valores", "NFImprimir"), "Arial");
        t.insert(clave("Valores", "TFImprimir"), "9");
        t.insert(clave("Valores", "Impresora"), "Predeterminada del sistema");
        t.insert(clave("Valores", "CArea"), "Imagenes");
        t.insert(clave("Valores", "DiasAv"), "7");
        t.insert(clave("Valores", "ElimAuto"), "SI");
        t.insert(clave("Valores", "Ruta"), "Nada");
        t.insert(clave("Valores", "Dimensiones"), "2D");
        t.insert(clave("Valores", "TipoChart"), "Barras");
        t.insert(clave("Valores", "VerImport"), "NO");
        t.insert(clave("Opciones", "AvisoRepe"), "True");
        for (const char* g : GruposInforme) {
            const QString grupo = QString::fromLatin1(g);
            t.insert(clave("Valores", "NFuent" + grupo), "Arial Narrow");
            t.insert(clave("Valores", "TFuent" + grupo), "9");
            t.insert(clave("Valores", "Izq" + grupo), "10");
        }
        return t;
    }();
    return tabla;
}

} // namespace

Ajustes::Ajustes(const QString& carpeta)
    : carpeta_(carpeta),
      pro_(std::make_unique<QSettings>(QDir(carpeta).filePath(QStringLiteral("QuilmarPro.ini")),
                                       QSettings::IniFormat)),
      emp_(std::make_unique<QSettings>(QDir(carpeta).filePath(QStringLiteral("QuilmarEmp.ini")),
                                       QSettings::IniFormat)) {}

Ajustes::~Ajustes() = default;

QString Ajustes::defecto(const QString& seccion, const QString& nombre) {
    return tablaDefectos().value(clave(seccion, nombre));
}

QString Ajustes::leer(const QString& seccion, const QString& nombre) const {
    return leer(seccion, nombre, defecto(seccion, nombre));
}

QString Ajustes::leer(const QString& seccion, const QString& nombre,
                      const QString& porDefecto) const {
    const QVariant v = pro_->value(clave(seccion, nombre));
    return v.isValid() ? v.toString() : porDefecto;
}

double Ajustes::leerNumero(const QString& seccion, const QString& nombre, double porDefecto) const {
    bool ok = false;
    const double v = leer(seccion, nombre, QString()).trimmed().replace(',', '.').toDouble(&ok);
    return ok ? v : porDefecto;
}

void Ajustes::escribir(const QString& seccion, const QString& nombre, const QVariant& valor) {
    pro_->setValue(clave(seccion, nombre), valor.toString());
    pro_->sync();
}

void Ajustes::borrar(const QString& seccion, const QString& nombre) {
    pro_->remove(clave(seccion, nombre));
    pro_->sync();
}

bool Ajustes::existe(const QString& seccion, const QString& nombre) const {
    return pro_->contains(clave(seccion, nombre));
}

QString Ajustes::leerEmp(const QString& seccion, const QString& nombre,
                         const QString& porDefecto) const {
    const QVariant v = emp_->value(clave(seccion, nombre));
    return v.isValid() ? v.toString() : porDefecto;
}

void Ajustes::escribirEmp(const QString& seccion, const QString& nombre, const QVariant& valor) {
    emp_->setValue(clave(seccion, nombre), valor.toString());
    emp_->sync();
}

QSize Ajustes::tamanoVentana(int n, QSize disenado, QSize pantalla) const {
    const long ancho = static_cast<long>(leerNumero("Opciones", QStringLiteral("WF%1").arg(n), 0));
    const long alto = static_cast<long>(leerNumero("Opciones", QStringLiteral("HF%1").arg(n), 0));
    QSize t = disenado;
    if (ancho > 0 && ancho <= pantalla.width())
        t.setWidth(static_cast<int>(ancho));
    if (alto > 0 && alto <= pantalla.height())
        t.setHeight(static_cast<int>(alto));
    return t;
}

void Ajustes::guardarTamanoVentana(int n, QSize tamano) {
    pro_->setValue(clave("Opciones", QStringLiteral("WF%1").arg(n)), tamano.width());
    pro_->setValue(clave("Opciones", QStringLiteral("HF%1").arg(n)), tamano.height());
    pro_->sync();
}
