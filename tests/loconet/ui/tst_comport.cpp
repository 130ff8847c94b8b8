// Part 2.1: the forms ComPortForm and Erststart, driven through their widgets.
#include "core/fehlerbehandlung.h"
#include "core/settings_file.h"
#include "core/check_wert.h"
#include "loconet/ui/comport_dialog.h"
#include "platform/uhr.h"
#include "tests/support/gui.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace planor;
using namespace planor::test;

namespace {

QRadioButton* intOpt(QWidget* form, int i)
{
    return kind<QRadioButton>(form, QStringLiteral("IntOpt(%1)").arg(i));
}

QPushButton* knopf(QWidget* form, const char* name)
{
    return kind<QPushButton>(form, QLatin1String(name));
}

QLineEdit* feld(QWidget* form, const char* name)
{
    return kind<QLineEdit>(form, QLatin1String(name));
}

bool rot(QLineEdit* f)
{
    return f->palette().color(QPalette::Text) == QColor(Qt::red);
}

// Replaces the field's text by typing, as a user does.
void tippen(QLineEdit* f, const QString& text)
{
    f->setFocus();
    f->selectAll();
    QTest::keyClick(f, Qt::Key_Backspace);
    QTest::keyClicks(f, text);
}

PortEintrag usb(const char* geraet)
{
    const QString pfad = QLatin1String(geraet);
    return {pfad, pfad.mid(5), QStringLiteral("CP2102"), UsbHersteller, UsbProdukt};
}

}  // namespace

class TstComPort : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ordner = std::make_unique<QTemporaryDir>();
        QVERIFY(ordner->isValid());
        FehlerbehandlungEinrichten({ordner->filePath(QStringLiteral("Fehler.log")), &uhr, &berichte});
        e = Einstellungen{};
        offen = true;
        geschlossen = gespeichert = 0;
    }

    void cleanup()
    {
        wartendeBeenden();
        QCOMPARE(berichte.texte, QStringList());
    }

    void ComPortFormShowsTheSettingsUnderTheSpecsNames()
    {
        e.ComPort = 3;
        e.LocoNetInterface = true;
        ComPortForm form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{usb("/dev/ttyUSB0")}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));

        QCOMPARE(form.objectName(), QStringLiteral("ComPortForm"));
        QCOMPARE(form.windowTitle(), QStringLiteral("ComPort Einstellungen"));
        const QStringList texte = {QStringLiteral("Rondel, Kernpult, Stromtakt"),
                                   QStringLiteral("LocoNet-Interface 51110"),
                                   QStringLiteral("Rondel2, RD-Basis, LocoNet-USB-Interface 51120"),
                                   QStringLiteral("LocoNet über TCP (LbServer)"),
                                   QStringLiteral("Simulation (ohne Hardware)")};
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(intOpt(&form, i)->text(), texte[i]);
            QCOMPARE(intOpt(&form, i)->isChecked(), i == 1);
        }
        QCOMPARE(feld(&form, "ComPortNr_Txt")->text(), QStringLiteral("3"));
        QCOMPARE(kind<QLabel>(&form, QStringLiteral("ComPortNr_Lbl"))->text(),
                 QStringLiteral("Nummer des verwendeten ComPort:"));
        QCOMPARE(knopf(&form, "OK_But")->text(), QStringLiteral("OK"));
        QCOMPARE(knopf(&form, "Abbruch_Cmd")->text(), QStringLiteral("abbrechen"));
        QVERIFY(!form.findChild<QPushButton*>(QStringLiteral("USB_But")));
        QVERIFY(!form.findChild<QPushButton*>(QStringLiteral("End_But")));
        auto* geraete = kind<QComboBox>(&form, QStringLiteral("Geraet_Combo"));
        QCOMPARE(geraete->count(), 2);
        QCOMPARE(geraete->itemText(1), QStringLiteral("/dev/ttyUSB0"));
        QCOMPARE(geraete->currentText(), QString());
        QVERIFY(!feld(&form, "Host_Txt")->isEnabled());
    }

    void ComPort255IsAcceptedAnd256Refused()
    {
        ComPortForm form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QLineEdit* nr = feld(&form, "ComPortNr_Txt");
        QPushButton* ok = knopf(&form, "OK_But");

        tippen(nr, QStringLiteral("255"));
        QVERIFY(!rot(nr));
        QVERIFY(ok->isEnabled());
        QCOMPARE(form.windowTitle(), QStringLiteral("ComPort Einstellungen"));

        tippen(nr, QStringLiteral("256"));
        QVERIFY(rot(nr));
        QVERIFY(!ok->isEnabled());
        QCOMPARE(form.windowTitle(), QStringLiteral(" --- Wert zu groß !! ---"));

        // Only digits get in.
        QTest::keyClicks(nr, QStringLiteral("x-"));
        QCOMPARE(nr->text(), QStringLiteral("256"));

        tippen(nr, QStringLiteral("12"));
        QVERIFY(!rot(nr));
        QVERIFY(ok->isEnabled());
        QCOMPARE(form.windowTitle(), QStringLiteral("ComPort Einstellungen"));
    }

    void OkClosesThePortTakesTheValuesAndWritesPlanorCfgAtOnce()
    {
        e.ComPort = 1;
        ComPortForm form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{usb("/dev/ttyUSB0")}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QTest::mouseClick(intOpt(&form, 2), Qt::LeftButton);
        tippen(feld(&form, "ComPortNr_Txt"), QStringLiteral("7"));
        kind<QComboBox>(&form, QStringLiteral("Geraet_Combo"))->setCurrentIndex(1);
        QTest::mouseClick(knopf(&form, "OK_But"), Qt::LeftButton);

        QCOMPARE(form.Ergebnis(), ComPortOK);
        QVERIFY(!form.isVisible());
        QCOMPARE(geschlossen, 1);
        QCOMPARE(gespeichert, 1);
        QCOMPARE(e.ComPort, Integer(7));
        QVERIFY(e.LocoNetInterface);
        QVERIFY(e.USBInterface);
        QCOMPARE(e.ComPortGeraet, QStringLiteral("/dev/ttyUSB0"));
        const QByteArray datei = lesen(cfg());
        QVERIFY(datei.contains("\r\nComPort:  7 \r\n"));
        QVERIFY(datei.contains("\r\nUSBInterface: -1 \r\n"));
        QVERIFY(datei.contains("\r\nComPortGeraet:/dev/ttyUSB0\r\n"));
    }

    void TcpChoiceTakesHostAndPort()
    {
        ComPortForm form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QTest::mouseClick(intOpt(&form, 3), Qt::LeftButton);
        QVERIFY(feld(&form, "Host_Txt")->isEnabled());
        QVERIFY(!kind<QComboBox>(&form, QStringLiteral("Geraet_Combo"))->isEnabled());
        tippen(feld(&form, "Host_Txt"), QStringLiteral("stellwerk"));
        tippen(feld(&form, "TcpPort_Txt"), QStringLiteral("70000"));
        QVERIFY(!knopf(&form, "OK_But")->isEnabled());
        tippen(feld(&form, "TcpPort_Txt"), QStringLiteral("5550"));
        QTest::mouseClick(knopf(&form, "OK_But"), Qt::LeftButton);
        QCOMPARE(e.Verbindung, Verbindungsart::LbServer);
        QCOMPARE(e.LbServerHost, QStringLiteral("stellwerk"));
        QCOMPARE(e.LbServerPort, Long(5550));
        QVERIFY(lesen(cfg()).contains("\r\nLbServerHost:stellwerk\r\n"));
    }

    void CancelChangesNothing()
    {
        e.ComPort = 2;
        const Einstellungen vorher = e;
        ComPortForm form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QTest::mouseClick(intOpt(&form, 2), Qt::LeftButton);
        tippen(feld(&form, "ComPortNr_Txt"), QStringLiteral("9"));
        QTest::mouseClick(knopf(&form, "Abbruch_Cmd"), Qt::LeftButton);
        QCOMPARE(form.Ergebnis(), ComPortAbbruch);
        QVERIFY(!form.isVisible());
        QVERIFY(e == vorher);
        QCOMPARE(geschlossen, 0);
        QCOMPARE(gespeichert, 0);
        QVERIFY(!QFile::exists(cfg()));
    }

    void ClosingTheWindowCountsAsCancel()
    {
        ComPortForm form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        tippen(feld(&form, "ComPortNr_Txt"), QStringLiteral("9"));
        QVERIFY(form.close());
        QCOMPARE(form.Ergebnis(), ComPortAbbruch);
        QCOMPARE(e.ComPort, Integer(0));
        QCOMPARE(gespeichert, 0);
    }

    void ShowingAgainReadsTheSettingsAnew()
    {
        ComPortForm form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        tippen(feld(&form, "ComPortNr_Txt"), QStringLiteral("300"));
        QTest::mouseClick(knopf(&form, "Abbruch_Cmd"), Qt::LeftButton);
        e.ComPort = 4;
        form.show();
        QCOMPARE(feld(&form, "ComPortNr_Txt")->text(), QStringLiteral("4"));
        QCOMPARE(form.windowTitle(), QStringLiteral("ComPort Einstellungen"));
        QVERIFY(knopf(&form, "OK_But")->isEnabled());
        QCOMPARE(form.Ergebnis(), ComPortOffen);
    }

    void ErststartOffersUsbButOnlyWithIntOpt2()
    {
        Erststart form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QCOMPARE(form.objectName(), QStringLiteral("Erststart"));
        QCOMPARE(kind<QGroupBox>(&form, QStringLiteral("Rahmen"))->title(),
                 QStringLiteral("Daten für die Verbindung mit Ihrer Zentrale:"));
        QCOMPARE(knopf(&form, "USB_But")->text(), QStringLiteral("USB Port suchen"));
        QCOMPARE(knopf(&form, "End_But")->text(), QStringLiteral("Ende"));
        QCOMPARE(knopf(&form, "OK_But")->text(), QStringLiteral("OK"));
        QVERIFY(intOpt(&form, 0)->isChecked());
        QVERIFY(!knopf(&form, "USB_But")->isVisible());
        for (int i : {2, 1, 2, 3, 0, 4}) {
            QTest::mouseClick(intOpt(&form, i), Qt::LeftButton);
            QCOMPARE(knopf(&form, "USB_But")->isVisible(), i == 2);
        }
    }

    void ErststartUsbSearchTakesTheOneFind()
    {
        Erststart form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{usb("/dev/ttyUSB0")}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QTest::mouseClick(intOpt(&form, 2), Qt::LeftButton);
        QTest::mouseClick(knopf(&form, "USB_But"), Qt::LeftButton);
        QCOMPARE(kind<QComboBox>(&form, QStringLiteral("Geraet_Combo"))->currentText(),
                 QStringLiteral("/dev/ttyUSB0"));
        QTest::mouseClick(knopf(&form, "OK_But"), Qt::LeftButton);
        QCOMPARE(form.Ergebnis(), ComPortOK);
        QCOMPARE(e.ComPortGeraet, QStringLiteral("/dev/ttyUSB0"));
        QVERIFY(e.USBInterface);
        QCOMPARE(gespeichert, 1);
    }

    void ErststartUsbSearchWithoutFindTellsSo()
    {
        Erststart form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QTest::mouseClick(intOpt(&form, 2), Qt::LeftButton);
        QString gezeigt;
        wennSichtbar(QStringLiteral("Meldung"), [&gezeigt](QWidget* w) {
            auto* box = static_cast<QMessageBox*>(w);
            gezeigt = box->windowTitle() + u'|' + box->text();
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        });
        QTest::mouseClick(knopf(&form, "USB_But"), Qt::LeftButton);
        QCOMPARE(gezeigt, QStringLiteral("Achtung|Es wurde kein Morvik-USB-Interface gefunden!"));
        QVERIFY(form.isVisible());
    }

    void ErststartEndeIsItsCancel()
    {
        Erststart form(e, umgebung());
        form.portsListen = [] { return QList<PortEintrag>{}; };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        tippen(feld(&form, "ComPortNr_Txt"), QStringLiteral("3"));
        QTest::mouseClick(knopf(&form, "End_But"), Qt::LeftButton);
        QCOMPARE(form.Ergebnis(), ComPortAbbruch);
        QCOMPARE(e.ComPort, Integer(0));
        QCOMPARE(gespeichert, 0);
    }

private:
    QString cfg() const { return ordner->filePath(QStringLiteral("Planor.CFG")); }

    ComPortUmgebung umgebung()
    {
        return {[this] { return offen; },
                [this] {
                    ++geschlossen;
                    offen = false;
                },
                [this] {
                    ++gespeichert;
                    Save_conf(cfg(), e, Fensterlage{}, QDate(2026, 11, 21));
                }};
    }

    struct Unerwartet final : FehlerAnzeige {
        void zeigen(const QString&, const QString& text) override { texte << text; }
        QStringList texte;
    };

    std::unique_ptr<QTemporaryDir> ordner;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
    Unerwartet berichte;
    Einstellungen e;
    bool offen = true;
    int geschlossen = 0;
    int gespeichert = 0;
};

QTEST_MAIN(TstComPort)
#include "tst_comport.moc"
