#pragma once
// Programming tests: the demo project (or an empty panel) against the
// in-process simulator on virtual time, with a recording ProgrammierAnzeige
// whose answers the test sets, and every message on the bus kept.

#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "core/project_file.h"
#include "core/zellanzeige.h"
#include "editor/pult_editor.h"
#include "loconet/link.h"
#include "programmierung/programmierung.h"
#include "loconet/verbindung.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "tests/support/berichte.h"
#include "tests/support/bus.h"

#include <QPoint>
#include <QRegularExpression>
#include <QStringList>

#include <deque>
#include <vector>

namespace planor::test {

// The LNCVs a module of each kind holds, written down here rather than asked
// of the program, so a range the program gets wrong shows as a difference.
inline int letzteLncv(Long artikel, int version)
{
    switch (artikel) {
    case 47120: case 47130: case 47190: case 47230: return 127;
    case 47220: case 47240: return 119;
    case 47320: case 47330: return 459;
    case 5330: return version == 1 ? 119 : version == 2 ? 127 : -1;
    default: return -1;
    }
}
// LNCV 16 of these holds the module's own state and is never written.
inline int nieGeschrieben(Long artikel)
{
    return artikel == 47220 || artikel == 5330 ? 16 : -1;
}

// What the user would have seen, in order: "info1:…", "info2:…", "frage:…",
// "jaNein:…", "markieren:x,y", "markierungAus", "beschaeftigt:1", "fehler:title",
// "waehlen", "fortschritt:n/m".
struct AufgezeichneteAnzeige final : ProgrammierAnzeige {
    void InfoTxt_anzeigen(int feld, const QString& text) override
    {
        ereignisse << QStringLiteral("info%1:").arg(feld) + text;
        (feld == 1 ? zeile1 : zeile2) = text;
    }
    bool frageOkAbbrechen(const QString& titel, const QString& text) override
    {
        ereignisse << QStringLiteral("frage:") + titel + u'|' + text;
        return ok;
    }
    bool frageJaNein(const QString& titel, const QString& text) override
    {
        ereignisse << QStringLiteral("jaNein:") + titel + u'|' + text;
        return ja;
    }
    void markieren(int x, int y) override
    {
        ereignisse << QStringLiteral("markieren:%1,%2").arg(x).arg(y);
        markiert << QPoint(x, y);
    }
    void markierungAus() override { ereignisse << QStringLiteral("markierungAus"); }
    void beschaeftigt(bool an) override { ereignisse << QStringLiteral("beschaeftigt:%1").arg(an ? 1 : 0); }
    FehlerAntwort fehlerMeldung(const QString& titel) override
    {
        ereignisse << QStringLiteral("fehler:") + titel;
        if (beiFehler)
            beiFehler();
        if (antworten.empty())
            return FehlerAntwort::Abbruch;
        const FehlerAntwort a = antworten.front();
        antworten.pop_front();
        return a;
    }
    bool zelleWaehlen(int& x, int& y) override
    {
        ereignisse << QStringLiteral("waehlen");
        if (klicks.empty())
            return false;
        x = klicks.front().x();
        y = klicks.front().y();
        klicks.pop_front();
        return true;
    }
    void fortschritt(int n, int m) override { ereignisse << QStringLiteral("fortschritt:%1/%2").arg(n).arg(m); }

    QStringList mit(const QString& anfang) const { return ereignisse.filter(QRegularExpression(u'^' + QRegularExpression::escape(anfang))); }

    bool ok = true, ja = false;
    std::deque<FehlerAntwort> antworten; // the prompt's answers; Abbruch when none left
    std::deque<QPoint> klicks; // the picks; given up when none left
    std::function<void()> beiFehler; // runs as the prompt shows
    QStringList ereignisse;
    QList<QPoint> markiert;
    QString zeile1, zeile2;
};

struct GezeichneteZellen final : Zellanzeige {
    void SetzeText(int x, int y) override { gezeichnet << QPoint(x, y); }
    QList<QPoint> gezeichnet;
};

class MitProgrammierung : public MitFehlerbericht {
protected:
    void SetUp() override
    {
        MitFehlerbericht::SetUp();
        Elemente_laden(QStringLiteral(PLANOR_TESTDATA "/../../data/KT_Conf/Elemente.cfg"), katalog, anlage);
        anlage.neues_pult_setzen();
        sim.bus().anschliessen([this](const QByteArray& b) { aufDemBus.push_back(b); });
    }
    void TearDown() override { EXPECT_TRUE(berichte.texte.isEmpty()) << berichte.texte.join(u'\n').toStdString(); }

    // The demo project with its side files, and its modules in the simulator at factory values.
    void demoLaden()
    {
        Projektanzeige projektAnzeige(anlage);
        PultEditor editor(anlage, katalog, meldungen);
        anlage.Pfad = QStringLiteral(PLANOR_TESTDATA "/../../data/demo/");
        anlage.File = QStringLiteral("Demo.anl");
        Load_plt(anlage, katalog, editor, projektAnzeige);
        ASSERT_TRUE(meldungen.texte.isEmpty()) << meldungen.texte.join(u'\n').toStdString();
        for (const SimModulAngabe& m : SimModuleAusAnlage(anlage))
            sim.modulHinzufuegen(m);
        ASSERT_EQ(sim.geraete().module().size(), 5u) << "four receivers and a controller";
    }

    SimModul* modulVon(int x, int y)
    {
        const XY_Typ& z = anlage.XY(x, y);
        return sim.geraete().modul(z.XY_ArtNr, Int_to_Unsig(z.XY_LNCV(0)));
    }

    // The main cells with a programmable module.
    std::vector<QPoint> modulZellen() const
    {
        std::vector<QPoint> z;
        for (int x = 1; x <= anlage.DimensionenX; ++x)
            for (int y = 1; y <= anlage.DimensionenY; ++y) {
                const XY_Typ& c = anlage.XY(x, y);
                const bool neben = (c.XY_ArtNr == 47320 || c.XY_ArtNr == 47330) && (c.XY_SenX != x || c.XY_SenY != y);
                if (!neben && c.XY_SenStat != 2 && letzteLncv(c.XY_ArtNr, c.XY_Version) >= 0)
                    z.emplace_back(x, y);
            }
        return z;
    }

    // Differences between a cell and its simulated module over the written LNCVs.
    QStringList unterschiede(int x, int y)
    {
        QStringList d;
        const XY_Typ& z = anlage.XY(x, y);
        const SimModul* m = modulVon(x, y);
        if (!m)
            return {QStringLiteral("no module for %1,%2").arg(x).arg(y)};
        for (int i = 2; i <= letzteLncv(z.XY_ArtNr, z.XY_Version); ++i)
            if (i != nieGeschrieben(z.XY_ArtNr) && m->lncv(i) != Int_to_Unsig(z.XY_LNCV(i)))
                d << QStringLiteral("(%1,%2) LNCV %3: module %4, cell %5").arg(x).arg(y).arg(i).arg(m->lncv(i)).arg(z.XY_LNCV(i));
        return d;
    }

    QStringList alleUnterschiede()
    {
        QStringList d;
        for (const QPoint& p : modulZellen())
            d << unterschiede(p.x(), p.y());
        return d;
    }

    // Messages of the program on the bus: LNCV writes (0xED, command 0x20) and session ends.
    static bool istSchreiben(const QByteArray& m)
    {
        return m.size() == 15 && quint8(m.at(0)) == 0xED && quint8(m.at(5)) == 0x20;
    }
    static bool istProgOff(const QByteArray& m)
    {
        return m.size() == 15 && quint8(m.at(0)) == 0xE5 && quint8(m.at(2)) == 0x08 && quint8(m.at(13)) == 0x40;
    }
    static bool vomProgramm(const QByteArray& m) { return m.size() == 15 && quint8(m.at(2)) == 0x08; }
    int schreibvorgaenge(std::size_t ab = 0) const
    {
        int n = 0;
        for (std::size_t i = ab; i < aufDemBus.size(); ++i)
            n += istSchreiben(aufDemBus[i]) ? 1 : 0;
        return n;
    }

    Anlage anlage;
    Elementkatalog katalog;
    Meldungen meldungen;
    Simulator sim {uhr}; // wire time and reaction time on: virtual time is free
    LocoNetLink link {uhr};
    SimVerbindung verbindung {sim, link};
    GezeichneteZellen zellen;
    AufgezeichneteAnzeige anzeige;
    Programmierumgebung u {anlage, katalog, verbindung, link, meldungen, zellen, anzeige};
    std::vector<QByteArray> aufDemBus;
};

} // namespace planor::test
