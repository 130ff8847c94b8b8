// Part 1.6 and spec-notes: the element catalogue in data/KT_Conf, checked as
// the program will read it.
#include "tests/tools/bmp_datei.h"
#include "tests/tools/katalog_datei.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <gtest/gtest.h>

using namespace planor::test;

namespace {

QString ktConf(const QString& name)
{
    return QStringLiteral(PLANOR_KT_CONF "/") + name;
}

QByteArray katalogText()
{
    QFile f(ktConf(QStringLiteral("Elemente.cfg")));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    return f.readAll();
}

const Katalog& katalog()
{
    static const Katalog k = katalogLesen(katalogText());
    return k;
}

QString stamm(const QString& bmp)
{
    return bmp.left(bmp.size() - 4);
}

// Part 3.6: B, the name up to and including its first "_".
QString praefix(const QString& bmp)
{
    return bmp.left(bmp.indexOf(QLatin1Char('_')) + 1);
}

// Part 3.6, set_mon_mag: the state pictures a type may load besides Bmp.
QStringList zustaendeVon(int typ)
{
    if ((typ >= 101 && typ <= 199) || typ == 501 || typ == 502 || typ == 541 || typ == 542 || typ == 551
        || typ == 552)
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

void erwarteBild(const QString& name, bool planGroesse)
{
    const BmpBild b = bmpLesen(ktConf(name));
    ASSERT_TRUE(b.gueltig) << qPrintable(name) << " fehlt oder ist kein 24-Bit-BMP";
    if (planGroesse) {
        EXPECT_EQ(b.breite, 84) << qPrintable(name);
        EXPECT_EQ(b.hoehe, 54) << qPrintable(name);
    }
}

const KatalogEintrag* mitTyp(int typ)
{
    for (const KatalogEintrag& e : katalog().eintraege)
        if (e.typ == typ)
            return &e;
    return nullptr;
}

}  // namespace

TEST(Part1_6_Katalog, WindowsTextWithCrLfClosedByHashes)
{
    const QByteArray text = katalogText();
    ASSERT_FALSE(text.isEmpty());
    EXPECT_TRUE(text.endsWith("\"###\"\r\n"));
    EXPECT_EQ(text.count('\n'), text.count("\r\n"));
    // Windows-1252, not UTF-8: "Süd" has the single byte 0xFC.
    EXPECT_TRUE(text.contains("S\xFC" "d"));
    EXPECT_FALSE(text.contains("\xC3\xBC"));
    EXPECT_TRUE(katalog().fehler.isEmpty()) << qPrintable(katalog().fehler.join(QLatin1Char('\n')));
    EXPECT_TRUE(katalog().endeGefunden);
}

TEST(Part1_6_Katalog, AtMostHundredEntries)
{
    EXPECT_GE(katalog().eintraege.size(), 3u);
    EXPECT_LE(katalog().eintraege.size(), 100u);
}

TEST(Part1_6_Katalog, EraserSelectionAndOneEmptyCell)
{
    const auto& e = katalog().eintraege;
    ASSERT_GE(e.size(), 2u);
    EXPECT_EQ(e[0].typ, -99);
    EXPECT_EQ(e[0].palette, 1);
    EXPECT_EQ(e[1].typ, -1);
    EXPECT_EQ(e[1].palette, 1);
    int leer = 0;
    for (const KatalogEintrag& k : e) {
        if (k.name == QLatin1String("Leer")) {
            ++leer;
            EXPECT_EQ(k.typ, 0);
            EXPECT_EQ(k.palette, 0);
            EXPECT_TRUE(k.bmpAusw.isEmpty());
        }
    }
    EXPECT_EQ(leer, 1);
    EXPECT_TRUE(e[0].bmpAusw.isEmpty());
    EXPECT_TRUE(e[1].bmpAusw.isEmpty());
}

TEST(Part1_6_Katalog, TypeCodesUnique)
{
    QSet<int> typen;
    for (const KatalogEintrag& e : katalog().eintraege) {
        EXPECT_FALSE(typen.contains(e.typ)) << "Typ " << e.typ << " doppelt";
        typen.insert(e.typ);
    }
}

TEST(Part1_6_Katalog, RequiredTypeCodesPresent)
{
    QList<int> pflicht = {-99, -1,  0,   101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 201, 202, 203, 301,
                          302, 501, 502, 511, 512, 521, 522, 531, 532, 541, 542, 551, 552, 830, 831, 832, 833,
                          840, 841, 920};
    for (int t = 1; t <= 20; ++t)
        if (t != 13)
            pflicht.append(t);
    for (int t = 800; t <= 811; ++t)
        pflicht.append(t);
    for (int t : pflicht)
        EXPECT_NE(mitTyp(t), nullptr) << "Typ " << t << " fehlt";
}

TEST(Part1_6_Katalog, NineIsTheHorizontalStraightAndHeadsItsFamily)
{
    const KatalogEintrag* neun = mitTyp(9);
    ASSERT_NE(neun, nullptr);
    EXPECT_EQ(neun->familie, 9);
    EXPECT_EQ(neun->palette, 1);
    const BmpBild b = bmpLesen(ktConf(neun->bmp));
    ASSERT_TRUE(b.gueltig);
    const std::uint32_t grund = b.pixel(42, 2);
    // Dark at both edge midpoints of the sides, background above and below.
    EXPECT_NE(b.pixel(0, 27), grund);
    EXPECT_NE(b.pixel(83, 27), grund);
    EXPECT_EQ(b.pixel(42, 53), grund);
    EXPECT_EQ(b.pixel(0, 5), grund);
}

TEST(Part1_6_Katalog, FamiliesHaveHeadsInThePalette)
{
    for (const KatalogEintrag& e : katalog().eintraege) {
        EXPECT_GE(e.textAusrichtung, 0) << qPrintable(e.name);
        EXPECT_LE(e.textAusrichtung, 9) << qPrintable(e.name);
        EXPECT_FALSE(e.name.isEmpty());
        if (e.familie == e.typ) {
            // A head, or an element without rotation: reachable only from the palette.
            if (e.typ != 0) {
                EXPECT_EQ(e.palette, 1) << qPrintable(e.name);
            }
            continue;
        }
        const KatalogEintrag* kopf = mitTyp(e.familie);
        ASSERT_NE(kopf, nullptr) << qPrintable(e.name) << ": Familie " << e.familie << " fehlt";
        EXPECT_EQ(kopf->familie, kopf->typ) << qPrintable(e.name);
        EXPECT_EQ(kopf->palette, 1) << qPrintable(e.name);
    }
}

TEST(Part1_6_Katalog, PlanAndMonitorPicturesExist)
{
    for (const KatalogEintrag& e : katalog().eintraege) {
        erwarteBild(e.bmp, true);
        if (e.typ > 0) {
            EXPECT_EQ(e.bmpAusw, stamm(e.bmp) + QStringLiteral("_mon.bmp")) << qPrintable(e.name);
            erwarteBild(e.bmpAusw, false);
        }
    }
    erwarteBild(QStringLiteral("weiss.bmp"), true);
    const BmpBild weiss = bmpLesen(ktConf(QStringLiteral("weiss.bmp")));
    for (int y = 0; y < weiss.hoehe; ++y)
        for (int x = 0; x < weiss.breite; ++x)
            ASSERT_EQ(weiss.pixel(x, y), 0xFFFFFFu);
}

TEST(Part3_6_Katalog, MarkingAndStatePicturesExist)
{
    QSet<QString> praefixe;
    for (const KatalogEintrag& e : katalog().eintraege) {
        if (e.typ <= 0)
            continue;
        erwarteBild(stamm(e.bmp) + QStringLiteral("_ausw.bmp"), true);
        const QString b = praefix(e.bmp);
        EXPECT_FALSE(b.isEmpty()) << qPrintable(e.bmp) << " hat kein \"_\"";
        EXPECT_FALSE(praefixe.contains(b)) << qPrintable(b) << " mehrfach";
        praefixe.insert(b);
        for (const QString& z : zustaendeVon(e.typ))
            erwarteBild(b + z + QStringLiteral(".bmp"), true);
    }
}

TEST(Part3_6_Katalog, GreenStatesDifferFromThePlanPicture)
{
    // A state with a green address must change the monitor's picture; Bmp
    // itself stands for all addresses red.
    for (const KatalogEintrag& e : katalog().eintraege) {
        QFile eigen(ktConf(e.bmp));
        ASSERT_TRUE(eigen.open(QIODevice::ReadOnly));
        const QByteArray eigenBytes = eigen.readAll();
        for (const QString& z : zustaendeVon(e.typ)) {
            if (!z.contains(QLatin1Char('g')))
                continue;
            QFile f(ktConf(praefix(e.bmp) + z + QStringLiteral(".bmp")));
            ASSERT_TRUE(f.open(QIODevice::ReadOnly));
            EXPECT_NE(f.readAll(), eigenBytes) << qPrintable(e.bmp) << " / " << qPrintable(z);
        }
    }
}
