#pragma once
// The pictures of the seven areas and the colour of the board. Each area shows the file named by
// Imagen\<area> when it exists, and otherwise its default picture of the installation's Imagenes
// folder, which the program puts there on its first start. The colour lives in Imagen\Color as a
// long with red in the low byte, as the settings have always kept colours.

#include <QColor>
#include <QImage>
#include <QString>

class Ajustes;
struct Sesion;

// The default picture of an area: Chalet.jpg, dinero.jpg, Tarjetas2.jpg, Oficina.jpg, Manos.jpg,
// edificio.jpg, gasolinera2.jpg.
QString ImagenPredeterminada(int area);
// AppPath\Imagenes.
QString CarpetaImagenes(const Sesion& s);
// Copies the default pictures that are missing into AppPath\Imagenes. A picture the user has put
// there under a default name stays.
void InstalarImagenes(const Sesion& s);

// The file shown in an area: the setting when it names a file that exists, else the default.
QString RutaImagenArea(const Sesion& s, const Ajustes& a, int area);
// The picture itself; the default drawing shipped with the program when no file can be read.
QImage CargarImagenArea(const Sesion& s, const Ajustes& a, int area);
void GuardarImagenArea(Ajustes& a, int area, const QString& ruta);
// The default picture's file in the installation.
QString RutaPredeterminada(const Sesion& s, int area);

// The board's colour: the setting, or the default of the window's design.
QColor ColorTablero(const Ajustes& a);
extern const QColor ColorTableroPredeterminado;
void GuardarColorTablero(Ajustes& a, const QColor& color);
long ValorDeColor(const QColor& c);
QColor ColorDeValor(long v);
