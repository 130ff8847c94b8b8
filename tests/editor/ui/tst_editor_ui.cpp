// The editor's views in the real main window on the demo project and the
// built-in simulator in virtual time, one flow per view and form.
#include "core/check_wert.h"
#include "core/ui/main_win.h"
#include "editor/mon_modell.h"
#include "editor/pult_editor.h"
#include "editor/pult_modell.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "loconet/nachricht.h"
#include "platform/sim_geraete.h"
#include "tests/support/gui_demo.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>

using namespace planor;
using namespace planor::test;

class TstEditorUi : public QObject, private DemoProgramm {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(starten(true));
        weiche = ersteZelle(*programm, [](const XY_Typ& z, int typ) { return typ >= 101 && typ <= 110 && z.XY_ADR1; });
        QVERIFY(!weiche.isNull());
    }
    void init()
    {
        notbremseSpannen(30000);
        testUhr.weiter(500); // what the slot before still has on the wire lands first
        win->EditMode_Click(1);
        programm->anlage.PultGeaendert = 0;
    }
    void cleanup()
    {
        wartendeBeenden();
        QVERIFY(!notbremse);
        QCOMPARE(berichte.texte, QStringList());
    }

    void PlaceTurnAndUndoOnThePlan()
    {
        const QPoint frei = ersteZelle(*programm, [](const XY_Typ&, int typ) { return typ == 0; });
        win->editor().Elemente_Click(programm->katalog.indexVonTyp(101)); // as the palette hands it on
        auto klick = [&](Qt::MouseButton k) { klicken(win->bereich().Pult, frei.y() - 1, frei.x() - 1, k); };
        klick(Qt::LeftButton);
        const int platziert = zelle(frei).XY_Element;
        QCOMPARE(programm->katalog.ElementTab(platziert).Typ, 101);
        klick(Qt::RightButton);
        QCOMPARE(programm->katalog.ElementTab(zelle(frei).XY_Element).Familie, Integer(101));
        QVERIFY(zelle(frei).XY_Element != platziert);
        QTest::keyClick(win->bereich().Pult, Qt::Key_Delete);
        QCOMPARE(zelle(frei), programm->anlage.XY_Leer());
        aktion("UndoMenu")->trigger();
        QCOMPARE(programm->katalog.ElementTab(zelle(frei).XY_Element).Familie, Integer(101));
    }
    void ASwitchCommandOnTheBusIsAssignedWithTheMouse()
    {
        win->EditMode_Click(2);
        QStringList gesehen;
        wennSichtbar(QStringLiteral("Meldung"), [&gesehen](QWidget* w) {
            auto* box = static_cast<QMessageBox*>(w);
            gesehen << box->windowTitle() + u'|' + box->text();
            QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
        });
        const int a = 1234 - 1; // another party switches 1234 "on"
        simulator->bus().melden(mitPruefsumme(QByteArray().append(char(0xB0)).append(char(a & 127)).append(char(0x30 | (a >> 7)))));
        testUhr.weiter(50);
        QTRY_COMPARE(gesehen.size(), 1);
        QVERIFY(gesehen.at(0).startsWith(QStringLiteral("Adresszuordnung mit der Maus|Magnetartikeladresse1234 ")));
        adrKlick();
        QCOMPARE(zelle(weiche).XY_ADR1, Integer(1234));
        QCOMPARE(zeile(), QStringLiteral("1234"));
        QCOMPARE(programm->anlage.PultGeaendert, Integer(1));
    }
    void AdrEingabeChecksTheFieldAndStoresOnOK()
    {
        win->EditMode_Click(2);
        const Integer vorher = zelle(weiche).XY_ADR1;
        wennSichtbar(QStringLiteral("AdrEingabe"), [](QWidget* w) {
            QTest::keyClicks(kind<QLineEdit>(w, QStringLiteral("AdrTxt(0)")), QStringLiteral("1"));
            w->close(); // closing is cancel
        });
        adrKlick();
        QCOMPARE(zelle(weiche).XY_ADR1, vorher);
        QCOMPARE(programm->anlage.PultGeaendert, Integer(0));

        wennSichtbar(QStringLiteral("AdrEingabe"), [](QWidget* w) {
            auto* feld = kind<QLineEdit>(w, QStringLiteral("AdrTxt(0)"));
            feld->selectAll();
            QTest::keyClicks(feld, QStringLiteral("2048"));
            QVERIFY(!kind<QPushButton>(w, QStringLiteral("OK_But"))->isEnabled());
            QCOMPARE(kind<QLabel>(w, QStringLiteral("AdrLbl(0)"))->text(), WertZuGrossTxt);
            QTest::keyClick(feld, Qt::Key_Backspace);
            QTest::keyClicks(feld, QStringLiteral("x5")); // only digits are taken
            QCOMPARE(feld->text(), QStringLiteral("2045"));
            ok(w);
        });
        adrKlick();
        QCOMPARE(zelle(weiche).XY_ADR1, Integer(2045));
        QCOMPARE(zeile(), QStringLiteral("2045"));
    }
    void ALeftClickInTheMonitorSwitchesTheTurnout()
    {
        monitorMitGruen();
        QVERIFY(bild().endsWith(QStringLiteral("_g.bmp")));
        monKlick(Qt::LeftButton);
        QCOMPARE(simulator->geraete().weiche(adresse()), 0);
        QCOMPARE(bild(), programm->katalog.ElementTab(zelle(weiche).XY_Element).Bmp);
    }
    void TheRightButtonOpensTauschFormAndRedraws()
    {
        monitorMitGruen();
        wennSichtbar(QStringLiteral("TauschForm"), [&](QWidget* form) {
            kind<QCheckBox>(form, QStringLiteral("TauschChk1"))->setChecked(true);
            ok(form);
        });
        monKlick(Qt::RightButton);
        QCOMPARE(zelle(weiche).XY_STATTAUSCH1, 1);
        QCOMPARE(programm->anlage.PultGeaendert, 1);
        // Green reported, red and green swapped: the plan's picture.
        QCOMPARE(bild(), programm->katalog.ElementTab(zelle(weiche).XY_Element).Bmp);
        programm->anlage.XY(weiche.x(), weiche.y()).XY_STATTAUSCH1 = 0;
    }

private:
    QAction* aktion(const char* name) { return win->findChild<QAction*>(QLatin1String(name)); }
    const XY_Typ& zelle(QPoint p) const { return programm->anlage.XY(p.x(), p.y()); }
    Long adresse() const { return zelle(weiche).XY_ADR1; }
    QString zeile() const { return win->bereich().pultAdrModell().index(3 * weiche.y() - 2, weiche.x() - 1).data().toString(); }
    QString bild() const { return win->bereich().monModell().index(weiche.y() - 1, weiche.x() - 1).data(BildRolle).toString(); }
    void adrKlick() { klicken(win->bereich().PultAdr, 3 * weiche.y() - 3, weiche.x() - 1); }
    void monitorMitGruen() { simulator->geraete().setzeWeiche(adresse(), 1); win->EditMode_Click(4); }
    void monKlick(Qt::MouseButton knopf) { klicken(win->bereich().Mon, weiche.y() - 1, weiche.x() - 1, knopf); }
    static void ok(QWidget* form) { QTest::mouseClick(kind<QPushButton>(form, QStringLiteral("OK_But")), Qt::LeftButton); }
    static void klicken(ZellenGrid* grid, int zeile, int spalte, Qt::MouseButton knopf = Qt::LeftButton)
    {
        const QModelIndex i = grid->model()->index(zeile, spalte);
        grid->scrollTo(i);
        QTest::mouseClick(grid->viewport(), knopf, {}, grid->visualRect(i).center());
    }

    QPoint weiche;
};

QTEST_MAIN(TstEditorUi)
#include "tst_editor_ui.moc"
