#pragma once
// Key presses as the screens' filters see them.

class QKeyEvent;

// Return or the keypad's Enter.
bool EsIntro(const QKeyEvent* k);

// Keys that edit or move rather than type (and Ctrl shortcuts): a typing filter lets them pass.
bool EsTeclaDeEdicion(const QKeyEvent* k);
