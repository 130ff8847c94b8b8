// The command station's side of the simulator: accessories, feedback inputs,
// train reports, the state file, and the simulator as Planor's transport.
#include "platform/sim_geraete.h"
#include "platform/sim_transport.h"
#include "platform/sim_zustand.h"
#include "tests/support/sim.h"

#include "core/panel_model.h"
#include "loconet/link.h"
#include "loconet/nachricht.h"

#include <QFile>
#include <QTemporaryDir>

using namespace planor;
using namespace planor::test;

using Liste = std::vector<std::string>;

using SimGeraeteTest = SimTest;

TEST_F(SimGeraeteTest, SwitchRequestSetsTheAccessoryAndStateAnswersIt)
{
    // SendMag(5, 0): on and off with position red.
    schreiben(mitPruefsumme(SendMag_Nachricht(5, 0, true)));
    schreiben(mitPruefsumme(SendMag_Nachricht(5, 0, false)));
    EXPECT_EQ(sim.geraete().weiche(5), 0);
    const std::size_t vorher = angekommen.size();
    schreiben(mitPruefsumme(Read_Mag_Nachricht(5)));
    EXPECT_EQ(nachrichten(vorher), (Liste{h(mitPruefsumme(Read_Mag_Nachricht(5))), "B4 3C 50 27"}));
    schreiben(mitPruefsumme(SendMag_Nachricht(5, 1, true)));
    EXPECT_EQ(sim.geraete().weiche(5), 1);
    const std::size_t danach = angekommen.size();
    schreiben(mitPruefsumme(Read_Mag_Nachricht(5)));
    EXPECT_EQ(nachrichten(danach).back(), "B4 3C 30 47");
    // Above 128 too; one never switched reads green.
    schreiben(mitPruefsumme(SendMag_Nachricht(2048, 0, true)));
    EXPECT_EQ(sim.geraete().weiche(2048), 0);
    EXPECT_EQ(sim.geraete().weiche(2047), 1);
    schreiben(mitPruefsumme(Read_Mag_Nachricht(300)));
    EXPECT_EQ(nachrichten().back(), "B4 3C 30 47");
}

TEST_F(SimGeraeteTest, FeedbackInputsOnDemandAndFromTheBus)
{
    sim.geraete().rueckmelden(1, 1);
    uhr.weiter(10);
    EXPECT_EQ(nachrichten(), (Liste{"B2 00 50 1D"}));
    EXPECT_EQ(sim.geraete().rueckmelder(1), 1);
    schreiben(mitPruefsumme(SendRM_Nachricht(258, 0)));
    EXPECT_EQ(sim.geraete().rueckmelder(258), 0);
    EXPECT_EQ(sim.geraete().rueckmelder(3), -1);
}

TEST_F(SimGeraeteTest, TrainReportAndTheReceiverQuery)
{
    sim.modulHinzufuegen({47220, 12});
    // Before any report the query goes unanswered.
    schreiben(mitPruefsumme(Ask_Navik_Nachricht(12)));
    EXPECT_EQ(angekommen.size(), 1u);
    sim.geraete().zugMelden(12, 1234, 1, 1);
    uhr.weiter(10);
    EXPECT_EQ(nachrichten(1), (Liste{"E4 08 00 40 0C 09 52 04"}));
    const std::size_t vorher = angekommen.size();
    schreiben(mitPruefsumme(Ask_Navik_Nachricht(12)));
    EXPECT_EQ(nachrichten(vorher), (Liste{h(mitPruefsumme(Ask_Navik_Nachricht(12))), "E4 08 00 40 0C 09 52 04"}));
    // Another receiver has no report.
    const std::size_t danach = angekommen.size();
    schreiben(mitPruefsumme(Ask_Navik_Nachricht(13)));
    EXPECT_EQ(angekommen.size(), danach + 1);
}

TEST_F(SimGeraeteTest, ATrainReportFromAnotherPartyIsTheReceiversLast)
{
    schreiben(ZugMeldung(4095, 3, 2, 0));
    const std::size_t vorher = angekommen.size();
    schreiben(mitPruefsumme(Ask_Navik_Nachricht(4095)));
    EXPECT_EQ(nachrichten(vorher).back(), h(ZugMeldung(4095, 3, 2, 0)));
    EXPECT_EQ(sim.geraete().letzteMeldung(4095), ZugMeldung(4095, 3, 2, 0));
}

TEST(SimZugMeldung, ReceiverAndLocomotiveSplitInto7BitHalves)
{
    // Receiver 300 = 2 × 128 + 44, locomotive 9999 = 78 × 128 + 15, category 4, from S2 to S1.
    EXPECT_EQ(h(ZugMeldung(300, 9999, 4, 2)), "E4 08 03 62 2C 4E 0F 1F");
}

TEST_F(SimGeraeteTest, SilentReceiverDoesNotAnswerTheQuery)
{
    sim.modulHinzufuegen({47220, 12});
    sim.geraete().zugMelden(12, 5);
    sim.geraete().modul(47220, 12)->stumm = true;
    uhr.weiter(10);
    const std::size_t vorher = angekommen.size();
    schreiben(mitPruefsumme(Ask_Navik_Nachricht(12)));
    EXPECT_EQ(angekommen.size(), vorher + 1);
}

TEST(SimZustand, TextRoundTrip)
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
    SimZustand zurueck;
    QString fehler;
    ASSERT_TRUE(SimZustandLesen(text, zurueck, fehler)) << fehler.toStdString();
    EXPECT_EQ(zurueck, z);
    QByteArray lf = text;
    lf.replace("\r\n", "\n");
    ASSERT_TRUE(SimZustandLesen(lf, zurueck, fehler));
    EXPECT_EQ(zurueck, z);
}

TEST(SimZustand, UnreadableLinesAreRefusedWithTheLine)
{
    SimZustand z;
    QString fehler;
    EXPECT_FALSE(SimZustandLesen("modul 47220 12\nlncv 500 1\n", z, fehler));
    EXPECT_EQ(fehler, QStringLiteral("Zeile 2 der Zustandsdatei ist unverständlich: lncv 500 1"));
    EXPECT_FALSE(SimZustandLesen("lncv 1 1\n", z, fehler)) << "a value before any module";
    EXPECT_FALSE(SimZustandLesen("weiche 1 2\n", z, fehler));
}

TEST_F(SimGeraeteTest, StateFileRoundTripThroughTheDevices)
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

    TestUhr uhr2{QDateTime(QDate(2026, 11, 21), QTime(10, 0))};
    Simulator zweiter(uhr2);
    zweiter.modulHinzufuegen({47220, 12});
    zweiter.geraete().setzeZustandsdatei(datei);
    QString fehler;
    ASSERT_TRUE(zweiter.geraete().zustandLaden(fehler)) << fehler.toStdString();
    ASSERT_EQ(zweiter.geraete().module().size(), 1u) << "the module is known by its creation address";
    EXPECT_EQ(zweiter.geraete().modul(47220, 15)->lncv(40), 1234);
    EXPECT_EQ(zweiter.geraete().weiche(7), 0);
    EXPECT_EQ(zweiter.geraete().zustand(), sim.geraete().zustand());
}

TEST_F(SimGeraeteTest, AMissingStateFileIsAFreshStart)
{
    QTemporaryDir ordner;
    sim.geraete().setzeZustandsdatei(ordner.filePath(QStringLiteral("neu.zustand")));
    QString fehler;
    EXPECT_TRUE(sim.geraete().zustandLaden(fehler));
}

TEST_F(SimGeraeteTest, PendingChangeIsSavedWhenTheDevicesGo)
{
    QTemporaryDir ordner;
    const QString datei = ordner.filePath(QStringLiteral("ende.zustand"));
    {
        Simulator s(uhr);
        s.geraete().setzeZustandsdatei(datei);
        s.geraete().setzeWeiche(3, 0);
    }
    QFile f(datei);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_TRUE(f.readAll().contains("weiche 3 0\r\n"));
}

TEST(SimModuleAusAnlage, OneModulePerConfiguredCell)
{
    Anlage a;
    a.DimensionenX = a.DimensionenY = 10;
    auto modul = [&](int x, int y, Long art, Integer adr) {
        a.XY(x, y).XY_ArtNr = art;
        a.XY(x, y).XY_LNCV(0) = adr;
    };
    modul(1, 1, 47220, 12);
    modul(2, 1, 47220, 12);  // same article and address: one module
    modul(3, 1, 5330, 4);
    a.XY(3, 1).XY_Version = 1;
    modul(4, 1, 47230, 0);   // no address: not configured
    modul(5, 1, 47120, 9);
    a.XY(5, 1).XY_SenStat = 2;  // second input of a sensor pair
    modul(6, 6, 47320, -1);  // address 65535 in its stored form
    a.XY(6, 6).XY_SenX = 6;
    a.XY(6, 6).XY_SenY = 6;
    a.XY(7, 7).XY_ArtNr = 47320;  // a further cell of the same controller
    a.XY(7, 7).XY_SenX = 6;
    a.XY(7, 7).XY_SenY = 6;
    modul(8, 8, 4711, 3);    // not a module article
    const std::vector<SimModulAngabe> erwartet{{47220, 12, -1}, {5330, 4, 110}, {47320, 65535, -1}};
    EXPECT_EQ(SimModuleAusAnlage(a), erwartet);
}

TEST(SimTransport, PlanorTalksToTheSimulatorThroughItsLink)
{
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 0))};
    Simulator sim(uhr);
    sim.modulHinzufuegen({47220, 12});
    LocoNetLink link(uhr);
    link.setzeTransport(sim.transport());
    EXPECT_FALSE(link.istOffen());
    QString fehler;
    ASSERT_TRUE(link.transport()->oeffnen(fehler));
    ASSERT_TRUE(link.istOffen());
    EXPECT_TRUE(link.transport()->cts());

    Long err = -1;
    link.empfang().tabelleLoeschen();
    link.send(Prog_On_Nachricht(4722, 12), err);
    ASSERT_EQ(err, 0);
    const double t0 = uhr.sekunden();
    ASSERT_TRUE(uhr.warten(0.2, [&] { return link.empfang().da(ZeilePeerXfer, 0xE5); }));
    // Echo 9 ms, reaction 10 ms, answer 9 ms.
    EXPECT_NEAR(uhr.sekunden() - t0, 0.028, 1e-6);
    EXPECT_TRUE(link.empfang().da(ZeileImmPacket, 0xED)) << "our own request came back";
    EXPECT_EQ(link.empfang().wert(ZeilePeerXfer, 11), 12);

    link.schliessen();
    EXPECT_FALSE(link.istOffen());
    link.send(Read_Lncv_Nachricht(4722, 16), err);
    EXPECT_EQ(err, 1);
}

TEST(SimTransport, OutlivingTheSimulatorIsHarmless)
{
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 0))};
    auto sim = std::make_unique<Simulator>(uhr);
    auto t = sim->transport();
    QString fehler;
    ASSERT_TRUE(t->oeffnen(fehler));
    sim.reset();
    EXPECT_FALSE(t->istOffen());
    EXPECT_FALSE(t->schreiben(hex("81 7E")));
    EXPECT_FALSE(t->oeffnen(fehler));
    EXPECT_FALSE(fehler.isEmpty());

    // A bus that goes before its pending deliveries fall due leaves no timer behind (run under ASan).
    {
        SimBus bus(uhr);
        const int teil = bus.anschliessen([](const QByteArray&) {});
        bus.schreiben(teil, hex("B0 00 10 5F"));
        bus.antworten(hex("B4 3C 30 47"));
    }
    uhr.weiter(100);
}
