// Which menus the views and the lock leave enabled, widget-free.
#include "editor/ansicht.h"

#include <gtest/gtest.h>

using namespace planor;

namespace {

TEST(Ansicht, ClipboardMenusByViewLockAndSelection)
{
    struct Fall {
        ClipBoardZustand ein;
        bool copy, cut, paste, hervorheben, del, drehen, drehenAendern;
    };
    // Rows: view, locked, selection tool, something selected, clipboard filled.
    const Fall faelle[] = {
        {{1, false, true, true, false}, true, true, false, true, true, true, true},
        {{1, false, true, false, true}, false, false, true, true, true, true, true},
        {{1, false, false, true, true}, false, false, false, false, true, true, true},
        {{1, true, true, true, true}, false, false, false, false, false, false, true},
        {{2, false, true, true, true}, false, false, false, false, false, true, false},
        {{3, false, true, true, true}, false, false, false, false, false, true, false},
        {{4, false, true, true, true}, false, false, false, false, false, true, false},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(testing::Message() << "view " << f.ein.EditMode << " locked " << f.ein.gesperrt);
        const ClipBoardMenus m = ClipBoardFlags(f.ein);
        EXPECT_EQ(m.CopyMenu, f.copy);
        EXPECT_EQ(m.CutMenu, f.cut);
        EXPECT_EQ(m.PasteMenu, f.paste);
        EXPECT_EQ(m.hervorheben, f.hervorheben);
        EXPECT_EQ(m.DelMenu, f.del);
        if (f.drehenAendern) { // elsewhere the rotate menu stays as it was
            EXPECT_EQ(m.EleDrehenMenu, f.drehen);
        }
        EXPECT_EQ(m.eleDrehenAendern, f.drehenAendern);
    }
}

TEST(Ansicht, LockDecidesTitleAndMenus)
{
    const SperrZustand offen = GleisPlan_Lock_Unlock(false);
    EXPECT_TRUE(offen.GPLockMenu);
    EXPECT_EQ(offen.titel, QStringLiteral("NAVIK/TOBRA - Planor   ---   Gleisplan änderbar   ---"));
    EXPECT_FALSE(offen.ProgHauptMenu);
    EXPECT_TRUE(offen.KonfHauptMenu);
    const SperrZustand zu = GleisPlan_Lock_Unlock(true);
    EXPECT_FALSE(zu.GPLockMenu);
    EXPECT_EQ(zu.titel, QStringLiteral("NAVIK/TOBRA - Planor   ---   Gleisplan nicht änderbar   ---"));
    EXPECT_TRUE(zu.ProgHauptMenu);
    EXPECT_FALSE(zu.KonfHauptMenu);
}

}  // namespace
