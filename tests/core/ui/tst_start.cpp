// The program's start through the real widgets: Erststart until the link
// opens, a later start, leaving the program, the error box.
#include "core/ui/fehler_box.h"
#include "tests/support/gui_start.h"

#include <QAction>

using namespace planor;
using namespace planor::test;

namespace {

void mitSimulation(QWidget* form)
{
    klick(form, QStringLiteral("IntOpt(4)"));
    klick(form, QStringLiteral("OK_But"));
}

void bestaetigen(QWidget* box) { klick(box, QMessageBox::Ok); }

}  // namespace

class TstStart : public QObject {
    Q_OBJECT

private slots:
    void init() { p = std::make_unique<Programmordner>(); }

    void cleanup()
    {
        wartendeBeenden();
        QCOMPARE(p->berichte.texte, QStringList());
    }

    void FirstStartConnectsAndOffersNoProjectMenus()
    {
        FensterAntworten antworten({{QStringLiteral("Erststart"), mitSimulation}});
        MainWin& win = p->neu().starten();
        QCOMPARE(antworten.gesehen, QStringList{QStringLiteral("Erststart")});
        QVERIFY(p->programm->ersterStart() && !p->programm->beendet() && win.schnittstelle().istOffen());
        QVERIFY(lesen(p->cfg()).contains("\r\nVerbindungsart:              2 \r\n"));
        for (const char* name : {"BearbeitenMenu", "PultSpeichernMenu", "KonfHauptMenu", "ProgHauptMenu"})
            QVERIFY2(!win.findChild<QAction*>(QLatin1String(name))->isEnabled(), name);
    }

    void FailedConnectionShowsTheMessageAndErststartAgain()
    {
        p->scheitern = 2;
        FensterAntworten antworten({{QStringLiteral("Erststart"), mitSimulation}, {QStringLiteral("Meldung"), bestaetigen}});
        MainWin& win = p->neu().starten();
        const QString fehlschlag = QStringLiteral("Verbindung öffnen|Der Simulator läuft nicht.|kritisch");
        const QString nochmal = QStringLiteral("Fehler beim Verbinden mit dem Computer|Bitte stellen Sie die "
                                               "Verbindungsdaten richtig ein oder\nverbinden Sie den PC mit der Zentrale.|kritisch");
        QCOMPARE(antworten.gesehen, (QStringList{"Erststart", fehlschlag, nochmal, "Erststart", fehlschlag, nochmal, "Erststart"}));
        QVERIFY(!p->programm->beendet() && win.schnittstelle().istOffen());
        QCOMPARE(p->erzeugt, 3);
    }

    void EndeInErststartEndsTheProgramEvenAfterAFailure()
    {
        p->scheitern = 1;
        int erststarts = 0;
        FensterAntworten antworten(
            {{QStringLiteral("Erststart"), [&](QWidget* f) { ++erststarts == 1 ? mitSimulation(f) : klick(f, QStringLiteral("End_But")); }},
             {QStringLiteral("Meldung"), bestaetigen}});
        QVERIFY(!p->neu().starten().isVisible());
        QCOMPARE(erststarts, 2);
        QVERIFY(p->programm->beendet());
        QCOMPARE(p->erzeugt, 1);
    }

    void ALaterStartTakesTheStoredWindowAndSkipsAMissingProject()
    {
        schreiben(p->cfg(), "MainWinWidth: 12000\r\nMainWinHeight: 9000\r\nMainWinLeft: 1500\r\nMainWinTop: 0\r\nPfad:"
                                + p->ordner.path().toUtf8() + "/weg/\r\nFile:Weg.anl\r\n");
        MainWin& win = p->neu().starten();
        QVERIFY(!p->programm->ersterStart() && !p->programm->beendet());
        QCOMPARE(win.pos().x(), 100);
        QCOMPARE(win.size(), QSize(800, 600));
        QVERIFY(!win.findChild<QWidget*>(QStringLiteral("Pult"))->isVisible());
    }

    void ErrorReportShowsACriticalBox()
    {
        QString gesehen;
        wennSichtbar(QStringLiteral("Fehlerbehandlung"), [&](QWidget* w) {
            gesehen = FensterAntworten::beschreibung(w);
            klick(w, QMessageBox::Ok);
        });
        FehlerBox box;
        FehlerbehandlungEinrichten({p->datei(QStringLiteral("Fehler.log")), &p->uhr, &box});
        QCOMPARE(geschuetzt("Funktionen : Probe", 7, []() -> int { throw Laufzeitfehler(Fehlernummer::IndexAusserhalb); }), 7);
        QVERIFY(gesehen.startsWith(QStringLiteral("--- Programmfehler ---| Fehler in : Funktionen : Probe\n")));
        QVERIFY(gesehen.endsWith(QStringLiteral("\n an die Service-Adresse mitsenden.|kritisch")));
    }

    void CancelledExitHasAlreadyRewrittenTheSettings()
    {
        schreiben(p->cfg(), "; ein Kommentar\r\nComPort: 2\r\n");
        MainWin& win = p->neu().starten();
        p->programm->anlage.PultGeaendert = 1;
        FensterAntworten antworten({{QStringLiteral("ExitFrage"), [](QWidget* w) {
                                         QCOMPARE(static_cast<QMessageBox*>(w)->defaultButton(),
                                                  static_cast<QMessageBox*>(w)->button(QMessageBox::Cancel));
                                         klick(w, QMessageBox::Cancel);
                                     }}});
        win.findChild<QAction*>(QStringLiteral("ProgEndeMenu"))->trigger();
        QCOMPARE(antworten.gesehen.size(), 1);
        QVERIFY(win.isVisible());
        const QByteArray neu = lesen(p->cfg());
        QVERIFY(neu.startsWith("// Konfigurationsfile von NAVIK/TOBRA-Planor Ver. 1.1.6 am 21.11.2026 //\r\n"));
        QVERIFY(neu.contains("\r\nComPort:  2 \r\n") && !neu.contains("Kommentar"));
    }

private:
    std::unique_ptr<Programmordner> p;
};

QTEST_MAIN(TstStart)
#include "tst_start.moc"
