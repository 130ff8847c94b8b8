// The element catalogue in data/KT_Conf, read by the program's own reader,
// and every picture the plan, the editor and the live monitor load from it.
#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "editor/mon_modell.h"
#include "editor/monitor_ansicht.h"
#include "tests/tools/bmp_datei.h"

#include <QSet>

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

QString ktConf(const QString& name) { return QStringLiteral(PLANOR_KT_CONF "/") + name; }

struct Geladen {
    Geladen() { Elemente_laden(ktConf(QStringLiteral("Elemente.cfg")), katalog, anlage); }
    Anlage anlage;
    Elementkatalog katalog;
};

// A 24-bit picture; the plan's cells are 84 × 54.
void erwarteBild(const QString& name, bool planGroesse = true)
{
    const BmpBild b = bmpLesen(ktConf(name));
    ASSERT_TRUE(b.gueltig) << qPrintable(name) << " fehlt oder ist kein 24-Bit-BMP";
    EXPECT_TRUE(!planGroesse || (b.breite == 84 && b.hoehe == 54)) << qPrintable(name) << " ist nicht 84 × 54";
}

}  // namespace

TEST(Elementkatalog, EntriesAndPicturesOfPlanAndEditor)
{
    const Geladen g;
    const Elementkatalog& k = g.katalog;
    EXPECT_EQ(std::make_pair(int(k.ElementTab(1).Typ), int(k.ElementTab(2).Typ)), std::make_pair(-99, -1));
    ASSERT_NE(k.LeerIndex, 0);
    EXPECT_EQ(k.ElementTab(k.LeerIndex).Typ, 0);
    QSet<int> typen;
    QSet<QString> praefixe, namen;
    for (int i = 1; i <= k.ElementAnz; ++i) {
        const ElementTab_Typ& e = k.ElementTab(i);
        SCOPED_TRACE(e.Name.toStdString());
        EXPECT_FALSE(typen.contains(e.Typ) || (e.Name == QLatin1String("Leer") && i != k.LeerIndex));
        typen.insert(e.Typ);
        namen.insert(e.Name);
        erwarteBild(e.Bmp);
        EXPECT_EQ(e.BmpAusw.isEmpty(), e.Typ <= 0);
        if (e.Typ <= 0)
            continue;
        EXPECT_EQ(e.BmpAusw, e.Bmp.chopped(4) + QStringLiteral("_mon.bmp"));
        erwarteBild(e.BmpAusw, false);
        erwarteBild(e.Bmp.chopped(4) + QStringLiteral("_ausw.bmp"));
        const QString praefix = e.Bmp.left(e.Bmp.indexOf(u'_') + 1);
        EXPECT_FALSE(praefix.isEmpty() || praefixe.contains(praefix)) << qPrintable(e.Bmp);
        praefixe.insert(praefix);
    }
    // The file is Windows text: CR LF and Windows-1252, so "Süd" reads right.
    EXPECT_TRUE(namen.contains(QStringLiteral("Gleisbogen Nord-Südost")));
    const QByteArray weiss = bmpLesen(ktConf(QStringLiteral("weiss.bmp"))).daten;
    EXPECT_EQ(weiss.count(char(0xFF)), weiss.size()) << "weiss.bmp is white";
}

// Every state picture the live monitor asks for, over each type with one and
// with three addresses and every state of them, exists; one showing a green
// address differs from the plan picture, which stands for all red.
TEST(Elementkatalog, EveryStatePictureOfTheMonitorExists)
{
    Geladen g;
    for (int i = 1; i <= g.katalog.ElementAnz; ++i) {
        const ElementTab_Typ& e = g.katalog.ElementTab(i);
        SCOPED_TRACE(e.Name.toStdString());
        const QByteArray planBytes = bmpLesen(ktConf(e.Bmp)).daten;
        for (const int adressen : {1, 3}) {
            XY_Typ& z = g.anlage.XY(1, 1);
            z.XY_Element = i;
            z.XY_ADR1 = 1, z.XY_ADR2 = adressen > 1 ? 2 : 0, z.XY_ADR3 = adressen > 1 ? 3 : 0;
            MonModell mon(g.anlage, g.katalog);
            MonitorAnsicht ansicht(g.anlage, g.katalog, mon);
            ansicht.set_mon(1, 1);
            for (int s = 0; s < 16; ++s) {
                ansicht.set_mon_mag(1 + s % 3, (s >> 2) & 1);
                const QString bild = mon.zelle(1, 1).bild;
                if (bild == e.BmpAusw || bild == e.Bmp)
                    continue;
                erwarteBild(bild);
                EXPECT_TRUE(!bild.mid(e.Bmp.indexOf(u'_') + 1).contains(u'g') || bmpLesen(ktConf(bild)).daten != planBytes)
                    << qPrintable(bild) << " shows no green";
            }
        }
    }
}
