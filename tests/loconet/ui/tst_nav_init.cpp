// The form Nav_Init driven through its widgets, against the simulator in
// virtual time: the values typed reach the module on the simulated bus.
#include "core/fehlerbehandlung.h"
#include "loconet/link.h"
#include "loconet/ui/nav_init_dialog.h"
#include "loconet/verbindung.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"
#include "tests/support/gui_start.h"
#include "tests/support/gui.h"
#include "tests/support/berichte.h"
#include "tests/support/bus.h"

#include <QAction>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace planor;
using namespace planor::test;

namespace {


void eintippen(QLineEdit* feld, const QString& text)
{
    feld->selectAll();
    QTest::keyClicks(feld, text);
}

}  // namespace

class TstNavInit : public QObject {
    Q_OBJECT

    std::unique_ptr<TestUhr> uhr;
    std::unique_ptr<Simulator> sim;
    std::unique_ptr<LocoNetLink> link;
    std::unique_ptr<SimVerbindung> verbindung;
    std::unique_ptr<Meldungen> meldungen;
    std::unique_ptr<NavInitDialog> dialog;
    QStringList fragen;
    bool antwort = true;

    template <typename T>
    T* w(const char* name)
    {
        return kind<T>(dialog.get(), QLatin1String(name));
    }

private slots:
    void init()
    {
        uhr = std::make_unique<TestUhr>(QDateTime(QDate(2026, 11, 21), QTime(9, 0)));
        sim = std::make_unique<Simulator>(*uhr);
        link = std::make_unique<LocoNetLink>(*uhr);
        verbindung = std::make_unique<SimVerbindung>(*sim, *link);
        meldungen = std::make_unique<Meldungen>();
        dialog = std::make_unique<NavInitDialog>(*verbindung, *link, *meldungen);
        fragen.clear();
        antwort = true;
        dialog->frage = [this](const QString& titel, const QString& text) {
            fragen << titel + u'|' + text;
            return antwort;
        };
        dialog->show();
    }

    void cleanup()
    {
        wartendeBeenden();
        dialog.reset();
        link.reset();
        verbindung.reset();
        sim.reset();
        uhr.reset();
    }

    void StartWritesTheModuleAndClosesTheForm()
    {
        SimModul& modul = sim->geraete().modulHinzufuegen(47220, 12);
        modul.setzeLncv(40, 7);
        emit w<QComboBox>("ArtNrCb")->activated(2);
        w<QRadioButton>("SenOpt(0)")->click();
        eintippen(w<QLineEdit>("Adr_Txt1"), QStringLiteral("300"));
        eintippen(w<QLineEdit>("Adr_Txt2"), QStringLiteral("301"));
        QCOMPARE(dialog->form().adr1, QStringLiteral("300"));
        w<QPushButton>("OK_But")->click();
        QCOMPARE(fragen, QStringList{QStringLiteral("Achtung!|Haben Sie nur ein Modul an LocoNet angeschlossen")});
        QVERIFY(meldungen->texte.isEmpty());
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
        QVERIFY(!dialog->isVisible());
        QCOMPARE(w<QLabel>("ProzTxt")->text(), QStringLiteral("100%"));
        QCOMPARE(w<QProgressBar>("ProzBalken")->value(), 1000);
        QVERIFY(w<QPushButton>("OK_But")->isEnabled());
        QCOMPARE(int(modul.lncv(0)), 300);
        QCOMPARE(int(modul.lncv(1)), 301);
        QCOMPARE(int(modul.lncv(2)), 1);
        QCOMPARE(int(modul.lncv(15)), 1);
        QCOMPARE(int(modul.lncv(40)), 0);
        QVERIFY(link->istOffen());
    }

    void AnsweringNoClosesTheFormWithoutOpeningThePort()
    {
        antwort = false;
        w<QRadioButton>("SenOpt(1)")->click();
        eintippen(w<QLineEdit>("Adr_Txt1"), QStringLiteral("5"));
        w<QPushButton>("OK_But")->click();
        QCOMPARE(fragen.size(), 1);
        QVERIFY(!dialog->isVisible());
        QVERIFY(!link->istOffen());
    }

    void ClosingTheWindowIsAbbruch()
    {
        dialog->close();
        QVERIFY(!dialog->isVisible());
        QVERIFY(!dialog->form().sichtbar);
        QVERIFY(fragen.isEmpty());
        QVERIFY(!link->istOffen());
    }

    void OptionMenu2OpensNavInitAndTheMenuFrameClosesThePort()
    {
        dialog->hide();
        QTemporaryDir ordner;
        QVERIFY(ordner.isValid());
        Programm programm(ordner.path());
        ersterStartMitSimulation(programm);
        startDruecken();
        MainWin& win = programm.starten();
        QVERIFY(win.schnittstelle().istOffen());
        QAction* menu = win.findChild<QAction*>(QStringLiteral("OptionMenu(2)"));
        QVERIFY(menu->isEnabled());
        QCOMPARE(menu->text(), QStringLiteral("Modul initialisieren"));
        bool gesehen = false;
        wennSichtbar(QStringLiteral("Nav_Init"), [&gesehen](QWidget* form) {
            gesehen = true;
            QCOMPARE(form->windowTitle(), QStringLiteral("Modul initialisieren"));
            QTest::mouseClick(form->findChild<QPushButton*>(QStringLiteral("Abbruch_Cmd")), Qt::LeftButton);
        });
        menu->trigger();
        QVERIFY(gesehen);
        QVERIFY(!win.schnittstelle().istOffen());
    }
};

QTEST_MAIN(TstNavInit)
#include "tst_nav_init.moc"
