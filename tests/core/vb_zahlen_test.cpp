#include "core/vb_zahlen.h"

#include "core/laufzeitfehler.h"

#include <gtest/gtest.h>

using namespace planor;

TEST(VbZahlen, ValReadsTheLeadingNumberSkippingBlanks)
{
    EXPECT_EQ(Val(QStringLiteral("  3 ")), 3);
    EXPECT_EQ(Val(QStringLiteral(" -1 ")), -1);
    EXPECT_EQ(Val(QStringLiteral("1 2 3abc")), 123);
    EXPECT_EQ(Val(QStringLiteral("12.5x")), 12.5);
    EXPECT_EQ(Val(QStringLiteral("abc")), 0);
    EXPECT_EQ(Val(QString()), 0);
    EXPECT_EQ(Val(QStringLiteral("-")), 0);
    EXPECT_EQ(Val(QStringLiteral("1E3")), 1000);
    EXPECT_EQ(Val(QStringLiteral("&H1F")), 31);
    EXPECT_EQ(Val(QStringLiteral("&HFFFF")), -1);
    EXPECT_EQ(Val(QStringLiteral("&O17")), 15);
}

TEST(VbZahlen, CIntRoundsHalfToEvenAndOverflowsWithError6)
{
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt(-32768), -32768);
    EXPECT_EQ(CInt(32767), 32767);
    try {
        CInt(32768);
        FAIL() << "no overflow";
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.nummer(), 6);
        EXPECT_EQ(e.beschreibung(), QStringLiteral("Überlauf"));
    }
    EXPECT_THROW(CLng(3e9), Laufzeitfehler);
}

TEST(VbZahlen, ValOfDigitsNoDoubleCanHoldOverflows)
{
    EXPECT_THROW(Val(QString(400, u'9')), Laufzeitfehler);
    EXPECT_THROW(Val(QStringLiteral("1E999")), Laufzeitfehler);
}

TEST(VbZahlen, StrPutsABlankBeforeNumbersThatAreNotNegative)
{
    EXPECT_EQ(Str(16), QStringLiteral(" 16"));
    EXPECT_EQ(Str(0), QStringLiteral(" 0"));
    EXPECT_EQ(Str(-1), QStringLiteral("-1"));
}
