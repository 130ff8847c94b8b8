// Nav_Init's form state and OK_But_Click against the simulator in
// virtual time: the checks and texts, the question, the writes through the
// broadcast session in their order, the progress and the failure path.
#include "loconet/nav_init.h"

#include "core/panel_model.h"
#include "loconet/link.h"
#include "loconet/lncv_austausch.h"
#include "loconet/nachricht.h"
#include "loconet/verbindung.h"
#include "platform/sim_transport.h"
#include "tests/support/berichte.h"
#include "tests/support/bus.h"
#include "tests/support/sim.h"

using namespace planor;
using namespace planor::test;

namespace {


struct Anzeige final : NavInitAnzeige {
    bool frageJaNein(const QString& titel, const QString& text) override
    {
        fragen << titel + u'|' + text;
        return antwort;
    }
    void beschaeftigt(bool ja) override { zustaende.push_back(ja); }
    void fortschritt(double anteil, const QString& text) override
    {
        anteile.push_back(anteil);
        texte << text;
    }
    bool antwort = true;
    QStringList fragen;
    std::vector<bool> zustaende;
    std::vector<double> anteile;
    QStringList texte;
};

class NavInit : public ::testing::Test {
protected:
    void SetUp() override
    {
        sim.bus().anschliessen([this](const QByteArray& b) {
            // The program's messages carry source 0x08 in their third byte.
            if (b.size() == 15 && quint8(b[2]) == 0x08)
                gesendet.push_back(h(b));
        });
        NavInit_Form_Load(form);
    }

    void waehle(const QString& artikel) { NavInit_ArtNrCb_Click(form, int(form.artikelListe.indexOf(artikel))); }

    NavInitErgebnis start(Long* code = nullptr)
    {
        return NavInit_OK_But_Click(form, verbindung, link, meldungen, anzeige, code);
    }

    SimModul& neuesModul(Long artikel, Long adresse)
    {
        SimModul& m = sim.geraete().modulHinzufuegen(artikel, adresse);
        for (int i = 1; i < m.anzahl(); ++i)
            if (i != 16)
                m.setzeLncv(i, quint16(1000 + i));
        return m;
    }

    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 0))};
    Simulator sim{uhr};
    LocoNetLink link{uhr};
    SimVerbindung verbindung{sim, link};
    Meldungen meldungen;
    Anzeige anzeige;
    NavInitForm form;
    std::vector<std::string> gesendet;
};

const QString EingabeFehler = QStringLiteral(
    "Fehler|Moduladresse1, Moduladresse2 oder Konfiguration der Sensoreingänge\n"
    "nicht oder nicht richtig eingestellt! Bitte ändern!");
const QString Frage = QStringLiteral("Achtung!|Haben Sie nur ein Modul an LocoNet angeschlossen");

std::vector<std::string> hs(const std::vector<QByteArray>& nachrichten)
{
    std::vector<std::string> s;
    for (const QByteArray& n : nachrichten)
        s.push_back(h(mitPruefsumme(n)));
    return s;
}

// A builder's message as it goes on the wire, with its checksum.
std::string m(const QByteArray& n) { return h(mitPruefsumme(n)); }

}  // namespace

// --- the form ----------------------------------------------------------------

TEST_F(NavInit, FormLoadFillsTheListAndTheFields)
{
    EXPECT_EQ(form.artikelListe, (QStringList{"5330", "47120", "47220", "47230", "47240", "47320", "47330"}));
    EXPECT_EQ(form.artikelIndex, 0);
    EXPECT_EQ(form.adr1, QStringLiteral("-"));
    EXPECT_EQ(form.adr2, QStringLiteral("-"));
    EXPECT_EQ(form.prozTxt, QStringLiteral("0%"));
    EXPECT_EQ(form.senOpt, -1);
    EXPECT_TRUE(form.sensorFrameSichtbar);
    EXPECT_FALSE(form.adr2Aktiv);
    EXPECT_TRUE(form.knoepfeAktiv);
    EXPECT_TRUE(form.sichtbar);
    EXPECT_EQ(form.warnung,
              QStringLiteral("Achtung: Es darf nur ein NAVIK oder TOBRA Modul mit dem LocoNet verbunden sein!"));
    EXPECT_EQ(NavInitTitel, QStringLiteral("Modul initialisieren"));
}

TEST_F(NavInit, UniversalControllersHideTheSensorFrameAndSwitchTheWarning)
{
    for (const char* a : {"47320", "47330"}) {
        waehle(QString::fromLatin1(a));
        EXPECT_FALSE(form.sensorFrameSichtbar) << a;
        EXPECT_EQ(form.warnung,
                  QStringLiteral("Achtung: Es darf nur eine Universalsteuerung mit dem LocoNet verbunden sein!"));
    }
    waehle(QStringLiteral("47240"));
    EXPECT_TRUE(form.sensorFrameSichtbar);
    EXPECT_EQ(form.warnung, WarnungNavikTobra);
}

TEST_F(NavInit, SecondAddressIsOfferedOnlyWithTwoSingleSensors)
{
    NavInit_SenOpt_Click(form, 0);
    EXPECT_TRUE(form.adr2Aktiv);
    NavInit_SenOpt_Click(form, 1);
    EXPECT_FALSE(form.adr2Aktiv);
    NavInit_SenOpt_Click(form, 0);
    NavInit_Form_Activate(form);
    EXPECT_TRUE(form.adr2Aktiv);
}

TEST_F(NavInit, AbbruchHidesTheFormWithNoEffect)
{
    NavInit_Abbruch_Cmd_Click(form);
    EXPECT_FALSE(form.sichtbar);
    EXPECT_EQ(verbindung.geoeffnet, 0);
    EXPECT_TRUE(gesendet.empty());
}

// --- the checks --------------------------------------------------------

TEST_F(NavInit, Address4096IsRefused4095Accepted)
{
    NavInit_SenOpt_Click(form, 1);
    form.adr1 = QStringLiteral("4096");
    EXPECT_FALSE(NavInitEingabeGueltig(form));
    EXPECT_EQ(start(), NavInitErgebnis::EingabeFalsch);
    EXPECT_EQ(meldungen.texte, QStringList{EingabeFehler});
    EXPECT_EQ(meldungen.symbole, std::vector<Symbol>{Symbol::Kritisch});
    EXPECT_TRUE(anzeige.fragen.isEmpty());
    EXPECT_TRUE(form.sichtbar) << "the dialog stays";
    EXPECT_EQ(verbindung.geoeffnet, 0);
    EXPECT_TRUE(gesendet.empty());
}

// Which inputs pass: the sensor option (-1: none chosen), the article and both
// address fields. The second address counts only for two single sensors.
TEST_F(NavInit, InputChecks)
{
    struct Zeile {
        const char* artikel;
        int senOpt;
        const char *adr1, *adr2;
        bool gueltig;
    };
    const Zeile zeilen[] = {
        {nullptr, 1, "4095", "", true},
        {nullptr, 1, "1", "", true},
        {nullptr, 1, "0", "", false},
        {nullptr, 1, "-", "", false},
        {nullptr, 1, "10", "99999", true},
        {nullptr, 0, "10", "-", false},
        {nullptr, 0, "10", "4096", false},
        {nullptr, 0, "10", "4095", true},
        {nullptr, -1, "10", "11", false},
        {"47320", -1, "4095", "", true},
        {"47320", 0, "4095", "-", true},
        {"47320", 0, "4096", "", false},
    };
    for (const Zeile& z : zeilen) {
        SCOPED_TRACE(std::string(z.artikel ? z.artikel : "-") + " " + std::to_string(z.senOpt) + " " + z.adr1 + " "
            + z.adr2);
        form = NavInitForm {};
        NavInit_Form_Load(form);
        if (z.artikel)
            waehle(QString::fromLatin1(z.artikel));
        if (z.senOpt >= 0)
            NavInit_SenOpt_Click(form, z.senOpt);
        form.adr1 = QString::fromLatin1(z.adr1);
        form.adr2 = QString::fromLatin1(z.adr2);
        EXPECT_EQ(NavInitEingabeGueltig(form), z.gueltig);
    }
}

// --- the question -------------------------------------------------------

TEST_F(NavInit, AnsweringNoSendsNothing)
{
    sim.modulHinzufuegen({47220, 12});
    waehle(QStringLiteral("47220"));
    NavInit_SenOpt_Click(form, 1);
    form.adr1 = QStringLiteral("10");
    anzeige.antwort = false;
    EXPECT_EQ(start(), NavInitErgebnis::Verneint);
    EXPECT_EQ(anzeige.fragen, QStringList{Frage});
    EXPECT_FALSE(form.sichtbar) << "no ends with the dialog closed";
    EXPECT_EQ(verbindung.geoeffnet, 0);
    uhr.weiter(1000);
    EXPECT_TRUE(gesendet.empty());
    EXPECT_TRUE(meldungen.texte.isEmpty());
}

// --- writing ----------------------------------------------------------

TEST_F(NavInit, NavikModuleGetsItsAddressesAndIsClearedInOrder)
{
    SimModul& modul = neuesModul(47220, 12);
    const quint16 version = modul.lncv(16);
    waehle(QStringLiteral("47220"));
    NavInit_SenOpt_Click(form, 0);
    form.adr1 = QStringLiteral("300");
    form.adr2 = QStringLiteral("301");

    Long code = -1;
    EXPECT_EQ(start(&code), NavInitErgebnis::Geschrieben);
    EXPECT_EQ(code, ProgOK);
    uhr.weiter(100);

    // The bus traffic: session with 65535, the writes in their fixed order, the end.
    std::vector<QByteArray> erwartet{Prog_On_Nachricht(4722, 65535), Prog_Lncv_Nachricht(4722, 0, 300),
                                     Prog_Lncv_Nachricht(4722, 1, 301), Prog_Lncv_Nachricht(4722, 2, 1),
                                     Prog_Lncv_Nachricht(4722, 15, 1)};
    for (Long i = 3; i <= 127; ++i)
        if (i != 15 && i != 16)
            erwartet.push_back(Prog_Lncv_Nachricht(4722, i, 0));
    erwartet.push_back(Prog_Off_Nachricht(4722, 65535));
    EXPECT_EQ(gesendet, hs(erwartet));
    ASSERT_FALSE(gesendet.empty());
    EXPECT_EQ(gesendet.front(), "ED 0F 08 05 00 21 70 72 12 00 00 7F 7F 00 21");
    EXPECT_EQ(gesendet[1], "ED 0F 08 05 00 20 00 72 12 00 00 2C 01 00 7D");

    // The module: addresses, configuration, all else 0, the version untouched.
    EXPECT_EQ(modul.lncv(0), 300);
    EXPECT_EQ(modul.lncv(1), 301);
    EXPECT_EQ(modul.lncv(2), 1);
    EXPECT_EQ(modul.lncv(15), 1);
    EXPECT_EQ(modul.lncv(16), version);
    for (int i = 3; i < 128; ++i) {
        if (i != 15 && i != 16) {
            EXPECT_EQ(modul.lncv(i), 0) << "LNCV " << i;
        }
    }
    EXPECT_FALSE(modul.sitzungOffen());

    // Progress: i / 127 for i = 3..127, whole percent.
    ASSERT_EQ(anzeige.anteile.size(), 125u);
    EXPECT_DOUBLE_EQ(anzeige.anteile.front(), 3.0 / 127.0);
    EXPECT_EQ(anzeige.texte.front(), QStringLiteral("2%"));
    EXPECT_EQ(anzeige.texte[60], QStringLiteral("49%"));  // i = 63
    EXPECT_EQ(anzeige.texte.back(), QStringLiteral("100%"));
    EXPECT_EQ(form.prozTxt, QStringLiteral("100%"));

    EXPECT_EQ(anzeige.zustaende, (std::vector<bool>{true, false}));
    EXPECT_TRUE(form.knoepfeAktiv);
    EXPECT_FALSE(form.sichtbar);
    EXPECT_TRUE(link.istOffen()) << "the menu frame closes the port";
    EXPECT_TRUE(meldungen.texte.isEmpty());
}

TEST_F(NavInit, DoubleSensorWritesTheSecondTextAsANumber)
{
    SimModul& modul = neuesModul(47120, 5);
    waehle(QStringLiteral("47120"));
    NavInit_SenOpt_Click(form, 1);
    form.adr1 = QStringLiteral("7");
    form.adr2 = QStringLiteral("-");
    EXPECT_EQ(start(), NavInitErgebnis::Geschrieben);
    EXPECT_EQ(modul.lncv(0), 7);
    EXPECT_EQ(modul.lncv(1), 0) << "\"-\" gives 0";
    EXPECT_EQ(modul.lncv(2), 0);
    EXPECT_EQ(modul.lncv(15), 1);

    form.sichtbar = true;
    form.adr2 = QStringLiteral("5000");
    EXPECT_EQ(start(), NavInitErgebnis::Geschrieben);
    EXPECT_EQ(modul.lncv(1), 5000) << "unchecked, written as it stands";
}

TEST_F(NavInit, Article5330GoesOnTheWireUnchanged)
{
    SimModul& modul = neuesModul(5330, 40);
    NavInit_SenOpt_Click(form, 1);
    form.adr1 = QStringLiteral("41");
    EXPECT_EQ(start(), NavInitErgebnis::Geschrieben);
    ASSERT_FALSE(gesendet.empty());
    EXPECT_EQ(gesendet.front(), m(Prog_On_Nachricht(5330, 65535)));
    EXPECT_EQ(modul.lncv(0), 41);
}

TEST_F(NavInit, UniversalControllerGetsOnlyAddressAndLncv1)
{
    SimModul& modul = neuesModul(47320, 9);
    waehle(QStringLiteral("47320"));
    form.adr1 = QStringLiteral("4095");
    form.adr2 = QStringLiteral("77");
    EXPECT_EQ(start(), NavInitErgebnis::Geschrieben);
    uhr.weiter(100);
    EXPECT_EQ(anzeige.fragen, QStringList{Frage});
    EXPECT_EQ(gesendet, hs({Prog_On_Nachricht(4732, 65535), Prog_Lncv_Nachricht(4732, 0, 4095),
                            Prog_Lncv_Nachricht(4732, 1, 1), Prog_Off_Nachricht(4732, 65535)}));
    EXPECT_EQ(modul.lncv(0), 4095);
    EXPECT_EQ(modul.lncv(1), 1);
    EXPECT_EQ(modul.lncv(2), 1002) << "no other value is written";
    EXPECT_EQ(modul.lncv(15), 1015);
    EXPECT_EQ(modul.lncv(400), 1400);
    EXPECT_TRUE(anzeige.anteile.empty());
    EXPECT_FALSE(form.sichtbar);
    EXPECT_TRUE(link.istOffen());
}

// --- failures -----------------------------------------------------------------------

TEST_F(NavInit, NoModuleAnswersGivesItsMessageAndEndsTheSession)
{
    waehle(QStringLiteral("47230"));
    NavInit_SenOpt_Click(form, 1);
    form.adr1 = QStringLiteral("10");
    Long code = -1;
    EXPECT_EQ(start(&code), NavInitErgebnis::ProgFehler);
    EXPECT_EQ(code, ProgKeineAntwort);
    uhr.weiter(100);
    std::vector<std::string> erwartet(5, m(Prog_On_Nachricht(4723, 65535)));
    erwartet.push_back(m(Prog_Off_Nachricht(4723, 65535)));
    EXPECT_EQ(gesendet, erwartet);
    EXPECT_EQ(meldungen.texte,
              QStringList{QStringLiteral("Fehler bei Lesen oder Programmieren eines Moduls|Fehler:\nModul reagiert nicht")});
    EXPECT_EQ(meldungen.symbole, std::vector<Symbol>{Symbol::Kritisch});
    EXPECT_FALSE(form.sichtbar);
    EXPECT_TRUE(form.knoepfeAktiv);
    EXPECT_EQ(anzeige.zustaende, (std::vector<bool>{true, false}));
}

TEST_F(NavInit, RefusedWriteKeepsTheFirstErrAndLeavesTheModuleHalfCleared)
{
    SimModul& modul = neuesModul(47240, 3);
    waehle(QStringLiteral("47240"));
    NavInit_SenOpt_Click(form, 0);
    form.adr1 = QStringLiteral("20");
    form.adr2 = QStringLiteral("21");
    modul.schreibenVerweigern = true;
    Long code = -1;
    EXPECT_EQ(start(&code), NavInitErgebnis::ProgFehler);
    EXPECT_EQ(code, ProgAbgelehnt) << "Prog_Off's own result does not replace it";
    uhr.weiter(100);
    ASSERT_GE(gesendet.size(), 2u);
    EXPECT_EQ(gesendet.back(), m(Prog_Off_Nachricht(4724, 65535)));
    EXPECT_EQ(meldungen.texte, QStringList{QStringLiteral(
                                   "Fehler bei Lesen oder Programmieren eines Moduls|Fehler:\nProgrammierung des "
                                   "Wertes gescheitert")});
    EXPECT_EQ(modul.lncv(0), 3);
    EXPECT_FALSE(form.sichtbar);
}

TEST_F(NavInit, PortThatDoesNotOpenEndsWithoutSending)
{
    verbindung.scheitern = true;
    NavInit_SenOpt_Click(form, 1);
    form.adr1 = QStringLiteral("10");
    Long code = -1;
    EXPECT_EQ(start(&code), NavInitErgebnis::PortFehler);
    EXPECT_EQ(code, 8002);
    EXPECT_EQ(verbindung.geoeffnet, 1);
    EXPECT_TRUE(gesendet.empty());
    EXPECT_TRUE(meldungen.texte.isEmpty()) << "open_com gives its own message";
    EXPECT_TRUE(form.knoepfeAktiv);
    EXPECT_EQ(anzeige.zustaende, (std::vector<bool>{true, false}));
}
