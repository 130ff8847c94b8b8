#pragma once
// Schnittstelle: the interface to the bus that the settings choose. Its
// open_com is the one way every subsystem opens the link, with the steps:
//   command station  2400 8N2, break, "xB19200", 19200 8N2, "x&LN$55AA";
//                    CTS gates every byte sent afterwards
//   serial adapter   19200 8N2, then the bus's 16457 bit/s set directly
//   USB device       115200 8N1
//   LbServer         LocoNet over TCP (extension)
//   simulation       the built-in simulator (extension)
// A port that cannot be opened gives err 8002 with a German message; a
// command station that does not answer gives err 1 and leaves the port open.
// Waits run on the link's clock.

#include "core/vb_zahlen.h"
#include "loconet/link.h"
#include "loconet/verbindung.h"

#include <QString>

#include <functional>
#include <memory>

namespace planor {

class Benutzer;
class Transport;
class Uhr;
struct Einstellungen;

// The kinds of interface: the three serial ones and the extension's two.
enum class Schnittstellenart { Zentrale, Adapter, Usb, LbServer, Simulation };
Schnittstellenart ArtAusEinstellungen(const Einstellungen& einstellungen);

// The messages and status texts of open_com.
inline const QString ComPortOeffnenTitel = QStringLiteral("ComPort öffnen");
inline const QString VerbindungOeffnenTitel = QStringLiteral("Verbindung öffnen");
inline const QString KeineKommunikationTxt = QStringLiteral("ComPort: Keine Kommunikation!");
inline const QString NurComPort1Oder2Txt =
    QStringLiteral("Sie können das LocoNet-Interface nur mit Comport 1 oder Comport 2 benutzen!");
inline const QString ComPortWirdGeoeffnetTxt = QStringLiteral("ComPort wird geöffnet");
inline const QString InterfaceWirdGeoeffnetTxt = QStringLiteral("LocoNet Interface wird geöffnet");
inline const QString KeineSimulationTxt =
    QStringLiteral("Die Simulation ist in dieser Programmversion nicht verfügbar.");

// err 8002: the port number (device) that the system rejects.
inline constexpr Long PortAbgelehnt = 8002;

// The command station's text commands and the time each answer may take.
inline const QByteArray BefehlB19200 = QByteArrayLiteral("xB19200\r");
inline const QByteArray BefehlLocoNet = QByteArrayLiteral("x&LN$55AA\r");
inline constexpr double ZentraleAntwortGrenze = 5.0;

// How the transports come to be. Defaults: the serial port, the TCP socket;
// the simulator has none until the program gives it one.
using SerielleFabrik = std::function<std::unique_ptr<Transport>(const QString& geraet)>;
using LbServerFabrik = std::function<std::unique_ptr<Transport>(const QString& host, Long port)>;
using TransportFabrik = std::function<std::unique_ptr<Transport>()>;

class Schnittstelle final : public LocoNetVerbindung {
public:
    // `einstellungen` are read at every opening; `infoTxt` writes a status
    // line of the main window (InfoTxt_anzeigen).
    Schnittstelle(const Einstellungen& einstellungen, Uhr& uhr, Benutzer& benutzer,
                  std::function<void(int feld, const QString& text)> infoTxt = {});
    ~Schnittstelle() override;

    void open_com(Long& err) override;
    bool istOffen() const override;
    // ComPortForm's OK, the end of a bus job, the views that stop the monitor
    // and the end of the program; false when messages could not go out first.
    bool schliessen();

    LocoNetLink& link() { return link_; }

    void setzeSimulator(TransportFabrik fabrik) { simulator_ = std::move(fabrik); }
    void setzeSerielleFabrik(SerielleFabrik fabrik) { seriell_ = std::move(fabrik); }
    void setzeLbServerFabrik(LbServerFabrik fabrik) { lbServer_ = std::move(fabrik); }

private:
    void oeffnenZentrale(Long& err);
    void oeffnenAdapter(Long& err);
    void oeffnenUsb(Long& err);
    void oeffnenLbServer(Long& err);
    void oeffnenSimulation(Long& err);

    // A new transport of the serial kinds, for the configured device.
    Transport& neuerSeriellerTransport();
    Transport& uebernehmen(std::unique_ptr<Transport> transport);
    // Opens the link's transport; on failure err 8002 and the message.
    bool oeffnen(const QString& titel, Long& err);
    bool parameter(const QString& text, Long& err);
    void abgelehnt(const QString& titel, const QString& text, Long& err);
    // A command to the command station, then input until "]" within 5 s.
    bool befehl(const QByteArray& text);
    void anzeigen(int feld, const QString& text);

    const Einstellungen& einstellungen_;
    Benutzer& benutzer_;
    std::function<void(int, const QString&)> infoTxt_;
    LocoNetLink link_;
    SerielleFabrik seriell_;
    LbServerFabrik lbServer_;
    TransportFabrik simulator_;
    QString geraet_;  // the serial kinds' device of the current opening
    // The command station's answer since the port was last opened.
    QByteArray antwort_;
};

}  // namespace planor
