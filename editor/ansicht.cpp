#include "editor/ansicht.h"

#include <array>

namespace planor {

namespace {

struct AnsichtTexte {
    const char* menu;
    const char* info;
};

constexpr std::array<AnsichtTexte, 4> Texte = {{
    {"Gleisplan", "Gleisplan editieren"},
    {"Weichen-, Signal- und NAVIK/TOBRA-Adressen", "Weichen-, Signal- und NAVIK/TOBRA-Adressen anzeigen"},
    {"Tabellenansicht", "Tabellenmodus"},
    {"Monitor", "Monitormodus"},
}};

const AnsichtTexte& texte(int editMode)
{
    return Texte.at(static_cast<std::size_t>(editMode - 1));
}

}  // namespace

QString AnsichtMenuText(int editMode) { return QString::fromUtf8(texte(editMode).menu); }
QString AnsichtInfoText(int editMode) { return QString::fromUtf8(texte(editMode).info); }

ClipBoardMenus ClipBoardFlags(const ClipBoardZustand& z)
{
    ClipBoardMenus m;
    if (z.EditMode == Gleisplan) {
        if (!z.gesperrt && z.MarkenMode) {
            m.CopyMenu = m.CutMenu = z.MarkAktiv;
            m.PasteMenu = z.ClipVoll;
            m.hervorheben = true;
        }
        m.DelMenu = !z.gesperrt;
        m.EleDrehenMenu = !z.gesperrt;
        m.eleDrehenAendern = true;
    }
    return m;
}

SperrZustand GleisPlan_Lock_Unlock(bool gesperrt)
{
    SperrZustand s;
    s.GPLockMenu = !gesperrt;
    s.titel = gesperrt ? QStringLiteral("NAVIK/TOBRA - Planor   ---   Gleisplan nicht änderbar   ---")
                       : QStringLiteral("NAVIK/TOBRA - Planor   ---   Gleisplan änderbar   ---");
    s.ProgHauptMenu = gesperrt;
    s.KonfHauptMenu = !gesperrt;
    return s;
}

}  // namespace planor
