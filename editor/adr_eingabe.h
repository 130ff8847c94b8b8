#pragma once
// AdrEingabe: the addresses of an accessory, or the address and
// article number of a receiver, typed in for one cell. Widget-free form
// state and handlers; editor/ui/adr_eingabe_dialog.h binds the widgets.
// Controls: AdrLbl(0..2) and AdrTxt(0..2) (the receiver uses AdrTxt(0) for
// "Moduladresse:"), ArtNrCb, EingangOpt(0) "Eingang 1" and EingangOpt(1)
// "Eingang 2" (the input choice, shown for article 47240), OK_But,
// Abbruch_But.

#include "core/check_wert.h"
#include "core/vb_zahlen.h"

#include <QPoint>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace planor {

class Anlage;
class Benutzer;
class Elementkatalog;
class Zellanzeige;
struct XY_Typ;

// The article table of `ArtNrCb`, in order.
inline const QStringList ArtNrListe = {QStringLiteral("5330"), QStringLiteral("47120"), QStringLiteral("47130"),
    QStringLiteral("47190"), QStringLiteral("47220"), QStringLiteral("47230"), QStringLiteral("47240")};
// The single sensor, whose two inputs may lie in two cells.
inline constexpr Long Einzelsensor = 47240;

// One row of the field table.
struct AdrFelder {
    QString titel;
    // The labels of the visible fields, 1 to 3; a receiver has "Moduladresse:"
    // and "Art.Nr.:" (the second is the label of ArtNrCb, not a text field).
    QStringList beschriftungen;
    int obergrenze = 0;
    bool empfaenger = false;
};

// The row of a type code; none for a type without addresses (and for 840,
// 841, which have Uni_Adr).
std::optional<AdrFelder> AdrEingabeFelder(int typ);

// Where field `feld` (0..2) of an accessory of type `typ`
// stores: XY_ADR1, XY_ADR2 (521/522: XY_ADR3), XY_ADR3.
Integer& AdrFeldZiel(XY_Typ& zelle, int typ, int feld);

struct AdrEingabe_Zustand {
    int typ = 0;
    AdrFelder felder;
    std::array<QString, 3> AdrTxt; // the text fields; empty stands for 0
    int ArtNrCb = -1; // index into ArtNrListe, -1 none chosen
    int EingangOpt = 0; // 0 "Eingang 1", 1 "Eingang 2"
};

// How many text fields the form shows (a receiver: one).
int AdrTextfelder(const AdrEingabe_Zustand& z);
// EingangOpt is shown for a receiver whose chosen article is 47240.
bool EingangSichtbar(const AdrEingabe_Zustand& z);
// With "Eingang 2" the address comes from input 1's cell: the field is disabled.
bool AdrFeldFrei(const AdrEingabe_Zustand& z, int feld);
// Check_Wert of text field `feld` against the row's upper limit.
CheckWertErgebnis AdrFeldPruefen(const AdrEingabe_Zustand& z, int feld);
// OK is enabled when every shown field passes and a receiver has an article.
bool AdrOKFrei(const AdrEingabe_Zustand& z);

// The form filled from cell (x, y); none for a cell without addresses.
std::optional<AdrEingabe_Zustand> AdrEingabe_laden(const Anlage& anlage, const Elementkatalog& katalog, int x, int y);

enum class AdrEingabeErgebnis {
    Gespeichert, // the values are in the cell
    Abgelehnt, // chk_navik_adr refused the address; nothing stored, the form stays
    Sensor2Wartet, // 47240 input 2: the next click chooses the cell of input 1
    Abgebrochen, // cancel or closing the window
};

// chk_navik_adr: another module cell with the receiver address `adresse`,
// the partner of (x, y) excepted; none when the address is free (0 is no
// address and always free).
std::optional<QPoint> chk_navik_adr(const Anlage& anlage, const Elementkatalog& katalog, int x, int y, Long adresse);
// The refusal: "Fehler", "NAVIK/TOBRA Adresse schon vorhanden ", line break,
// "an Position: ", x, ", ", y, " !!".
void NavikAdrVorhandenMeldung(Benutzer& benutzer, QPoint position);

// The receiver's part of storing, shared with the assignment from the bus:
// XY_LNCV(0) := adresse; a changed article becomes XY_ArtNr with XY_Version 0
// and true is returned (the caller then makes it a new module). A cell that
// gets a module of its own leaves its sensor pair; the second input of a
// pair shows input 1's address, so it follows a change of it.
bool EmpfaengerEintragen(Anlage& anlage, Zellanzeige& anzeige, int x, int y, Long adresse, Long artNr);
// Undoes the link of a single sensor's two cells (XY_SenStat 1 and 2): a
// second input left alone becomes an empty cell of its element.
void SensorPaarLoesen(Anlage& anlage, Zellanzeige& anzeige, int x, int y);

// OK: stores the fields by type (as AdrFeldZiel tells). A
// receiver gets XY_LNCV(0) and XY_ArtNr; a changed article makes a new
// module (XY_Version 0 and Clear_Modul, which presets the general values by
// set_modul_optionen). Sets PultGeaendert and redraws by SetzeText.
AdrEingabeErgebnis AdrEingabe_OK(const AdrEingabe_Zustand& z, Anlage& anlage, const Elementkatalog& katalog,
    Zellanzeige& anzeige, Benutzer& benutzer, int x, int y);

} // namespace planor
