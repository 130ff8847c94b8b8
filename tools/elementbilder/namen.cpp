#include "namen.h"

namespace planor::elementbilder {

QString bmpName(const Element& e)
{
    return e.stamm + QStringLiteral(".bmp");
}

QString monitorName(const Element& e)
{
    return e.typ > 0 ? e.stamm + QStringLiteral("_mon.bmp") : QString();
}

QString markierungsName(const Element& e)
{
    return e.stamm + QStringLiteral("_ausw.bmp");
}

QStringList zustaende(int typ)
{
    if ((typ >= 101 && typ <= 199) || typ == 501 || typ == 502 || typ == 541 || typ == 542 || typ == 551 || typ == 552)
        return {"g"};
    if ((typ >= 201 && typ <= 299) || (typ >= 301 && typ <= 399))
        return {"rr", "rg", "gr", "gg"};
    if (typ == 511 || typ == 512)
        return {"gr", "rr", "gg"};
    if (typ == 521 || typ == 522)
        return {"gr", "rg"};
    if (typ == 531 || typ == 532)
        return {"rrg", "grr", "ggr"};
    return {};
}

QString zustandsName(const Element& e, const QString& buchstaben)
{
    const QString bmp = bmpName(e);
    const qsizetype strich = bmp.indexOf(QLatin1Char('_'));
    return bmp.left(strich + 1) + buchstaben + QStringLiteral(".bmp");
}

}  // namespace planor::elementbilder
