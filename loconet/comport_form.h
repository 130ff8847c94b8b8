#pragma once
// The forms ComPortForm and Erststart as a widget-free form state
// and the forms' handlers over it. The dialogs (loconet/ui/comport_dialog.h)
// only bind widgets to this state.
//
// Both forms hold the connection frame: IntOpt(0..2) for the three serial
// interfaces, and the extension's IntOpt(3) (LocoNet over TCP) and IntOpt(4)
// (simulation); ComPortNr_Txt, a device chosen from the system's ports, the
// LbServer's host and port.

#include "core/check_wert.h"
#include "core/vb_zahlen.h"
#include "platform/serial_transport.h"

#include <QList>
#include <QString>

#include <functional>

namespace planor {

class Benutzer;
struct Einstellungen;

inline const QString ComPortFormTitel = QStringLiteral("ComPort Einstellungen");
inline const QString ErststartTitel = QStringLiteral("NAVIK/TOBRA - Planor: Erster Start");
inline const QString ErststartRahmenTitel = QStringLiteral("Daten für die Verbindung mit Ihrer Zentrale:");
inline const QString ComPortRahmenTitel = QStringLiteral("Verwendetes Interface");
inline const QString ComPortNr_Text = QStringLiteral("Nummer des verwendeten ComPort:");

// IntOpt(0..4): the captions, in the order of their index.
inline constexpr int IntOptAnz = 5;
inline constexpr int IntOptZentrale = 0;
inline constexpr int IntOptAdapter = 1;
inline constexpr int IntOptUsb = 2;
inline constexpr int IntOptLbServer = 3;
inline constexpr int IntOptSimulation = 4;
QString IntOptText(int index);

// Check_Wert's limits: ComPort 1 to 255, the TCP port's 65535.
inline constexpr double ComPortMax = 255;
inline constexpr double TcpPortMax = 65535;

// The messages of USB_But.
inline const QString KeinUsbInterfaceTxt = QStringLiteral("Es wurde kein Morvik-USB-Interface gefunden!");
inline const QString MehrereUsbInterfaceTxt =
    QStringLiteral("Es gibt mehrere mögliche ComPorts mit einem Morvik-USB-Interface!");

// The interface options and their extension: the selection on showing, and
// the settings on confirming.
int IntOptAusEinstellungen(const Einstellungen& einstellungen);
void IntOptUebernehmen(int index, Einstellungen& einstellungen);

struct ComPort_Form {
    QString Caption;         // the form's title as it shows
    QString CaptionGemerkt;  // the title kept aside on showing (Check_Wert's label)
    int IntOpt = IntOptZentrale;
    QString ComPortNr_Txt;
    QString Geraet;  // a device path from the list; empty: ComPortNr_Txt's number decides
    QString Host_Txt;
    QString TcpPort_Txt;

    // What the checks show.
    bool ComPortNr_Rot = false;
    bool TcpPort_Rot = false;
    bool OK_But_Enabled = true;
    // Erststart: USB_But is offered only while IntOpt(2) is selected.
    bool USB_But_Visible = false;
    // Which fields belong to the selected kind.
    bool SerielleFelder = true;
    bool TcpFelder = false;
};

// What OK_But does beyond the form: the port and the settings file.
struct ComPortUmgebung {
    std::function<bool()> portOffen;
    std::function<void()> portSchliessen;
    std::function<void()> Save_conf;
};

// On showing: the title kept aside, the selection and the fields
// from the settings.
void Form_Activate(ComPort_Form& form, const Einstellungen& einstellungen, const QString& titel);
// Check_Wert with limit 255 on ComPortNr_Txt (and 65535 on the TCP
// port): the field red, the title " --- Wert zu groß !! ---", OK disabled.
void ComPortNr_Txt_Change(ComPort_Form& form);
void TcpPort_Txt_Change(ComPort_Form& form);
// A click on IntOpt(index); USB_But follows it.
void IntOpt_Click(ComPort_Form& form, int index);
// The port closed if open, the values taken over, Planor.CFG written.
// False (nothing done) while a value is refused.
bool OK_But_Click(const ComPort_Form& form, Einstellungen& einstellungen, const ComPortUmgebung& umgebung);
// USB_But: the search among the system's ports. One find is taken over
// (a COMn name as its number, else as the device), none or several are told.
void USB_But_Click(ComPort_Form& form, const QList<PortEintrag>& ports, Benutzer& benutzer);

}  // namespace planor
