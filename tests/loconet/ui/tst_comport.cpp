// The ComPort forms driven through their widgets: one flow each for OK,
// cancel and the first start's USB search.
#include "core/fehlerbehandlung.h"
#include "core/settings_file.h"
#include "loconet/ui/comport_dialog.h"
#include "platform/uhr.h"
#include "tests/support/gui.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace planor;
using namespace planor::test;

class TstComPort : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QVERIFY(ordner.isValid());
        FehlerbehandlungEinrichten({cfg() + QStringLiteral(".log"), &uhr, &berichte});
        e = Einstellungen{};
        QFile::remove(cfg());
        geschlossen = 0;
    }
    void cleanup()
    {
        wartendeBeenden();
        QCOMPARE(berichte.texte, QStringList());
    }

    void OkClosesThePortAndWritesPlanorCfg()
    {
        ComPortForm form(e, umgebung());
        zeigen(form, 2);
        auto* nr = kind<QLineEdit>(&form, QStringLiteral("ComPortNr_Txt"));
        nr->setFocus();
        nr->selectAll();
        QTest::keyClicks(nr, QStringLiteral("7x-"));
        QCOMPARE(nr->text(), QStringLiteral("7"));  // only digits get in
        kind<QComboBox>(&form, QStringLiteral("Geraet_Combo"))->setCurrentIndex(1);
        QTest::mouseClick(kind<QPushButton>(&form, QStringLiteral("OK_But")), Qt::LeftButton);
        QCOMPARE(form.Ergebnis(), ComPortOK);
        QCOMPARE(geschlossen, 1);
        const QByteArray datei = lesen(cfg());
        QVERIFY(datei.contains("\r\nComPort:  7 \r\n") && datei.contains("\r\nUSBInterface: -1 \r\n"));
        QVERIFY(datei.contains("\r\nComPortGeraet:/dev/ttyUSB0\r\n"));
    }

    void CancelEndeAndClosingChangeNothing()
    {
        ComPortForm form(e, umgebung());
        Erststart erststart(e, umgebung());
        VerbindungsDialog* dialoge[] = {&form, &erststart};
        for (VerbindungsDialog* f : dialoge) {
            zeigen(*f, 3);
            QVERIFY(f->close());
            QCOMPARE(f->Ergebnis(), ComPortAbbruch);
            zeigen(*f, 3);
            const char* knopf = f == &form ? "Abbruch_Cmd" : "End_But";
            QTest::mouseClick(kind<QPushButton>(f, QLatin1String(knopf)), Qt::LeftButton);
            QCOMPARE(f->Ergebnis(), ComPortAbbruch);
        }
        QVERIFY(e == Einstellungen{} && geschlossen == 0 && !QFile::exists(cfg()));
    }

    void ErststartUsbSearchTakesTheOneFind()
    {
        Erststart form(e, umgebung());
        zeigen(form, 2);
        QTest::mouseClick(kind<QPushButton>(&form, QStringLiteral("USB_But")), Qt::LeftButton);
        QTest::mouseClick(kind<QPushButton>(&form, QStringLiteral("OK_But")), Qt::LeftButton);
        QCOMPARE(form.Ergebnis(), ComPortOK);
        QCOMPARE(e.ComPortGeraet, QStringLiteral("/dev/ttyUSB0"));
        QVERIFY(e.USBInterface && lesen(cfg()).contains("\r\nComPortGeraet:/dev/ttyUSB0\r\n"));
    }

private:
    QString cfg() const { return ordner.filePath(QStringLiteral("Planor.CFG")); }
    void zeigen(VerbindungsDialog& form, int intOpt)
    {
        form.portsListen = [] {
            return QList<PortEintrag>{{"/dev/ttyUSB0", "ttyUSB0", {}, UsbHersteller, UsbProdukt}};
        };
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QTest::mouseClick(kind<QRadioButton>(&form, QStringLiteral("IntOpt(%1)").arg(intOpt)), Qt::LeftButton);
    }
    ComPortUmgebung umgebung()
    {
        return {[] { return true; }, [this] { ++geschlossen; },
                [this] { Save_conf(cfg(), e, Fensterlage{}, QDate(2026, 11, 21)); }};
    }

    QTemporaryDir ordner;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
    struct : FehlerAnzeige {
        void zeigen(const QString&, const QString& text) override { texte << text; }
        QStringList texte;
    } berichte;
    Einstellungen e;
    int geschlossen = 0;
};

QTEST_MAIN(TstComPort)
#include "tst_comport.moc"
