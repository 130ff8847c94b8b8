// Bulk programming and read-back of the demo project against the in-process
// simulator, in virtual time.
#include "loconet/lncv_austausch.h"
#include "tests/programmierung/programmier_umgebung.h"

using namespace planor;
using namespace planor::test;

namespace {

using Programmierung = MitProgrammierung;

QStringList texte(const QStringList& ereignisse, const QString& anfang)
{
    QStringList t;
    for (const QString& e : ereignisse)
        if (e.startsWith(anfang))
            t << e.mid(anfang.size());
    return t;
}

} // namespace

// One module of each kind against the simulator: every LNCV up to the last
// one of its kind arrives, the one past it and the never-written one do not.
TEST_F(Programmierung, EachArticleIsWrittenOverItsWholeRange)
{
    struct Zeile {
        Long artikel;
        int version, simVersion, letzte;
    };
    const Zeile zeilen[] = {{47120, 0, -1, 127}, {47130, 0, -1, 127}, {47190, 0, -1, 127}, {47230, 0, -1, 127},
        {5330, 1, 150, 119}, {5330, 2, 250, 127}};
    for (const Zeile& r : zeilen) {
        SCOPED_TRACE(QStringLiteral("%1 v%2").arg(r.artikel).arg(r.version).toStdString());
        Simulator s {uhr};
        LocoNetLink l {uhr};
        SimVerbindung v {s, l};
        Programmierumgebung pu {anlage, katalog, v, l, meldungen, zellen, anzeige};
        s.modulHinzufuegen({r.artikel, 7, r.simVersion});
        XY_Typ& z = anlage.XY(4, 4);
        z = XY_Typ {};
        z.XY_ArtNr = r.artikel;
        z.XY_Version = r.version;
        z.XY_LNCV(0) = 7;
        for (int i = 3; i <= r.letzte + 1; ++i)
            z.XY_LNCV(i) = Integer(i + 1000);
        ASSERT_TRUE(Prog_all(pu));
        const SimModul* m = s.geraete().modul(r.artikel, 7);
        ASSERT_NE(m, nullptr);
        EXPECT_EQ(m->lncv(3), 1003);
        EXPECT_EQ(m->lncv(r.letzte), r.letzte + 1000);
        EXPECT_NE(m->lncv(r.letzte + 1), r.letzte + 1001);
        EXPECT_TRUE(r.artikel != 5330 || m->lncv(16) != 1016);
    }
}

TEST_F(Programmierung, ProgAllBringsTheDemoIntoItsModules)
{
    demoLaden();
    ASSERT_FALSE(alleUnterschiede().isEmpty()) << "the simulator starts at factory values";
    EXPECT_TRUE(Prog_all(u));
    EXPECT_EQ(alleUnterschiede(), QStringList());
    EXPECT_EQ(anzeige.mit(QStringLiteral("frage:")),
        QStringList {QStringLiteral("frage:Programmierung: alle Module|  Die Programmierung aller Module starten?  "
                                    "\n\nBeachten Sie die Hinweise in der Info-Zeile!")});
    EXPECT_EQ(anzeige.zeile1, QStringLiteral("Programmierung beendet !!!"));
    EXPECT_EQ(texte(anzeige.ereignisse, QStringLiteral("fortschritt:")).last(), QStringLiteral("5/5"));
    EXPECT_EQ(anzeige.markiert.size(), 5) << "one mark per module, the controller's second cell not";
    const QStringList info1 = texte(anzeige.ereignisse, QStringLiteral("info1:"));
    const QPoint erstes = modulZellen().front();
    EXPECT_EQ(info1.front(),
        QStringLiteral("Modul in Spalte %1 Zeile %2 wird programmiert ").arg(erstes.x()).arg(erstes.y()));
    EXPECT_EQ(info1.count(QStringLiteral("Modul Programmierung -  O.K.  ")), 5);
    EXPECT_TRUE(
        texte(anzeige.ereignisse, QStringLiteral("info2:")).contains(QStringLiteral("LNCV 2 wird programmiert!")));
    EXPECT_TRUE(anzeige.mit(QStringLiteral("fehler:")).isEmpty() && meldungen.texte.isEmpty());
    EXPECT_EQ(anzeige.ereignisse.at(1), QStringLiteral("beschaeftigt:1"));
    EXPECT_EQ(anzeige.ereignisse.last(), QStringLiteral("beschaeftigt:0"));
    uhr.weiter(100); // the last Prog_Off on its way over the wire
    for (const auto& m : sim.geraete().module())
        EXPECT_FALSE(m->sitzungOffen()) << "every session ended";
    EXPECT_GT(schreibvorgaenge(), 0);
}

TEST_F(Programmierung, ProgrammingTwiceWritesNothing)
{
    demoLaden();
    ASSERT_TRUE(Prog_all(u));
    const std::size_t ab = aufDemBus.size();
    anzeige.ereignisse.clear();
    EXPECT_TRUE(Prog_all(u)) << anzeige.ereignisse.join(u'\n').toStdString()
                             << meldungen.texte.join(u'\n').toStdString();
    EXPECT_EQ(schreibvorgaenge(ab), 0) << "the second run reads all values and writes none";
    // Each exchange once: no try lost to a stale answer (Prog_Off's echo).
    int vomProgramm_ = 0;
    for (std::size_t i = ab; i < aufDemBus.size(); ++i)
        vomProgramm_ += vomProgramm(aufDemBus[i]) ? 1 : 0;
    EXPECT_EQ(vomProgramm_, 5 + 4 * 118 + 458 + 5) << "Prog_On, LNCV 2..119 or 2..459, Prog_Off";
    EXPECT_FALSE(
        texte(anzeige.ereignisse, QStringLiteral("info2:")).contains(QStringLiteral("LNCV 2 wird programmiert!")));
}

TEST_F(Programmierung, NegativeAndLargeValuesAreNotRewritten)
{
    demoLaden();
    const QPoint p = modulZellen().front();
    anlage.XY(p.x(), p.y()).XY_LNCV(30) = -1; // 65535 on the module
    anlage.XY(p.x(), p.y()).XY_LNCV(31) = -32768; // 32768 on the module
    ASSERT_TRUE(Prog_all(u));
    EXPECT_EQ(modulVon(p.x(), p.y())->lncv(30), 65535);
    EXPECT_EQ(modulVon(p.x(), p.y())->lncv(31), 32768);
    const std::size_t ab = aufDemBus.size();
    ASSERT_TRUE(Prog_all(u));
    EXPECT_EQ(schreibvorgaenge(ab), 0) << "compared as Unsig_to_Int";
}

TEST_F(Programmierung, ReadAllBringsChangedValuesHome)
{
    demoLaden();
    ASSERT_TRUE(Prog_all(u));
    const std::vector<QPoint> zellen_ = modulZellen();
    const QPoint empf = zellen_.front();
    SimModul* m = modulVon(empf.x(), empf.y());
    m->setzeLncv(20, 4711);
    m->setzeLncv(2, 16 + 8); // report block state, mode code 8
    m->setzeLncv(40, 65535);
    QPoint uni;
    for (const QPoint& p : zellen_)
        if (anlage.XY(p.x(), p.y()).XY_ArtNr == 47320)
            uni = p;
    ASSERT_FALSE(uni.isNull());
    const Integer betrUni = anlage.XY(uni.x(), uni.y()).XY_BETR;
    modulVon(uni.x(), uni.y())->setzeLncv(300, 1234);
    anzeige.ereignisse.clear();
    const std::size_t ab = aufDemBus.size();
    int gebaut = 0;
    u.Make_bhf = [&](int x, int y) {
        ++gebaut;
        EXPECT_EQ(QPoint(x, y), empf);
    };
    EXPECT_TRUE(Read_all(u)) << anzeige.ereignisse.join(u'\n').toStdString()
                             << meldungen.texte.join(u'\n').toStdString();
    const XY_Typ& z = anlage.XY(empf.x(), empf.y());
    EXPECT_EQ(z.XY_LNCV(20), 4711);
    EXPECT_EQ(z.XY_LNCV(40), -1);
    EXPECT_EQ(z.XY_BETR, 7) << "the mode from LNCV 2";
    EXPECT_EQ(z.XY_BlkMeld, 1);
    EXPECT_EQ(gebaut, 1) << "the Make_bhf seam for modes 7 and 8";
    EXPECT_EQ(anlage.XY(uni.x(), uni.y()).XY_LNCV(300), 1234);
    EXPECT_EQ(anlage.XY(uni.x(), uni.y()).XY_BETR, betrUni) << "the controller keeps its mode";
    EXPECT_EQ(alleUnterschiede(), QStringList());
    EXPECT_TRUE(zellen.gezeichnet.contains(empf)) << "SetzeText";
    EXPECT_EQ(anzeige.ereignisse.first(),
        QStringLiteral("frage:Auslesen: alle Module|                      Das Auslesen aller Module starten?  \n"
                       "  Es werden alle Einstellungen im Programm mit den Werten aus den Modulen überschrieben\n"
                       "                      Beachten Sie die Hinweise in der Info-Zeile!"));
    const QStringList info1 = texte(anzeige.ereignisse, QStringLiteral("info1:"));
    EXPECT_TRUE(
        info1.contains(QStringLiteral("Modul in Spalte %1 Zeile %2 wird ausgelesen ").arg(empf.x()).arg(empf.y())));
    EXPECT_EQ(info1.count(QStringLiteral("Modul Auslesen -  O.K.  ")), 5);
    EXPECT_EQ(anzeige.zeile1, QStringLiteral("Auslesen beendet !!!"));
    EXPECT_EQ(schreibvorgaenge(ab), 0) << "reading writes nothing";
}

// Cells with nothing to program: a run over them ends well, silently, without
// a word on the bus and without a mark.
TEST_F(Programmierung, CellsWithoutAModuleArePassedSilently)
{
    struct Zeile {
        const char* name;
        Long artikel;
        int senStat;
    };
    const Zeile zeilen[] = {{"empty panel", 0, 0}, {"unknown article", 12345, 0}, {"second input of a pair", 47220, 2}};
    for (const Zeile& r : zeilen) {
        SCOPED_TRACE(r.name);
        anlage.neues_pult_setzen();
        anzeige.ereignisse.clear();
        XY_Typ& z = anlage.XY(2, 2);
        z.XY_ArtNr = r.artikel;
        z.XY_LNCV(0) = 5;
        z.XY_SenStat = Integer(r.senStat);
        if (r.senStat != 2) { // the pair's second input is skipped by the run only
            Long err = 7, artikel = 0, adresse = 0;
            bool on = false;
            Prog_modul(u, 2, 2, err, on, artikel, adresse);
            EXPECT_EQ(err, 0);
            err = 7;
            Read_modul(u, 2, 2, err, on, artikel, adresse);
            EXPECT_EQ(err, 0);
            EXPECT_EQ(z.XY_LNCV(0), 5);
        }
        EXPECT_TRUE(anzeige.ereignisse.isEmpty());
        EXPECT_TRUE(Prog_all(u));
        EXPECT_EQ(anzeige.zeile1, QStringLiteral("Programmierung beendet !!!"));
        EXPECT_TRUE(aufDemBus.empty());
        EXPECT_TRUE(anzeige.markiert.isEmpty());
        EXPECT_TRUE(anzeige.mit(QStringLiteral("fortschritt:")).isEmpty());
    }
}

TEST_F(Programmierung, A5330OfGenerationZeroIsAskedFirst)
{
    sim.modulHinzufuegen({5330, 7, 150}); // generation 1
    XY_Typ& z = anlage.XY(4, 4);
    z.XY_ArtNr = 5330;
    z.XY_Version = 0;
    z.XY_LNCV(0) = 7;
    z.XY_LNCV(50) = 3;
    z.XY_LNCV(120) = 5;
    EXPECT_TRUE(Prog_all(u));
    EXPECT_EQ(z.XY_Version, 1);
    SimModul* m = sim.geraete().modul(5330, 7);
    EXPECT_EQ(m->lncv(50), 3);
    EXPECT_EQ(m->lncv(120), 0) << "generation 1 ends at LNCV 119";
}

TEST_F(Programmierung, CancelledQuestionDoesNothing)
{
    demoLaden();
    anzeige.ok = false;
    EXPECT_FALSE(Prog_all(u));
    EXPECT_FALSE(Read_all(u));
    EXPECT_TRUE(aufDemBus.empty());
    EXPECT_TRUE(anzeige.mit(QStringLiteral("beschaeftigt")).isEmpty());
}

TEST_F(Programmierung, DroppedAnswersAreRiddenOut)
{
    demoLaden();
    sim.bus().stoerung.einstellungen.nurGeraete = true;
    sim.bus().stoerung.einstellungen.verwerfen = 0.15;
    EXPECT_TRUE(Prog_all(u));
    EXPECT_GT(sim.bus().stoerung.verworfen, 50);
    EXPECT_EQ(alleUnterschiede(), QStringList());
    EXPECT_TRUE(anzeige.mit(QStringLiteral("fehler:")).isEmpty());
    EXPECT_TRUE(meldungen.texte.isEmpty());
}

class Fehlerlauf : public MitProgrammierung {
protected:
    void SetUp() override
    {
        MitProgrammierung::SetUp();
        demoLaden();
        zellen_ = modulZellen();
        ASSERT_EQ(zellen_.size(), 5u);
        // What the program put on the bus last before each prompt.
        anzeige.beiFehler = [this] {
            uhr.weiter(50); // what the program sent has crossed the wire
            QByteArray letzte;
            for (const QByteArray& m : aufDemBus)
                if (vomProgramm(m))
                    letzte = m;
            vorDemPrompt.push_back(letzte);
        };
    }
    QPoint zelle(int i) const { return zellen_[std::size_t(i)]; }
    std::vector<QPoint> zellen_;
    std::vector<QByteArray> vorDemPrompt;
};

TEST_F(Fehlerlauf, SilentModuleAgainThenNext)
{
    const QPoint p = zelle(1);
    modulVon(p.x(), p.y())->stumm = true;
    anzeige.antworten = {FehlerAntwort::Nochmal, FehlerAntwort::Naechstes};
    EXPECT_FALSE(Prog_all(u)) << "not every module went through";
    EXPECT_EQ(
        anzeige.mit(QStringLiteral("fehler:")), QStringList(2, QStringLiteral("fehler:alle Module programmieren")));
    EXPECT_EQ(meldungen.texte,
        QStringList(2,
            QStringLiteral("Fehler bei Lesen oder Programmieren eines Moduls|Fehler:\n"
                           "Modul reagiert nicht")));
    const QStringList info1 = texte(anzeige.ereignisse, QStringLiteral("info1:"));
    EXPECT_EQ(info1.count(QStringLiteral("Achtung Fehler: Modul Programmierung fehlerhaft")), 2);
    EXPECT_TRUE(texte(anzeige.ereignisse, QStringLiteral("info2:"))
                    .contains(QStringLiteral("X: %1 Y: %2").arg(p.x()).arg(p.y())));
    EXPECT_EQ(anzeige.zeile1, QStringLiteral("Programmierung beendet !!!"));
    QStringList d = alleUnterschiede();
    EXPECT_FALSE(d.isEmpty());
    for (const QString& s : d)
        EXPECT_TRUE(s.startsWith(QStringLiteral("(%1,%2)").arg(p.x()).arg(p.y()))) << s.toStdString();
    // Prog_On failed: no session, so no Prog_Off is owed (on_flag clear).
    for (const QByteArray& m : vorDemPrompt)
        EXPECT_FALSE(istProgOff(m));
    // A prompt follows its markierungAus.
    const int f = int(anzeige.ereignisse.indexOf(QStringLiteral("fehler:alle Module programmieren")));
    EXPECT_TRUE(anzeige.ereignisse.mid(0, f).contains(QStringLiteral("markierungAus")));
}

TEST_F(Fehlerlauf, SilentModuleAbortStopsTheRun)
{
    const QPoint p = zelle(1);
    modulVon(p.x(), p.y())->stumm = true;
    anzeige.antworten = {FehlerAntwort::Abbruch};
    EXPECT_FALSE(Prog_all(u));
    EXPECT_EQ(anzeige.mit(QStringLiteral("fehler:")).size(), 1);
    EXPECT_TRUE(unterschiede(zelle(0).x(), zelle(0).y()).isEmpty()) << "the first went through";
    for (int i = 2; i < 5; ++i)
        EXPECT_FALSE(unterschiede(zelle(i).x(), zelle(i).y()).isEmpty()) << "the rest stays untouched";
    EXPECT_NE(anzeige.zeile1, QStringLiteral("Programmierung beendet !!!")) << "no further word";
    EXPECT_EQ(anzeige.ereignisse.last(), QStringLiteral("beschaeftigt:0"));
}

TEST_F(Fehlerlauf, SilentModuleComesBackOnAgain)
{
    const QPoint p = zelle(1);
    modulVon(p.x(), p.y())->stumm = true;
    anzeige.antworten = {FehlerAntwort::Nochmal};
    anzeige.beiFehler = [&] { modulVon(p.x(), p.y())->stumm = false; };
    EXPECT_TRUE(Prog_all(u));
    EXPECT_EQ(alleUnterschiede(), QStringList());
}

TEST_F(Fehlerlauf, RefusedWriteGetsProgOffBeforeThePrompt)
{
    const QPoint p = zelle(0);
    modulVon(p.x(), p.y())->schreibenVerweigern = true;
    anzeige.antworten = {FehlerAntwort::Naechstes};
    EXPECT_FALSE(Prog_all(u));
    EXPECT_EQ(meldungen.texte,
        QStringList {QStringLiteral("Fehler bei Lesen oder Programmieren eines Moduls|Fehler:\n"
                                    "Programmierung des Wertes gescheitert")});
    ASSERT_EQ(vorDemPrompt.size(), 1u);
    EXPECT_TRUE(istProgOff(vorDemPrompt[0])) << "the open session is closed before the prompt";
    EXPECT_FALSE(modulVon(p.x(), p.y())->sitzungOffen());
    for (int i = 1; i < 5; ++i)
        EXPECT_TRUE(unterschiede(zelle(i).x(), zelle(i).y()).isEmpty());
}

TEST_F(Fehlerlauf, ProgEinzelnEmptyCellKeepsTheWait)
{
    const QPoint p = zelle(3);
    anzeige.klicks = {QPoint(1, 1), QPoint(1, 2), p};
    EXPECT_TRUE(Prog_einzeln(u));
    EXPECT_TRUE(anzeige.mit(QStringLiteral("jaNein:")).isEmpty()) << "no message";
    EXPECT_EQ(anzeige.mit(QStringLiteral("waehlen")).size(), 3);
    EXPECT_EQ(anzeige.ereignisse.first(),
        QStringLiteral("frage:Modul-Programmierung|       Ein Module programmieren!!         \n"
                       "  Bitte das Modul mit der Maus auswählen  \n"
                       "Beachten Sie die Hinweise in der Info-Zeile!"));
    EXPECT_EQ(anzeige.ereignisse.at(1), QStringLiteral("info1:Modul bitte mit der Maus auswählen"));
    EXPECT_TRUE(unterschiede(p.x(), p.y()).isEmpty());
    EXPECT_FALSE(unterschiede(zelle(0).x(), zelle(0).y()).isEmpty()) << "only the picked module";
    EXPECT_EQ(anzeige.zeile1, QStringLiteral("Programmierung beendet !!!"));
    EXPECT_EQ(anzeige.zeile2, QString());
}

TEST_F(Fehlerlauf, ProgEinzelnOnAControllersCellReachesItsMainCell)
{
    QPoint neben;
    for (int x = 1; x <= anlage.DimensionenX; ++x)
        for (int y = 1; y <= anlage.DimensionenY; ++y) {
            const XY_Typ& c = anlage.XY(x, y);
            if (c.XY_ArtNr == 47320 && (c.XY_SenX != x || c.XY_SenY != y))
                neben = QPoint(x, y);
        }
    ASSERT_FALSE(neben.isNull());
    const QPoint haupt(anlage.XY(neben.x(), neben.y()).XY_SenX, anlage.XY(neben.x(), neben.y()).XY_SenY);
    anzeige.klicks = {neben};
    EXPECT_TRUE(Prog_einzeln(u));
    EXPECT_EQ(anzeige.markiert, QList<QPoint> {haupt});
    EXPECT_TRUE(unterschiede(haupt.x(), haupt.y()).isEmpty());
}

TEST_F(Fehlerlauf, ProgEinzelnFailureClosesTheSessionAndEndsOnNext)
{
    const QPoint p = zelle(0);
    modulVon(p.x(), p.y())->stumm = true;
    anzeige.klicks = {p};
    anzeige.antworten = {FehlerAntwort::Nochmal, FehlerAntwort::Naechstes};
    EXPECT_FALSE(Prog_einzeln(u));
    EXPECT_EQ(
        anzeige.mit(QStringLiteral("fehler:")), QStringList(2, QStringLiteral("fehler:ein Module programmieren")));
    ASSERT_EQ(vorDemPrompt.size(), 2u);
    for (const QByteArray& m : vorDemPrompt)
        EXPECT_TRUE(istProgOff(m)) << "Prog_Off unconditionally before the prompt";
    EXPECT_TRUE(texte(anzeige.ereignisse, QStringLiteral("info1:"))
                    .contains(QStringLiteral("Achtung Fehler: Programmierung fehlerhaft")));
    EXPECT_EQ(anzeige.mit(QStringLiteral("waehlen")).size(), 1) << "tag 0 repeats with the same cell";
}

TEST_F(Fehlerlauf, ReadEinzelnAsksFromTheSecondEmptyClick)
{
    anzeige.klicks = {QPoint(1, 1), QPoint(1, 2), QPoint(1, 3)};
    anzeige.ja = true;
    EXPECT_FALSE(Read_einzeln(u));
    EXPECT_EQ(anzeige.mit(QStringLiteral("jaNein:")),
        QStringList {QStringLiteral("jaNein:Achtung!|Soll die Auswahl abgebrochen werden?")});
    EXPECT_EQ(anzeige.mit(QStringLiteral("waehlen")).size(), 2);
    EXPECT_EQ(anzeige.zeile1, QString());
    EXPECT_TRUE(aufDemBus.empty());
}

TEST_F(Fehlerlauf, ModuleFallingSilentMidwayIsClosedBeforeThePrompt)
{
    // A module that stops answering mid-way: Read_Lncv fails after its tries.
    const QPoint p = zelle(0);
    anzeige.antworten = {FehlerAntwort::Naechstes};
    bool stumm = false;
    QObject::connect(&sim.bus(), &SimBus::nachricht, [&](const QByteArray& m) {
        if (!stumm && istSchreiben(m)) {
            stumm = true;
            modulVon(p.x(), p.y())->stumm = true;
        }
    });
    EXPECT_FALSE(Prog_all(u));
    ASSERT_EQ(vorDemPrompt.size(), 1u);
    EXPECT_TRUE(istProgOff(vorDemPrompt[0]));
    EXPECT_EQ(meldungen.texte.size(), 1);
}

TEST_F(Fehlerlauf, ReadAllFailurePromptHasTitleDash)
{
    const QPoint p = zelle(2);
    modulVon(p.x(), p.y())->stumm = true;
    anzeige.antworten = {FehlerAntwort::Naechstes};
    EXPECT_FALSE(Read_all(u));
    EXPECT_EQ(anzeige.mit(QStringLiteral("fehler:")), QStringList {QStringLiteral("fehler:-")});
    EXPECT_TRUE(texte(anzeige.ereignisse, QStringLiteral("info1:"))
                    .contains(QStringLiteral("Achtung Fehler: Modul Auslesen fehlerhaft")));
    EXPECT_EQ(anzeige.zeile1, QStringLiteral("Auslesen beendet !!!"));
    EXPECT_EQ(anlage.XY(p.x(), p.y()).XY_LNCV(2), 0) << "a module that fails leaves its cell cleared";
    EXPECT_NE(anlage.XY(p.x(), p.y()).XY_LNCV(0), 0) << "but keeps its address";
}
