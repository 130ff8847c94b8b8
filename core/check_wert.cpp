#include "core/check_wert.h"

#include "core/fehlerbehandlung.h"
#include "core/laufzeitfehler.h"
#include "core/vb_zahlen.h"

#include <limits>

namespace planor {

double Feldwert(const QString& feldText)
{
    // Val gives 0 for an empty text and for a lone sign. Digits beyond any
    // number are too large for every field, not a program error.
    try {
        return Val(feldText);
    } catch (const Laufzeitfehler&) {
        return std::numeric_limits<double>::infinity();
    }
}

CheckWertErgebnis Check_Wert(const QString& labelText, const QString& feldText, double maximum,
                             std::optional<double> minimum)
{
    return geschuetzt("Funktionen : Check_Wert", CheckWertErgebnis{true, labelText}, [&] {
        const double wert = Feldwert(feldText);
        if (wert > maximum)
            return CheckWertErgebnis{false, WertZuGrossTxt};
        if (minimum && wert < *minimum)
            return CheckWertErgebnis{false, WertZuKleinTxt};
        return CheckWertErgebnis{true, labelText};
    });
}

int Nur_Ziffern(int taste)
{
    return geschuetzt("Funktionen : Nur_Ziffern", 0, [&] {
        constexpr int Rueckschritt = 8;
        return (taste >= '0' && taste <= '9') || taste == Rueckschritt ? taste : 0;
    });
}

int Vorhanden(const QStringList& liste, const QString& text)
{
    return geschuetzt("Funktionen : Vorhanden", -1, [&] { return static_cast<int>(liste.indexOf(text)); });
}

}  // namespace planor
