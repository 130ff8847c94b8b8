#pragma once
// The live monitor view. Widget-free: the procedures draw into the
// grid's model `MonModell` and talk to the bus through the link's exchanges
// (Read_Mag, SendMag, Ask_Navik), waiting on the link's clock.
// The tables MagZelle, MagStatus and NavikStatus are indexed by bus address
// with fixed bounds; an address outside raises run-time error 9.

#include "core/feld.h"
#include "core/vb_zahlen.h"
#include "editor/mag_art_status.h"

namespace planor {

class Anlage;
class Elementkatalog;
class LocoNetLink;
class MonModell;
struct BusMeldung;

inline constexpr int MaxMagAdresse = 2048;
inline constexpr int MaxNavikAdresse = 4096;

// A cell of the panel; x = 0 for none.
struct ZellOrt {
    Long x = 0;
    Long y = 0;
};

// A receiver address: its cell and the last locomotive it reported (0 none).
struct NavikEintrag {
    ZellOrt zelle;
    Long lok = 0;
};

// The receivers whose cell shows "-" until a locomotive is reported; the
// monitor asks them by Ask_Navik and shows their reports.
bool IstMonitorEmpfaenger(Long artNr);

// The state picture for cell (x, y) when `zustand` was
// reported for one of its addresses, with S1..S3 from `MagStatus`; empty
// when the type has none.
QString MonitorBild(const Anlage& anlage, const Elementkatalog& katalog, const Feld<Long, 1, MaxMagAdresse>& MagStatus,
                    int x, int y, Integer zustand);

class MonitorAnsicht {
public:
    MonitorAnsicht(const Anlage& anlage, const Elementkatalog& katalog, MonModell& mon);

    Feld<ZellOrt, 1, MaxMagAdresse> MagZelle;
    Feld<Long, 1, MaxMagAdresse> MagStatus;
    Feld<NavikEintrag, 1, MaxNavikAdresse> NavikStatus;

    // Every cell drawn; the states read from the bus when `link` (the open
    // port) is given.
    void Show_Monitor(LocoNetLink* link);
    void set_mon(int x, int y);
    void set_mon_mag(Long adresse, Integer zustand);

    // Whether Mon_MouseUp acts on the cell: a type 101..599 with an address not 0.
    bool schaltbar(int x, int y) const;
    // Mon_MouseUp, left button: switches the accessory by its family. A
    // failed SendMag leaves that address's state and picture as they were.
    void Mon_MouseUp_Links(LocoNetLink& link, int x, int y);
    // After TauschForm's OK: the cell drawn anew from its first address.
    void neuZeichnen(int x, int y);

    // The view-4 half of Get_Adr_from_LN.
    void meldung(const BusMeldung& m);

    // MagArtStatus over the cell: options by type, state of the first address.
    MagArtStatus_Zustand MagArtStatus_laden(int x, int y) const;
    // Its OK: the chosen state to the chosen address by SendMag, then drawn.
    void MagArtStatus_OK(const MagArtStatus_Zustand& zustand, LocoNetLink& link);

private:
    // SendMag and, when it went out, the new state drawn.
    void schalten(LocoNetLink& link, Long adresse, Integer stellung);
    Integer gespeichert(Long adresse) const;

    const Anlage& anlage_;
    const Elementkatalog& katalog_;
    MonModell& mon_;
};

}  // namespace planor
