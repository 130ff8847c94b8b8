// The command station's side of the simulator: accessories, feedback inputs,
// train reports, the state file, and the simulator as the program's transport.
#include "core/panel_model.h"
#include "loconet/link.h"
#include "loconet/lncv_austausch.h"
#include "loconet/nachricht.h"
#include "platform/sim_geraete.h"
#include "platform/sim_transport.h"
#include "platform/sim_zustand.h"
#include "tests/support/sim.h"

#include <QFile>
#include <QTemporaryDir>

using namespace planor;
using namespace planor::test;

using Liste = std::vector<std::string>;
using SimGeraeteTest = SimTest;

TEST_F(SimGeraeteTest, AccessoriesAndFeedbackInputs)
{
    // Address, position switched to (-1: never), answer to the state query.
    const std::tuple<int, int, const char*> faelle[] = {{5, 0, "B4 3C 50 27"}, {5, 1, "B4 3C 30 47"}, {300, -1, "B4 3C 30 47"}};
    for (const auto& [adresse, stellung, antwort] : faelle) {
        SCOPED_TRACE(adresse);
        if (stellung >= 0) {
            schreiben(mitPruefsumme(SendMag_Nachricht(adresse, stellung, true)));
            schreiben(mitPruefsumme(SendMag_Nachricht(adresse, stellung, false)));
            EXPECT_EQ(sim.geraete().weiche(adresse), stellung);
        }
        const std::size_t vorher = angekommen.size();
        schreiben(mitPruefsumme(Read_Mag_Nachricht(adresse)));
        EXPECT_EQ(nachrichten(vorher), (Liste{h(mitPruefsumme(Read_Mag_Nachricht(adresse))), antwort}));
    }
    schreiben(mitPruefsumme(SendMag_Nachricht(2048, 0, true)));
    EXPECT_EQ(sim.geraete().weiche(2048), 0);
    EXPECT_EQ(sim.geraete().weiche(2047), 1);

    const std::size_t vorher = angekommen.size();
    sim.geraete().rueckmelden(1, 1);
    uhr.weiter(10);
    EXPECT_EQ(nachrichten(vorher), (Liste{"B2 00 50 1D"}));
    schreiben(mitPruefsumme(SendRM_Nachricht(258, 0)));
    EXPECT_EQ(std::make_tuple(sim.geraete().rueckmelder(1), sim.geraete().rueckmelder(258), sim.geraete().rueckmelder(3)),
              std::make_tuple(1, 0, -1));
}

TEST_F(SimGeraeteTest, TheReceiverQueryAnswersTheLastTrainReport)
{
    sim.modulHinzufuegen({47220, 12});
    auto frage = [&](Integer empfaenger) {
        const std::size_t vorher = angekommen.size() + 1;  // after the echo
        schreiben(mitPruefsumme(Ask_Navik_Nachricht(empfaenger)));
        return nachrichten(vorher);
    };
    EXPECT_EQ(frage(12), Liste{}) << "no report yet";
    sim.geraete().zugMelden(12, 1234, 1, 1);
    uhr.weiter(10);
    EXPECT_EQ(nachrichten().back(), "E4 08 00 40 0C 09 52 04");
    EXPECT_EQ(frage(12), Liste{"E4 08 00 40 0C 09 52 04"});
    EXPECT_EQ(frage(13), Liste{}) << "another receiver";
    // A report from another party becomes that receiver's last.
    schreiben(ZugMeldung(4095, 3, 2, 0));
    EXPECT_EQ(frage(4095), Liste{h(ZugMeldung(4095, 3, 2, 0))});
    // Receiver 300 = 2 × 128 + 44, locomotive 9999 = 78 × 128 + 15, category 4, from S2 to S1.
    EXPECT_EQ(h(ZugMeldung(300, 9999, 4, 2)), "E4 08 03 62 2C 4E 0F 1F");
    sim.geraete().modul(47220, 12)->stumm = true;
    EXPECT_EQ(frage(12), Liste{}) << "a silent receiver";
}

TEST_F(SimGeraeteTest, TheStateFileFollowsTheBusAndIsSavedWhenTheDevicesGo)
{
    QTemporaryDir ordner;
    const QString datei = ordner.filePath(QStringLiteral("sim.zustand"));
    sim.modulHinzufuegen({47220, 12});
    sim.geraete().setzeZustandsdatei(datei);
    // A write and a switch over the bus; the file follows half a second later.
    schreiben(mitPruefsumme(Prog_On_Nachricht(4722, 12)));
    schreiben(mitPruefsumme(Prog_Lncv_Nachricht(4722, 0, 15)));
    schreiben(mitPruefsumme(Prog_Lncv_Nachricht(4722, 40, 1234)));
    schreiben(mitPruefsumme(SendMag_Nachricht(7, 0, true)));
    EXPECT_FALSE(QFile::exists(datei));
    uhr.weiter(600);
    ASSERT_TRUE(QFile::exists(datei));

    SimUmgebung zweite;
    zweite.sim.modulHinzufuegen({47220, 12});
    zweite.sim.geraete().setzeZustandsdatei(datei);
    QString fehler;
    ASSERT_TRUE(zweite.sim.geraete().zustandLaden(fehler)) << fehler.toStdString();
    ASSERT_EQ(zweite.sim.geraete().module().size(), 1u) << "the module is known by its creation address";
    EXPECT_EQ(zweite.sim.geraete().modul(47220, 15)->lncv(40), 1234);
    EXPECT_EQ(zweite.sim.geraete().zustand(), sim.geraete().zustand());

    // A change still pending when the devices go is written then.
    const QString ende = ordner.filePath(QStringLiteral("ende.zustand"));
    {
        Simulator s(uhr);
        s.geraete().setzeZustandsdatei(ende);
        EXPECT_TRUE(s.geraete().zustandLaden(fehler)) << "a missing file is a fresh start";
        s.geraete().setzeWeiche(3, 0);
    }
    QFile f(ende);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly) && f.readAll().contains("weiche 3 0\r\n"));
}

TEST(SimModuleAusAnlage, OneModulePerConfiguredCell)
{
    Anlage a;
    a.DimensionenX = a.DimensionenY = 10;
    auto zelle = [&](int x, int y, Long art, Integer adr, int senX = 0) -> XY_Typ& {
        a.XY(x, y).XY_ArtNr = art;
        a.XY(x, y).XY_LNCV(0) = adr;
        a.XY(x, y).XY_SenX = a.XY(x, y).XY_SenY = senX;
        return a.XY(x, y);
    };
    zelle(1, 1, 47220, 12);
    zelle(2, 1, 47220, 12);                // same article and address: one module
    zelle(3, 1, 5330, 4).XY_Version = 1;
    zelle(4, 1, 47230, 0);                 // no address: not configured
    zelle(5, 1, 47120, 9).XY_SenStat = 2;  // second input of a sensor pair
    zelle(6, 6, 47320, -1, 6);             // address 65535 in its stored form
    zelle(7, 7, 47320, 0, 6);              // a further cell of the same controller
    zelle(8, 8, 4711, 3);                  // not a module article
    const std::vector<SimModulAngabe> erwartet{{47220, 12, -1}, {5330, 4, 110}, {47320, 65535, -1}};
    EXPECT_EQ(SimModuleAusAnlage(a), erwartet);
}

TEST_F(SimGeraeteTest, OutlivingTheSimulatorOrTheBusIsHarmless)
{
    auto s = std::make_unique<Simulator>(uhr);
    auto t = s->transport();
    QString fehler;
    ASSERT_TRUE(t->oeffnen(fehler));
    s.reset();
    EXPECT_FALSE(t->istOffen());
    EXPECT_FALSE(t->schreiben(hex("81 7E")));
    EXPECT_FALSE(t->oeffnen(fehler));
    EXPECT_FALSE(fehler.isEmpty());
    // A bus that goes before its deliveries fall due leaves no timer behind (run under ASan).
    {
        SimBus bus(uhr);
        const int teil = bus.anschliessen([](const QByteArray&) {});
        bus.schreiben(teil, hex("B0 00 10 5F"));
        bus.antworten(hex("B4 3C 30 47"));
    }
    uhr.weiter(100);
}

TEST_F(SimGeraeteTest, TheProgramTalksToTheSimulatorThroughItsLink)
{
    sim.bus().zeiten = {};  // wire and reaction times as shipped
    sim.modulHinzufuegen({47220, 12});
    LocoNetLink link(uhr);
    link.setzeTransport(sim.transport());
    EXPECT_FALSE(link.istOffen());
    QString fehler;
    ASSERT_TRUE(link.transport()->oeffnen(fehler));
    ASSERT_TRUE(link.istOffen() && link.transport()->cts());
    Long err = -1, wert = 0;
    link.empfang().tabelleLoeschen();
    link.send(Prog_On_Nachricht(4722, 12), err);
    ASSERT_EQ(err, 0);
    const double t0 = uhr.sekunden();
    ASSERT_TRUE(uhr.warten(0.2, [&] { return link.empfang().da(ZeilePeerXfer, 0xE5); }));
    // Echo 9 ms, reaction 10 ms, answer 9 ms.
    EXPECT_NEAR(uhr.sekunden() - t0, 0.028, 1e-6);
    EXPECT_TRUE(link.empfang().da(ZeileImmPacket, 0xED)) << "our own request came back";
    EXPECT_EQ(link.empfang().wert(ZeilePeerXfer, 11), 12);
    // Lost answers are ridden out by the exchange's retries.
    sim.bus().stoerung.einstellungen.nurGeraete = true;
    sim.bus().stoerung.einstellungen.naechsteVerwerfen = 2;
    const double t1 = uhr.sekunden();
    Prog_Lncv(link, 4722, 2, -1, err);
    Read_Lncv(link, 4722, 2, wert, err);
    EXPECT_EQ(std::make_pair(err, wert), std::make_pair(Long(ProgOK), Long(65535)));
    EXPECT_GT(uhr.sekunden() - t1, 0.4) << "two tries of 0.2 s lost";
    EXPECT_EQ(sim.bus().stoerung.verworfen, 2);
    link.schliessen();
    link.send(Read_Lncv_Nachricht(4722, 16), err);
    EXPECT_EQ(std::make_pair(link.istOffen(), err), std::make_pair(false, Long(1)));
}

TEST(SimZustand, TextRoundTripAndUnreadableLines)
{
    SimZustand z;
    z.module.push_back({47220, 12, {{0, 15}, {2, 0xFFFF}, {16, 100}}});
    z.module.push_back({47320, 300, {{0, 300}, {459, 7}}});
    z.weichen = {{5, 0}, {2048, 1}};
    const QByteArray text = SimZustandText(z);
    EXPECT_EQ(text, QByteArray("; Planor-Simulator: Zustand\r\n"
                               "modul 47220 12\r\nlncv 0 15\r\nlncv 2 65535\r\nlncv 16 100\r\n"
                               "modul 47320 300\r\nlncv 0 300\r\nlncv 459 7\r\n"
                               "weiche 5 0\r\nweiche 2048 1\r\n"));
    for (const QByteArray& t : {text, QByteArray(text).replace("\r\n", "\n")}) {
        SimZustand zurueck;
        QString fehler;
        ASSERT_TRUE(SimZustandLesen(t, zurueck, fehler)) << fehler.toStdString();
        EXPECT_EQ(zurueck, z);
    }
    QString fehler;
    EXPECT_FALSE(SimZustandLesen("modul 47220 12\nlncv 500 1\n", z, fehler));
    EXPECT_EQ(fehler, QStringLiteral("Zeile 2 der Zustandsdatei ist unverständlich: lncv 500 1"));
    EXPECT_FALSE(SimZustandLesen("lncv 1 1\n", z, fehler)) << "a value before any module";
    EXPECT_FALSE(SimZustandLesen("weiche 1 2\n", z, fehler));
}
