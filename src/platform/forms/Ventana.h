#pragma once
// What every window of the program does when it opens: it takes the screen font of the settings
// (NLetra, TLetra) and, when it keeps a size (WF<n>, HF<n>), its last size; and it keeps its
// size when it closes.

class Ajustes;
class QWidget;

// n is the form's number, or 0 for a window that keeps no size. A window never opens larger than
// the screen's free area (a 1024 x 768 screen shows every form whole).
void PrepararVentana(QWidget* ventana, Ajustes& ajustes, int n = 0);

class QRect;
// Places a window in a part of the screen (global coordinates): at its top left, no larger than
// it. One that cannot be made that low goes up just as much as it needs, never off the screen.
void ColocarEnZona(QWidget* ventana, const QRect& zona);
