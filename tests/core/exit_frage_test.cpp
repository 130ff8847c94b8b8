// The question on leaving the program: what it saves, and whether it ends.
#include "core/exit_frage.h"

#include "core/panel_model.h"
#include "tests/support/berichte.h"
#include "tests/support/daten.h"

using namespace planor;
using namespace planor::test;

namespace {

// Records the order of what ExitFrage does and answers as told.
struct Ablauf final : ExitFrageUmgebung {
    void Save_conf() override { schritte << QStringLiteral("Save_conf"); }
    Antwort frage(const QString& titel, const QString& text) override
    {
        schritte << titel + u'|' + text;
        return antwort;
    }
    std::optional<QString> speichernUnter() override
    {
        schritte << QStringLiteral("speichernUnter");
        return wahl;
    }
    void Save_plt() override
    {
        schritte << QStringLiteral("Save_plt");
        if (scheitern)
            throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
    }

    Antwort antwort = Antwort::Abbrechen;
    std::optional<QString> wahl;
    bool scheitern = false;
    QStringList schritte;
};

}  // namespace

class Programmende : public MitFehlerbericht {};

TEST_F(Programmende, StepsByAnswer)
{
    const QString F = QStringLiteral("Achtung: Sie haben das Programm beendet!|Sollen die Daten gespeichert werden?");
    const QString C = QStringLiteral("Save_conf"), U = QStringLiteral("speichernUnter"), P = QStringLiteral("Save_plt");
    schreiben(ordner.filePath(QStringLiteral("Da.anl")), {});
    const struct Fall {
        Integer geaendert;
        Antwort antwort;
        const char* file;  // the project file; "Da.anl" exists
        std::optional<QString> wahl;
        bool scheitern;
        QStringList schritte;
        bool endet;
    } faelle[] = {
        {0, Antwort::Ja, "Da.anl", {}, false, {C}, true},
        // the settings are rewritten even when leaving is cancelled
        {1, Antwort::Abbrechen, "Da.anl", {}, false, {C, F}, false},
        {1, Antwort::Nein, "Da.anl", {}, false, {C, F}, true},
        {1, Antwort::Ja, "Da.anl", {}, false, {C, F, P}, true},
        {1, Antwort::Ja, "Weg.anl", QStringLiteral("/home/anna/Neu/Neu.anl"), false, {C, F, U, P}, true},
        // yes, then no name chosen: the program still ends, unsaved
        {1, Antwort::Ja, "Weg.anl", {}, false, {C, F, U}, true},
        // a failed save keeps the program running, with the error report
        {1, Antwort::Ja, "Da.anl", {}, true, {C, F, P}, false},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(&f - faelle);
        Anlage anlage;
        anlage.Pfad = ordner.path() + u'/';
        anlage.File = QLatin1String(f.file);
        anlage.PultGeaendert = f.geaendert;
        Ablauf ablauf;
        ablauf.antwort = f.antwort;
        ablauf.wahl = f.wahl;
        ablauf.scheitern = f.scheitern;
        EXPECT_EQ(ExitFrage(anlage, ablauf), f.endet);
        EXPECT_EQ(ablauf.schritte, f.schritte);
        if (f.wahl) {
            EXPECT_EQ(anlage.Pfad + anlage.File, *f.wahl) << "saved where chosen";
        }
        EXPECT_EQ(berichte.texte.size(), f.scheitern ? 1 : 0);
        if (f.scheitern) {
            EXPECT_TRUE(berichte.texte.front().startsWith(QStringLiteral(" Fehler in : Funktionen : ExitFrage\n")));
        }
        berichte.texte.clear();
    }
}
