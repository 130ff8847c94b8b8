// Part 3.3: views, menus and the lock, widget-free.
#include "editor/ansicht.h"

#include <gtest/gtest.h>

using namespace planor;

TEST(Part3_3, MenuAndInformationTextsOfTheViews)
{
    EXPECT_EQ(AnsichtMenuText(1), QStringLiteral("Gleisplan"));
    EXPECT_EQ(AnsichtInfoText(2), QStringLiteral("Weichen-, Signal- und NAVIK/TOBRA-Adressen anzeigen"));
    EXPECT_EQ(AnsichtMenuText(3), QStringLiteral("Tabellenansicht"));
    EXPECT_EQ(AnsichtInfoText(3), QStringLiteral("Tabellenmodus"));
    EXPECT_EQ(AnsichtInfoText(4), QStringLiteral("Monitormodus"));
}

TEST(Part3_3, ClipboardMenusFollowSelectionToolSelectionAndClipboard)
{
    ClipBoardMenus m = ClipBoardFlags({1, false, true, true, false});
    EXPECT_TRUE(m.CopyMenu);
    EXPECT_TRUE(m.CutMenu);
    EXPECT_FALSE(m.PasteMenu);
    EXPECT_TRUE(m.hervorheben);
    EXPECT_TRUE(m.DelMenu);
    EXPECT_TRUE(m.EleDrehenMenu);

    m = ClipBoardFlags({1, false, true, false, true});
    EXPECT_FALSE(m.CopyMenu);
    EXPECT_TRUE(m.PasteMenu);

    m = ClipBoardFlags({1, false, false, true, true});
    EXPECT_FALSE(m.CopyMenu || m.CutMenu || m.PasteMenu || m.hervorheben);
    EXPECT_TRUE(m.DelMenu);
}

TEST(Part3_3, LockedPlanDisablesEditing)
{
    const ClipBoardMenus m = ClipBoardFlags({1, true, true, true, true});
    EXPECT_FALSE(m.CopyMenu || m.CutMenu || m.PasteMenu || m.DelMenu || m.EleDrehenMenu || m.hervorheben);
    EXPECT_TRUE(m.eleDrehenAendern);
}

TEST(Part3_3, OtherViewsDisableTheClipboardAndDelete)
{
    for (int ansicht : {2, 3, 4}) {
        const ClipBoardMenus m = ClipBoardFlags({ansicht, false, true, true, true});
        EXPECT_FALSE(m.CopyMenu || m.CutMenu || m.PasteMenu || m.DelMenu || m.hervorheben);
        EXPECT_FALSE(m.eleDrehenAendern) << "EleDrehenMenu is left as it is";
    }
}

TEST(Part3_3, LockDecidesTitleAndMenus)
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
