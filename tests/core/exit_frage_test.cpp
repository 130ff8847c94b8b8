// Part 1.1: ExitFrage.
#include "core/exit_frage.h"

#include "core/panel_model.h"
#include "tests/support/berichte.h"

#include <QFile>

using namespace planor;

namespace {

// Records the order of what ExitFrage does and answers as told.
struct Ablauf final : ExitFrageUmgebung {
    void Save_conf() override { schritte << QStringLiteral("Save_conf"); }
    Antwort frage(const QString& titel, const QString& text) override
    {
        schritte << QStringLiteral("frage");
        gefragt = titel + u'|' + text;
        return antwort;
    }
    std::optional<QString> speichernUnter() override
    {
        schritte << QStringLiteral("speichernUnter");
        return wahl;
    }
    void Save_plt() override { schritte << QStringLiteral("Save_plt"); }

    Antwort antwort = Antwort::Abbrechen;
    std::optional<QString> wahl;
    QStringList schritte;
    QString gefragt;
};

class Part1_1 : public test::MitFehlerbericht {
protected:
    Anlage anlage;
    Ablauf ablauf;
};

}  // namespace

TEST_F(Part1_1, UnchangedProjectEndsAfterSavingTheSettings)
{
    anlage.PultGeaendert = 0;
    EXPECT_TRUE(ExitFrage(anlage, ablauf));
    EXPECT_EQ(ablauf.schritte, QStringList{QStringLiteral("Save_conf")});
}

TEST_F(Part1_1, CancelledExitHasAlreadyRewrittenTheSettings)
{
    anlage.PultGeaendert = 1;
    ablauf.antwort = Antwort::Abbrechen;
    EXPECT_FALSE(ExitFrage(anlage, ablauf));
    EXPECT_EQ(ablauf.schritte, (QStringList{QStringLiteral("Save_conf"), QStringLiteral("frage")}));
    EXPECT_EQ(ablauf.gefragt,
              QStringLiteral("Achtung: Sie haben das Programm beendet!|Sollen die Daten gespeichert werden?"));
}

TEST_F(Part1_1, NoEndsWithoutSaving)
{
    anlage.PultGeaendert = 1;
    ablauf.antwort = Antwort::Nein;
    EXPECT_TRUE(ExitFrage(anlage, ablauf));
    EXPECT_FALSE(ablauf.schritte.contains(QStringLiteral("Save_plt")));
}

TEST_F(Part1_1, YesSavesToAnExistingProjectFile)
{
    QFile datei(ordner.filePath(QStringLiteral("Demo.anl")));
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
    datei.close();
    anlage.Pfad = ordner.path() + u'/';
    anlage.File = QStringLiteral("Demo.anl");
    anlage.PultGeaendert = 1;
    ablauf.antwort = Antwort::Ja;
    EXPECT_TRUE(ExitFrage(anlage, ablauf));
    EXPECT_EQ(ablauf.schritte,
              (QStringList{QStringLiteral("Save_conf"), QStringLiteral("frage"), QStringLiteral("Save_plt")}));
}

TEST_F(Part1_1, YesWithoutAFileAsksForANameAndSavesThere)
{
    anlage.Pfad = QStringLiteral("/gibt/es/nicht/");
    anlage.File = QStringLiteral("Weg.anl");
    anlage.PultGeaendert = 1;
    ablauf.antwort = Antwort::Ja;
    ablauf.wahl = QStringLiteral("/home/anna/Anlagen/Neu/Neu.anl");
    EXPECT_TRUE(ExitFrage(anlage, ablauf));
    EXPECT_EQ(ablauf.schritte.last(), QStringLiteral("Save_plt"));
    EXPECT_EQ(anlage.Pfad, QStringLiteral("/home/anna/Anlagen/Neu/"));
    EXPECT_EQ(anlage.File, QStringLiteral("Neu.anl"));
}

TEST_F(Part1_1, YesWithCancelledDialogEndsWithoutSavingAsDesigned)
{
    anlage.PultGeaendert = 1;
    ablauf.antwort = Antwort::Ja;
    EXPECT_TRUE(ExitFrage(anlage, ablauf));
    EXPECT_EQ(ablauf.schritte.last(), QStringLiteral("speichernUnter"));
}

TEST_F(Part1_1, ErrorWhileSavingKeepsTheProgramRunning)
{
    struct Scheitert final : ExitFrageUmgebung {
        void Save_conf() override {}
        Antwort frage(const QString&, const QString&) override { return Antwort::Ja; }
        std::optional<QString> speichernUnter() override { return QStringLiteral("/x/y.anl"); }
        void Save_plt() override { throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff); }
    } scheitert;
    anlage.PultGeaendert = 1;
    EXPECT_FALSE(ExitFrage(anlage, scheitert));
    ASSERT_EQ(berichte.texte.size(), 1);
    EXPECT_TRUE(berichte.texte.front().startsWith(QStringLiteral(" Fehler in : Funktionen : ExitFrage\n")));
}
