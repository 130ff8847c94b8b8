// Part 3.6 through the real main window on the demo project and the built-in
// simulator in virtual time: view 4 shows the simulated accessories' states,
// a click switches a turnout, a train report shows its locomotive, the right
// button opens TauschForm and the middle button MagArtStatus.
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/programmordner.h"
#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "editor/mon_modell.h"
#include "editor/ui/mag_art_status_dialog.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "loconet/open_com.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"
#include "tests/support/gui_demo.h"

#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QGroupBox>
#include <QRadioButton>
#include <QTemporaryDir>

using namespace planor;
using namespace planor::test;

class TstMonitorAnsicht : public QObject, private DemoProgramm {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(starten(false));

        // A turnout with one address, a two-address element and a receiver of the demo.
        const Anlage& a = programm->anlage;
        for (int x = 1; x <= a.DimensionenX; ++x)
            for (int y = 1; y <= a.DimensionenY; ++y) {
                const XY_Typ& z = a.XY(x, y);
                const int typ = programm->katalog.ElementTab(z.XY_Element).Typ;
                if (!weicheX && typ >= 101 && typ <= 199 && z.XY_ADR1 != 0) {
                    weicheX = x;
                    weicheY = y;
                }
                if (!empfaengerX && z.XY_ArtNr == 47220 && z.XY_LNCV(0) != 0) {
                    empfaengerX = x;
                    empfaengerY = y;
                }
            }
        QVERIFY(weicheX != 0);
        QVERIFY(empfaengerX != 0);
    }

    void cleanup()
    {
        wartendeBeenden();
        QCOMPARE(berichte.texte, QStringList());
    }

    void ViewFourShowsTheStatesTheSimulatorHolds()
    {
        simulator->geraete().setzeWeiche(weicheAdresse(), 1);
        win->EditMode_Click(4);
        QCOMPARE(win->EditMode, 4);
        QVERIFY(win->bereich().Mon->isVisible());
        QVERIFY(!QApplication::overrideCursor());
        QVERIFY(!win->bereich().Pult->isVisible());
        QCOMPARE(bild(weicheX, weicheY), zustandsBild(weicheX, weicheY, 'g'));
        QCOMPARE(text(empfaengerX, empfaengerY), QStringLiteral("-"));
        // Every accessory of the plan shows a state picture now, none the plan's "_mon" picture.
        const Anlage& a = programm->anlage;
        for (int x = 1; x <= a.DimensionenX; ++x)
            for (int y = 1; y <= a.DimensionenY; ++y) {
                const XY_Typ& z = a.XY(x, y);
                const int typ = programm->katalog.ElementTab(z.XY_Element).Typ;
                if (typ >= 101 && typ <= 599 && z.XY_ADR1 != 0)
                    QVERIFY2(!bild(x, y).endsWith(QStringLiteral("_mon.bmp")), qPrintable(bild(x, y)));
            }
    }

    void ALeftClickSwitchesTheTurnout()
    {
        const Long adresse = weicheAdresse();
        QCOMPARE(simulator->geraete().weiche(adresse), 1);
        // While the accessory switches the busy pointer stands.
        Qt::CursorShape zeiger = Qt::ArrowCursor;
        const auto verbindung = connect(&simulator->geraete(), &SimGeraete::geaendert, this, [&] {
            if (QApplication::overrideCursor())
                zeiger = QApplication::overrideCursor()->shape();
        });
        klicken(weicheX, weicheY, Qt::LeftButton);
        disconnect(verbindung);
        QCOMPARE(zeiger, Qt::WaitCursor);
        QVERIFY(!QApplication::overrideCursor());
        QCOMPARE(simulator->geraete().weiche(adresse), 0);
        QCOMPARE(bild(weicheX, weicheY), planBild(weicheX, weicheY));
        klicken(weicheX, weicheY, Qt::LeftButton);
        QCOMPARE(simulator->geraete().weiche(adresse), 1);
        QCOMPARE(bild(weicheX, weicheY), zustandsBild(weicheX, weicheY, 'g'));
    }

    void ATrainReportShowsTheLocomotiveOnTheReceiver()
    {
        const Long empfaenger = programm->anlage.XY(empfaengerX, empfaengerY).XY_LNCV(0);
        simulator->geraete().zugMelden(empfaenger, 4711);
        testUhr.weiter(200);
        QTRY_COMPARE(text(empfaengerX, empfaengerY), QStringLiteral("4711"));
        const QModelIndex i = index(empfaengerX, empfaengerY);
        QCOMPARE(i.data(SchriftRolle).value<ZellSchrift>(), (ZellSchrift{QStringLiteral("Arial"), 8, true}));
    }

    void TheMonitorViewAsAPicture()
    {
        ZellenGrid* mon = win->bereich().Mon;
        mon->scrollTo(index(empfaengerX, empfaengerY));
        const QImage bild = mon->grab().toImage();
        QVERIFY(bild.save(QStringLiteral("/tmp/monitor_ansicht.png")));
        QVERIFY(bild.width() > 100);
    }

    void TheRightButtonOpensTauschFormAndRedraws()
    {
        programm->anlage.PultGeaendert = 0;
        QString titel;
        wennSichtbar(QStringLiteral("TauschForm"), [&](QWidget* form) {
            titel = form->windowTitle();
            kind<QCheckBox>(form, QStringLiteral("TauschChk1"))->setChecked(true);
            QTest::mouseClick(kind<QPushButton>(form, QStringLiteral("OK_But")), Qt::LeftButton);
        });
        klicken(weicheX, weicheY, Qt::RightButton);
        QVERIFY(!titel.isEmpty());
        QCOMPARE(programm->anlage.XY(weicheX, weicheY).XY_STATTAUSCH1, 1);
        QCOMPARE(programm->anlage.PultGeaendert, 1);
        // Green reported, red and green swapped: the plan's picture.
        QCOMPARE(bild(weicheX, weicheY), planBild(weicheX, weicheY));
        programm->anlage.XY(weicheX, weicheY).XY_STATTAUSCH1 = 0;
    }

    void TheMiddleButtonOpensMagArtStatus()
    {
        const Long adresse = weicheAdresse();
        QCOMPARE(simulator->geraete().weiche(adresse), 1);
        QStringList optionen;
        wennSichtbar(QStringLiteral("MagArtStatus"), [&](QWidget* form) {
            QCOMPARE(form->windowTitle(), QStringLiteral("Magnetartikel Status"));
            for (int i = 1; i <= 3; ++i)
                optionen << kind<QRadioButton>(form, QStringLiteral("AdrOpt(%1)").arg(i))->text();
            QVERIFY(kind<QRadioButton>(form, QStringLiteral("StatOpt(1)"))->isChecked());
            QCOMPARE(kind<QRadioButton>(form, QStringLiteral("StatOpt(0)"))->text(), QStringLiteral("rot"));
            QVERIFY(form->grab().save(QStringLiteral("/tmp/mag_art_status.png")));
            kind<QRadioButton>(form, QStringLiteral("StatOpt(0)"))->click();
            QTest::mouseClick(kind<QPushButton>(form, QStringLiteral("OK_But")), Qt::LeftButton);
        });
        klicken(weicheX, weicheY, Qt::MiddleButton);
        QCOMPARE(optionen.value(0), QStringLiteral("Adresse: %1").arg(adresse));
        QCOMPARE(optionen.value(1), QStringLiteral("Adresse: -"));
        QCOMPARE(simulator->geraete().weiche(adresse), 0);
        QCOMPARE(bild(weicheX, weicheY), planBild(weicheX, weicheY));

        // Shift with the left button too; "Abbruch" sends nothing.
        wennSichtbar(QStringLiteral("MagArtStatus"), [](QWidget* form) {
            kind<QRadioButton>(form, QStringLiteral("StatOpt(1)"))->click();
            QTest::mouseClick(kind<QPushButton>(form, QStringLiteral("Abbruch_But")), Qt::LeftButton);
        });
        klicken(weicheX, weicheY, Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(simulator->geraete().weiche(adresse), 0);
    }

    void AClickOnAReceiverSwitchesNothing()
    {
        // What is still on the wire arrives first.
        testUhr.weiter(500);
        const int vorher = simulator->geraete().empfangeneNachrichten();
        klicken(empfaengerX, empfaengerY, Qt::LeftButton);
        testUhr.weiter(100);
        QCOMPARE(simulator->geraete().empfangeneNachrichten(), vorher);
    }

    void OtherViewsDoNotSwitch()
    {
        win->EditMode_Click(1);
        testUhr.weiter(500);
        const Long adresse = weicheAdresse();
        const int stellung = simulator->geraete().weiche(adresse);
        // Mon is hidden; a release reaching it in another view does nothing.
        emit win->bereich().Mon->losgelassen(weicheX, weicheY, Qt::LeftButton, {});
        testUhr.weiter(100);
        QCOMPARE(simulator->geraete().weiche(adresse), stellung);
    }

private:
    QModelIndex index(int x, int y) const { return win->bereich().monModell().index(y - 1, x - 1); }
    QString bild(int x, int y) const { return index(x, y).data(BildRolle).toString(); }
    QString text(int x, int y) const { return index(x, y).data(Qt::DisplayRole).toString(); }
    QString planBild(int x, int y) const
    {
        return programm->katalog.ElementTab(programm->anlage.XY(x, y).XY_Element).Bmp;
    }
    // B + letter + ".bmp" (Part 3.6, one address).
    QString zustandsBild(int x, int y, char buchstabe) const
    {
        const QString bmp = planBild(x, y);
        return bmp.left(bmp.indexOf(u'_') + 1) + QLatin1Char(buchstabe) + QStringLiteral(".bmp");
    }
    Long weicheAdresse() const { return programm->anlage.XY(weicheX, weicheY).XY_ADR1; }
    void klicken(int x, int y, Qt::MouseButton knopf, Qt::KeyboardModifiers modifikatoren = {})
    {
        ZellenGrid* mon = win->bereich().Mon;
        const QModelIndex i = index(x, y);
        mon->scrollTo(i);
        QTest::mouseClick(mon->viewport(), knopf, modifikatoren, mon->visualRect(i).center());
    }

    int weicheX = 0, weicheY = 0, empfaengerX = 0, empfaengerY = 0;
};

QTEST_MAIN(TstMonitorAnsicht)
#include "tst_monitor_ansicht.moc"
