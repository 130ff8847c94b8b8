// Part 1.8: the form Grundeinstellungen, driven through its widgets.
#include "core/fehlerbehandlung.h"
#include "core/grundeinstellungen.h"
#include "core/panel_model.h"
#include "core/ui/grundeinstellungen_dialog.h"
#include "platform/uhr.h"
#include "tests/support/gui.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

using namespace planor;
using namespace planor::test;

namespace {

QLineEdit* feld(QWidget* form, const char* name)
{
    return kind<QLineEdit>(form, QLatin1String(name));
}

QPushButton* knopf(QWidget* form, const char* name)
{
    return kind<QPushButton>(form, QLatin1String(name));
}

QRadioButton* spur(QWidget* form, int i)
{
    return kind<QRadioButton>(form, QStringLiteral("opSpur(%1)").arg(i));
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

// What a step saw of one field and OK.
struct Stand {
    QString text;
    bool rot = false;
    QString label;
    bool ok = false;
};

Stand stand(QWidget* form, const char* name, const char* label)
{
    QLineEdit* f = feld(form, name);
    return {f->text(), rot(f), kind<QLabel>(form, QLatin1String(label))->text(), knopf(form, "OK_But")->isEnabled()};
}

}  // namespace

class TstGrundeinstellungen : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ordner = std::make_unique<QTemporaryDir>();
        QVERIFY(ordner->isValid());
        FehlerbehandlungEinrichten({ordner->filePath(QStringLiteral("Fehler.log")), &uhr, &box});
        anlage = std::make_unique<Anlage>();
    }

    void cleanup()
    {
        wartendeBeenden();
        QVERIFY2(box.texte.isEmpty(), qPrintable(box.texte.join(u'\n')));
    }

    void ControlsCarryTheSpecsNamesAndCaptions()
    {
        QString titel;
        QStringList texte;
        bool keineSpur = false;
        QString geschw;
        wennSichtbar(QStringLiteral("Grundeinstellungen"), [&](QWidget* form) {
            titel = form->windowTitle();
            texte << kind<QCheckBox>(form, QStringLiteral("BlkStatChk"))->text();
            for (int i = 0; i < 3; ++i)
                texte << kind<QCheckBox>(form, QStringLiteral("AllgOptChk(%1)").arg(i))->text();
            keineSpur = true;
            for (int i = 0; i < SpurAnz; ++i) {
                texte << spur(form, i)->text();
                keineSpur = keineSpur && !spur(form, i)->isChecked();
            }
            for (const char* name : {"FeldAnzX_Lbl", "FeldAnzY_Lbl", "Geschw_Lbl", "AutomZeit_Lbl", "StartupZeit_Lbl"})
                texte << kind<QLabel>(form, QLatin1String(name))->text();
            texte << knopf(form, "OK_But")->text() << knopf(form, "Abbruch_But")->text();
            texte << feld(form, "FeldAnzX")->text() << feld(form, "FeldAnzY")->text()
                  << feld(form, "AutomZeitTxt")->text() << feld(form, "StartupZeitTxt")->text();
            geschw = feld(form, "Geschw_Txt")->text();
            QTest::mouseClick(knopf(form, "Abbruch_But"), Qt::LeftButton);
        });
        QCOMPARE(GrundeinstellungenZeigen(*anlage, nullptr), 2);

        QCOMPARE(titel, QStringLiteral("Grundeinstellungen für alle NAVIK und TOBRA Module"));
        QCOMPARE(texte, (QStringList{
                            QStringLiteral("Blockzustand \"frei\" oder \"belegt\" auf LocoNet melden"),
                            QStringLiteral("Betriebszustände bei Abschalten abspeichern"),
                            QStringLiteral("Lokadresse und Fahrtrichtung auf Loconet ausgeben"),
                            QStringLiteral("Zugkategorie aus der Rondel2 verwenden (nur 47230 Version 205)"),
                            QStringLiteral("N"), QStringLiteral("TT"), QStringLiteral("H0"), QStringLiteral("0"),
                            QStringLiteral("Spur 1"),
                            QStringLiteral("Anzahl der Spalten des Editierfeldes:"),
                            QStringLiteral("Anzahl der Zeilen des Editierfeldes:"),
                            QStringLiteral("Sensorabstand:"),
                            QStringLiteral("Wartezeit bis zum nächsten Start der Automatik:"),
                            QStringLiteral("Wartezeit beim Einschalten des Moduls:"),
                            QStringLiteral("OK"), QStringLiteral("Abbruch"),
                            QStringLiteral("30"), QStringLiteral("30"), QStringLiteral("10"), QStringLiteral("5"),
                        }));
        QVERIFY2(keineSpur, "LNCV 14 of 0 selects no scale");
        QCOMPARE(geschw, QStringLiteral("-"));
    }

    void FeldAnzXAbove99TurnsRedAndDisablesOk()
    {
        Stand zuGross, zuKlein, passt;
        QString nachBuchstaben;
        wennSichtbar(QStringLiteral("Grundeinstellungen"), [&](QWidget* form) {
            QLineEdit* x = feld(form, "FeldAnzX");
            tippen(x, QStringLiteral("100"));
            zuGross = stand(form, "FeldAnzX", "FeldAnzX_Lbl");
            tippen(x, QStringLiteral("8"));
            zuKlein = stand(form, "FeldAnzX", "FeldAnzX_Lbl");
            tippen(x, QStringLiteral("45"));
            passt = stand(form, "FeldAnzX", "FeldAnzX_Lbl");
            // Nur_Ziffern: other keys are dropped, backspace passes.
            QTest::keyClicks(x, QStringLiteral("a-.7 "));
            QTest::keyClick(x, Qt::Key_Backspace);
            nachBuchstaben = x->text();
            QTest::mouseClick(knopf(form, "Abbruch_But"), Qt::LeftButton);
        });
        QCOMPARE(GrundeinstellungenZeigen(*anlage, nullptr), 2);

        QCOMPARE(zuGross.text, QStringLiteral("100"));
        QVERIFY(zuGross.rot);
        QVERIFY(!zuGross.ok);
        QCOMPARE(zuGross.label, QStringLiteral(" --- Wert zu groß !! ---"));
        QVERIFY(zuKlein.rot);
        QVERIFY(!zuKlein.ok);
        QCOMPARE(passt.text, QStringLiteral("45"));
        QVERIFY(!passt.rot);
        QVERIFY(passt.ok);
        QCOMPARE(passt.label, QStringLiteral("Anzahl der Spalten des Editierfeldes:"));
        QCOMPARE(nachBuchstaben, QStringLiteral("45"));
        QCOMPARE(anlage->DimensionenX, Integer(30));
    }

    void OkStoresTheSettings()
    {
        Stand zuWeit;
        anlage->Grundeinst.LNCV17 = 6;
        wennSichtbar(QStringLiteral("Grundeinstellungen"), [&](QWidget* form) {
            tippen(feld(form, "FeldAnzX"), QStringLiteral("45"));
            tippen(feld(form, "FeldAnzY"), QStringLiteral("20"));
            QTest::mouseClick(spur(form, 2), Qt::LeftButton);
            tippen(feld(form, "Geschw_Txt"), QStringLiteral("42"));  // 42 · 1566 > 65530
            zuWeit = stand(form, "Geschw_Txt", "Geschw_Lbl");
            tippen(feld(form, "Geschw_Txt"), QStringLiteral("40"));
            kind<QCheckBox>(form, QStringLiteral("BlkStatChk"))->click();
            kind<QCheckBox>(form, QStringLiteral("AllgOptChk(2)"))->click();
            tippen(feld(form, "AutomZeitTxt"), QStringLiteral("25"));
            tippen(feld(form, "StartupZeitTxt"), QStringLiteral("4"));
            QTest::mouseClick(knopf(form, "OK_But"), Qt::LeftButton);
        });
        QCOMPARE(GrundeinstellungenZeigen(*anlage, nullptr), 1);

        QVERIFY(zuWeit.rot);
        QVERIFY(!zuWeit.ok);
        QCOMPARE(anlage->DimensionenX, Integer(45));
        QCOMPARE(anlage->DimensionenY, Integer(20));
        const Grundeinst_Typ& g = anlage->Grundeinst;
        QCOMPARE(Int_to_Unsig(g.LNCV14), Long(40 * 1566 + 2));
        QCOMPARE(g.BlkZustMeld, Integer(0));
        QCOMPARE(g.BetriebszustSpeichern, Integer(1));
        QCOMPARE(g.LocoNetStatMessage, Integer(1));
        QCOMPARE(g.ZugKatRD2_47231, Integer(1));
        QCOMPARE(g.LNCV17, Integer(6));
        QCOMPARE(g.LNCV18, Integer(25));
        QCOMPARE(g.LNCV19, Integer(8));

        // Opened again, the form shows the stored scale and distance.
        bool h0 = false;
        QString abstand;
        wennSichtbar(QStringLiteral("Grundeinstellungen"), [&](QWidget* form) {
            h0 = spur(form, 2)->isChecked();
            abstand = feld(form, "Geschw_Txt")->text();
            QTest::mouseClick(knopf(form, "Abbruch_But"), Qt::LeftButton);
        });
        QCOMPARE(GrundeinstellungenZeigen(*anlage, nullptr), 2);
        QVERIFY(h0);
        QCOMPARE(abstand, QStringLiteral("40"));
    }

    void AbbruchChangesNothing()
    {
        const Grundeinst_Typ vorher = anlage->Grundeinst;
        wennSichtbar(QStringLiteral("Grundeinstellungen"), [&](QWidget* form) {
            tippen(feld(form, "FeldAnzX"), QStringLiteral("50"));
            QTest::mouseClick(spur(form, 0), Qt::LeftButton);
            tippen(feld(form, "Geschw_Txt"), QStringLiteral("10"));
            kind<QCheckBox>(form, QStringLiteral("AllgOptChk(0)"))->click();
            QTest::mouseClick(knopf(form, "Abbruch_But"), Qt::LeftButton);
        });
        QCOMPARE(GrundeinstellungenZeigen(*anlage, nullptr), 2);
        QCOMPARE(anlage->DimensionenX, Integer(30));
        QVERIFY(anlage->Grundeinst == vorher);
    }

    void ClosingTheWindowCountsAsCancel()
    {
        wennSichtbar(QStringLiteral("Grundeinstellungen"), [&](QWidget* form) {
            tippen(feld(form, "FeldAnzY"), QStringLiteral("60"));
            form->close();
        });
        QCOMPARE(GrundeinstellungenZeigen(*anlage, nullptr), 2);
        QCOMPARE(anlage->DimensionenY, Integer(30));

        wennSichtbar(QStringLiteral("Grundeinstellungen"),
                     [](QWidget* form) { QTest::keyClick(form, Qt::Key_Escape); });
        QCOMPARE(GrundeinstellungenZeigen(*anlage, nullptr), 2);
    }

    void StoredScaleIsSelectedAtOpening()
    {
        anlage->Grundeinst.LNCV14 = Unsig_to_Int(30 * 2160 + 1);  // TT, 30 mm
        anlage->Grundeinst.LNCV19 = 11;
        std::array<bool, SpurAnz> gewaehlt{};
        QString abstand, startup;
        wennSichtbar(QStringLiteral("Grundeinstellungen"), [&](QWidget* form) {
            for (int i = 0; i < SpurAnz; ++i)
                gewaehlt[static_cast<std::size_t>(i)] = spur(form, i)->isChecked();
            abstand = feld(form, "Geschw_Txt")->text();
            startup = feld(form, "StartupZeitTxt")->text();
            QTest::mouseClick(knopf(form, "Abbruch_But"), Qt::LeftButton);
        });
        QCOMPARE(GrundeinstellungenZeigen(*anlage, nullptr), 2);
        QCOMPARE(gewaehlt, (std::array<bool, SpurAnz>{false, true, false, false, false}));
        QCOMPARE(abstand, QStringLiteral("30"));
        QCOMPARE(startup, QStringLiteral("5"));
    }

private:
    struct Unerwartet final : FehlerAnzeige {
        void zeigen(const QString&, const QString& text) override { texte << text; }
        QStringList texte;
    };

    std::unique_ptr<QTemporaryDir> ordner;
    std::unique_ptr<Anlage> anlage;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
    Unerwartet box;
};

QTEST_MAIN(TstGrundeinstellungen)
#include "tst_grundeinstellungen.moc"
