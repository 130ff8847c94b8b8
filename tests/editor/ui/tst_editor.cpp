// Parts 3.2 and 3.3 driven through the real widgets of the main window with
// the installation's catalogue: palette, plan, mouse, keys, menus.
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "editor/pult_editor.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "platform/uhr.h"
#include "tests/support/gui_start.h"
#include "tests/support/gui.h"

#include <QAction>
#include <QMessageBox>
#include <QTemporaryDir>

using namespace planor;
using namespace planor::test;

class TstEditor : public QObject {
    Q_OBJECT

    struct Berichte final : FehlerAnzeige {
        void zeigen(const QString&, const QString& text) override { texte << text; }
        QStringList texte;
    };

private slots:
    void initTestCase()
    {
        QVERIFY(ordner.isValid());
        FehlerbehandlungEinrichten({ordner.filePath(QStringLiteral("Fehler.log")), &uhr, &berichte});
        programm = std::make_unique<Programm>(ordner.path());
        startDruecken();
        ersterStartMitSimulation(*programm);
        win = &programm->starten();
        QVERIFY(QTest::qWaitForWindowExposed(win));
        QVERIFY2(programm->katalog.ElementAnz > 0, "the installation's catalogue is read");
    }

    void init()
    {
        win->neuesPultZeigen();
        QCoreApplication::processEvents();
        QVERIFY(pult()->isVisible());
    }

    void cleanup()
    {
        wartendeBeenden();
        QCOMPARE(berichte.texte, QStringList());
    }

    void NewPanelIsUnlockedAndEmpty()
    {
        QCOMPARE(win->windowTitle(), QStringLiteral("NAVIK/TOBRA - Planor   ---   Gleisplan änderbar   ---"));
        QVERIFY(aktion("KonfHauptMenu")->isEnabled());
        QVERIFY(aktion("BearbeitenMenu")->isEnabled());
        QCOMPARE(pult()->model()->rowCount(), 30);
        QCOMPARE(pult()->columnWidth(0), 84);
        QCOMPARE(pult()->rowHeight(0), 54);
        QCOMPARE(zelle(1, 1).XY_Element, programm->katalog.LeerIndex);
    }

    void PickFromThePaletteAndPlaceOnThePlan()
    {
        const int gerade = paletteKlick(9);
        QCOMPARE(info(2), QStringLiteral(" Auswahl: ") + programm->katalog.ElementTab(gerade).Name);
        QCOMPARE(pult()->cursor().shape(), Qt::CrossCursor);
        programm->anlage.PultGeaendert = 0;
        klick(3, 2);
        QCOMPARE(zelle(3, 2).XY_Element, gerade);
        QCOMPARE(programm->anlage.PultGeaendert, Integer(1));
        QCOMPARE(pult()->model()->index(1, 2).data(Qt::ToolTipRole).toString(),
                 programm->katalog.ElementTab(gerade).Name);
        QVERIFY(aktion("EleDrehenMenu")->isEnabled());
    }

    void TurnWithTheRightButton()
    {
        paletteKlick(101);
        klick(4, 2);
        const int vorher = zelle(4, 2).XY_Element;
        klick(4, 2, Qt::RightButton);
        const int nachher = zelle(4, 2).XY_Element;
        QVERIFY(nachher != vorher);
        QCOMPARE(programm->katalog.ElementTab(nachher).Familie, Integer(101));
        // Around the whole family and back to the head.
        for (int i = 0; i < 20 && zelle(4, 2).XY_Element != vorher; ++i)
            klick(4, 2, Qt::RightButton);
        QCOMPARE(zelle(4, 2).XY_Element, vorher);
    }

    void CopyCutAndPasteABlock()
    {
        bauen3x2();
        waehlen(2, 2, 4, 3);
        QVERIFY(aktion("CopyMenu")->isEnabled());
        QVERIFY(!aktion("PasteMenu")->isEnabled());
        QTest::keyClick(pult(), Qt::Key_C, Qt::ControlModifier);
        QVERIFY(aktion("PasteMenu")->isEnabled());

        klick(10, 6);
        QTest::keyClick(pult(), Qt::Key_V, Qt::ControlModifier);
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 2; ++j)
                QCOMPARE(zelle(10 + i, 6 + j).XY_Element, zelle(2 + i, 2 + j).XY_Element);
        QCOMPARE(zelle(11, 6).XY_ADR1, Integer(12));

        waehlen(10, 6, 12, 7);
        QTest::keyClick(pult(), Qt::Key_X, Qt::ControlModifier);
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 2; ++j)
                QCOMPARE(zelle(10 + i, 6 + j), programm->anlage.XY_Leer());

        klick(20, 20);
        aktion("PasteMenu")->trigger();
        QCOMPARE(zelle(21, 20).XY_ADR1, Integer(12));
    }

    void CtrlCWithoutTheSelectionToolDoesNothing()
    {
        bauen3x2();
        win->editor().ClipVoll = false;
        waehlen(2, 2, 4, 3);
        paletteKlick(9);
        QVERIFY(win->editor().MarkAktiv);
        QVERIFY(!aktion("CopyMenu")->isEnabled());
        QTest::keyClick(pult(), Qt::Key_C, Qt::ControlModifier);
        QVERIFY(!win->editor().ClipVoll);
        QVERIFY(!aktion("PasteMenu")->isEnabled());
    }

    void PasteAtTheLastColumnShowsTheMessage()
    {
        bauen3x2();
        waehlen(2, 2, 4, 3);
        QTest::keyClick(pult(), Qt::Key_C, Qt::ControlModifier);
        klick(29, 3);
        QString meldung;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        wennSichtbar(QStringLiteral("Meldung"), [&](QWidget* w) {
            auto* box = static_cast<QMessageBox*>(w);
            meldung = box->windowTitle() + u'|' + box->text();
            icon = box->icon();
            box->accept();
        });
        QTest::keyClick(pult(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(meldung, QStringLiteral("Fehler beim Einsetzen|Der gespeicherter Teil kann hier nicht eingesetzt "
                                         "werden,\n         da er zu groß für diese Position ist!          "));
        QCOMPARE(icon, QMessageBox::Critical);
        QCOMPARE(zelle(29, 3).XY_Element, programm->katalog.LeerIndex);
    }

    void UndoADeletion()
    {
        paletteKlick(101);
        klick(5, 5);
        programm->anlage.XY(5, 5).XY_ADR1 = 33;
        const int weiche = zelle(5, 5).XY_Element;
        QVERIFY(!aktion("UndoMenu")->isEnabled());
        paletteKlick(-99);
        klick(5, 5);
        QCOMPARE(zelle(5, 5), programm->anlage.XY_Leer());
        QVERIFY(aktion("UndoMenu")->isEnabled());
        aktion("UndoMenu")->trigger();
        QCOMPARE(zelle(5, 5).XY_Element, weiche);
        QCOMPARE(zelle(5, 5).XY_ADR1, Integer(33));
        QVERIFY(!aktion("UndoMenu")->isEnabled());
    }

    void DeleteKeyDeletesTheCurrentCell()
    {
        paletteKlick(9);
        klick(6, 6);
        QTest::keyClick(pult(), Qt::Key_Delete);
        QCOMPARE(zelle(6, 6), programm->anlage.XY_Leer());
        QVERIFY(aktion("UndoMenu")->isEnabled());
    }

    void LockAndUnlock()
    {
        paletteKlick(9);
        aktion("GPLockMenu")->trigger();
        QCOMPARE(win->windowTitle(),
                 QStringLiteral("NAVIK/TOBRA - Planor   ---   Gleisplan nicht änderbar   ---"));
        QVERIFY(!aktion("GPLockMenu")->isChecked());
        QVERIFY(aktion("ProgHauptMenu")->isEnabled());
        QVERIFY(!aktion("KonfHauptMenu")->isEnabled());
        QVERIFY(!aktion("DelMenu")->isEnabled());
        QVERIFY(!aktion("EleDrehenMenu")->isEnabled());
        klick(7, 7);
        QCOMPARE(zelle(7, 7).XY_Element, programm->katalog.LeerIndex);

        aktion("GPLockMenu")->trigger();
        QCOMPARE(win->windowTitle(), QStringLiteral("NAVIK/TOBRA - Planor   ---   Gleisplan änderbar   ---"));
        QVERIFY(aktion("GPLockMenu")->isChecked());
        QVERIFY(!aktion("ProgHauptMenu")->isEnabled());
        QVERIFY(aktion("KonfHauptMenu")->isEnabled());
        QVERIFY(aktion("DelMenu")->isEnabled());
        klick(7, 7);
        QCOMPARE(zelle(7, 7).XY_Element, programm->katalog.indexVonTyp(9));
    }

    void AddressViewWithoutConnectionWarnsAndShowsTheGrid()
    {
        ohneHardware(*programm, *win);
        QStringList meldungen;
        meldungenBeantworten(meldungen, 2);
        aktion("EditMode(2)")->trigger();
        QCOMPARE(meldungen.size(), 2);
        QVERIFY(meldungen.at(0).startsWith(QStringLiteral("ComPort öffnen|")));
        QCOMPARE(meldungen.at(1), QStringLiteral("Achtung|Wenn der Computer nicht mit der Rondel verbunden ist,\n"
                                                 "können keine Adressen von der Anlage übertragen werden!"));
        QVERIFY(win->bereich().PultAdr->isVisible());
        QVERIFY(!pult()->isVisible());
        QVERIFY(!win->bereich().Elemente->isVisible());
        QCOMPARE(info(1), QStringLiteral("Weichen-, Signal- und NAVIK/TOBRA-Adressen anzeigen"));
        QCOMPARE(win->bereich().PultAdr->rowHeight(1), 13);
        QCOMPARE(win->bereich().PultAdr->model()->headerData(2, Qt::Vertical).toString(), QStringLiteral("NAVIK/TOBRA:"));
        QVERIFY(!aktion("CopyMenu")->isEnabled() && !aktion("DelMenu")->isEnabled());
    }

    void MonitorWithoutConnectionStaysOnTheOldGrid()
    {
        ohneHardware(*programm, *win);
        QStringList meldungen;
        meldungenBeantworten(meldungen, 1);
        aktion("EditMode(4)")->trigger();
        QCOMPARE(meldungen.size(), 1);
        QVERIFY(aktion("EditMode(4)")->isChecked());
        QVERIFY(pult()->isVisible());
        QVERIFY(!win->bereich().Mon->isVisible());
        QCOMPARE(win->EditMode, 4);
    }

    void TableViewHidesThePalette()
    {
        aktion("EditMode(3)")->trigger();
        QVERIFY(pult()->isVisible());
        QVERIFY(!win->bereich().Elemente->isVisible());
        QCOMPARE(info(1), QStringLiteral("Tabellenmodus"));
        aktion("EditMode(1)")->trigger();
        QVERIFY(win->bereich().Elemente->isVisible());
        QCOMPARE(info(1), QStringLiteral("Gleisplan editieren"));
    }

private:
    ZellenGrid* pult() { return win->bereich().Pult; }
    QAction* aktion(const char* name) { return win->findChild<QAction*>(QLatin1String(name)); }
    const XY_Typ& zelle(int x, int y) { return programm->anlage.XY(x, y); }
    QString info(int feld) { return win->findChild<QLabel*>(QStringLiteral("InfoTxt%1").arg(feld))->text(); }

    // Clicks the palette entry of that type code; gives its catalogue index.
    int paletteKlick(int typ)
    {
        const Elementkatalog& k = programm->katalog;
        QTableView* palette = win->bereich().Elemente;
        for (int zeile = 0; zeile < k.paletteZeilen(); ++zeile)
            for (int spalte = 0; spalte < PaletteSpalten; ++spalte)
                if (k.ElementTab(k.PaletteFeld(spalte, zeile)).Typ == typ) {
                    const QModelIndex i = palette->model()->index(zeile, spalte);
                    QTest::mouseClick(palette->viewport(), Qt::LeftButton, {}, palette->visualRect(i).center());
                    return k.PaletteFeld(spalte, zeile);
                }
        qFatal("type %d is not in the palette", typ);
    }

    void klick(int x, int y, Qt::MouseButton knopf = Qt::LeftButton, Qt::KeyboardModifiers mod = {})
    {
        const QModelIndex i = pult()->model()->index(y - 1, x - 1);
        pult()->scrollTo(i);
        QTest::mouseClick(pult()->viewport(), knopf, mod, pult()->visualRect(i).center());
    }

    // With the selection tool: a click on one corner, a shift-click on the other.
    void waehlen(int x1, int y1, int x2, int y2)
    {
        paletteKlick(-1);
        klick(x1, y1);
        klick(x2, y2, Qt::LeftButton, Qt::ShiftModifier);
        const PultEditor& e = win->editor();
        QVERIFY(e.MarkAktiv);
        QCOMPARE(e.MarkX, std::min(x1, x2));
        QCOMPARE(e.MarkBreite, std::abs(x2 - x1));
    }

    // A 3×2 block at (2, 2): track, a turnout with an address, a signal, a platform.
    void bauen3x2()
    {
        paletteKlick(9);
        klick(2, 2);
        paletteKlick(101);
        klick(3, 2);
        programm->anlage.XY(3, 2).XY_ADR1 = 12;
        paletteKlick(501);
        klick(4, 2);
        paletteKlick(9);
        klick(2, 3);
        klick(3, 3);
        paletteKlick(920);
        klick(4, 3);
    }

    void meldungenBeantworten(QStringList& meldungen, int anzahl)
    {
        auto antworten = std::make_shared<std::function<void(QWidget*)>>();
        *antworten = [&meldungen, anzahl, antworten](QWidget* w) {
            auto* box = static_cast<QMessageBox*>(w);
            meldungen << box->windowTitle() + u'|' + box->text();
            box->accept();
            if (meldungen.size() < anzahl)
                wennSichtbar(QStringLiteral("Meldung"), *antworten);
        };
        wennSichtbar(QStringLiteral("Meldung"), *antworten);
    }

    QTemporaryDir ordner;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(10, 0))};
    Berichte berichte;
    std::unique_ptr<Programm> programm;
    MainWin* win = nullptr;
};

QTEST_MAIN(TstEditor)
#include "tst_editor.moc"
