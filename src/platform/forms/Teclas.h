#pragma once
// Key presses as the screens' filters see them, and fields that take digits only.

class QKeyEvent;
class QLineEdit;
class QString;
class QWidget;

// Return or the keypad's Enter.
bool EsIntro(const QKeyEvent* k);

// Keys that edit or move rather than type (and Ctrl shortcuts): a typing filter lets them pass.
bool EsTeclaDeEdicion(const QKeyEvent* k);

// The field takes up to `cifras` digits and nothing else.
void SoloCifras(QLineEdit* campo, int cifras);
// A field for a whole number: named, right-aligned, up to `cifras` digits, at most `ancho`
// pixels wide when given.
QLineEdit* CampoNumero(QWidget* padre, const QString& nombre, int cifras, int ancho = 0);
