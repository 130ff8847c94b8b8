// Part 3.2: the dialog TauschForm driven through its widgets.
#include "core/panel_model.h"
#include "editor/ui/tausch_dialog.h"
#include "tests/support/gui.h"

#include <QCheckBox>

using namespace planor;
using namespace planor::test;

class TstTausch : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { wartendeBeenden(); }

    void OkStoresTheBoxes()
    {
        Anlage a;
        a.XY(2, 3).XY_STATTAUSCH1 = 1;
        bool war1 = false;
        wennSichtbar(QStringLiteral("TauschForm"), [&war1](QWidget* w) {
            war1 = w->findChild<QCheckBox*>(QStringLiteral("TauschChk1"))->isChecked();
            QCOMPARE(w->findChild<QCheckBox*>(QStringLiteral("TauschChk3"))->text(),
                     QStringLiteral("Adresse 1 und Adresse 2 tauschen"));
            QTest::mouseClick(w->findChild<QCheckBox*>(QStringLiteral("TauschChk3")), Qt::LeftButton);
            QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("OK_But")), Qt::LeftButton);
        });
        QVERIFY(TauschFormZeigen(a, 2, 3, nullptr));
        QVERIFY(war1);
        QCOMPARE(a.XY(2, 3).XY_ADRTAUSCH, Integer(1));
        QCOMPARE(a.XY(2, 3).XY_STATTAUSCH1, Integer(1));
        QCOMPARE(a.PultGeaendert, Integer(1));
    }

    void AbbruchChangesNothing()
    {
        Anlage a;
        wennSichtbar(QStringLiteral("TauschForm"), [](QWidget* w) {
            QTest::mouseClick(w->findChild<QCheckBox*>(QStringLiteral("TauschChk1")), Qt::LeftButton);
            QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("Abbruch_But")), Qt::LeftButton);
        });
        QVERIFY(!TauschFormZeigen(a, 2, 3, nullptr));
        QCOMPARE(a.XY(2, 3).XY_STATTAUSCH1, Integer(0));
        QCOMPARE(a.PultGeaendert, Integer(0));
    }
};

QTEST_MAIN(TstTausch)
#include "tst_tausch.moc"
