// Assigning addresses with the mouse in the address view: bus reports, clicks
// and the text rows, against the in-process simulator in virtual time.
#include "editor/adr_zuordnung.h"

#include "editor/adr_zeilen.h"
#include "loconet/lncv_austausch.h"
#include "loconet/nachricht.h"
#include "tests/editor/editor_umgebung.h"
#include "tests/programmierung/programmier_umgebung.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>

namespace planor::test {
namespace {

// What the window would have shown, in order: "eingabe:x,y", "abfrage:n",
// "frage:title|text", "pultAdr:x,y", "beschaeftigt:0/1".
struct AufgezeichneteAdrAnzeige final : AdrAnzeige {
    AdrEingabeErgebnis AdrEingabe_zeigen(int x, int y) override
    {
        ereignisse << QStringLiteral("eingabe:%1,%2").arg(x).arg(y);
        return eingabe ? eingabe(x, y) : AdrEingabeErgebnis::Abgebrochen;
    }
    int Adr12_Abfrage(int anzahl) override
    {
        ereignisse << QStringLiteral("abfrage:%1").arg(anzahl);
        return abfrage;
    }
    bool frageJaNein(const QString& titel, const QString& text) override
    {
        ereignisse << QStringLiteral("frage:") + titel + u'|' + text;
        if (waehrendFrage)
            waehrendFrage();
        return ja;
    }
    void set_PultAdr(int x, int y) override { ereignisse << QStringLiteral("pultAdr:%1,%2").arg(x).arg(y); }
    void beschaeftigt(bool an) override { ereignisse << QStringLiteral("beschaeftigt:%1").arg(int(an)); }

    QStringList mit(const QString& anfang) const
    {
        QStringList l;
        for (const QString& e : ereignisse)
            if (e.startsWith(anfang))
                l << e;
        return l;
    }

    std::function<AdrEingabeErgebnis(int, int)> eingabe;
    std::function<void()> waehrendFrage;
    int abfrage = 1;
    bool ja = true;
    QStringList ereignisse;
};

BusMeldung empfaengerMeldung(Long adresse, Integer status = 0)
{
    BusMeldung m;
    m.art = BusMeldung::Empfaenger;
    m.adresse = adresse;
    m.status = status;
    return m;
}

BusMeldung magnetartikelMeldung(Long adresse)
{
    BusMeldung m;
    m.art = BusMeldung::Magnetartikel;
    m.adresse = adresse;
    m.zustand = 1;
    return m;
}

const QString EmpfaengerFrage = QStringLiteral("frage:Adresszuordnung mit der Maus|"
                                               "  NAVIK/TOBRA Meldung vom Empfänger25 empfangen:  \n"
                                               "  Soll die Adresse einem NAVIK/TOBRA Empfänger  \n"
                                               "  mit der Maus zugeordnet werden?         ");
const QString MagnetartikelFrage = QStringLiteral("frage:Adresszuordnung mit der Maus|"
                                                  "Magnetartikeladresse130 empfangen:  \n"
                                                  "  Soll die Adresse einer Weiche oder einem   \n"
                                                  "  Signal mit der Maus zugeordnet werden?");

class AdrZuordnungTest : public MitProgrammierung {
protected:
    void SetUp() override
    {
        MitProgrammierung::SetUp();
        Long err = 0;
        verbindung.open_com(err);
        ASSERT_EQ(err, 0);
    }

    void setzen(int x, int y, int typ) { zelleSetzen(anlage, katalog, x, y, typ); }
    void empfaenger(int x, int y, int adresse, Long artNr = 47220, int typ = 800)
    {
        empfaengerSetzen(anlage, katalog, x, y, adresse, artNr, typ);
    }
    // A single sensor 47240 at input 1 with its address.
    void eingang1(int x, int y, int adresse)
    {
        empfaenger(x, y, adresse, 47240, 808);
        anlage.XY(x, y).XY_SenStat = 1;
    }
    // The articles of the Prog_On requests for `adresse` on the bus since `ab`.
    std::vector<int> progOnArtikel(Long adresse, std::size_t ab = 0) const
    {
        std::vector<int> a;
        for (std::size_t i = ab; i < aufDemBus.size(); ++i)
            for (const Long artikel : SuchArtikel)
                if (aufDemBus[i].chopped(1) == Prog_On_Nachricht(artikel, adresse)) // without its check byte
                    a.push_back(int(artikel));
        return a;
    }
    void ausBus(const BusMeldung& m)
    {
        maus.Get_Adr_from_LN(m);
        ASSERT_TRUE(maus.AdrAusBus);
    }

    AufgezeichneteAdrAnzeige adrAnzeige;
    PultAdrMaus maus {anlage, katalog, link, meldungen, zellen, adrAnzeige};
};

TEST_F(AdrZuordnungTest, ReportsAskTheirQuestionAndYesKeepsTheAddress)
{
    struct Fall {
        const char* name;
        BusMeldung meldung;
        bool ja;
        QStringList fragen;
        bool wartet;
        Long navik, mag;
        int richtung;
    };
    const Fall faelle[] = {
        {"receiver", empfaengerMeldung(25, 0x05), true, {EmpfaengerFrage}, true, 25, 0, -1},
        {"direction 1 to 2", empfaengerMeldung(25, 0x40 | 0x05), true, {EmpfaengerFrage}, true, 25, 0, 0},
        {"direction 2 to 1", empfaengerMeldung(25, 0x60 | 0x05), true, {EmpfaengerFrage}, true, 25, 0, 1},
        {"status report dropped", empfaengerMeldung(25, 0x20 | 0x05), true, {}, false, 0, 0, -1},
        {"accessory", magnetartikelMeldung(130), true, {MagnetartikelFrage}, true, 0, 130, -1},
        {"answered no", magnetartikelMeldung(130), false, {MagnetartikelFrage}, false, 0, 0, -1},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(f.name);
        PultAdrMaus m {anlage, katalog, link, meldungen, zellen, adrAnzeige};
        adrAnzeige.ereignisse.clear();
        adrAnzeige.ja = f.ja;
        m.Get_Adr_from_LN(f.meldung);
        EXPECT_EQ(adrAnzeige.ereignisse, f.fragen);
        EXPECT_EQ(m.AdrAusBus, f.wartet);
        EXPECT_EQ(m.NavikAdrWert, f.navik);
        EXPECT_EQ(m.AdrWert, f.mag);
        if (f.wartet && f.navik) {
            EXPECT_EQ(m.SensorRichtung, f.richtung);
        }
    }
}

TEST_F(AdrZuordnungTest, AClickOnATurnoutOpensAdrEingabeAndRedrawsAfterOK)
{
    setzen(2, 3, 101);
    adrAnzeige.eingabe = [this](int x, int y) {
        AdrEingabe_Zustand z = *AdrEingabe_laden(anlage, katalog, x, y);
        z.AdrTxt[0] = QStringLiteral("14");
        return AdrEingabe_OK(z, anlage, katalog, zellen, meldungen, x, y);
    };
    maus.PultAdr_MouseDown(2, 3);
    EXPECT_EQ(adrAnzeige.ereignisse, (QStringList {QStringLiteral("eingabe:2,3"), QStringLiteral("pultAdr:2,3")}));
    EXPECT_EQ(anlage.XY(2, 3).XY_ADR1, 14);
    EXPECT_EQ(anlage.PultGeaendert, 1);
    EXPECT_EQ(AdrZeileMagnetartikel(anlage, katalog, 2, 3), QStringLiteral("14"));
}

// --- an accessory address from the bus ---

TEST_F(AdrZuordnungTest, AnAddressWaitsForACellOfItsKind)
{
    setzen(2, 2, 800);
    ausBus(magnetartikelMeldung(130));
    maus.PultAdr_MouseDown(2, 2);
    EXPECT_TRUE(maus.AdrAusBus);
    EXPECT_TRUE(adrAnzeige.mit(QStringLiteral("eingabe:")).isEmpty());
    setzen(3, 3, 101);
    maus.AdrAusBus = false;
    ausBus(empfaengerMeldung(25));
    maus.PultAdr_MouseDown(3, 3);
    EXPECT_TRUE(maus.AdrAusBus);
    EXPECT_EQ(anlage.XY(3, 3).XY_ADR1, 0);
}

// --- a receiver from the bus ---

TEST_F(AdrZuordnungTest, ReceiverFromTheBusReadsItsArticleInTheTablesOrder)
{
    sim.modulHinzufuegen({47120, 25});
    setzen(4, 2, 801);
    ausBus(empfaengerMeldung(25));
    const std::size_t ab = aufDemBus.size();
    maus.PultAdr_MouseDown(4, 2);
    const XY_Typ& c = anlage.XY(4, 2);
    EXPECT_EQ(c.XY_LNCV(0), 25);
    EXPECT_EQ(c.XY_ArtNr, 47120);
    EXPECT_EQ(c.XY_Version, 0);
    EXPECT_EQ(c.XY_LNCV(17), anlage.Grundeinst.LNCV17); // set_modul_optionen, family 3
    EXPECT_EQ(c.XY_LNCV(15), 8 * anlage.Grundeinst.BetriebszustSpeichern + anlage.Grundeinst.LocoNetStatMessage);
    EXPECT_EQ(anlage.PultGeaendert, 1);
    EXPECT_FALSE(maus.AdrAusBus);
    EXPECT_TRUE(meldungen.texte.isEmpty()) << meldungen.texte.join(u'\n').toStdString();
    // 4722 and 4723 five tries each, then 4712 answers.
    const std::vector<int> a = progOnArtikel(25, ab);
    ASSERT_EQ(a.size(), 11u);
    EXPECT_EQ(a.front(), 4722);
    EXPECT_EQ(a[5], 4723);
    EXPECT_EQ(a.back(), 4712);
    EXPECT_EQ(adrAnzeige.mit(QStringLiteral("beschaeftigt:")),
        (QStringList {QStringLiteral("beschaeftigt:1"), QStringLiteral("beschaeftigt:0")}));
    EXPECT_EQ(AdrZeileEmpfaenger(anlage, katalog, 4, 2), QStringLiteral("25"));
}

TEST_F(AdrZuordnungTest, ASilentModuleOrAnAddressInUseStoresNothing)
{
    setzen(4, 2, 800);
    const XY_Typ vorher = anlage.XY(4, 2);
    ausBus(empfaengerMeldung(25));
    maus.PultAdr_MouseDown(4, 2);
    EXPECT_EQ(meldungen.texte,
        QStringList {QStringLiteral("Fehler bei Lesen oder Programmieren eines Moduls|Fehler:\n")
            + ProgFehlerText(ProgKeineAntwort)});
    EXPECT_FALSE(maus.AdrAusBus);

    meldungen.texte.clear();
    sim.modulHinzufuegen({47220, 25});
    empfaenger(8, 8, 25);
    ausBus(empfaengerMeldung(25));
    const std::size_t ab = aufDemBus.size();
    maus.PultAdr_MouseDown(4, 2);
    EXPECT_EQ(meldungen.texte,
        QStringList {QStringLiteral("Fehler|NAVIK/TOBRA Adresse schon vorhanden \nan Position: 8, 8 !!")});
    EXPECT_EQ(aufDemBus.size(), ab) << "refused before the module is asked";
    EXPECT_EQ(anlage.XY(4, 2), vorher);
    EXPECT_EQ(anlage.PultGeaendert, 0);
}

TEST_F(AdrZuordnungTest, ADirectionAgainstTheSymbolIsReported)
{
    sim.modulHinzufuegen({47220, 25});
    sim.modulHinzufuegen({47240, 26});
    const QString warnung = QStringLiteral("Fahrtrichtung über die Sensoren prüfen!|"
                                           "           Es wurde die Fahrtrichtung \n"
                                           "           von Sensor 2 nach Sensor 1 \n"
                                           "           empfangen !! \n"
                                           "        Ist das Symbol im Gleisplan richtig? ");
    struct Fall {
        int x, typ, adresse, status;
        QStringList meldungen;
    };
    // A single sensor has no direction.
    for (const Fall& f : {Fall {4, 800, 25, 0x60, {warnung}}, Fall {5, 800, 25, 0x40, {}}, Fall {6, 808, 26, 0x60, {}}}) {
        SCOPED_TRACE(f.x);
        meldungen.texte.clear();
        setzen(f.x, 2, f.typ);
        ausBus(empfaengerMeldung(f.adresse, Integer(f.status)));
        maus.PultAdr_MouseDown(f.x, 2);
        EXPECT_EQ(meldungen.texte, f.meldungen);
        EXPECT_EQ(anlage.XY(f.x, 2).XY_LNCV(0), f.adresse);
        anlage.XY(f.x, 2) = anlage.XY_Leer(); // the next row may take the same address
    }
}

// --- the single sensor's second input ---

class SensorPaarTest : public AdrZuordnungTest {
protected:
    void SetUp() override
    {
        AdrZuordnungTest::SetUp();
        eingang1(2, 2, 9);
        setzen(3, 2, 809);
        // The second input's cell had values of its own before.
        anlage.XY(3, 2).XY_ArtNr = 47220;
        anlage.XY(3, 2).XY_LNCV(0) = 40;
        anlage.XY(3, 2).XY_LNCV(20) = 5;
        anlage.XY(3, 2).XY_BETR = 3;
        adrAnzeige.eingabe = [](int, int) { return AdrEingabeErgebnis::Sensor2Wartet; };
        maus.PultAdr_MouseDown(3, 2);
        ASSERT_TRUE(maus.Sensor2Wartet);
        ASSERT_EQ(maus.Sensor2X, 3);
        ASSERT_EQ(maus.Sensor2Y, 2);
        adrAnzeige.ereignisse.clear();
    }
};

TEST_F(SensorPaarTest, LinksBothCellsAndTheSecondInputHoldsNoValuesOfItsOwn)
{
    maus.PultAdr_MouseDown(2, 2);
    EXPECT_TRUE(meldungen.texte.isEmpty());
    EXPECT_FALSE(maus.Sensor2Wartet);
    const XY_Typ& e1 = anlage.XY(2, 2);
    EXPECT_EQ(e1.XY_SenStat, 1);
    EXPECT_EQ(e1.XY_SenX, 3);
    EXPECT_EQ(e1.XY_SenY, 2);
    XY_Typ erwartet = anlage.XY_Leer();
    erwartet.XY_Element = Integer(katalog.indexVonTyp(809));
    erwartet.XY_ArtNr = 47240;
    erwartet.XY_LNCV(0) = 9;
    erwartet.XY_SenStat = 2;
    erwartet.XY_SenX = 2;
    erwartet.XY_SenY = 2;
    EXPECT_EQ(anlage.XY(3, 2), erwartet);
    EXPECT_EQ(anlage.PultGeaendert, 1);
    EXPECT_TRUE(adrAnzeige.ereignisse.contains(QStringLiteral("pultAdr:3,2")));
    EXPECT_TRUE(zellen.gezeichnet.contains(QPoint(3, 2)));
    // Its text row points to input 1.
    EXPECT_EQ(AdrZeileEmpfaenger(anlage, katalog, 3, 2),
        QStringLiteral("9/") + QChar(0x203A) + QChar(0x2013) + QStringLiteral("X/Y 2/2"));
}

// --- set_PultAdr's text rows ---

TEST_F(AdrZuordnungTest, TextRows)
{
    setzen(1, 1, 531);
    anlage.XY(1, 1).XY_ADR1 = 3;
    anlage.XY(1, 1).XY_ADR2 = 4;
    anlage.XY(1, 1).XY_ADR3 = 5;
    EXPECT_EQ(AdrZeileMagnetartikel(anlage, katalog, 1, 1), QStringLiteral("3/4/5"));
    EXPECT_EQ(AdrZeileEmpfaenger(anlage, katalog, 1, 1), QString());

    empfaenger(2, 1, 17);
    anlage.XY(2, 1).XY_Version = 2;
    EXPECT_EQ(AdrZeileEmpfaenger(anlage, katalog, 2, 1), QStringLiteral("17"));
    EXPECT_EQ(AdrZeileMagnetartikel(anlage, katalog, 2, 1), QString());
    anlage.XY(2, 1).XY_BETR = 6;
    anlage.XY(2, 1).XY_GleisIDX = 3;
    EXPECT_EQ(AdrZeileEmpfaenger(anlage, katalog, 2, 1), QStringLiteral("17/Gl.3"));

    setzen(3, 1, 800); // a receiver symbol without module
    EXPECT_EQ(AdrZeileEmpfaenger(anlage, katalog, 3, 1), QString());
    EXPECT_EQ(AdrZeileEmpfaenger(anlage, katalog, 4, 4), QString());
}

TEST_F(AdrZuordnungTest, ReportsDuringADialogAreDropped)
{
    setzen(2, 2, 101);
    adrAnzeige.eingabe = [this](int, int) {
        maus.Get_Adr_from_LN(magnetartikelMeldung(130));
        return AdrEingabeErgebnis::Abgebrochen;
    };
    maus.PultAdr_MouseDown(2, 2);
    EXPECT_TRUE(adrAnzeige.mit(QStringLiteral("frage:")).isEmpty());
    EXPECT_FALSE(maus.AdrAusBus);
}

TEST_F(SensorPaarTest, ACellThatIsNoSingleSensorAtInput1IsRefusedAndTheWaitGoesOn)
{
    empfaenger(5, 5, 12);
    maus.PultAdr_MouseDown(5, 5);
    maus.PultAdr_MouseDown(3, 2); // input 2 itself is no input 1 either
    const QString text = QStringLiteral("Fehler|Das ausgewählte Modul ist kein Einzelsensor am Eingang 1!\n"
                                        "          Bitte die Auswahl wiederholen! ");
    EXPECT_EQ(meldungen.texte, (QStringList {text, text}));
    EXPECT_TRUE(maus.Sensor2Wartet);
    EXPECT_TRUE(adrAnzeige.mit(QStringLiteral("eingabe:")).isEmpty());
    EXPECT_EQ(anlage.XY(3, 2).XY_SenStat, 0);
}

TEST_F(SensorPaarTest, AnInput1WithoutAddressEndsTheWait)
{
    eingang1(6, 6, 0);
    maus.PultAdr_MouseDown(6, 6);
    EXPECT_EQ(meldungen.texte,
        QStringList {QStringLiteral("Fehler|Das ausgewählte Modul ist noch nicht initialisiert!\n"
                                    "  Bitte zuerst Eingang 1 initialisieren und dann  \n"
                                    "     den Vorgang mit Eingang 2 wiederholen!")});
    EXPECT_FALSE(maus.Sensor2Wartet);
    EXPECT_EQ(anlage.XY(6, 6).XY_SenStat, 1);
    EXPECT_EQ(anlage.XY(3, 2).XY_SenStat, 0);
}

} // namespace
} // namespace planor::test
