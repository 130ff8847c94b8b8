#pragma once
// The address view's mouse and bus: PultAdr_MouseDown, and the
// view-2 half of Get_Adr_from_LN that offers a received address for
// assignment with the mouse. Widget-free: dialogs, questions and redraws go
// through AdrAnzeige, messages through Benutzer, the bus through the link.

#include "core/vb_zahlen.h"
#include "editor/adr_eingabe.h"
#include "editor/bus_meldung.h"

#include <QString>

namespace planor {

class Anlage;
class Benutzer;
class Elementkatalog;
class LocoNetLink;
class Zellanzeige;

class AdrAnzeige {
public:
    virtual ~AdrAnzeige() = default;
    // AdrEingabe for cell (x, y); its OK runs AdrEingabe_OK. What came of it.
    virtual AdrEingabeErgebnis AdrEingabe_zeigen(int x, int y) = 0;
    // Adr12_Abfrage: 1 "Adresse 1", 2 "Adresse 2", 3 "Adresse 3" (offered
    // when `anzahl` is 3), 0 when the window was closed.
    virtual int Adr12_Abfrage(int anzahl) = 0;
    // A question with yes and no; true for yes.
    virtual bool frageJaNein(const QString& titel, const QString& text) = 0;
    // set_PultAdr: the cell's two text rows are to be written again.
    virtual void set_PultAdr(int x, int y) = 0;
    // The busy pointer while the module is asked on the bus.
    virtual void beschaeftigt(bool an) = 0;
};

// The texts, exactly.
inline const QString AdrFrageTitel = QStringLiteral("Adresszuordnung mit der Maus");
// The question for a received report; line breaks after " empfangen:  " and
// after the second piece (our choice).
QString AdrFrageText(const BusMeldung& m);
// The direction check's message: its four pieces, one a line.
inline const QString RichtungTitel = QStringLiteral("Fahrtrichtung über die Sensoren prüfen!");
QString RichtungText(int richtung);

// Reading the direction from the catalogue's pictures: a receiver with two
// sensors (800..807, 830..833) is drawn with the travel from sensor 1 to
// sensor 2 (data/KT_Conf/README.md), so only direction 0 ("von Sensor 1 nach
// Sensor 2") matches it; single sensors and a report without direction (-1)
// always match.
bool RichtungPasst(int typ, int richtung);

// The articles a module of unknown type may answer to (tenth of the number),
// in the order in which they are asked.
inline constexpr Long SuchArtikel[] = {4722, 4723, 4712, 4724, 5330, 4713, 4719};

class PultAdrMaus {
public:
    PultAdrMaus(Anlage& anlage, const Elementkatalog& katalog, LocoNetLink& link, Benutzer& benutzer,
        Zellanzeige& zellen, AdrAnzeige& anzeige);

    // A left click on the picture row of cell (x, y) in view 2.
    void PultAdr_MouseDown(int x, int y);
    // Get_Adr_from_LN in view 2. A report that arrives while a question, a
    // dialog or a bus exchange of this view is open is dropped: one question
    // at a time.
    void Get_Adr_from_LN(const BusMeldung& m);
    // The flags of the selection by mouse cleared (on entering the view).
    void flagsLoeschen();

    bool AdrAusBus = false;
    // Which kind of address waits: Empfaenger or Magnetartikel.
    BusMeldung::Art AdrArt = BusMeldung::Keine;
    Long AdrWert = 0;
    Long NavikAdrWert = 0;
    int SensorRichtung = -1;
    bool Sensor2Wartet = false;
    int Sensor2X = 0, Sensor2Y = 0;

private:
    // The click chooses the cell of input 1 for Sensor2X, Sensor2Y.
    void sensor2Verbinden(int x, int y);
    // The receiver on the bus is put into the cell; true when stored.
    bool empfaengerVomBus(int x, int y, int typ);
    // The accessory address into the cell; true when stored.
    bool magnetartikelVomBus(int x, int y, int typ);
    // The cell drawn again, the flags cleared, the project marked changed if it was.
    void neuZeichnen(int x, int y, bool geaendert);

    Anlage& anlage_;
    const Elementkatalog& katalog_;
    LocoNetLink& link_;
    Benutzer& benutzer_;
    Zellanzeige& zellen_;
    AdrAnzeige& anzeige_;
    // A question, a dialog or an exchange of this view is open.
    bool offen_ = false;
};

} // namespace planor
