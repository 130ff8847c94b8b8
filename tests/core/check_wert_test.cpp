// Overview "Shared types and helpers": Check_Wert, Nur_Ziffern, Vorhanden.
#include "core/check_wert.h"

#include <gtest/gtest.h>

using namespace planor;

namespace {

const QString Label = QStringLiteral("Adresse:");

}  // namespace

TEST(Overview, CheckWertRefusesAValueAboveTheMaximum)
{
    const CheckWertErgebnis zuGross = Check_Wert(Label, QStringLiteral("256"), 255);
    EXPECT_FALSE(zuGross.gueltig);
    EXPECT_EQ(zuGross.labelText, QStringLiteral(" --- Wert zu groß !! ---"));

    const CheckWertErgebnis grenze = Check_Wert(Label, QStringLiteral("255"), 255);
    EXPECT_TRUE(grenze.gueltig);
    EXPECT_EQ(grenze.labelText, Label) << "an accepted value restores the label";
}

TEST(Overview, CheckWertCountsEmptyAndDashAsZero)
{
    EXPECT_EQ(Feldwert(QString()), 0);
    EXPECT_EQ(Feldwert(QStringLiteral("-")), 0);
    EXPECT_EQ(Feldwert(QStringLiteral("42")), 42);
    EXPECT_TRUE(Check_Wert(Label, QString(), 0).gueltig);
    EXPECT_TRUE(Check_Wert(Label, QStringLiteral("-"), 0).gueltig);
    // With a minimum above 0, "no value" is a value too small.
    const CheckWertErgebnis leer = Check_Wert(Label, QStringLiteral("-"), 99, 9);
    EXPECT_FALSE(leer.gueltig);
    EXPECT_EQ(leer.labelText, QStringLiteral(" --- Wert zu klein !! ---"));
}

TEST(Overview, CheckWertWithAMinimumRefusesBelowIt)
{
    EXPECT_FALSE(Check_Wert(Label, QStringLiteral("8"), 99, 9).gueltig);
    EXPECT_TRUE(Check_Wert(Label, QStringLiteral("9"), 99, 9).gueltig);
    EXPECT_TRUE(Check_Wert(Label, QStringLiteral("99"), 99, 9).gueltig);
    EXPECT_EQ(Check_Wert(Label, QStringLiteral("100"), 99, 9).labelText, WertZuGrossTxt);
    // A far too long number is still just too large.
    EXPECT_FALSE(Check_Wert(Label, QString(400, u'9'), 99, 9).gueltig);
}

TEST(Overview, NurZiffernLetsDigitsAndBackspacePass)
{
    for (int taste = '0'; taste <= '9'; ++taste)
        EXPECT_EQ(Nur_Ziffern(taste), taste);
    EXPECT_EQ(Nur_Ziffern(8), 8);
    for (int taste : {int('-'), int('a'), int('Z'), int(' '), int('.'), int(','), 13, 27, 0x00E4})
        EXPECT_EQ(Nur_Ziffern(taste), 0) << taste;
}

TEST(Overview, VorhandenGivesTheIndexOrMinusOne)
{
    const QStringList liste = {QStringLiteral(" Bhf A"), QStringLiteral("Bhf B"), QStringLiteral("Bhf B")};
    EXPECT_EQ(Vorhanden(liste, QStringLiteral("Bhf B")), 1) << "the first occurrence";
    EXPECT_EQ(Vorhanden(liste, QStringLiteral(" Bhf A")), 0);
    EXPECT_EQ(Vorhanden(liste, QStringLiteral("Bhf A")), -1) << "the comparison is exact";
    EXPECT_EQ(Vorhanden(liste, QStringLiteral("bhf b")), -1);
    EXPECT_EQ(Vorhanden(QStringList(), QStringLiteral("x")), -1);
}
