// Conventions "Failures": the error report and the guard of every procedure.
#include "core/fehlerbehandlung.h"

#include "core/panel_model.h"
#include "tests/support/berichte.h"

#include <QFile>

using namespace planor;

namespace {

class Fehlerbericht : public test::MitFehlerbericht {};

QByteArray lesen(const QString& datei)
{
    QFile f(datei);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A procedure of the spec's shape: guarded, default result 0.
int Prozedur(Anlage& a, int x)
{
    return geschuetzt("Funktionen : Prozedur", 0, [&] { return int(a.XY(x, 1).XY_ADR1) + 1; });
}

}  // namespace

TEST_F(Fehlerbericht, BoxShowsTitleAndExactLines)
{
    Fehlerbehandlung(QStringLiteral("Funktionen : Load_conf"), Laufzeitfehler(Fehlernummer::DateiNichtGefunden));
    ASSERT_EQ(berichte.texte.size(), 1);
    EXPECT_EQ(berichte.titel_.front(), QStringLiteral("--- Programmfehler ---"));
    EXPECT_EQ(berichte.texte.front(),
              QStringLiteral(" Fehler in : Funktionen : Load_conf\n"
                             " Fehlernummer: 53 -> Datei nicht gefunden\n"
                             "\n\n"
                             " Bei einer Fehlerbeschreibung bitte das File:\n")
                  + logDatei() + QStringLiteral("\n an die Service-Adresse mitsenden."));
}

TEST_F(Fehlerbericht, LogGetsThreeLinesAppendedInWindows1252)
{
    Fehlerbehandlung(QStringLiteral("LocoNet : Read_Lncv"), Laufzeitfehler(Fehlernummer::IndexAusserhalb));
    uhr.weiter(61'000);
    Fehlerbehandlung(QStringLiteral("Funktionen : X"), Laufzeitfehler(Fehlernummer::Ueberlauf));
    EXPECT_EQ(lesen(logDatei()),
              QByteArray("### 21.11.2026 - 09:05:07 :\r\n"
                         "     Fehler in : LocoNet : Read_Lncv\r\n"
                         "     Fehlernummer: 9 -> Index au\xDF" "erhalb des g\xFCltigen Bereichs\r\n"
                         "### 21.11.2026 - 09:06:08 :\r\n"
                         "     Fehler in : Funktionen : X\r\n"
                         "     Fehlernummer: 6 -> \xDC" "berlauf\r\n"));
}

TEST_F(Fehlerbericht, LogThatCannotBeWrittenStillShowsTheReport)
{
    FehlerbehandlungEinrichten({ordner.filePath(QStringLiteral("fehlt/gibt/es/nicht/Fehler.log")), &uhr, &berichte});
    Fehlerbehandlung(QStringLiteral("A : B"), Laufzeitfehler(Fehlernummer::PfadDateiZugriff));
    EXPECT_EQ(berichte.texte.size(), 1);
}

TEST_F(Fehlerbericht, GuardReportsUnderItsLabelAndReturnsTheDefault)
{
    Anlage a;
    a.XY(5, 1).XY_ADR1 = 41;
    EXPECT_EQ(Prozedur(a, 5), 42);
    EXPECT_TRUE(berichte.texte.isEmpty());

    EXPECT_EQ(Prozedur(a, 100), 0);
    ASSERT_EQ(berichte.texte.size(), 1);
    EXPECT_TRUE(berichte.texte.front().startsWith(
        QStringLiteral(" Fehler in : Funktionen : Prozedur\n Fehlernummer: 9 -> Index außerhalb des gültigen Bereichs\n")));
}

TEST_F(Fehlerbericht, CallerCarriesOnAfterAGuardedCallFailed)
{
    Anlage a;
    int schritte = 0;
    geschuetzt("Funktionen : Aussen", [&] {
        Prozedur(a, -1);  // reports on its own and gives 0
        ++schritte;
        Prozedur(a, 1000);
        ++schritte;
    });
    EXPECT_EQ(schritte, 2);
    EXPECT_EQ(berichte.texte.size(), 2);
    EXPECT_TRUE(berichte.texte.at(0).contains(QStringLiteral("Funktionen : Prozedur")));
}

TEST_F(Fehlerbericht, OtherFailuresAreReportedToo)
{
    geschuetzt("Funktionen : Speicher", [] { throw std::bad_alloc(); });
    geschuetzt("Funktionen : Sonst", [] { throw std::logic_error("x"); });
    ASSERT_EQ(berichte.texte.size(), 2);
    EXPECT_TRUE(berichte.texte.at(0).contains(QStringLiteral("Fehlernummer: 7 -> Nicht genügend Speicher")));
    EXPECT_TRUE(berichte.texte.at(1).contains(
        QStringLiteral("Fehlernummer: 5 -> Unzulässiger Prozeduraufruf oder ungültiges Argument")));
}

TEST(Fehlertexte, TheNumbersOfTheSpecNotes)
{
    EXPECT_EQ(Fehlerbeschreibung(5), QStringLiteral("Unzulässiger Prozeduraufruf oder ungültiges Argument"));
    EXPECT_EQ(Fehlerbeschreibung(6), QStringLiteral("Überlauf"));
    EXPECT_EQ(Fehlerbeschreibung(9), QStringLiteral("Index außerhalb des gültigen Bereichs"));
    EXPECT_EQ(Fehlerbeschreibung(13), QStringLiteral("Typen unverträglich"));
    EXPECT_EQ(Fehlerbeschreibung(53), QStringLiteral("Datei nicht gefunden"));
    EXPECT_EQ(Fehlerbeschreibung(75), QStringLiteral("Fehler beim Zugriff auf Pfad/Datei"));
}
