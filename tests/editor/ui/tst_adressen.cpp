// Part 3.4 through the real main window on the demo project and the built-in
// simulator in virtual time: addresses from the bus assigned with the mouse,
// AdrEingabe on a click, and the refusal of a duplicate receiver address.
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/programmordner.h"
#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "editor/adr_eingabe.h"
#include "editor/adr_zeilen.h"
#include "editor/pult_editor.h"
#include "editor/pult_modell.h"
#include "editor/ui/adr_eingabe_dialog.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "loconet/nachricht.h"
#include "loconet/open_com.h"
#include "platform/sim_bus.h"
#include "platform/sim_geraete.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"
#include "tests/support/gui_demo.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QTemporaryDir>

using namespace planor;
using namespace planor::test;

namespace {

// Answers the next message box with a button and notes its title and text.
void boxAntworten(QStringList& gesehen, QMessageBox::StandardButton knopf)
{
    wennSichtbar(QStringLiteral("Meldung"), [&gesehen, knopf](QWidget* w) {
        auto* box = static_cast<QMessageBox*>(w);
        gesehen << box->windowTitle() + u'|' + box->text();
        QAbstractButton* b = box->button(knopf);
        QTest::mouseClick(b ? b : box->buttons().constFirst(), Qt::LeftButton);
    });
}

} // namespace

class TstAdressen : public QObject, private DemoProgramm {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(starten(true));
        win->EditMode_Click(2);
        QVERIFY(win->bereich().PultAdr->isVisible());
        QVERIFY(win->schnittstelle().istOffen());

        // A turnout with one address and two receivers of the demo.
        Anlage& a = programm->anlage;
        for (int x = 1; x <= a.DimensionenX; ++x)
            for (int y = 1; y <= a.DimensionenY; ++y) {
                const int typ = typVon(x, y);
                if (typ >= 101 && typ <= 110 && weicheX == 0) {
                    weicheX = x;
                    weicheY = y;
                }
                if (typ >= 800 && typ <= 807 && a.XY(x, y).XY_ArtNr != 0 && a.XY(x, y).XY_SenStat == 0) {
                    (empfaengerX == 0 ? empfaengerX : anderesX) = x;
                    (empfaengerY == 0 ? empfaengerY : anderesY) = y;
                }
            }
        QVERIFY(weicheX != 0);
        QVERIFY(anderesX != 0);
        // An empty cell becomes a receiver symbol without module.
        for (int x = 1; x <= a.DimensionenX && neuX == 0; ++x)
            for (int y = 1; y <= a.DimensionenY && neuX == 0; ++y)
                if (typVon(x, y) == 0) {
                    neuX = x;
                    neuY = y;
                }
        QVERIFY(neuX != 0);
        a.XY(neuX, neuY).XY_Element = Integer(programm->katalog.indexVonTyp(800));
        win->editor().SetzeText(neuX, neuY);
    }

    void init()
    {
        notbremseSpannen(30000);
        programm->anlage.PultGeaendert = 0;
        gesehen.clear();
    }

    void cleanup()
    {
        wartendeBeenden();
        QVERIFY(!notbremse);
        QCOMPARE(berichte.texte, QStringList());
    }

    void TheViewShowsItsTextRows()
    {
        const XY_Typ& e = programm->anlage.XY(empfaengerX, empfaengerY);
        QCOMPARE(zeile(empfaengerX, empfaengerY, 2),
            QString::number(e.XY_LNCV(0))
                + (e.XY_BETR == 6 ? QStringLiteral("/Gl.") + QString::number(e.XY_GleisIDX) : QString()));
        QCOMPARE(win->bereich().pultAdrModell().headerData(1, Qt::Vertical, Qt::DisplayRole).toString(),
            QStringLiteral("Mag.Art.:"));
        win->bereich().PultAdr->scrollTo(win->bereich().pultAdrModell().index(0, 0));
        win->grab().save(QStringLiteral("/tmp/adressen_ansicht.png"));
    }

    void ASwitchCommandOnTheBusIsAssignedToATurnout()
    {
        boxAntworten(gesehen, QMessageBox::Yes);
        // Another party switches accessory 1234 "on": B0 with bit 4 of byte 2.
        const int adresse = 1234, a = adresse - 1;
        simulator->bus().melden(
            mitPruefsumme(QByteArray().append(char(0xB0)).append(char(a & 127)).append(char(0x30 | ((a >> 7) & 15)))));
        testUhr.weiter(50);
        QTRY_COMPARE(gesehen.size(), 1);
        QCOMPARE(gesehen.at(0),
            QStringLiteral("Adresszuordnung mit der Maus|Magnetartikeladresse1234 empfangen:  \n"
                           "  Soll die Adresse einer Weiche oder einem   \n"
                           "  Signal mit der Maus zugeordnet werden?"));
        klicken(weicheX, weicheY);
        QCOMPARE(programm->anlage.XY(weicheX, weicheY).XY_ADR1, Integer(1234));
        QCOMPARE(zeile(weicheX, weicheY, 1), QStringLiteral("1234"));
        QCOMPARE(programm->anlage.PultGeaendert, Integer(1));
    }

    void ATrainReportIsAssignedToAReceiverReadingItsArticle()
    {
        simulator->geraete().modulHinzufuegen(47130, 77);
        boxAntworten(gesehen, QMessageBox::Yes);
        simulator->geraete().zugMelden(77, 3, 1, 1);
        testUhr.weiter(50);
        QTRY_COMPARE(gesehen.size(), 1);
        QCOMPARE(gesehen.at(0),
            QStringLiteral("Adresszuordnung mit der Maus|  NAVIK/TOBRA Meldung vom Empfänger77 "
                           "empfangen:  \n  Soll die Adresse einem NAVIK/TOBRA Empfänger  \n"
                           "  mit der Maus zugeordnet werden?         "));
        klicken(neuX, neuY);
        const XY_Typ& z = programm->anlage.XY(neuX, neuY);
        QCOMPARE(z.XY_LNCV(0), Integer(77));
        QCOMPARE(z.XY_ArtNr, Long(47130));
        QCOMPARE(zeile(neuX, neuY, 2), QStringLiteral("77"));
        QCOMPARE(programm->anlage.PultGeaendert, Integer(1));
        QCOMPARE(gesehen.size(), 1); // direction 1 -> 2 matches the symbol
        QVERIFY(!QApplication::overrideCursor());
        QVERIFY(!simulator->geraete().modul(47130, 77)->sitzungOffen());
    }

    void AClickOnATurnoutOpensAdrEingabeAndOKStores()
    {
        QString titel;
        wennSichtbar(QStringLiteral("AdrEingabe"), [&titel](QWidget* w) {
            titel = w->windowTitle();
            auto* feld = kind<QLineEdit>(w, QStringLiteral("AdrTxt(0)"));
            QVERIFY(kind<QLabel>(w, QStringLiteral("AdrLbl(0)"))->text() == QStringLiteral("Magnetart.-Adresse:"));
            QVERIFY(!kind<QComboBox>(w, QStringLiteral("ArtNrCb"))->isVisible());
            feld->selectAll();
            QTest::keyClicks(feld, QStringLiteral("2048"));
            QVERIFY(!kind<QPushButton>(w, QStringLiteral("OK_But"))->isEnabled());
            QCOMPARE(kind<QLabel>(w, QStringLiteral("AdrLbl(0)"))->text(), WertZuGrossTxt);
            QTest::keyClick(feld, Qt::Key_Backspace);
            QTest::keyClicks(feld, QStringLiteral("x5")); // only digits are taken
            QCOMPARE(feld->text(), QStringLiteral("2045"));
            w->grab().save(QStringLiteral("/tmp/adreingabe_weiche.png"));
            QTest::mouseClick(kind<QPushButton>(w, QStringLiteral("OK_But")), Qt::LeftButton);
        });
        klicken(weicheX, weicheY);
        QCOMPARE(titel, QStringLiteral("Magnetartikeladresse"));
        QCOMPARE(programm->anlage.XY(weicheX, weicheY).XY_ADR1, Integer(2045));
        QCOMPARE(zeile(weicheX, weicheY, 1), QStringLiteral("2045"));
        QCOMPARE(programm->anlage.PultGeaendert, Integer(1));
    }

    void ClosingAdrEingabeIsCancel()
    {
        wennSichtbar(QStringLiteral("AdrEingabe"), [](QWidget* w) {
            QTest::keyClicks(kind<QLineEdit>(w, QStringLiteral("AdrTxt(0)")), QStringLiteral("1"));
            w->close();
        });
        klicken(weicheX, weicheY);
        QCOMPARE(programm->anlage.XY(weicheX, weicheY).XY_ADR1, Integer(2045));
        QCOMPARE(programm->anlage.PultGeaendert, Integer(0));
    }

    void AReportWhileADialogIsOpenIsDropped()
    {
        wennSichtbar(QStringLiteral("AdrEingabe"), [this](QWidget* w) {
            boxAntworten(gesehen, QMessageBox::Yes);
            simulator->geraete().zugMelden(77, 3, 1, 1);
            testUhr.weiter(50);
            QTest::qWait(100);
            w->close();
        });
        klicken(weicheX, weicheY);
        QCOMPARE(gesehen, QStringList());
        // Nothing waits for a click: the next click on the receiver opens AdrEingabe.
        bool geoeffnet = false;
        wennSichtbar(QStringLiteral("AdrEingabe"), [&geoeffnet](QWidget* w) {
            geoeffnet = true;
            w->close();
        });
        klicken(empfaengerX, empfaengerY);
        QVERIFY(geoeffnet);
    }

    void ATextRowClickOpensNothing()
    {
        bool geoeffnet = false;
        wennSichtbar(QStringLiteral("AdrEingabe"), [&geoeffnet](QWidget* w) {
            geoeffnet = true;
            w->close();
        });
        klicken(weicheX, weicheY, 1);
        QTest::qWait(50);
        QVERIFY(!geoeffnet);
    }

    void ADuplicateReceiverAddressIsRefused()
    {
        const Integer vorher = programm->anlage.XY(empfaengerX, empfaengerY).XY_LNCV(0);
        const int andere = programm->anlage.XY(anderesX, anderesY).XY_LNCV(0);
        wennSichtbar(QStringLiteral("AdrEingabe"), [this, andere](QWidget* w) {
            QCOMPARE(w->windowTitle(), QStringLiteral("NAVIK/TOBRA-Empfänger Adresse"));
            QCOMPARE(kind<QLabel>(w, QStringLiteral("AdrLbl(0)"))->text(), QStringLiteral("Moduladresse:"));
            QCOMPARE(kind<QLabel>(w, QStringLiteral("AdrLbl(1)"))->text(), QStringLiteral("Art.Nr.:"));
            QCOMPARE(kind<QComboBox>(w, QStringLiteral("ArtNrCb"))->count(), 7);
            w->grab().save(QStringLiteral("/tmp/adreingabe_empfaenger.png"));
            auto* feld = kind<QLineEdit>(w, QStringLiteral("AdrTxt(0)"));
            feld->selectAll();
            QTest::keyClicks(feld, QString::number(andere));
            boxAntworten(gesehen, QMessageBox::Ok);
            QTest::mouseClick(kind<QPushButton>(w, QStringLiteral("OK_But")), Qt::LeftButton);
            QVERIFY(w->isVisible()); // the form stays for a correction
            QTest::mouseClick(kind<QPushButton>(w, QStringLiteral("Abbruch_But")), Qt::LeftButton);
        });
        klicken(empfaengerX, empfaengerY);
        QCOMPARE(gesehen,
            QStringList {QStringLiteral("Fehler|NAVIK/TOBRA Adresse schon vorhanden \nan Position: %1, %2 !!")
                             .arg(anderesX)
                             .arg(anderesY)});
        QCOMPARE(programm->anlage.XY(empfaengerX, empfaengerY).XY_LNCV(0), vorher);
        QCOMPARE(programm->anlage.PultGeaendert, Integer(0));
    }

    void TheInputChoiceShowsFor47240()
    {
        XY_Typ zelle = programm->anlage.XY(neuX, neuY);
        zelle.XY_ArtNr = 47240;
        Anlage& a = programm->anlage;
        const XY_Typ gespeichert = a.XY(neuX, neuY);
        a.XY(neuX, neuY) = zelle;
        AdrEingabe form(*AdrEingabe_laden(a, programm->katalog, neuX, neuY), a, programm->katalog, win->editor(),
            meldungenStumm, neuX, neuY, win);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QVERIFY(kind<QRadioButton>(&form, QStringLiteral("EingangOpt(0)"))->isVisible());
        QTest::mouseClick(kind<QRadioButton>(&form, QStringLiteral("EingangOpt(1)")), Qt::LeftButton);
        QVERIFY(!kind<QLineEdit>(&form, QStringLiteral("AdrTxt(0)"))->isEnabled());
        form.grab().save(QStringLiteral("/tmp/adreingabe_47240.png"));
        kind<QComboBox>(&form, QStringLiteral("ArtNrCb"))->setCurrentIndex(0);
        QVERIFY(!kind<QRadioButton>(&form, QStringLiteral("EingangOpt(0)"))->isVisible());
        form.close();
        a.XY(neuX, neuY) = gespeichert;
    }

    void Adr12AbfrageHasItsButtons()
    {
        wennSichtbar(QStringLiteral("Adr12_Abfrage"), [](QWidget* w) {
            QCOMPARE(kind<QPushButton>(w, QStringLiteral("Adr1_But"))->text(), QStringLiteral("Adresse 1"));
            QCOMPARE(kind<QPushButton>(w, QStringLiteral("Adr2_But"))->text(), QStringLiteral("Adresse 2"));
            QVERIFY(!w->findChild<QPushButton*>(QStringLiteral("Adr3_But")));
            w->grab().save(QStringLiteral("/tmp/adr12_abfrage.png"));
            QTest::mouseClick(kind<QPushButton>(w, QStringLiteral("Adr2_But")), Qt::LeftButton);
        });
        QCOMPARE(Adr12_AbfrageZeigen(2, win), 2);
        wennSichtbar(QStringLiteral("Adr12_Abfrage"), [](QWidget* w) { w->close(); });
        QCOMPARE(Adr12_AbfrageZeigen(3, win), 0);
    }

private:
    struct Stumm final : Benutzer {
        void meldung(const QString&, const QString&, Symbol) override { }
    };

    int typVon(int x, int y) const { return programm->katalog.ElementTab(programm->anlage.XY(x, y).XY_Element).Typ; }
    // Text row 1 (3y-1) or 2 (3y) of a cell as the grid shows it.
    QString zeile(int x, int y, int reihe) const
    {
        return win->bereich().pultAdrModell().index(3 * y - 3 + reihe, x - 1).data(Qt::DisplayRole).toString();
    }
    // A left click on row `reihe` (0 the picture) of a cell of `PultAdr`.
    void klicken(int x, int y, int reihe = 0)
    {
        ZellenGrid* grid = win->bereich().PultAdr;
        const QModelIndex i = win->bereich().pultAdrModell().index(3 * y - 3 + reihe, x - 1);
        grid->scrollTo(i);
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(i).center());
    }

    Stumm meldungenStumm;
    int weicheX = 0, weicheY = 0, empfaengerX = 0, empfaengerY = 0, anderesX = 0, anderesY = 0, neuX = 0, neuY = 0;
    QStringList gesehen;
};

QTEST_MAIN(TstAdressen)
#include "tst_adressen.moc"
