#include "loconet/comport_form.h"

#include "core/benutzer.h"
#include "core/settings_file.h"

#include <QStringList>

namespace planor {

namespace {

// The kind decides which fields are in use; USB_But follows IntOpt(2).
void artAnzeigen(ComPort_Form& form)
{
    form.USB_But_Visible = form.IntOpt == IntOptUsb;
    form.SerielleFelder = form.IntOpt <= IntOptUsb;
    form.TcpFelder = form.IntOpt == IntOptLbServer;
}

// Check_Wert on both number fields; the form's title is their label.
void pruefen(ComPort_Form& form)
{
    const CheckWertErgebnis nr = Check_Wert(form.CaptionGemerkt, form.ComPortNr_Txt, ComPortMax);
    const CheckWertErgebnis tcp = Check_Wert(form.CaptionGemerkt, form.TcpPort_Txt, TcpPortMax);
    form.ComPortNr_Rot = !nr.gueltig;
    form.TcpPort_Rot = !tcp.gueltig;
    form.OK_But_Enabled = nr.gueltig && tcp.gueltig;
    form.Caption = nr.gueltig ? tcp.labelText : nr.labelText;
}

// A port in the messages and the text field: COMn as its number, else its device.
QString portAngabe(const PortEintrag& port)
{
    if (const std::optional<int> nummer = ComNummer(port.name))
        return QString::number(*nummer);
    return port.geraet;
}

}  // namespace

QString IntOptText(int index)
{
    switch (index) {
    case IntOptZentrale:
        return QStringLiteral("Rondel, Kernpult, Stromtakt");
    case IntOptAdapter:
        return QStringLiteral("LocoNet-Interface 51110");
    case IntOptUsb:
        return QStringLiteral("Rondel2, RD-Basis, LocoNet-USB-Interface 51120");
    case IntOptLbServer:
        return QStringLiteral("LocoNet über TCP (LbServer)");
    case IntOptSimulation:
        return QStringLiteral("Simulation (ohne Hardware)");
    default:
        return {};
    }
}

int IntOptAusEinstellungen(const Einstellungen& e)
{
    switch (e.Verbindung) {
    case Verbindungsart::LbServer:
        return IntOptLbServer;
    case Verbindungsart::Simulation:
        return IntOptSimulation;
    case Verbindungsart::Seriell:
        break;
    }
    if (!e.LocoNetInterface)
        return IntOptZentrale;
    return e.USBInterface ? IntOptUsb : IntOptAdapter;
}

void IntOptUebernehmen(int index, Einstellungen& e)
{
    // LocoNetInterface = IntOpt(1) or IntOpt(2), USBInterface = IntOpt(2).
    e.LocoNetInterface = index == IntOptAdapter || index == IntOptUsb;
    e.USBInterface = index == IntOptUsb;
    e.Verbindung = index == IntOptLbServer     ? Verbindungsart::LbServer
                   : index == IntOptSimulation ? Verbindungsart::Simulation
                                               : Verbindungsart::Seriell;
}

void Form_Activate(ComPort_Form& form, const Einstellungen& e, const QString& titel)
{
    form.CaptionGemerkt = titel;
    form.Caption = titel;
    form.IntOpt = IntOptAusEinstellungen(e);
    form.ComPortNr_Txt = QString::number(e.ComPort);
    form.Geraet = e.ComPortGeraet;
    form.Host_Txt = e.LbServerHost;
    form.TcpPort_Txt = QString::number(e.LbServerPort);
    artAnzeigen(form);
    pruefen(form);
}

void ComPortNr_Txt_Change(ComPort_Form& form)
{
    pruefen(form);
}

void TcpPort_Txt_Change(ComPort_Form& form)
{
    pruefen(form);
}

void IntOpt_Click(ComPort_Form& form, int index)
{
    if (index < 0 || index >= IntOptAnz)
        return;
    form.IntOpt = index;
    artAnzeigen(form);
}

bool OK_But_Click(const ComPort_Form& form, Einstellungen& e, const ComPortUmgebung& umgebung)
{
    if (!form.OK_But_Enabled)
        return false;
    // The link is not reopened here: the next operation that needs it calls open_com.
    if (umgebung.portOffen && umgebung.portOffen() && umgebung.portSchliessen)
        umgebung.portSchliessen();
    e.ComPort = CInt(Feldwert(form.ComPortNr_Txt));
    IntOptUebernehmen(form.IntOpt, e);
    e.ComPortGeraet = form.Geraet.trimmed();
    const QString host = form.Host_Txt.trimmed();
    e.LbServerHost = host.isEmpty() ? LbServerStandardHost : host;
    const Long port = CLng(Feldwert(form.TcpPort_Txt));
    e.LbServerPort = port > 0 ? port : LbServerStandardPort;
    if (umgebung.Save_conf)
        umgebung.Save_conf();
    return true;
}

void USB_But_Click(ComPort_Form& form, const QList<PortEintrag>& ports, Benutzer& benutzer)
{
    const QList<PortEintrag> funde = UsbInterfaceSuchen(ports);
    if (funde.size() == 1) {
        const PortEintrag& fund = funde.front();
        if (const std::optional<int> nummer = ComNummer(fund.name)) {
            form.ComPortNr_Txt = QString::number(*nummer);
            form.Geraet.clear();
        } else {
            form.Geraet = fund.geraet;
        }
        ComPortNr_Txt_Change(form);
        return;
    }
    if (funde.isEmpty()) {
        benutzer.meldung(QStringLiteral("Achtung"), KeinUsbInterfaceTxt, Symbol::Ausruf);
        return;
    }
    // Several: the fields stay as they are; the list names the devices.
    QStringList liste;
    for (const PortEintrag& fund : funde)
        liste << portAngabe(fund);
    benutzer.meldung(QStringLiteral("Achtung"),
                     MehrereUsbInterfaceTxt + QStringLiteral("\n\nListe der möglichen ComPortNr.: ")
                         + liste.join(QStringLiteral(", ")),
                     Symbol::Ausruf);
}

}  // namespace planor
