#pragma once
// What every window of the program does when it opens: it takes the screen font of the settings
// (NLetra, TLetra) and, when it keeps a size (WF<n>, HF<n>), its last size; and it keeps its
// size when it closes.

class Ajustes;
class QWidget;

// n is the form's number, or 0 for a window that keeps no size.
void PrepararVentana(QWidget* ventana, Ajustes& ajustes, int n = 0);
