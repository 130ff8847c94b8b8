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
    // A fresh form filled in as the user does; senOpt -1: no sensor option chosen.
    void ausfuellen(const char* artikel, int senOpt, const char* adr1, const char* adr2 = "")
    {
        form = NavInitForm{};
        NavInit_Form_Load(form);
        if (artikel)
            waehle(QString::fromLatin1(artikel));
        if (senOpt >= 0)
            NavInit_SenOpt_Click(form, senOpt);
        form.adr1 = QString::fromLatin1(adr1);
        form.adr2 = QString::fromLatin1(adr2);
    }

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

// A builder's message as it goes on the wire, with its checksum.
std::string m(const QByteArray& n) { return h(mitPruefsumme(n)); }

}  // namespace

TEST_F(NavInit, TheFormFollowsArticleAndSensorChoice)
{
    EXPECT_EQ(form.artikelListe, (QStringList{"5330", "47120", "47220", "47230", "47240", "47320", "47330"}));
    EXPECT_EQ(std::tuple(form.artikelIndex, form.adr1, form.adr2, form.prozTxt, form.senOpt),
              std::tuple(0, QStringLiteral("-"), QStringLiteral("-"), QStringLiteral("0%"), -1));
    EXPECT_TRUE(form.sensorFrameSichtbar && !form.adr2Aktiv && form.knoepfeAktiv && form.sichtbar);
    EXPECT_EQ(form.warnung, WarnungNavikTobra);
    EXPECT_EQ(WarnungNavikTobra,
              QStringLiteral("Achtung: Es darf nur ein NAVIK oder TOBRA Modul mit dem LocoNet verbunden sein!"));
    for (const char* a : {"47320", "47330"}) {
        waehle(QString::fromLatin1(a));
        EXPECT_FALSE(form.sensorFrameSichtbar) << a;
        EXPECT_EQ(form.warnung,
                  QStringLiteral("Achtung: Es darf nur eine Universalsteuerung mit dem LocoNet verbunden sein!"));
    }
    waehle(QStringLiteral("47240"));
    EXPECT_TRUE(form.sensorFrameSichtbar);
    EXPECT_EQ(form.warnung, WarnungNavikTobra);
    // The second address is offered only with two single sensors.
    NavInit_SenOpt_Click(form, 0);
    EXPECT_TRUE(form.adr2Aktiv);
    NavInit_SenOpt_Click(form, 1);
    EXPECT_FALSE(form.adr2Aktiv);
    NavInit_SenOpt_Click(form, 0);
    NavInit_Form_Activate(form);
    EXPECT_TRUE(form.adr2Aktiv);
    NavInit_Abbruch_Cmd_Click(form);
    EXPECT_FALSE(form.sichtbar);
    EXPECT_EQ(verbindung.geoeffnet, 0);
}

// Which inputs pass: the sensor option (-1: none chosen), the article and both
// address fields. The second address counts only for two single sensors.
// A refused input ends with the message; the dialog stays and the bus is left alone.
TEST_F(NavInit, InputChecks)
{
    struct Zeile {
        const char* artikel;
        int senOpt;
        const char *adr1, *adr2;
        bool gueltig;
    };
    const Zeile zeilen[] = {
        {nullptr, 1, "4095", "", true},    {nullptr, 1, "1", "", true},        {nullptr, 1, "0", "", false},
        {nullptr, 1, "-", "", false},      {nullptr, 1, "10", "99999", true},  {nullptr, 0, "10", "-", false},
        {nullptr, 0, "10", "4096", false}, {nullptr, 0, "10", "4095", true},   {nullptr, -1, "10", "11", false},
        {"47320", -1, "4095", "", true},   {"47320", 0, "4095", "-", true},    {"47320", 0, "4096", "", false},
        {nullptr, 1, "4096", "", false},
    };
    for (const Zeile& z : zeilen) {
        SCOPED_TRACE(std::string(z.artikel ? z.artikel : "-") + " " + std::to_string(z.senOpt) + " " + z.adr1 + " " + z.adr2);
        ausfuellen(z.artikel, z.senOpt, z.adr1, z.adr2);
        EXPECT_EQ(NavInitEingabeGueltig(form), z.gueltig);
    }
    meldungen = {};
    EXPECT_EQ(start(), NavInitErgebnis::EingabeFalsch);
    EXPECT_EQ(meldungen.texte, QStringList{EingabeFehler});
    EXPECT_EQ(meldungen.symbole, std::vector<Symbol>{Symbol::Kritisch});
    EXPECT_TRUE(anzeige.fragen.isEmpty());
    EXPECT_TRUE(form.sichtbar);
    EXPECT_EQ(verbindung.geoeffnet, 0);
    EXPECT_TRUE(gesendet.empty());
}

TEST_F(NavInit, NavikModuleGetsItsAddressesAndIsClearedInOrder)
{
    SimModul& modul = neuesModul(47220, 12);
    const quint16 version = modul.lncv(16);
    ausfuellen("47220", 0, "300", "301");

    Long code = -1;
    EXPECT_EQ(start(&code), NavInitErgebnis::Geschrieben);
    EXPECT_EQ(code, ProgOK);
    uhr.weiter(100);

    // The bus traffic: session with 65535, the writes in their fixed order, the end.
    std::vector<std::string> erwartet{m(Prog_On_Nachricht(4722, 65535)), m(Prog_Lncv_Nachricht(4722, 0, 300)),
                                      m(Prog_Lncv_Nachricht(4722, 1, 301)), m(Prog_Lncv_Nachricht(4722, 2, 1)),
                                      m(Prog_Lncv_Nachricht(4722, 15, 1))};
    for (Long i = 3; i <= 127; ++i)
        if (i != 15 && i != 16)
            erwartet.push_back(m(Prog_Lncv_Nachricht(4722, i, 0)));
    erwartet.push_back(m(Prog_Off_Nachricht(4722, 65535)));
    EXPECT_EQ(gesendet, erwartet);
    ASSERT_FALSE(gesendet.empty());
    EXPECT_EQ(gesendet.front(), "ED 0F 08 05 00 21 70 72 12 00 00 7F 7F 00 21");
    EXPECT_EQ(gesendet[1], "ED 0F 08 05 00 20 00 72 12 00 00 2C 01 00 7D");
    EXPECT_EQ(modul.lncv(16), version);
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

// What each kind of module holds afterwards ("-" gives 0, a second address
// past 4095 is written as it stands); the universal controllers get only
// their address and LNCV 1, and see no progress.
TEST_F(NavInit, EachKindGetsItsValues)
{
    struct Zeile {
        Long artikel, adresse;
        int senOpt;
        const char *adr1, *adr2;
        std::vector<std::pair<int, int>> lncv;
        QByteArray erste;
    } const zeilen[] = {
        {47120, 5, 1, "7", "-", {{0, 7}, {1, 0}, {2, 0}, {15, 1}}, Prog_On_Nachricht(4712, 65535)},
        {47120, 6, 1, "7", "5000", {{1, 5000}}, Prog_On_Nachricht(4712, 65535)},
        {5330, 40, 1, "41", "", {{0, 41}}, Prog_On_Nachricht(5330, 65535)},
        {47320, 9, -1, "4095", "77", {{0, 4095}, {1, 1}, {2, 1002}, {15, 1015}, {400, 1400}}, Prog_On_Nachricht(4732, 65535)},
    };
    for (const Zeile& z : zeilen) {
        SCOPED_TRACE(z.artikel);
        SimModul& modul = neuesModul(z.artikel, z.adresse);
        ausfuellen(QByteArray::number(z.artikel).constData(), z.senOpt, z.adr1, z.adr2);
        gesendet.clear();
        anzeige = {};
        EXPECT_EQ(start(), NavInitErgebnis::Geschrieben);
        uhr.weiter(100);
        for (const auto& [i, wert] : z.lncv)
            EXPECT_EQ(modul.lncv(i), wert) << "LNCV " << i;
        ASSERT_FALSE(gesendet.empty());
        EXPECT_EQ(gesendet.front(), m(z.erste));
        EXPECT_EQ(anzeige.fragen, QStringList{Frage});
        EXPECT_EQ(anzeige.anteile.empty(), z.artikel == 47320);
        modul.stumm = true;  // the next row's broadcast session is for its own module
    }
    EXPECT_EQ(gesendet.size(), 4u) << "the controller: session, two writes, end";
}

// No: nothing sent. A silent module, a refused write, a port that does not
// open: the first err stands, the session is ended, the buttons come back.
TEST_F(NavInit, FailuresEndTheRunCleanly)
{
    const QString Gescheitert = QStringLiteral("Fehler bei Lesen oder Programmieren eines Moduls|Fehler:\n");
    struct Zeile {
        const char* fall;
        NavInitErgebnis ergebnis;
        Long code;
        QStringList meldung;
        bool gesendet;
    } const zeilen[] = {
        {"nein", NavInitErgebnis::Verneint, 0, {}, false},
        {"stumm", NavInitErgebnis::ProgFehler, ProgKeineAntwort, {Gescheitert + "Modul reagiert nicht"}, true},
        {"verweigert", NavInitErgebnis::ProgFehler, ProgAbgelehnt, {Gescheitert + "Programmierung des Wertes gescheitert"}, true},
        {"port", NavInitErgebnis::PortFehler, 8002, {}, false},
    };
    for (const Zeile& z : zeilen) {
        SCOPED_TRACE(z.fall);
        const std::string fall = z.fall;
        if (fall == "verweigert")
            neuesModul(47240, 3).schreibenVerweigern = true;
        ausfuellen("47240", 1, "20");
        anzeige = {};
        anzeige.antwort = fall != "nein";
        verbindung.scheitern = fall == "port";
        meldungen = {};
        gesendet.clear();
        Long code = -1;
        EXPECT_EQ(start(&code), z.ergebnis);
        EXPECT_EQ(code, z.code);
        uhr.weiter(1000);
        EXPECT_EQ(meldungen.texte, z.meldung);
        EXPECT_EQ(!gesendet.empty(), z.gesendet);
        EXPECT_TRUE(!z.gesendet || gesendet.back() == m(Prog_Off_Nachricht(4724, 65535)));
        EXPECT_TRUE(fall != "stumm" || gesendet.size() == 6u) << "five Prog_On, then Prog_Off";
        EXPECT_TRUE(fall == "port" || !form.sichtbar);
        EXPECT_TRUE(fall != "verweigert" || sim.geraete().modul(47240, 3)->lncv(0) == 3) << "the module half cleared";
        EXPECT_TRUE(form.knoepfeAktiv);
        EXPECT_TRUE(fall == "nein" || anzeige.zustaende == (std::vector<bool>{true, false}));
    }
}
