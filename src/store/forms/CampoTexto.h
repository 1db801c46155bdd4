#pragma once
// A text box of a field of the books: typing stops at the field's size and a control character
// (a tab or a line break pasted in, an escape) never gets in, so that what the box holds is what
// the logic will accept. The logic checks again, for the command line and the import.
//
// Usage:
//     LimitarCampo(Text2, Campo::Documento);
//     LimitarCampo(Combo1->lineEdit(), Campo::Concepto);
//     LimitarCampo(Text1, Campo::NombreSubcuenta, false); // its screen tells and cuts the excess

#include "store/Campos.h"

class QLineEdit;

void LimitarCampo(QLineEdit* caja, Campo campo, bool limitarLargo = true);
// Only the control characters: for a box that is no field of the books (a password).
void SinControlesEnCaja(QLineEdit* caja);
