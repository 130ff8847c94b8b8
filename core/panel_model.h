#pragma once
// The panel data model. All data of one project ("Anlage") with the
// file formats' field names, widths and fixed bounds. Index 0 is allocated
// everywhere; the program uses indices from 1 except where stated.

#include "core/feld.h"
#include "core/vb_zahlen.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <type_traits>

namespace planor {

// Limits.
inline constexpr int MaxDimension = 99;        // XY indices 0..99 in both directions
inline constexpr int MinDimension = 9;         // DimensionenX/Y 9..99
inline constexpr int NeueDimension = 30;       // a new project's size
inline constexpr int MaxLNCV = 460;            // XY_LNCV indices 0..460
inline constexpr int MaxBhf = 20;              // stations 1..20
inline constexpr int MaxGleis = 13;            // tracks per station 1..13
inline constexpr int MaxFS = 300;              // routes 1..300
inline constexpr int MaxMagBfl = 100;          // commands per route 0..100
inline constexpr int MaxClip = 50;             // clipboard 0..50 in both directions

// The cell record XY(x, y); x the column, y the row. Plain data: a cell is
// copied as one block.
struct XY_Typ {
    Long XY_ArtNr = 0;
    Integer XY_Version = 0;
    Integer XY_Element = 0;  // index into ElementTab; the file stores the type code
    Feld<Integer, 0, MaxLNCV> XY_LNCV;
    Integer XY_ADR1 = 0;
    Integer XY_ADR2 = 0;
    Integer XY_ADR3 = 0;
    Integer XY_BETR = -1;  // operating mode, -1 none
    Integer XY_BlkMeld = 0;
    Integer XY_BhfIDX = 0;
    Integer XY_GleisIDX = 0;
    Integer XY_STATTAUSCH1 = 0;
    Integer XY_STATTAUSCH2 = 0;
    Integer XY_ADRTAUSCH = 0;
    Integer XY_SenStat = 0;
    Integer XY_SenX = 0;
    Integer XY_SenY = 0;

    bool operator==(const XY_Typ&) const = default;
};

// A station, Bhf(1..20); it exists exactly when Bhf_Name is not empty.
struct Bhf_Typ {
    QString Bhf_Name;
    Integer Bhf_Art = 0;
    Integer Bhf_EinfX = 0;
    Integer Bhf_EinfY = 0;
    Integer Bhf_AusfX = 0;
    Integer Bhf_AusfY = 0;
    Integer Bhf_Adr = 0;
    Feld<Integer, 0, MaxGleis> Bhf_GleisX;
    Feld<Integer, 0, MaxGleis> Bhf_GleisY;
    Feld<Integer, 0, MaxGleis> Bhf_EinfFS;
    Feld<Integer, 0, MaxGleis> Bhf_AusfFS;
    Integer Bhf_EinfAktiv = 0;
    Integer Bhf_AusfAktiv = 0;
    Integer Bhf_Status66 = 0;
    Integer Bhf_UmfAktiv = 0;
    Integer Bhf_UmfLNCV = 0;
    Integer Bhf_UmfAdr = 0;

    bool operator==(const Bhf_Typ&) const = default;
};

// A route, FS(1..300); it exists when FS_Nummer is not 0.
struct FS_Typ {
    QString FS_Name;
    Integer FS_Kennung = 0;
    Integer FS_Nummer = 0;
    Integer FS_Sub = 0;
    Integer FS_Art = 0;
    Integer FS_RM = 0;
    Integer FS_Mag = 0;
    Feld<QString, 0, MaxMagBfl> FS_MagBfl;
    Integer FS_MagAnz = 0;  // not saved
    // The two scratch values at the end of the record; not saved.
    Integer FS_Hilf1 = 0;
    Integer FS_Hilf2 = 0;

    bool operator==(const FS_Typ&) const = default;
};

// Basic settings stored with each project; the defaults are a new project's.
struct Grundeinst_Typ {
    Integer BlkZustMeld = 1;
    Integer BetriebszustSpeichern = 1;
    Integer LocoNetStatMessage = 1;
    Integer ZugKatRD2_47231 = 0;
    Integer LNCV14 = 0;
    Integer LNCV17 = 8;
    Integer LNCV18 = 10;
    Integer LNCV19 = 10;

    bool operator==(const Grundeinst_Typ&) const = default;
};

struct PultOpt_Typ {
    bool PultOptGPLocked = false;  // saved as an integer

    bool operator==(const PultOpt_Typ&) const = default;
};

// The project file and the modules' 16-bit values rely on these widths, and
// clearing or copying a cell copies the record as one block.
static_assert(std::is_same_v<decltype(XY_Typ::XY_ArtNr), std::int32_t>);
static_assert(std::is_same_v<decltype(XY_Typ::XY_Version), std::int16_t>);
static_assert(std::is_same_v<decltype(XY_Typ::XY_BETR), std::int16_t>);
static_assert(std::is_same_v<decltype(Grundeinst_Typ::LNCV14), std::int16_t>);
static_assert(std::is_same_v<decltype(PultOpt_Typ::PultOptGPLocked), bool>);
static_assert(std::is_trivially_copyable_v<XY_Typ>, "a cell copies as one block");

// The project object: one per process, holding everything a project is.
class Anlage {
public:
    Anlage();

    XY_Typ& XY(int x, int y) { return (*XY_)(x, y); }
    const XY_Typ& XY(int x, int y) const { return (*XY_)(x, y); }
    Bhf_Typ& Bhf(int i) { return (*Bhf_)(i); }
    const Bhf_Typ& Bhf(int i) const { return (*Bhf_)(i); }
    FS_Typ& FS(int i) { return (*FS_)(i); }
    const FS_Typ& FS(int i) const { return (*FS_)(i); }

    // The empty cell. Clearing a cell copies this whole record.
    const XY_Typ& XY_Leer() const { return XY_Leer_; }
    // The catalogue tells which element is "Leer".
    void setzeLeerElement(Integer leerIndex);

    // neues_pult_setzen, the records' part: every cell becomes the
    // template, every station and route slot is emptied (Bhf_Art included),
    // Bhf_Anz is 0 (nothing leaks into the next project).
    void neues_pult_setzen();

    Integer DimensionenX = NeueDimension;
    Integer DimensionenY = NeueDimension;
    Integer Bhf_Anz = 0;
    Grundeinst_Typ Grundeinst;
    PultOpt_Typ PultOpt;

    // The current project file: its folder (ending in the separator) and name.
    QString Pfad;
    QString File;
    // The dirty flag: 1 after any change to a cell, 0 after saving or loading.
    Integer PultGeaendert = 0;

private:
    XY_Typ XY_Leer_;
    std::unique_ptr<Feld2<XY_Typ, MaxDimension, MaxDimension>> XY_;
    std::unique_ptr<Feld<Bhf_Typ, 0, MaxBhf>> Bhf_;
    std::unique_ptr<Feld<FS_Typ, 0, MaxFS>> FS_;
};

// Shared helpers: the unsigned view of 16-bit values, Max and Min.
Long Int_to_Unsig(Integer wert);   // adds 65536 when negative
Integer Unsig_to_Int(Long wert);   // subtracts 65536 above 32767; error 6 if still too large
inline long long Max(long long a, long long b) { return a > b ? a : b; }
inline long long Min(long long a, long long b) { return a < b ? a : b; }

// The operating modes of XY_BETR and their labels.
inline constexpr int BetriebsartKeine = -1;
inline constexpr int BetriebsartMax = 10;
// The label of an operating mode 0..10; the empty text for -1 (none);
// any other value raises run-time error 9.
QString BetriebsartTxt(int betriebsart);

}  // namespace planor
