#pragma once
// The four views of the panel and what the menus allow in each.
// Widget-free: the main window applies these states to its menus.

#include <QString>

namespace planor {

enum Ansicht { Gleisplan = 1, Adressen = 2, Tabelle = 3, Monitor = 4 };

// The menu text and the information text of each view.
QString AnsichtMenuText(int editMode);
QString AnsichtInfoText(int editMode);

struct ClipBoardZustand {
    int EditMode = Gleisplan;
    bool gesperrt = false;    // PultOptGPLocked
    bool MarkenMode = false;  // the selection tool is chosen
    bool MarkAktiv = false;
    bool ClipVoll = false;
};

struct ClipBoardMenus {
    bool CopyMenu = false, CutMenu = false, PasteMenu = false, DelMenu = false, EleDrehenMenu = false;
    bool eleDrehenAendern = false;  // whether EleDrehenMenu follows the lock now
    bool hervorheben = false;       // the highlight (selection) of Pult
};

// ClipBoardFlags: the edit menus after a change of selection or view.
ClipBoardMenus ClipBoardFlags(const ClipBoardZustand& z);

struct SperrZustand {
    bool GPLockMenu = false;  // checked
    QString titel;
    bool ProgHauptMenu = false;
    bool KonfHauptMenu = false;
};

// GleisPlan_Lock_Unlock: the lock decides title and menus.
SperrZustand GleisPlan_Lock_Unlock(bool gesperrt);

}  // namespace planor
