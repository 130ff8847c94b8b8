// The panel editor: placing, deleting, rotating, clipboard and undo.
#include "tests/editor/editor_umgebung.h"

#include "core/laufzeitfehler.h"

#include <QDir>

using namespace planor;
using namespace planor::test;

namespace {
using Pulteditor = MitPult;
}  // namespace

TEST_F(Pulteditor, SetzePultElementPlacesAFreshCellAndMarksTheProjectChanged)
{
    anlage.PultGeaendert = 0;
    anlage.XY(2, 3).XY_ADR1 = 99;
    setzen(2, 3, Weiche101);
    EXPECT_EQ(anlage.XY(2, 3).XY_Element, Weiche101);
    EXPECT_EQ(anlage.XY(2, 3).XY_ADR1, 0) << "the cell comes from the template";
    EXPECT_EQ(anlage.PultGeaendert, 1);
    EXPECT_TRUE(neuGezeichnet.contains(QPoint(2, 3)));
    EXPECT_EQ(editor.XY_Alt.XY_ADR1, 99);
}

TEST_F(Pulteditor, EraserDeletesAndKeepsOneUndoStep)
{
    modul(4, 4, 17);
    setzen(4, 4, Radierer);
    EXPECT_EQ(anlage.XY(4, 4), anlage.XY_Leer());
    EXPECT_EQ(editor.UndoGueltig, -1);
    EXPECT_EQ(editor.UndoElement, Empf800);
    editor.setzeAktuell(9, 9);
    editor.Cntrl_Z();
    EXPECT_EQ(anlage.XY(4, 4).XY_LNCV(0), 17);
    EXPECT_EQ(anlage.XY(4, 4).XY_LNCV(20), 1234);
    EXPECT_EQ(anlage.XY(4, 4).XY_Element, Empf800);
    EXPECT_EQ(editor.aktX(), 9) << "the current cell comes back";
    EXPECT_EQ(editor.UndoGueltig, 0);
}

TEST_F(Pulteditor, UndoKeepsOnlyTheLastDeletion)
{
    setzen(4, 4, Weiche101);
    setzen(5, 5, Signal511);
    setzen(4, 4, Radierer);
    setzen(5, 5, Radierer);
    editor.Cntrl_Z();
    EXPECT_EQ(anlage.XY(5, 5).XY_Element, Signal511);
    EXPECT_EQ(anlage.XY(4, 4).XY_Element, Leer);
    setzen(5, 5, GeradeW);
    editor.Cntrl_Z(); // undo after undo does nothing
    EXPECT_EQ(anlage.XY(5, 5).XY_Element, GeradeW);
}

TEST_F(Pulteditor, CopyAndPasteABlockWithItsAddressesAndModules)
{
    setzen(2, 2, GeradeW);
    setzen(3, 2, Weiche101);
    anlage.XY(3, 2).XY_ADR1 = 12;
    modul(4, 2, 33);
    setzen(2, 3, Bahnsteig920);
    anlage.XY(2, 3).XY_STATTAUSCH1 = 1;
    setzen(4, 3, Signal511);
    anlage.XY(4, 3).XY_ADR1 = 40;
    anlage.XY(4, 3).XY_ADR2 = 41;

    editor.Pult_Auswahl(2, 2, 4, 3);
    editor.Cntrl_C_X(PultEditor::TasteC);
    EXPECT_TRUE(editor.ClipVoll);
    EXPECT_EQ(editor.ClipBreite, 2);
    EXPECT_EQ(editor.ClipHoehe, 1);

    editor.setzeAktuell(10, 10);
    editor.Cntrl_V();
    EXPECT_EQ(anlage.XY(10, 10).XY_Element, GeradeW);
    EXPECT_EQ(anlage.XY(11, 10).XY_ADR1, 12);
    EXPECT_EQ(anlage.XY(12, 10).XY_LNCV(0), 33);
    EXPECT_EQ(anlage.XY(12, 10).XY_LNCV(20), 1234);
    EXPECT_EQ(anlage.XY(10, 11).XY_STATTAUSCH1, 1);
    EXPECT_EQ(anlage.XY(12, 11).XY_ADR2, 41);
    EXPECT_EQ(anlage.XY(11, 11).XY_Element, Leer) << "an empty clipboard cell places nothing";
    EXPECT_EQ(anlage.XY(3, 2).XY_ADR1, 12) << "copy leaves the source";
}

TEST_F(Pulteditor, PastingAtTheLastColumnFailsWithTheMessage)
{
    setzen(2, 2, GeradeW);
    setzen(3, 2, GeradeW);
    editor.Pult_Auswahl(2, 2, 3, 2);
    editor.Cntrl_C_X(PultEditor::TasteC);
    editor.setzeAktuell(30, 5);
    editor.Cntrl_V();
    ASSERT_EQ(meldungen.texte.size(), 1);
    EXPECT_EQ(meldungen.texte.front(),
              QStringLiteral("Fehler beim Einsetzen|Der gespeicherter Teil kann hier nicht eingesetzt werden,\n"
                             "         da er zu groß für diese Position ist!          "));
    EXPECT_EQ(meldungen.symbole.front(), Symbol::Kritisch);
    EXPECT_EQ(anlage.XY(30, 5).XY_Element, Leer);
    editor.setzeAktuell(29, 5);
    editor.Cntrl_V();
    EXPECT_EQ(anlage.XY(30, 5).XY_Element, GeradeW);
    EXPECT_EQ(meldungen.texte.size(), 1);
}

TEST_F(Pulteditor, RotationWalksTheFamilyInARing)
{
    // Element before, element after one turn.
    const std::pair<int, int> faelle[] = {
        {GeradeW, GeradeS}, {GeradeS, Diagonale}, {Diagonale, GeradeW}, {Bogen, Bogen}, {Weiche101, Weiche102}};
    for (auto [vorher, nachher] : faelle) {
        SCOPED_TRACE(vorher);
        setzen(3, 3, vorher);
        anlage.XY(3, 3).XY_ADR1 = 5;
        editor.Pult_RechtsKlick(3, 3);
        EXPECT_EQ(anlage.XY(3, 3).XY_Element, nachher);
        if (nachher != vorher) {
            EXPECT_EQ(anlage.XY(3, 3).XY_ADR1, 0) << "a turned element loses its addresses";
        }
    }
    editor.Pult_RechtsKlick(4, 4);
    EXPECT_FALSE(editor.EleDrehenMoeglich);
    EXPECT_EQ(anlage.XY(4, 4).XY_Element, Leer);
}

TEST_F(Pulteditor, EraserDeletesTheSideFileButPasteKeepsIt)
{
    anlage.Pfad = ordner.path() + u'/';
    auto seitendatei = [&](int adresse) { return anlage.Pfad + QStringLiteral("47220_%1.lcv").arg(adresse); };
    for (int adresse : {5, 6}) {
        QFile f(seitendatei(adresse));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    }
    modul(2, 2, 5);
    modul(3, 3, 6);
    setzen(8, 8, GeradeW);
    setzen(9, 8, GeradeW);
    editor.Pult_Auswahl(8, 8, 9, 8);
    editor.Cntrl_C_X(PultEditor::TasteC);

    editor.setzeAktuell(3, 3);
    editor.Cntrl_V();
    EXPECT_EQ(anlage.XY(3, 3).XY_Element, GeradeW);
    EXPECT_TRUE(QFile::exists(seitendatei(6))) << "a paste does not run Element_Loeschen";

    setzen(2, 2, Radierer);
    EXPECT_FALSE(QFile::exists(seitendatei(5)));
    setzen(2, 2, Radierer);  // a missing file is no error
    EXPECT_TRUE(berichte.texte.isEmpty());
}

TEST_F(Pulteditor, DeletingTheMainCellOfAControllerHandsItOn)
{
    for (int x : {2, 3, 4})
        setzen(x, 2, Uni840);
    for (int x : {2, 3, 4}) {
        XY_Typ& z = anlage.XY(x, 2);
        z.XY_ArtNr = 47320;
        z.XY_LNCV(0) = 300;
        z.XY_SenStat = x == 2 ? 3 : 4;
        z.XY_SenX = 2;
        z.XY_SenY = 2;
        z.XY_GleisIDX = static_cast<Integer>(x - 1);
    }
    anlage.XY(2, 2).XY_LNCV(300) = 77;
    setzen(2, 2, Radierer);
    EXPECT_EQ(anlage.XY(3, 2).XY_SenStat, 3);
    EXPECT_EQ(anlage.XY(3, 2).XY_SenX, 3);
    EXPECT_EQ(anlage.XY(4, 2).XY_SenX, 3);
    EXPECT_EQ(anlage.XY(4, 2).XY_SenStat, 4);
    EXPECT_EQ(anlage.XY(3, 2).XY_LNCV(300), 77);
}

TEST_F(Pulteditor, DeletingAnEntryManagerRemovesItsStation)
{
    modul(5, 5, 40);
    XY_Typ& z = anlage.XY(5, 5);
    z.XY_BETR = 7;
    z.XY_BhfIDX = 2;
    Bhf_Typ& b = anlage.Bhf(2);
    b.Bhf_Name = QStringLiteral(" Nord");
    b.Bhf_Art = 1;
    b.Bhf_EinfX = 5;
    b.Bhf_EinfY = 5;
    b.Bhf_EinfAktiv = 1;
    b.Bhf_EinfFS(1) = 4;
    anlage.FS(4).FS_Nummer = 2;
    anlage.FS(4).FS_Name = QStringLiteral(" Nord - Gleis 1");

    setzen(5, 5, Radierer);
    EXPECT_TRUE(b.Bhf_Name.isEmpty());
    EXPECT_EQ(b.Bhf_Art, 1) << "Clr_Bhf keeps Bhf_Art";
    EXPECT_EQ(b.Bhf_EinfX, 0);
    EXPECT_EQ(anlage.FS(4).FS_Nummer, 0);
    EXPECT_EQ(anlage.XY(5, 5), anlage.XY_Leer());
}

TEST_F(Pulteditor, CutDeletesTheSelection)
{
    setzen(2, 2, GeradeW);
    modul(3, 2, 33);
    editor.Pult_Auswahl(2, 2, 3, 2);
    editor.Cntrl_C_X(PultEditor::TasteX);
    EXPECT_EQ(anlage.XY(2, 2), anlage.XY_Leer());
    EXPECT_EQ(anlage.XY(3, 2), anlage.XY_Leer());
    EXPECT_EQ(editor.XY_Clip(1, 0).XY_LNCV(0), 33);
}

TEST_F(Pulteditor, PlacingOverAModuleCellOpensItsConfigurationInstead)
{
    modul(6, 6, 21);
    anlage.XY(6, 6).XY_BETR = 3;
    int konfiguriert = -2;
    QObject::connect(&editor, &PultEditor::modulKonfigurieren,
                     [&](int x, int y, int betr) { konfiguriert = x == 6 && y == 6 ? betr : -3; });
    editor.Elemente_Click(GeradeW);
    editor.Pult_LinksKlick(6, 6);
    EXPECT_EQ(konfiguriert, 3);
    EXPECT_EQ(anlage.XY(6, 6).XY_Element, Empf800);
    EXPECT_EQ(anlage.XY(6, 6).XY_LNCV(0), 21);
}

TEST_F(Pulteditor, SelectionToolAndLeerChangeNothing)
{
    setzen(2, 3, Weiche101);
    anlage.PultGeaendert = 0;
    for (int element : {int(Auswahl), int(Leer), 0})
        editor.SetzePultElement(element);
    EXPECT_EQ(anlage.XY(2, 3).XY_Element, Weiche101);
    EXPECT_EQ(anlage.PultGeaendert, 0);
    editor.Elemente_Click(Auswahl);
    EXPECT_TRUE(editor.MarkenMode);
    EXPECT_EQ(editor.zeiger, PultZeiger::Pfeil);
    editor.Pult_LinksKlick(3, 3);
    EXPECT_EQ(anlage.XY(3, 3).XY_Element, Leer);
}
