#pragma once
// The program's picture: the splash screen and the cover of the board show it.

#include <QPixmap>

QPixmap ImagenPortada(const QSize& tamano);
