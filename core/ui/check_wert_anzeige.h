#pragma once
// The widget side of Check_Wert and Nur_Ziffern (core/check_wert.h), shared
// by every dialog with number fields.

#include "core/check_wert.h"

class QAbstractButton;
class QLabel;
class QLineEdit;

namespace planor {

// The field's text red when its value is refused, black otherwise.
void CheckWertFarbe(QLineEdit* feld, bool gueltig);
// Shows a Check_Wert result: the field's text red when refused, black
// otherwise, and the label's text.
void CheckWertAnzeigen(const CheckWertErgebnis& ergebnis, QLineEdit* feld, QLabel* label);
// The same, and OK disabled when refused, enabled otherwise — as
// Check_Wert does for a dialog with one checked field. A dialog
// with several checked fields sets OK from all of them instead.
void CheckWertAnzeigen(const CheckWertErgebnis& ergebnis, QLineEdit* feld, QLabel* label, QAbstractButton* okBut);

// Puts Nur_Ziffern in front of the field's key presses: a key that yields a
// printable character other than a digit is dropped. Keys without text or
// with a control character (backspace, enter, escape, tab, Ctrl shortcuts,
// the arrows, Delete) pass, so that editing and the dialog's buttons work.
void Nur_Ziffern_Filter(QLineEdit* feld);

}  // namespace planor
