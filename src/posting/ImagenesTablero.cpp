#include "posting/ImagenesTablero.h"

#include "chart/NCuenta.h"
#include "platform/Ajustes.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

const QColor ColorTableroPredeterminado(0xE4, 0xEC, 0xF2);

namespace {

const char* const Predeterminadas[NumeroAreas] = {"Chalet.jpg",     "dinero.jpg", "Tarjetas2.jpg",
                                                  "Oficina.jpg",    "Manos.jpg",  "edificio.jpg",
                                                  "gasolinera2.jpg"};

const QString Seccion = QStringLiteral("Imagen");

QString recurso(int area) {
    return QStringLiteral(":/data/imagenes/") + ImagenPredeterminada(area);
}

} // namespace

QString ImagenPredeterminada(int area) {
    return area >= 0 && area < NumeroAreas ? QString::fromLatin1(Predeterminadas[area]) : QString();
}

QString CarpetaImagenes(const Sesion& s) {
    return QDir(s.AppPath).filePath(QStringLiteral("Imagenes"));
}

void InstalarImagenes(const Sesion& s) {
    const QDir carpeta(CarpetaImagenes(s));
    QDir().mkpath(carpeta.path());
    for (int i = 0; i < NumeroAreas; ++i) {
        const QString destino = carpeta.filePath(ImagenPredeterminada(i));
        if (QFileInfo::exists(destino))
            continue;
        if (QFile::copy(recurso(i), destino))
            // Resource files copy read-only; the user may replace the picture.
            QFile::setPermissions(destino, QFile::permissions(destino) | QFile::WriteOwner);
    }
}

QString RutaImagenArea(const Sesion& s, const Ajustes& a, int area) {
    const QString propia = a.leer(Seccion, QString::number(area)).trimmed();
    if (!propia.isEmpty() && QFileInfo(propia).isFile())
        return propia;
    return RutaPredeterminada(s, area);
}

QImage CargarImagenArea(const Sesion& s, const Ajustes& a, int area) {
    QImage img(RutaImagenArea(s, a, area));
    if (img.isNull())
        img.load(recurso(area));
    return img;
}

void GuardarImagenArea(Ajustes& a, int area, const QString& ruta) {
    a.escribir(Seccion, QString::number(area), ruta);
}

QString RutaPredeterminada(const Sesion& s, int area) {
    return QDir(CarpetaImagenes(s)).filePath(ImagenPredeterminada(area));
}

long ValorDeColor(const QColor& c) {
    return static_cast<long>(c.red()) | (static_cast<long>(c.green()) << 8) |
           (static_cast<long>(c.blue()) << 16);
}

QColor ColorDeValor(long v) {
    return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF),
                  static_cast<int>((v >> 16) & 0xFF));
}

QColor ColorTablero(const Ajustes& a) {
    if (!a.existe(Seccion, QStringLiteral("Color")))
        return ColorTableroPredeterminado;
    return ColorDeValor(static_cast<long>(a.leerNumero(Seccion, QStringLiteral("Color"), 0)));
}

void GuardarColorTablero(Ajustes& a, const QColor& color) {
    a.escribir(Seccion, QStringLiteral("Color"), static_cast<qlonglong>(ValorDeColor(color)));
}
