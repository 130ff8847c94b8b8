// The error report: its box, its log file, and the guard every procedure runs under.
#include "core/fehlerbehandlung.h"

#include "core/panel_model.h"
#include "tests/support/berichte.h"
#include "tests/support/daten.h"

using namespace planor;
using namespace planor::test;

namespace {

class Fehlerbericht : public MitFehlerbericht {};

// A guarded procedure with the default result 0.
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
    EXPECT_EQ(datei(logDatei()),
              QByteArray("### 21.11.2026 - 09:05:07 :\r\n"
                         "     Fehler in : LocoNet : Read_Lncv\r\n"
                         "     Fehlernummer: 9 -> Index au\xDF" "erhalb des g\xFCltigen Bereichs\r\n"
                         "### 21.11.2026 - 09:06:08 :\r\n"
                         "     Fehler in : Funktionen : X\r\n"
                         "     Fehlernummer: 6 -> \xDC" "berlauf\r\n"));
    // A log that cannot be written still leaves the box.
    FehlerbehandlungEinrichten({ordner.filePath(QStringLiteral("fehlt/Fehler.log")), &uhr, &berichte});
    Fehlerbehandlung(QStringLiteral("A : B"), Laufzeitfehler(Fehlernummer::PfadDateiZugriff));
    EXPECT_EQ(berichte.texte.size(), 3);
}

TEST_F(Fehlerbericht, GuardReportsUnderItsLabelAndTheCallerCarriesOn)
{
    Anlage a;
    a.XY(5, 1).XY_ADR1 = 41;
    EXPECT_EQ(Prozedur(a, 5), 42);
    EXPECT_TRUE(berichte.texte.isEmpty());
    int schritte = 0;
    geschuetzt("Funktionen : Aussen", [&] {
        schritte += Prozedur(a, 100) + 1;
        schritte += Prozedur(a, -1) + 1;
        throw std::bad_alloc();
    });
    geschuetzt("Funktionen : Sonst", [] { throw std::logic_error("x"); });
    EXPECT_EQ(schritte, 2) << "each failed call gave its default and the caller went on";
    ASSERT_EQ(berichte.texte.size(), 4);
    EXPECT_TRUE(berichte.texte.at(0).startsWith(
        QStringLiteral(" Fehler in : Funktionen : Prozedur\n Fehlernummer: 9 -> Index außerhalb des gültigen Bereichs\n")));
    EXPECT_TRUE(berichte.texte.at(2).startsWith(
        QStringLiteral(" Fehler in : Funktionen : Aussen\n Fehlernummer: 7 -> Nicht genügend Speicher")));
    EXPECT_TRUE(berichte.texte.at(3).contains(
        QStringLiteral("Fehlernummer: 5 -> Unzulässiger Prozeduraufruf oder ungültiges Argument")));
}
