// Part 2.6 btnTraceOnOff: the trace file's name, encoding and line format.
#include "loconet/monitor_verlauf.h"

#include "tests/support/daten.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace planor;

TEST(Part2_6, TraceNameIsDateTwoUnderscoresAndTime)
{
    EXPECT_EQ(VerlaufName(QDateTime(QDate(2026, 11, 1), QTime(9, 5, 7))), QStringLiteral("01.11.2026__09_05_07"));
}

TEST(Part2_6, TraceLinesAreWindows1252WithCrLfAndTheTimeOfDay)
{
    QTemporaryDir ordner;
    const QString pfad = ordner.filePath(QStringLiteral("t.txt"));
    MonitorVerlauf verlauf;
    QString fehler;
    ASSERT_TRUE(verlauf.oeffnen(pfad, fehler)) << qPrintable(fehler);
    EXPECT_TRUE(verlauf.offen());
    verlauf.zeile(QTime(0, 1, 2, 345), QStringLiteral("Rückmelder 3 = frei"));
    // Step 6: an empty text writes nothing.
    verlauf.zeile(QTime(0, 1, 3), QString());
    verlauf.zeile(QTime(23, 59, 59, 999), QStringLiteral(" STOP: Monitor angehalten!"));
    // Written through at once: the file holds the lines before it is closed.
    EXPECT_EQ(test::datei(pfad), QByteArray("000062,345 - R\xfc" "ckmelder 3 = frei\r\n"
                                            "086399,999 -  STOP: Monitor angehalten!\r\n"));
    verlauf.schliessen();
    EXPECT_FALSE(verlauf.offen());
    verlauf.zeile(QTime(1, 0), QStringLiteral("danach"));
    EXPECT_EQ(test::datei(pfad).count('\n'), 2);
}

TEST(Part2_6, TraceThatCannotBeWrittenSaysWhy)
{
    MonitorVerlauf verlauf;
    QString fehler;
    EXPECT_FALSE(verlauf.oeffnen(QStringLiteral("/nicht/vorhanden/t.txt"), fehler));
    EXPECT_FALSE(verlauf.offen());
    EXPECT_TRUE(fehler.startsWith(QStringLiteral("Die Datei \"/nicht/vorhanden/t.txt\" kann nicht geschrieben werden")))
        << qPrintable(fehler);
}
