#pragma once
// The settings file Planor.CFG.

#include "core/vb_zahlen.h"

#include <QByteArray>
#include <QDate>
#include <QRect>
#include <QSize>
#include <QString>

#include <optional>

namespace planor {

inline const QString SettingsDateiname = QStringLiteral("Planor.CFG");

// 15 twips make one pixel.
inline constexpr int TwipsJePixel = 15;

// The link's way to the bus: the serial port with the three interface
// articles that
// LocoNetInterface and USBInterface choose, LocoNet over TCP to an LbServer,
// or the built-in simulation. Stored values; never reuse one.
enum class Verbindungsart : Integer { Seriell = 0, LbServer = 1, Simulation = 2 };

inline const QString LbServerStandardHost = QStringLiteral("localhost");
inline constexpr Long LbServerStandardPort = 1234;

// Per-installation settings, the globals Load_conf fills.
struct Einstellungen {
    Integer ComPort = 0;
    bool LocoNetInterface = false;  // written -1 / 0
    bool USBInterface = false;
    Integer StartHilfe = 0;
    Integer MainWinState = 0;   // 0 normal, 2 maximised
    double MainWinWidth = 0;    // twips; 0 or less: not applied
    double MainWinHeight = 0;
    double MainWinLeft = 0;
    double MainWinTop = 0;
    QString Pfad;  // folder of the project last used, ending in the separator
    QString File;  // its file name

    // Extension keys. They follow the classic keys and are
    // written only when they differ from these defaults, so that a file
    // without them keeps the classic layout byte for byte and older readers
    // skip them as unknown keys.
    QString ComPortGeraet;  // "ComPortGeraet:" a chosen device path; empty: ComPort's number decides
    Verbindungsart Verbindung = Verbindungsart::Seriell;  // "Verbindungsart:"
    QString LbServerHost = LbServerStandardHost;          // "LbServerHost:"
    Long LbServerPort = LbServerStandardPort;             // "LbServerPort:"

    bool operator==(const Einstellungen&) const = default;
};

// The main window as it stands when the settings are saved, in pixels.
struct Fensterlage {
    enum class Zustand { Normal, Minimiert, Maximiert };
    Zustand zustand = Zustand::Normal;
    QRect rahmen;      // position of the frame, size of the window
    QSize bildschirm;  // size of the screen
};

// Load_conf's reading of the file's bytes into the settings. Comment lines
// (";" or "/") and lines without a key are skipped, as are unknown keys.
// A number too large for its field raises run-time error 6; what was read
// before it stays.
void LiesEinstellungen(const QByteArray& bytes, Einstellungen& einstellungen);

// Save_conf's bytes: the header with the version and the date, then every key
// in its order, the geometry taken from the window by Save_conf's rules, then
// the extension keys that differ from their defaults.
QByteArray SchreibEinstellungen(Einstellungen einstellungen, const Fensterlage& fenster, const QString& version,
                                const QDate& datum);

// Save_conf's table: the geometry written for a window in each state, in twips.
void FenstergeometrieUebernehmen(const Fensterlage& fenster, Einstellungen& einstellungen);

// The stored geometry in pixels as the main window applies
// it: each of left, top, width and height only when above 0, the window
// state only when it is 2 (maximised).
struct GespeicherteLage {
    std::optional<int> links, oben, breite, hoehe;
    bool maximiert = false;
};
GespeicherteLage LageAusEinstellungen(const Einstellungen& einstellungen);

// Load_conf: reads the file; a missing or unreadable file raises error 53 or 75
// (the caller's guard reports it and the values stay as they were).
void Load_conf(const QString& datei, Einstellungen& einstellungen);

// Save_conf: writes the file anew from the values and the window; a file that
// cannot be written raises error 75.
void Save_conf(const QString& datei, const Einstellungen& einstellungen, const Fensterlage& fenster,
               const QDate& datum);

}  // namespace planor
