#include "core/vb_zahlen.h"

#include "core/laufzeitfehler.h"

#include <cmath>
#include <limits>

namespace planor {

namespace {

template <typename Ziel>
Ziel gerundet(double wert)
{
    if (std::isnan(wert))
        throw Laufzeitfehler(Fehlernummer::Ueberlauf);
    // std::nearbyint rounds half to even under the default rounding mode.
    const double r = std::nearbyint(wert);
    if (r < static_cast<double>(std::numeric_limits<Ziel>::min())
        || r > static_cast<double>(std::numeric_limits<Ziel>::max()))
        throw Laufzeitfehler(Fehlernummer::Ueberlauf);
    return static_cast<Ziel>(r);
}

bool istLeerraum(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

// Reads digits of the given base from text[i...], skipping blanks as Val does.
double ganzzahlMitBasis(const QString& text, qsizetype i, int basis)
{
    double wert = 0;
    for (; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (istLeerraum(c))
            continue;
        const int ziffer = c.isDigit() ? c.digitValue()
                           : (basis == 16 && c.toUpper() >= u'A' && c.toUpper() <= u'F')
                               ? c.toUpper().unicode() - u'A' + 10
                               : -1;
        if (ziffer < 0 || ziffer >= basis)
            break;
        wert = wert * basis + ziffer;
    }
    // Val gives hexadecimal and octal values of up to 16 bits as Integers.
    if (wert > 32767 && wert <= 65535)
        wert -= 65536;
    return wert;
}

}  // namespace

Integer CInt(double wert) { return gerundet<Integer>(wert); }
Long CLng(double wert) { return gerundet<Long>(wert); }

double Val(const QString& text)
{
    qsizetype i = 0;
    auto ueberspringen = [&] {
        while (i < text.size() && istLeerraum(text.at(i)))
            ++i;
    };
    ueberspringen();
    if (i + 1 < text.size() && text.at(i) == u'&') {
        const QChar art = text.at(i + 1).toUpper();
        if (art == u'H')
            return ganzzahlMitBasis(text, i + 2, 16);
        if (art == u'O')
            return ganzzahlMitBasis(text, i + 2, 8);
    }

    QString zahl;
    bool punkt = false, exponent = false, ziffern = false;
    for (; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (istLeerraum(c))
            continue;
        if (c.isDigit() && c.unicode() < 128) {
            zahl += c;
            ziffern = true;
        } else if ((c == u'+' || c == u'-')
                   && (zahl.isEmpty() || zahl.endsWith(u'E'))) {
            zahl += c;
        } else if (c == u'.' && !punkt && !exponent) {
            zahl += c;
            punkt = true;
        } else if ((c.toUpper() == u'E' || c.toUpper() == u'D') && ziffern && !exponent) {
            zahl += u'E';
            exponent = true;
        } else {
            break;
        }
    }
    // A dangling exponent or sign is not part of the number.
    while (!zahl.isEmpty() && !zahl.back().isDigit() && zahl.back() != u'.')
        zahl.chop(1);
    bool ok = false;
    const double wert = zahl.toDouble(&ok);
    // Digits that no double can hold overflow rather than give infinity.
    if (!ok && ziffern)
        throw Laufzeitfehler(Fehlernummer::Ueberlauf);
    return ok ? wert : 0.0;
}

QString Str(long long wert)
{
    return wert < 0 ? QString::number(wert) : u' ' + QString::number(wert);
}

}  // namespace planor
