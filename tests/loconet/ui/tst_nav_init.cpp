// Part 2.5: the form Nav_Init driven through its widgets, against the
// simulator in virtual time.
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

class SimVerbindung final : public LocoNetVerbindung {
public:
    SimVerbindung(Simulator& sim, LocoNetLink& link) : sim_(sim), link_(link) {}
    void open_com(Long& err) override
    {
        err = 0;
        if (link_.istOffen())
            return;
        link_.setzeTransport(sim_.transport());
        QString fehler;
        if (!link_.transport()->oeffnen(fehler))
            err = 8002;
    }
    bool istOffen() const override { return link_.istOffen(); }

private:
    Simulator& sim_;
    LocoNetLink& link_;
};

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

    void FormLoadShowsTheControlsUnderTheSpecsNames()
    {
        QCOMPARE(dialog->objectName(), QStringLiteral("Nav_Init"));
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Modul initialisieren"));
        auto* cb = w<QComboBox>("ArtNrCb");
        QStringList liste;
        for (int i = 0; i < cb->count(); ++i)
            liste << cb->itemText(i);
        QCOMPARE(liste, (QStringList{"5330", "47120", "47220", "47230", "47240", "47320", "47330"}));
        QCOMPARE(w<QLineEdit>("Adr_Txt1")->text(), QStringLiteral("-"));
        QCOMPARE(w<QLineEdit>("Adr_Txt2")->text(), QStringLiteral("-"));
        QVERIFY(!w<QLineEdit>("Adr_Txt2")->isEnabled());
        QCOMPARE(w<QGroupBox>("SensorFrame")->title(), QStringLiteral("Konfiguration der Sensoreingänge:"));
        QVERIFY(!w<QGroupBox>("SensorFrame")->isHidden());
        QCOMPARE(w<QRadioButton>("SenOpt(0)")->text(), QStringLiteral("zwei einzelne Sensoren"));
        QCOMPARE(w<QRadioButton>("SenOpt(1)")->text(), QStringLiteral("ein Doppel-Sensor für Automatikfunktionen"));
        QVERIFY(!w<QRadioButton>("SenOpt(0)")->isChecked());
        QVERIFY(!w<QRadioButton>("SenOpt(1)")->isChecked());
        QCOMPARE(w<QLabel>("Label4")->text(),
                 QStringLiteral("Achtung: Es darf nur ein NAVIK oder TOBRA Modul mit dem LocoNet verbunden sein!"));
        QVERIFY(w<QFrame>("ProzFrame"));
        QCOMPARE(w<QProgressBar>("ProzBalken")->value(), 0);
        QCOMPARE(w<QLabel>("ProzTxt")->text(), QStringLiteral("0%"));
        QCOMPARE(w<QPushButton>("OK_But")->text(), QStringLiteral("Start"));
        QCOMPARE(w<QPushButton>("Abbruch_Cmd")->text(), QStringLiteral("abbrechen"));
    }

    void UniversalControllerHidesTheSensorFrame()
    {
        auto* cb = w<QComboBox>("ArtNrCb");
        emit cb->activated(5);
        QCOMPARE(cb->currentText(), QStringLiteral("47320"));
        QVERIFY(w<QGroupBox>("SensorFrame")->isHidden());
        QCOMPARE(w<QLabel>("Label4")->text(),
                 QStringLiteral("Achtung: Es darf nur eine Universalsteuerung mit dem LocoNet verbunden sein!"));
        emit cb->activated(2);
        QVERIFY(!w<QGroupBox>("SensorFrame")->isHidden());
    }

    void SenOpt0OffersTheSecondAddress()
    {
        w<QRadioButton>("SenOpt(0)")->click();
        QVERIFY(w<QLineEdit>("Adr_Txt2")->isEnabled());
        w<QRadioButton>("SenOpt(1)")->click();
        QVERIFY(!w<QLineEdit>("Adr_Txt2")->isEnabled());
    }

    void WrongAddressGivesTheMessageAndTheFormStays()
    {
        w<QRadioButton>("SenOpt(1)")->click();
        eintippen(w<QLineEdit>("Adr_Txt1"), QStringLiteral("4096"));
        w<QPushButton>("OK_But")->click();
        QCOMPARE(meldungen->texte,
                 QStringList{QStringLiteral("Fehler|Moduladresse1, Moduladresse2 oder Konfiguration der "
                                            "Sensoreingänge\nnicht oder nicht richtig eingestellt! Bitte ändern!")});
        QVERIFY(fragen.isEmpty());
        QVERIFY(dialog->isVisible());
        QVERIFY(!link->istOffen());
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
