#pragma once
// The form Grundeinstellungen as a widget-free form state and the
// form's handlers over it. The dialog (core/ui/grundeinstellungen_dialog.h)
// only binds widgets to this state.

#include "core/check_wert.h"
#include "core/vb_zahlen.h"

#include <QString>

#include <array>
#include <span>

namespace planor {

class Anlage;

// GrundeinstErgebnis: the caller's view of the form.
inline constexpr int GrundeinstOffen = 0;
inline constexpr int GrundeinstOK = 1;
inline constexpr int GrundeinstAbbruch = 2;

// Coding of LNCV 14: U = distance · factor + index, the factor
// 18 times the scale's denominator. Index -1 stands for "no scale".
inline constexpr int SpurKeine = -1;
inline constexpr int SpurAnz = 5;
inline constexpr std::array<int, SpurAnz> SpurFaktor = {2880, 2160, 1566, 810, 576};
// The factor used when no scale is chosen (that of "Spur 1").
inline constexpr int SpurFaktorOhneSpur = 576;
// The largest distance · factor that is accepted: LNCV 14 is 16 bits wide.
inline constexpr double MaxGeschwWert = 65530;
// "N", "TT", "H0", "0", "Spur 1".
QString SpurName(int spur);
// The factor of a scale 0..4, SpurFaktorOhneSpur for SpurKeine.
int Spur_Faktor(int spur);

// The opening rule: the last index i with U mod faktoren[i] = i; SpurKeine for
// U = 0 or when none fits. With the real factors no 16-bit value fits two
// scales (all are multiples of 18, so U mod 18 tells the index); the rule
// takes a table so that "the last hit stands" can be shown at all.
int SpurAuswahl(Long u, std::span<const int> faktoren = SpurFaktor);

struct Geschwindigkeitsmessung {
    int spur = SpurKeine;
    Long abstand = 0;  // in whole millimetres; meaningful with a scale only
};
// On opening: the scale and distance of an LNCV 14, read unsigned.
Geschwindigkeitsmessung LNCV14_lesen(Integer lncv14);
// On OK: distance · factor + index as a 16-bit two's complement; without
// a scale distance · 576 and no index. Raises error 6 when it does not fit.
Integer LNCV14_bilden(int spur, Long abstand);

// The labels of the checked fields, restored when a value is accepted.
inline const QString FeldAnzX_Text = QStringLiteral("Anzahl der Spalten des Editierfeldes:");
inline const QString FeldAnzY_Text = QStringLiteral("Anzahl der Zeilen des Editierfeldes:");
inline const QString Geschw_Text = QStringLiteral("Sensorabstand:");
inline const QString AutomZeit_Text = QStringLiteral("Wartezeit bis zum nächsten Start der Automatik:");
inline const QString StartupZeit_Text = QStringLiteral("Wartezeit beim Einschalten des Moduls:");

// Bounds of the number fields. The dimensions are 9..99 (refused below 9
// as above 99). For the times the modules' LNCVs set the
// maxima: LNCV 18 is a byte of seconds, LNCV 19 counts half seconds in a byte,
// so 127 s is the most that doubles into it. Negative values are refused.
inline constexpr double FeldAnzMin = 9;
inline constexpr double FeldAnzMax = 99;
inline constexpr double AutomZeitMax = 255;
inline constexpr double StartupZeitMax = 127;

// The form state: the controls' contents and what their checks show.
struct Grundeinstellungen_Form {
    QString FeldAnzX;
    QString FeldAnzY;
    bool BlkStatChk = false;
    std::array<bool, 3> AllgOptChk{};
    int opSpur = SpurKeine;  // the selected option button, SpurKeine for none
    QString Geschw_Txt = QStringLiteral("-");
    QString AutomZeitTxt;
    QString StartupZeitTxt;

    // Check_Wert of each number field: red and OK disabled when refused,
    // and the text of the field's label.
    CheckWertErgebnis FeldAnzX_Pruefung{true, FeldAnzX_Text};
    CheckWertErgebnis FeldAnzY_Pruefung{true, FeldAnzY_Text};
    CheckWertErgebnis Geschw_Pruefung{true, Geschw_Text};
    CheckWertErgebnis AutomZeit_Pruefung{true, AutomZeit_Text};
    CheckWertErgebnis StartupZeit_Pruefung{true, StartupZeit_Text};
};

// Opening the form: every field from the project, followed by the checks of
// all fields.
void Form_Activate(Grundeinstellungen_Form& form, const Anlage& anlage);

// The change handlers: each runs the check of its field on the form's text.
void FeldAnzX_Change(Grundeinstellungen_Form& form);
void FeldAnzY_Change(Grundeinstellungen_Form& form);
void AutomZeitTxt_Change(Grundeinstellungen_Form& form);
void StartupZeitTxt_Change(Grundeinstellungen_Form& form);
// The distance times the selected factor (576 without a scale) must not
// exceed 65530.
void Geschw_Txt_Change(Grundeinstellungen_Form& form);
// Selects the scale (0..4) and checks the distance against its factor.
void opSpur_Click(Grundeinstellungen_Form& form, int spur);

// OK is enabled while no field is refused. Each Check_Wert call would set OK
// from its own field alone; here one accepted field does not enable OK while
// another is refused.
bool OK_But_Enabled(const Grundeinstellungen_Form& form);

// OK: stores all fields into the project. With a refused field
// (OK disabled) nothing is stored and the result is false. GrundeinstErgebnis
// and hiding the form are the dialog's part.
bool OK_But_Click(const Grundeinstellungen_Form& form, Anlage& anlage);

}  // namespace planor
