// Part 1.1 step 11 and Part 2.1's menu entry, through the real program:
// Erststart until the link opens, "Ende", and ComPortForm on OptionMenu(1).
#include "core/fehlerbehandlung.h"
#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "loconet/open_com.h"
#include "platform/uhr.h"
#include "tests/support/gui.h"
#include "tests/support/bus.h"

#include <QAction>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <map>

using namespace planor;
using namespace planor::test;

namespace {

// A transport that cannot be opened, as a simulator that is not there.
class OhneVerbindung final : public Transport {
public:
    bool oeffnen(QString& fehler) override
    {
        fehler = QStringLiteral("Der Simulator läuft nicht.");
        return false;
    }
    void schliessen() override {}
    bool istOffen() const override { return false; }
    bool schreiben(const QByteArray&) override { return false; }
};

// Answers every visible top-level window of a name, each time it shows,
// and notes what it saw.
class Antworten : public QObject {
public:
    explicit Antworten(std::map<QString, std::function<void(QWidget*)>> tun) : tun_(std::move(tun))
    {
        auto* timer = new QTimer(&wartende());
        connect(timer, &QTimer::timeout, this, [this] {
            for (QWidget* w : QApplication::topLevelWidgets()) {
                const auto handler = tun_.find(w->objectName());
                if (handler == tun_.end() || !w->isVisible() || w == zuletzt_)
                    continue;
                zuletzt_ = w;
                gesehen << beschreibung(w);
                handler->second(w);
                zuletzt_ = nullptr;
                return;
            }
        });
        timer->start(10);
    }

    static QString beschreibung(QWidget* w)
    {
        if (auto* box = qobject_cast<QMessageBox*>(w))
            return box->windowTitle() + u'|' + box->text() + u'|'
                   + (box->icon() == QMessageBox::Critical ? QStringLiteral("kritisch") : QStringLiteral("?"));
        return w->objectName();
    }

    QStringList gesehen;

private:
    std::map<QString, std::function<void(QWidget*)>> tun_;
    QWidget* zuletzt_ = nullptr;
};

void klick(QWidget* form, const QString& name)
{
    auto* knopf = form->findChild<QAbstractButton*>(name);
    if (!knopf)
        qFatal("control %s is missing", qPrintable(name));
    QTest::mouseClick(knopf, Qt::LeftButton);
}

void okMitSimulation(QWidget* form)
{
    klick(form, QStringLiteral("IntOpt(4)"));
    klick(form, QStringLiteral("OK_But"));
}

void meldungBestaetigen(QWidget* w)
{
    QTest::mouseClick(static_cast<QMessageBox*>(w)->button(QMessageBox::Ok), Qt::LeftButton);
}

}  // namespace

class TstErststart : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ordner = std::make_unique<QTemporaryDir>();
        QVERIFY(ordner->isValid());
        FehlerbehandlungEinrichten({ordner->filePath(QStringLiteral("Fehler.log")), &uhr, &berichte});
        erzeugt = 0;
        scheitern = 0;
    }

    void cleanup()
    {
        wartendeBeenden();
        QCOMPARE(berichte.texte, QStringList());
    }

    void FirstStartConnectsThroughErststart()
    {
        Programm programm(ordner->path());
        programm.simulator = simulator();
        startDruecken();
        Antworten antworten({{QStringLiteral("Erststart"), okMitSimulation}});
        MainWin& win = programm.starten();

        QCOMPARE(antworten.gesehen, QStringList{QStringLiteral("Erststart")});
        QVERIFY(programm.ersterStart());
        QVERIFY(!programm.beendet());
        QVERIFY(win.isVisible());
        QVERIFY(win.schnittstelle().istOffen());
        QCOMPARE(erzeugt, 1);
        QVERIFY(lesen(cfg()).contains("\r\nVerbindungsart:              2 \r\n"));
    }

    void FailedConnectionShowsTheMessageAndErststartAgain()
    {
        Programm programm(ordner->path());
        scheitern = 2;
        programm.simulator = simulator();
        startDruecken();
        Antworten antworten({{QStringLiteral("Erststart"), okMitSimulation},
                             {QStringLiteral("Meldung"), meldungBestaetigen}});
        MainWin& win = programm.starten();

        const QString fehlschlag = QStringLiteral("Verbindung öffnen|Der Simulator läuft nicht.|kritisch");
        const QString schritt11 = QStringLiteral("Fehler beim Verbinden mit dem Computer|"
                                                 "Bitte stellen Sie die Verbindungsdaten richtig ein oder\n"
                                                 "verbinden Sie den PC mit der Zentrale.|kritisch");
        QCOMPARE(antworten.gesehen,
                 (QStringList{QStringLiteral("Erststart"), fehlschlag, schritt11, QStringLiteral("Erststart"),
                              fehlschlag, schritt11, QStringLiteral("Erststart")}));
        QVERIFY(!programm.beendet());
        QVERIFY(win.schnittstelle().istOffen());
        QCOMPARE(erzeugt, 3);
    }

    void EndeEndsTheProgram()
    {
        Programm programm(ordner->path());
        programm.simulator = simulator();
        startDruecken();
        Antworten antworten({{QStringLiteral("Erststart"), [](QWidget* form) {
                                  klick(form, QStringLiteral("IntOpt(4)"));
                                  klick(form, QStringLiteral("End_But"));
                              }}});
        MainWin& win = programm.starten();
        QVERIFY(programm.beendet());
        QVERIFY(!win.isVisible());
        QCOMPARE(erzeugt, 0);
        QVERIFY(!QFile::exists(cfg()));
    }

    void EndeAfterAFailedConnection()
    {
        Programm programm(ordner->path());
        scheitern = 1;
        programm.simulator = simulator();
        startDruecken();
        int erststarts = 0;
        Antworten antworten({{QStringLiteral("Erststart"),
                              [&erststarts](QWidget* form) {
                                  if (++erststarts == 1)
                                      okMitSimulation(form);
                                  else
                                      klick(form, QStringLiteral("End_But"));
                              }},
                             {QStringLiteral("Meldung"), meldungBestaetigen}});
        programm.starten();
        QCOMPARE(erststarts, 2);
        QVERIFY(programm.beendet());
    }

    void ClosingErststartCountsAsEnde()
    {
        Programm programm(ordner->path());
        startDruecken();
        Antworten antworten({{QStringLiteral("Erststart"), [](QWidget* form) { form->close(); }}});
        programm.starten();
        QVERIFY(programm.beendet());
    }

    void ALaterStartShowsNoErststart()
    {
        schreiben(cfg(), "ComPort: 1\r\n");
        Programm programm(ordner->path());
        startDruecken();
        Antworten antworten({{QStringLiteral("Erststart"), [](QWidget* form) { form->close(); }}});
        MainWin& win = programm.starten();
        QVERIFY(!programm.ersterStart());
        QVERIFY(!programm.beendet());
        QVERIFY(win.isVisible());
        QVERIFY(!win.schnittstelle().istOffen());
        QCOMPARE(antworten.gesehen, QStringList());
    }

    void OptionMenu1OpensComPortFormWhoseOkClosesTheLinkAndWritesTheSettings()
    {
        schreiben(cfg(), "ComPort: 1\r\nVerbindungsart: 2\r\n");
        Programm programm(ordner->path());
        programm.simulator = simulator();
        startDruecken();
        MainWin& win = programm.starten();
        Long err = -1;
        win.schnittstelle().open_com(err);
        QCOMPARE(err, Long(0));
        QVERIFY(win.schnittstelle().istOffen());

        QAction* menu = win.findChild<QAction*>(QStringLiteral("OptionMenu(1)"));
        QVERIFY(menu->isEnabled());
        QCOMPARE(menu->text(), QStringLiteral("ComPort Einstellungen"));
        wennSichtbar(QStringLiteral("ComPortForm"), [](QWidget* form) {
            QCOMPARE(form->findChild<QRadioButton*>(QStringLiteral("IntOpt(4)"))->isChecked(), true);
            klick(form, QStringLiteral("IntOpt(2)"));
            auto* nr = form->findChild<QLineEdit*>(QStringLiteral("ComPortNr_Txt"));
            nr->selectAll();
            QTest::keyClicks(nr, QStringLiteral("5"));
            klick(form, QStringLiteral("OK_But"));
        });
        menu->trigger();

        QVERIFY(!win.schnittstelle().istOffen());
        QCOMPARE(programm.einstellungen.ComPort, Integer(5));
        QVERIFY(programm.einstellungen.USBInterface);
        QCOMPARE(programm.einstellungen.Verbindung, Verbindungsart::Seriell);
        const QByteArray datei = lesen(cfg());
        QVERIFY(datei.contains("\r\nComPort:  5 \r\n"));
        QVERIFY(datei.contains("\r\nUSBInterface: -1 \r\n"));
        QVERIFY(!datei.contains("Verbindungsart"));
    }

    void OptionMenu1CancelLeavesLinkAndFile()
    {
        schreiben(cfg(), "ComPort: 1\r\nVerbindungsart: 2\r\n");
        Programm programm(ordner->path());
        programm.simulator = simulator();
        startDruecken();
        MainWin& win = programm.starten();
        Long err = -1;
        win.schnittstelle().open_com(err);
        wennSichtbar(QStringLiteral("ComPortForm"), [](QWidget* form) {
            klick(form, QStringLiteral("IntOpt(0)"));
            klick(form, QStringLiteral("Abbruch_Cmd"));
        });
        win.findChild<QAction*>(QStringLiteral("OptionMenu(1)"))->trigger();
        QVERIFY(win.schnittstelle().istOffen());
        QCOMPARE(programm.einstellungen.Verbindung, Verbindungsart::Simulation);
        QCOMPARE(lesen(cfg()), QByteArray("ComPort: 1\r\nVerbindungsart: 2\r\n"));
    }

private:
    QString cfg() const { return ordner->filePath(QStringLiteral("Planor.CFG")); }

    // The simulator: fails `scheitern` times, then opens the scaffold.
    std::function<std::unique_ptr<Transport>()> simulator()
    {
        return [this]() -> std::unique_ptr<Transport> {
            ++erzeugt;
            if (scheitern > 0) {
                --scheitern;
                return std::make_unique<OhneVerbindung>();
            }
            return std::make_unique<GeruestTransport>(systemUhr);
        };
    }

    struct Unerwartet final : FehlerAnzeige {
        void zeigen(const QString&, const QString& text) override { texte << text; }
        QStringList texte;
    };

    std::unique_ptr<QTemporaryDir> ordner;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
    SystemUhr systemUhr;
    Unerwartet berichte;
    int erzeugt = 0;
    int scheitern = 0;
};

QTEST_MAIN(TstErststart)
#include "tst_erststart.moc"
