// The form state of ComPortForm and Erststart and its handlers.
#include "loconet/comport_form.h"

#include "core/settings_file.h"
#include "tests/support/berichte.h"

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

ComPort_Form gezeigt(const Einstellungen& e, const QString& titel = ComPortFormTitel)
{
    ComPort_Form form;
    Form_Activate(form, e, titel);
    return form;
}

PortEintrag port(const char* geraet, quint16 hersteller = UsbHersteller, quint16 produkt = UsbProdukt)
{
    return {QLatin1String(geraet), QString::fromLatin1(geraet).section(u'/', -1), {}, hersteller, produkt};
}

// Hands OK_But_Click a link that is open or not and records closing and saving.
struct Umgebung {
    bool offen = false;
    int geschlossen = 0;
    int gespeichert = 0;
    ComPortUmgebung umgebung()
    {
        return {[this] { return offen; }, [this] { ++geschlossen, offen = false; }, [this] { ++gespeichert; }};
    }
};

}  // namespace

TEST(ComPortForm, TheChoiceFollowsTheSettingsBothWays)
{
    using V = Verbindungsart;
    const struct {
        bool lni, usb;
        Verbindungsart art;
        int intOpt;
    } faelle[] = {{false, false, V::Seriell, 0}, {true, false, V::Seriell, 1}, {true, true, V::Seriell, 2},
                  {false, false, V::LbServer, 3}, {false, false, V::Simulation, 4}};
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.intOpt);
        Einstellungen e;
        e.LocoNetInterface = !f.lni;
        e.USBInterface = !f.usb;
        IntOptUebernehmen(f.intOpt, e);
        EXPECT_EQ(e.LocoNetInterface, f.lni);
        EXPECT_EQ(e.USBInterface, f.usb);
        EXPECT_EQ(e.Verbindung, f.art);
        ComPort_Form form = gezeigt(e);
        EXPECT_EQ(form.IntOpt, f.intOpt);
        IntOpt_Click(form, f.intOpt);
        EXPECT_EQ(form.USB_But_Visible, f.intOpt == 2);
        EXPECT_EQ(form.SerielleFelder, f.intOpt <= 2);
        EXPECT_EQ(form.TcpFelder, f.intOpt == 3);
    }
    Einstellungen e;
    e.USBInterface = true;
    EXPECT_EQ(gezeigt(e).IntOpt, 0) << "USBInterface counts only with LocoNetInterface";
}

TEST(ComPortForm, TooLargeValuesAreRefusedUntilAllAreRight)
{
    const struct {
        QString titel;
        bool comPort;  // else the TCP port
        const char* text;
        bool ok, rot;
        QString caption;
    } schritte[] = {
        {ComPortFormTitel, true, "255", true, false, ComPortFormTitel},
        {ComPortFormTitel, true, "256", false, true, WertZuGrossTxt},
        {ComPortFormTitel, true, "25", true, false, ComPortFormTitel},
        {ComPortFormTitel, false, "65536", false, true, WertZuGrossTxt},
        {ComPortFormTitel, true, "999", false, true, WertZuGrossTxt},
        {ComPortFormTitel, false, "1234", false, false, WertZuGrossTxt},  // the other one is still wrong
        {ComPortFormTitel, true, "3", true, false, ComPortFormTitel},
        {ErststartTitel, true, "300", false, true, WertZuGrossTxt},
        {ErststartTitel, true, "3", true, false, ErststartTitel},
    };
    ComPort_Form form;
    for (const auto& s : schritte) {
        SCOPED_TRACE(testing::Message() << s.comPort << ' ' << s.text);
        if (form.CaptionGemerkt != s.titel)
            form = gezeigt(Einstellungen{}, s.titel);
        (s.comPort ? form.ComPortNr_Txt : form.TcpPort_Txt) = QLatin1String(s.text);
        s.comPort ? ComPortNr_Txt_Change(form) : TcpPort_Txt_Change(form);
        EXPECT_EQ(form.OK_But_Enabled, s.ok);
        EXPECT_EQ(s.comPort ? form.ComPortNr_Rot : form.TcpPort_Rot, s.rot);
        EXPECT_EQ(form.Caption, s.caption);
    }
}

TEST(ComPortForm, OkClosesAnOpenLinkTakesTheValuesAndSaves)
{
    Einstellungen e;
    e.ComPort = 2;
    Umgebung u{true};
    ComPort_Form form = gezeigt(e);
    form.ComPortNr_Txt = QStringLiteral("256");
    ComPortNr_Txt_Change(form);
    EXPECT_FALSE(OK_But_Click(form, e, u.umgebung()));
    EXPECT_EQ(e.ComPort, 2);
    EXPECT_EQ(u.geschlossen + u.gespeichert, 0);

    IntOpt_Click(form, 2);
    form.ComPortNr_Txt = QStringLiteral("4");
    form.Geraet = QStringLiteral(" /dev/ttyUSB0 ");
    form.Host_Txt.clear();
    form.TcpPort_Txt.clear();
    ComPortNr_Txt_Change(form);
    EXPECT_TRUE(OK_But_Click(form, e, u.umgebung()));
    EXPECT_EQ(e.ComPort, 4);
    EXPECT_TRUE(e.LocoNetInterface && e.USBInterface);
    EXPECT_EQ(e.ComPortGeraet, QStringLiteral("/dev/ttyUSB0"));
    EXPECT_EQ(e.LbServerHost, LbServerStandardHost) << "empty fields give the defaults";
    EXPECT_EQ(e.LbServerPort, LbServerStandardPort);
    EXPECT_TRUE(OK_But_Click(form, e, u.umgebung()));
    EXPECT_EQ(u.geschlossen, 1) << "only what is open is closed";
    EXPECT_EQ(u.gespeichert, 2);
}

TEST(ComPortForm, UsbSearch)
{
    const struct {
        QList<PortEintrag> ports;
        const char* geraet;
        const char* comPort;
        QString meldung;
    } faelle[] = {
        {{port("/dev/ttyS0", 0, 0), port("/dev/ttyUSB0"), port("/dev/ttyUSB1", 0x0403, 0x6001)}, "/dev/ttyUSB0", "5",
         {}},
        {{port("COM12")}, "", "12", {}},
        {{port("/dev/ttyS0", 0, 0)}, "/dev/ttyUSB3", "5",
         QStringLiteral("Achtung|Es wurde kein Morvik-USB-Interface gefunden!")},
        {{port("/dev/ttyUSB0"), port("/dev/ttyUSB1")}, "/dev/ttyUSB3", "5",
         QStringLiteral("Achtung|Es gibt mehrere mögliche ComPorts mit einem Morvik-USB-Interface!\n\n"
                                  "Liste der möglichen ComPortNr.: /dev/ttyUSB0, /dev/ttyUSB1")},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.comPort);
        Meldungen meldungen;
        Einstellungen e;
        e.ComPort = 5;
        e.ComPortGeraet = QStringLiteral("/dev/ttyUSB3");
        ComPort_Form form = gezeigt(e);
        USB_But_Click(form, f.ports, meldungen);
        EXPECT_EQ(form.Geraet, QLatin1String(f.geraet));
        EXPECT_EQ(form.ComPortNr_Txt, QLatin1String(f.comPort));
        EXPECT_EQ(meldungen.texte, f.meldung.isEmpty() ? QStringList() : QStringList{f.meldung});
    }
}
