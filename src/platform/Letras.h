#pragma once
// The fonts the program names ("Arial", "Arial Narrow", "Courier New") resolve to their
// metric-compatible Liberation fonts, on screen and on paper.

// Installs the substitutions; call once at the start of each executable.
void SustituirLetras();
