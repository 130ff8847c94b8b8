#pragma once
// The fields of the project file in the order they are written. The reader
// and the writer both go by these tables, so a field cannot be written under
// one name and read under another.

#include "core/panel_model.h"

namespace planor::projektfelder {

// A cell's fields beside XY and XY_File; XY_ArtNr is the one Long.
struct Zellfeld {
    const char* schluessel;
    Integer XY_Typ::*integer;
    Long XY_Typ::*lang;
};
inline constexpr Zellfeld Zelle[] = {
    {"XY_ADR1", &XY_Typ::XY_ADR1, nullptr},
    {"XY_ADR2", &XY_Typ::XY_ADR2, nullptr},
    {"XY_ADR3", &XY_Typ::XY_ADR3, nullptr},
    {"XY_BETR", &XY_Typ::XY_BETR, nullptr},
    {"XY_ArtNr", nullptr, &XY_Typ::XY_ArtNr},
    {"XY_Version", &XY_Typ::XY_Version, nullptr},
    {"XY_BhfIDX", &XY_Typ::XY_BhfIDX, nullptr},
    {"XY_GleisIDX", &XY_Typ::XY_GleisIDX, nullptr},
    {"XY_STATTAUSCH1", &XY_Typ::XY_STATTAUSCH1, nullptr},
    {"XY_STATTAUSCH2", &XY_Typ::XY_STATTAUSCH2, nullptr},
    {"XY_ADRTAUSCH", &XY_Typ::XY_ADRTAUSCH, nullptr},
    {"XY_SenStat", &XY_Typ::XY_SenStat, nullptr},
    {"XY_SenX", &XY_Typ::XY_SenX, nullptr},
    {"XY_SenY", &XY_Typ::XY_SenY, nullptr},
};

// The numbers of a Bhf_Daten line after the station's name.
inline constexpr Integer Bhf_Typ::*BhfDaten[] = {
    &Bhf_Typ::Bhf_EinfX,     &Bhf_Typ::Bhf_EinfY,     &Bhf_Typ::Bhf_AusfX,   &Bhf_Typ::Bhf_AusfY,
    &Bhf_Typ::Bhf_Adr,       &Bhf_Typ::Bhf_EinfAktiv, &Bhf_Typ::Bhf_AusfAktiv, &Bhf_Typ::Bhf_UmfAktiv,
    &Bhf_Typ::Bhf_UmfLNCV,   &Bhf_Typ::Bhf_UmfAdr,    &Bhf_Typ::Bhf_Status66, &Bhf_Typ::Bhf_Art,
};

// A station's per-track lists, a line each.
struct Gleisliste {
    const char* schluessel;
    Feld<Integer, 0, MaxGleis> Bhf_Typ::*liste;
};
inline constexpr Gleisliste BhfListen[] = {
    {"Bhf_GleisX", &Bhf_Typ::Bhf_GleisX},
    {"Bhf_GleisY", &Bhf_Typ::Bhf_GleisY},
    {"Bhf_EinfFS", &Bhf_Typ::Bhf_EinfFS},
    {"Bhf_AusfFS", &Bhf_Typ::Bhf_AusfFS},
};

// The numbers of an FS_Daten line after the route's name.
inline constexpr Integer FS_Typ::*FsDaten[] = {
    &FS_Typ::FS_Nummer, &FS_Typ::FS_Sub, &FS_Typ::FS_Art, &FS_Typ::FS_RM, &FS_Typ::FS_Mag, &FS_Typ::FS_Kennung,
};

}  // namespace planor::projektfelder
