#include "editor/zelltext.h"

#include "core/ansi_text.h"
#include "core/element_katalog.h"
#include "core/panel_model.h"

namespace planor {

namespace {

QString adressen(const XY_Typ& z)
{
    if (z.XY_ADR1 <= 0)
        return QString();
    QString text = QString::number(z.XY_ADR1);
    if (z.XY_ADR2 != 0)
        text += u'/' + QString::number(z.XY_ADR2);
    if (z.XY_ADR3 != 0)
        text += u'/' + QString::number(z.XY_ADR3);
    return text;
}

// The second input of a sensor pair points to its partner: the two
// characters 155 and 150 of the code page, then the partner's coordinates.
QString partner(const XY_Typ& z)
{
    static const QString zeiger = ansi::decode(QByteArray("\x9B\x96"));
    return QString::number(z.XY_LNCV(0)) + u'/' + zeiger + QStringLiteral("X/Y ") + QString::number(z.XY_SenX) + u'/'
           + QString::number(z.XY_SenY);
}

QString empfaenger(const XY_Typ& z, bool mitEinzelsensor)
{
    if (z.XY_BETR != BetriebsartKeine) {
        QString text = mitEinzelsensor && z.XY_ArtNr == 47240 ? QStringLiteral("Einzels.47240")
                                                               : BetriebsartTxt(z.XY_BETR);
        if (z.XY_GleisIDX != 0)
            text += QString::number(z.XY_GleisIDX);
        return text;
    }
    if (z.XY_ArtNr == 0)
        return QString();
    QString text = QString::number(z.XY_LNCV(0));
    if (z.XY_Version != 0)
        text += u'-' + QString::number(z.XY_Version);
    return text;
}

QString universal(const XY_Typ& z)
{
    if (z.XY_ArtNr == 0)
        return QStringLiteral("UniSt.");
    QString text = QString::number(z.XY_GleisIDX) + QStringLiteral("Block");
    if (z.XY_BETR == 21 || z.XY_BETR == 22)
        text += QStringLiteral("/Einfm.");
    else if (z.XY_BETR == 23)
        text += QStringLiteral("/Ausfm.");
    return text;
}

}  // namespace

QString Zelltext(const Anlage& anlage, const Elementkatalog& katalog, int x, int y)
{
    const XY_Typ& z = anlage.XY(x, y);
    const int typ = katalog.ElementTab(z.XY_Element).Typ;
    if (typ >= 101 && typ <= 599)
        return adressen(z);
    if (typ >= 800 && typ <= 825 && z.XY_SenStat == 2)
        return partner(z);
    if ((typ >= 800 && typ <= 825) || typ == 830 || typ == 832)
        return empfaenger(z, true);
    if (typ == 831 || typ == 833)
        return empfaenger(z, false);
    if (typ == 840 || typ == 841)
        return universal(z);
    return QString();
}

}  // namespace planor
