#pragma once
// The general helpers of the number fields (shared types and
// helpers"): Check_Wert, Nur_Ziffern, Vorhanden. Widget-free: Check_Wert
// yields what the dialog has to show; core/ui/check_wert_anzeige.h applies it
// to the widgets.

#include <QString>
#include <QStringList>

#include <optional>

namespace planor {

// What the label of a refused value shows instead of its own text.
inline const QString WertZuGrossTxt = QStringLiteral(" --- Wert zu groß !! ---");
// The same below a minimum (worded after the maximum's text).
inline const QString WertZuKleinTxt = QStringLiteral(" --- Wert zu klein !! ---");

// The number in a text field: read as Val
// reads it, so that an empty text or "-" counts as 0.
double Feldwert(const QString& feldText);

struct CheckWertErgebnis {
    bool gueltig = true;  // false: the field turns red and OK is disabled
    QString labelText;    // what the field's label shows
};

// Check_Wert(label, field, maximum[, minimum]): a value above the maximum, or
// below the minimum when one is given, is refused; the label then shows
// WertZuGrossTxt (WertZuKleinTxt), otherwise its own text `labelText`.
CheckWertErgebnis Check_Wert(const QString& labelText, const QString& feldText, double maximum,
                             std::optional<double> minimum = std::nullopt);

// The key filter of the number fields: digits and backspace (8) pass as they
// are, every other key code yields 0 (the key is dropped).
int Nur_Ziffern(int taste);

// The index of `text` in the list (exact comparison), -1 when absent.
int Vorhanden(const QStringList& liste, const QString& text);

}  // namespace planor
