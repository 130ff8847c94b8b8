// Part 3.2: TauschForm's handlers.
#include "editor/tausch_form.h"

#include "core/panel_model.h"

#include <gtest/gtest.h>

using namespace planor;

TEST(Part3_2_TauschForm, BoxesFollowTheCellsMarkers)
{
    Anlage a;
    a.XY(4, 5).XY_STATTAUSCH2 = 1;
    a.XY(4, 5).XY_ADRTAUSCH = 1;
    const TauschForm_Zustand z = TauschForm_laden(a, 4, 5);
    EXPECT_FALSE(z.TauschChk1);
    EXPECT_TRUE(z.TauschChk2);
    EXPECT_TRUE(z.TauschChk3);
}

TEST(Part3_2_TauschForm, OkStoresTheMarkersAndChangesTheProject)
{
    Anlage a;
    a.XY(4, 5).XY_STATTAUSCH2 = 1;
    TauschForm_OK({true, false, true}, a, 4, 5);
    EXPECT_EQ(a.XY(4, 5).XY_STATTAUSCH1, 1);
    EXPECT_EQ(a.XY(4, 5).XY_STATTAUSCH2, 0);
    EXPECT_EQ(a.XY(4, 5).XY_ADRTAUSCH, 1);
    EXPECT_EQ(a.PultGeaendert, 1);
}
