// Part 2.1: the form state of ComPortForm and Erststart and its handlers.
#include "loconet/comport_form.h"

#include "core/settings_file.h"
#include "tests/support/berichte.h"

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

struct Umgebung {
    bool offen = false;
    int geschlossen = 0;
    int gespeichert = 0;
    // What the settings held when Save_conf ran.
    Einstellungen beimSpeichern;
    const Einstellungen* einstellungen = nullptr;

    ComPortUmgebung umgebung()
    {
        return {[this] { return offen; },
                [this] {
                    ++geschlossen;
                    offen = false;
                },
                [this] {
                    ++gespeichert;
                    beimSpeichern = *einstellungen;
                }};
    }
};

ComPort_Form gezeigt(const Einstellungen& e, const QString& titel = ComPortFormTitel)
{
    ComPort_Form form;
    Form_Activate(form, e, titel);
    return form;
}

PortEintrag usbPort(const QString& geraet, const QString& name)
{
    return {geraet, name, QStringLiteral("CP2102 USB to UART Bridge Controller"), UsbHersteller, UsbProdukt};
}

}  // namespace

TEST(Part2_1_ComPortForm, CaptionsOfTheFiveChoices)
{
    EXPECT_EQ(IntOptText(0), QStringLiteral("Rondel, Kernpult, Stromtakt"));
    EXPECT_EQ(IntOptText(1), QStringLiteral("LocoNet-Interface 51110"));
    EXPECT_EQ(IntOptText(2), QStringLiteral("Rondel2, RD-Basis, LocoNet-USB-Interface 51120"));
    EXPECT_EQ(IntOptText(3), QStringLiteral("LocoNet über TCP (LbServer)"));
    EXPECT_EQ(IntOptText(4), QStringLiteral("Simulation (ohne Hardware)"));
    EXPECT_EQ(ComPortNr_Text, QStringLiteral("Nummer des verwendeten ComPort:"));
}

TEST(Part2_1_ComPortForm, SelectionOnShowingFollowsTheTable)
{
    Einstellungen e;
    EXPECT_EQ(gezeigt(e).IntOpt, 0);
    e.LocoNetInterface = true;
    EXPECT_EQ(gezeigt(e).IntOpt, 1);
    e.USBInterface = true;
    EXPECT_EQ(gezeigt(e).IntOpt, 2);
    // USBInterface is read only when LocoNetInterface is true.
    e.LocoNetInterface = false;
    EXPECT_EQ(gezeigt(e).IntOpt, 0);
    e.Verbindung = Verbindungsart::LbServer;
    EXPECT_EQ(gezeigt(e).IntOpt, 3);
    e.Verbindung = Verbindungsart::Simulation;
    EXPECT_EQ(gezeigt(e).IntOpt, 4);
}

TEST(Part2_1_ComPortForm, ConfirmingSetsTheFlagsByTheTable)
{
    struct Zeile {
        int intOpt;
        bool locoNetInterface, usbInterface;
        Verbindungsart art;
    };
    const Zeile tabelle[] = {
        {0, false, false, Verbindungsart::Seriell},    {1, true, false, Verbindungsart::Seriell},
        {2, true, true, Verbindungsart::Seriell},      {3, false, false, Verbindungsart::LbServer},
        {4, false, false, Verbindungsart::Simulation},
    };
    for (const Zeile& z : tabelle) {
        Einstellungen e;
        e.LocoNetInterface = !z.locoNetInterface;
        e.USBInterface = !z.usbInterface;
        IntOptUebernehmen(z.intOpt, e);
        EXPECT_EQ(e.LocoNetInterface, z.locoNetInterface) << z.intOpt;
        EXPECT_EQ(e.USBInterface, z.usbInterface) << z.intOpt;
        EXPECT_EQ(e.Verbindung, z.art) << z.intOpt;
        EXPECT_EQ(IntOptAusEinstellungen(e), z.intOpt);
    }
}

TEST(Part2_1_ComPortForm, ShowingKeepsTheTitleAndShowsComPort)
{
    Einstellungen e;
    e.ComPort = 7;
    e.ComPortGeraet = QStringLiteral("/dev/ttyUSB1");
    e.LbServerHost = QStringLiteral("pi");
    e.LbServerPort = 5550;
    const ComPort_Form form = gezeigt(e);
    EXPECT_EQ(form.CaptionGemerkt, ComPortFormTitel);
    EXPECT_EQ(form.Caption, ComPortFormTitel);
    EXPECT_EQ(form.ComPortNr_Txt, QStringLiteral("7"));
    EXPECT_EQ(form.Geraet, QStringLiteral("/dev/ttyUSB1"));
    EXPECT_EQ(form.Host_Txt, QStringLiteral("pi"));
    EXPECT_EQ(form.TcpPort_Txt, QStringLiteral("5550"));
    EXPECT_TRUE(form.OK_But_Enabled);
    EXPECT_FALSE(form.ComPortNr_Rot);
}

TEST(Part2_1_ComPortForm, ComPort255IsAcceptedAnd256Refused)
{
    ComPort_Form form = gezeigt(Einstellungen{});
    form.ComPortNr_Txt = QStringLiteral("255");
    ComPortNr_Txt_Change(form);
    EXPECT_TRUE(form.OK_But_Enabled);
    EXPECT_FALSE(form.ComPortNr_Rot);
    EXPECT_EQ(form.Caption, ComPortFormTitel);

    form.ComPortNr_Txt = QStringLiteral("256");
    ComPortNr_Txt_Change(form);
    EXPECT_FALSE(form.OK_But_Enabled);
    EXPECT_TRUE(form.ComPortNr_Rot);
    EXPECT_EQ(form.Caption, QStringLiteral(" --- Wert zu groß !! ---"));

    // Back within the limit: the title returns.
    form.ComPortNr_Txt = QStringLiteral("25");
    ComPortNr_Txt_Change(form);
    EXPECT_TRUE(form.OK_But_Enabled);
    EXPECT_EQ(form.Caption, ComPortFormTitel);
}

TEST(Part2_1_ComPortForm, ErststartKeepsItsOwnTitleForTheCheck)
{
    ComPort_Form form = gezeigt(Einstellungen{}, ErststartTitel);
    form.ComPortNr_Txt = QStringLiteral("300");
    ComPortNr_Txt_Change(form);
    EXPECT_EQ(form.Caption, WertZuGrossTxt);
    form.ComPortNr_Txt = QStringLiteral("3");
    ComPortNr_Txt_Change(form);
    EXPECT_EQ(form.Caption, ErststartTitel);
}

TEST(Part2_1_ComPortForm, TcpPortAbove65535IsRefused)
{
    ComPort_Form form = gezeigt(Einstellungen{});
    form.TcpPort_Txt = QStringLiteral("65536");
    TcpPort_Txt_Change(form);
    EXPECT_FALSE(form.OK_But_Enabled);
    EXPECT_TRUE(form.TcpPort_Rot);
    EXPECT_EQ(form.Caption, WertZuGrossTxt);
    // Both refused, one put right: still refused.
    form.ComPortNr_Txt = QStringLiteral("999");
    ComPortNr_Txt_Change(form);
    form.TcpPort_Txt = QStringLiteral("1234");
    TcpPort_Txt_Change(form);
    EXPECT_FALSE(form.OK_But_Enabled);
    EXPECT_EQ(form.Caption, WertZuGrossTxt);
}

TEST(Part2_1_ComPortForm, UsbButIsOfferedOnlyWithIntOpt2)
{
    Einstellungen e;
    e.LocoNetInterface = e.USBInterface = true;
    ComPort_Form form = gezeigt(e);
    EXPECT_TRUE(form.USB_But_Visible);
    for (int i = 0; i < IntOptAnz; ++i) {
        IntOpt_Click(form, i);
        EXPECT_EQ(form.USB_But_Visible, i == 2) << i;
        EXPECT_EQ(form.SerielleFelder, i <= 2) << i;
        EXPECT_EQ(form.TcpFelder, i == 3) << i;
    }
}

TEST(Part2_1_ComPortForm, OkClosesTheOpenPortTakesTheValuesAndSavesAtOnce)
{
    Einstellungen e;
    Umgebung u;
    u.einstellungen = &e;
    u.offen = true;
    ComPort_Form form = gezeigt(e);
    IntOpt_Click(form, 2);
    form.ComPortNr_Txt = QStringLiteral("4");
    form.Geraet = QStringLiteral(" /dev/ttyUSB0 ");
    form.Host_Txt = QStringLiteral("stellwerk");
    form.TcpPort_Txt = QStringLiteral("5550");
    ComPortNr_Txt_Change(form);

    EXPECT_TRUE(OK_But_Click(form, e, u.umgebung()));
    EXPECT_EQ(u.geschlossen, 1);
    EXPECT_EQ(u.gespeichert, 1);
    EXPECT_EQ(u.beimSpeichern.ComPort, 4);
    EXPECT_TRUE(u.beimSpeichern.LocoNetInterface);
    EXPECT_TRUE(u.beimSpeichern.USBInterface);
    EXPECT_EQ(u.beimSpeichern.ComPortGeraet, QStringLiteral("/dev/ttyUSB0"));
    EXPECT_EQ(u.beimSpeichern.LbServerHost, QStringLiteral("stellwerk"));
    EXPECT_EQ(u.beimSpeichern.LbServerPort, 5550);
}

TEST(Part2_1_ComPortForm, OkWithTheLinkClosedClosesNothing)
{
    Einstellungen e;
    Umgebung u;
    u.einstellungen = &e;
    ComPort_Form form = gezeigt(e);
    form.Host_Txt.clear();
    form.TcpPort_Txt.clear();
    EXPECT_TRUE(OK_But_Click(form, e, u.umgebung()));
    EXPECT_EQ(u.geschlossen, 0);
    EXPECT_EQ(u.gespeichert, 1);
    // Empty fields give the LbServer's defaults.
    EXPECT_EQ(e.LbServerHost, LbServerStandardHost);
    EXPECT_EQ(e.LbServerPort, LbServerStandardPort);
}

TEST(Part2_1_ComPortForm, OkIsRefusedWhileAValueIsTooLarge)
{
    Einstellungen e;
    e.ComPort = 2;
    Umgebung u;
    u.einstellungen = &e;
    u.offen = true;
    ComPort_Form form = gezeigt(e);
    form.ComPortNr_Txt = QStringLiteral("256");
    ComPortNr_Txt_Change(form);
    EXPECT_FALSE(OK_But_Click(form, e, u.umgebung()));
    EXPECT_EQ(e.ComPort, 2);
    EXPECT_EQ(u.geschlossen, 0);
    EXPECT_EQ(u.gespeichert, 0);
}

TEST(Part2_1_UsbSuche, OneFindIsTakenAsTheDevice)
{
    Meldungen meldungen;
    ComPort_Form form = gezeigt(Einstellungen{});
    form.ComPortNr_Txt = QStringLiteral("3");
    const QList<PortEintrag> ports = {{QStringLiteral("/dev/ttyS0"), QStringLiteral("ttyS0"), {}, {}, {}},
                                      usbPort(QStringLiteral("/dev/ttyUSB0"), QStringLiteral("ttyUSB0")),
                                      {QStringLiteral("/dev/ttyUSB1"), QStringLiteral("ttyUSB1"), {}, 0x0403, 0x6001}};
    USB_But_Click(form, ports, meldungen);
    EXPECT_EQ(form.Geraet, QStringLiteral("/dev/ttyUSB0"));
    EXPECT_EQ(form.ComPortNr_Txt, QStringLiteral("3"));
    EXPECT_TRUE(meldungen.texte.isEmpty());
}

TEST(Part2_1_UsbSuche, APortNamedCom12GivesPort12)
{
    Meldungen meldungen;
    ComPort_Form form = gezeigt(Einstellungen{});
    form.Geraet = QStringLiteral("/dev/ttyUSB3");
    USB_But_Click(form, {usbPort(QStringLiteral("COM12"), QStringLiteral("COM12"))}, meldungen);
    EXPECT_EQ(form.ComPortNr_Txt, QStringLiteral("12"));
    EXPECT_TRUE(form.Geraet.isEmpty());
    EXPECT_EQ(ComNummer(QStringLiteral("COM7")), 7);
    EXPECT_FALSE(ComNummer(QStringLiteral("ttyUSB0")));
}

TEST(Part2_1_UsbSuche, NoneIsTold)
{
    Meldungen meldungen;
    ComPort_Form form = gezeigt(Einstellungen{});
    USB_But_Click(form, {{QStringLiteral("/dev/ttyS0"), QStringLiteral("ttyS0"), {}, {}, {}}}, meldungen);
    EXPECT_EQ(meldungen.texte, QStringList{QStringLiteral("Achtung|Es wurde kein Morvik-USB-Interface gefunden!")});
}

TEST(Part2_1_UsbSuche, TwoFindsAreListedAndTheFieldsStay)
{
    Meldungen meldungen;
    Einstellungen e;
    e.ComPort = 5;
    ComPort_Form form = gezeigt(e);
    USB_But_Click(form,
                  {usbPort(QStringLiteral("/dev/ttyUSB0"), QStringLiteral("ttyUSB0")),
                   usbPort(QStringLiteral("/dev/ttyUSB1"), QStringLiteral("ttyUSB1"))},
                  meldungen);
    EXPECT_EQ(form.ComPortNr_Txt, QStringLiteral("5"));
    EXPECT_TRUE(form.Geraet.isEmpty());
    EXPECT_EQ(meldungen.texte,
              QStringList{QStringLiteral("Achtung|Es gibt mehrere mögliche ComPorts mit einem Morvik-USB-Interface!\n\n"
                                         "Liste der möglichen ComPortNr.: /dev/ttyUSB0, /dev/ttyUSB1")});
}
