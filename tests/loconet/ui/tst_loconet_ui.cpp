// The bus windows through their widgets: the port forms, Nav_Init and the
// text monitor on their own, then programming and the monitor through the
// main window on the demo project, the simulated modules in virtual time.
// Values and texts are the logic tests' business; these prove the wiring.
#include "core/settings_file.h"
#include "editor/pult_modell.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "loconet/empfang.h"
#include "loconet/link.h"
#include "loconet/nachricht.h"
#include "loconet/schnittstelle.h"
#include "loconet/ui/comport_dialog.h"
#include "loconet/ui/frm_monitor.h"
#include "loconet/ui/nav_init_dialog.h"
#include "tests/support/berichte.h"
#include "tests/support/bus.h"
#include "tests/support/daten.h"
#include "tests/support/gui_demo.h"

#include <QAction>
#include <QItemSelectionRange>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QToolButton>

using namespace planor;
using namespace planor::test;

class TstLoconetUi : public QObject, private DemoProgramm {
    Q_OBJECT

private slots:
    void init()
    {
        FehlerbehandlungEinrichten({ordner.filePath(QStringLiteral("Fehler.log")), &uhr, &berichte});
        notbremseSpannen(60000);
    }

    void cleanup()
    {
        wartendeBeenden();
        QVERIFY(!notbremse);
        QCOMPARE(berichte.texte, QStringList());
        if (simulator)
            for (const auto& m : simulator->geraete().module())
                m->stumm = false;
    }

    void ComPortOkWritesPlanorCfgCancelChangesNothing()
    {
        Einstellungen e;
        int geschlossen = 0;
        const QString cfg = ordner.filePath(QStringLiteral("Port.CFG"));
        const ComPortUmgebung umgebung{[] { return true; }, [&] { ++geschlossen; },
                                       [&] { Save_conf(cfg, e, Fensterlage{}, QDate(2026, 11, 21)); }};
        ComPortForm form(e, umgebung);
        Erststart erststart(e, umgebung);
        for (VerbindungsDialog* f : std::initializer_list<VerbindungsDialog*>{&form, &erststart}) {
            f->portsListen = [] { return QList<PortEintrag>{{"/dev/ttyUSB0", "ttyUSB0", {}, UsbHersteller, UsbProdukt}}; };
            f->show();
            klick(f, QStringLiteral("IntOpt(3)"));
            QVERIFY(f->close());
            QCOMPARE(f->Ergebnis(), ComPortAbbruch);
        }
        QVERIFY(e == Einstellungen{} && geschlossen == 0 && !QFile::exists(cfg));

        form.show();
        klick(&form, QStringLiteral("IntOpt(2)"));
        tippen(kind<QLineEdit>(&form, QStringLiteral("ComPortNr_Txt")), QStringLiteral("7x-"));
        kind<QComboBox>(&form, QStringLiteral("Geraet_Combo"))->setCurrentIndex(1);
        klick(&form, QStringLiteral("OK_But"));
        QCOMPARE(form.Ergebnis(), ComPortOK);
        QCOMPARE(geschlossen, 1);
        const QByteArray datei = lesen(cfg);
        QVERIFY(datei.contains("\r\nComPort:  7 \r\n") && datei.contains("\r\nComPortGeraet:/dev/ttyUSB0\r\n"));

        erststart.show();
        klick(&erststart, QStringLiteral("IntOpt(2)"));
        klick(&erststart, QStringLiteral("USB_But"));
        klick(&erststart, QStringLiteral("OK_But"));
        QCOMPARE(erststart.Ergebnis(), ComPortOK);
        QVERIFY(e.USBInterface);
    }

    void NavInitWritesTheModuleAndNoLeavesThePortClosed()
    {
        Simulator sim(testUhr);
        LocoNetLink link(testUhr);
        SimVerbindung verbindung(sim, link);
        Meldungen meldungen;
        SimModul& modul = sim.geraete().modulHinzufuegen(47220, 12);
        for (const bool ja : {false, true}) {
            NavInitDialog dialog(verbindung, link, meldungen);
            QStringList fragen;
            dialog.frage = [&](const QString& titel, const QString&) {
                fragen << titel;
                return ja;
            };
            dialog.show();
            emit kind<QComboBox>(&dialog, QStringLiteral("ArtNrCb"))->activated(2);
            klick(&dialog, QStringLiteral("SenOpt(0)"));
            tippen(kind<QLineEdit>(&dialog, QStringLiteral("Adr_Txt1")), QStringLiteral("300"));
            tippen(kind<QLineEdit>(&dialog, QStringLiteral("Adr_Txt2")), QStringLiteral("301"));
            klick(&dialog, QStringLiteral("OK_But"));
            QCOMPARE(fragen, QStringList{QStringLiteral("Achtung!")});
            QVERIFY(!dialog.isVisible());
            QCOMPARE(link.istOffen(), ja);
        }
        QVERIFY(meldungen.texte.isEmpty());
        QCOMPARE(int(modul.lncv(0)), 300);
        QCOMPARE(int(modul.lncv(1)), 301);
        QCOMPARE(int(modul.lncv(2)), 1);
        QCOMPARE(int(modul.lncv(15)), 1);
    }

    void MonitorFormShowsTheBusAndKeepsUpWithABurst()
    {
        Empfang empfang;
        Meldungen meldungen;
        FrmMonitor form(empfang, testUhr, ordner.path(), meldungen);
        form.zeigen();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QVERIFY(empfang.Monitor_Aktiv);
        auto* ansicht = kind<QPlainTextEdit>(&form, QStringLiteral("rtbMoni"));
        const QByteArray weiche = mitPruefsumme(hex("B0 04 30"));
        empfang.bytes(weiche.left(1));
        empfang.bytes(weiche.mid(1));
        QTRY_COMPARE(ansicht->toPlainText(), QStringLiteral("Mag.-Art.: 5 - grün - ein \n"));

        klick(&form, QStringLiteral("btnTraceOnOff"));
        empfang.bytes(mitPruefsumme(hex("83")));
        klick(&form, QStringLiteral("btnTraceOnOff"));
        const QString pfad = QDir(ordner.path()).filePath(VerlaufName(testUhr.jetzt()) + QStringLiteral(".txt"));
        QCOMPARE(lesen(pfad), (TraceZeile(testUhr.jetzt().time(), QString()) + "Gleisspannung eingeschaltet\r\n").toLatin1());

        klick(&form, QStringLiteral("LNM_hex_chk"));
        QVERIFY(form.monitor().zustand().Hex_Ausgabe);
        // Far more than the view holds, with cuts on the way: shown exactly, the end in sight.
        for (int i = 0; i < 1000; ++i)
            empfang.bytes(mitPruefsumme(QByteArray{"\xB2"} + char(i % 128) + char(0x10 | (i / 128))));
        QTRY_COMPARE(ansicht->toPlainText(), form.monitor().ansicht());
        QVERIFY(ansicht->toPlainText().size() <= MonitorHoechstZeichen);
        QCOMPARE(ansicht->verticalScrollBar()->value(), ansicht->verticalScrollBar()->maximum());
        QCOMPARE(ansicht->horizontalScrollBar()->maximum(), 0);

        klick(&form, QStringLiteral("btnCancel"));
        QVERIFY(!form.isVisible() && !empfang.Monitor_Aktiv);
        QCOMPARE(meldungen.texte, QStringList());
    }

    void View4StartsTheMonitorAndView1ClosesIt()
    {
        QVERIFY(demo());
        win->EditMode_Click(4);
        auto* monitor = win->findChild<FrmMonitor*>(QStringLiteral("frmMonitor"));
        QVERIFY(monitor && monitor->isVisible());
        QVERIFY(monitor->frameGeometry().left() > win->frameGeometry().left());
        simulator->bus().melden(mitPruefsumme(SendMag_Nachricht(5, 1, true)));
        testUhr.warten(1.0, [&] { return monitor->monitor().ansicht().contains(QStringLiteral("Mag.-Art.")); });
        QTRY_VERIFY(kind<QPlainTextEdit>(monitor, QStringLiteral("rtbMoni"))->toPlainText().contains(
            QStringLiteral("Mag.-Art.: 5 - grün - ein ")));
        win->EditMode_Click(1);
        QVERIFY(!monitor->isVisible());
        QVERIFY(!win->schnittstelle().link().empfang().Monitor_Aktiv);
    }

    void OptionMenu2OpensNavInitAndClosesThePortAfterwards()
    {
        QVERIFY(demo());
        Long err = 0;
        win->schnittstelle().open_com(err);
        FensterAntworten antworten({{QStringLiteral("Nav_Init"), [](QWidget* f) { klick(f, QStringLiteral("Abbruch_Cmd")); }}});
        aktion("OptionMenu(2)")->trigger();
        QCOMPARE(antworten.gesehen, QStringList{QStringLiteral("Nav_Init")});
        QVERIFY(!win->schnittstelle().istOffen());
    }

    void AlleModuleProgramsTheSimulatedModules()
    {
        QVERIFY(demo());
        const SimModul* m = modul();
        FensterAntworten antworten({{QStringLiteral("Meldung"), [](QWidget* w) { klick(w, QMessageBox::Ok); }}});
        aktion("ProgMenu(1)")->trigger();
        QVERIFY(info("InfoTxt1").endsWith(QStringLiteral("Programmierung beendet !!!")));
        QVERIFY(!m->sitzungOffen());
        int verschieden = 0;
        for (int i = 2; i <= 119; ++i) {
            const Integer wert = programm->anlage.XY(zelle.x(), zelle.y()).XY_LNCV(i);
            if (i != 16)
                QCOMPARE(m->lncv(i), quint16(wert));
            verschieden += wert != 0;
        }
        QVERIFY2(verschieden > 0, "the demo's receiver carries values beyond the factory's");
        frei();
    }

    // A silent module: "nochmal" asks again, "nächstes" goes on to the end;
    // the module at work blinks and gets its own picture back.
    void ASilentModuleGetsThePromptNochmalThenNaechstes()
    {
        QVERIFY(demo());
        modul()->stumm = true;
        QStringList bilder;  // the cell's pictures while the run works
        PultModell& modell = win->bereich().pultModell();
        const QModelIndex i = modell.index(zelle.y() - 1, zelle.x() - 1);
        const auto v = connect(&modell, &QAbstractItemModel::dataChanged, this, [&](const QModelIndex& a, const QModelIndex& b) {
            if (QItemSelectionRange(a, b).contains(i))
                bilder << i.data(BildRolle).toString();
        });
        int prompts = 0;
        bool gesperrt = false;
        FensterAntworten antworten({{QStringLiteral("Meldung"), [](QWidget* w) { klick(w, QMessageBox::Ok); }},
                                    {QStringLiteral("PultFehlMeldung_Form"), [&](QWidget* form) {
                                         gesperrt = !aktion("ProgHauptMenu")->isEnabled();
                                         klick(form, QStringLiteral("EXIT_But(%1)").arg(prompts++ == 0 ? 0 : 1));
                                     }}});
        aktion("ProgMenu(1)")->trigger();
        disconnect(v);
        QCOMPARE(prompts, 2);
        QVERIFY(gesperrt);
        QVERIFY(info("InfoTxt1").endsWith(QStringLiteral("Programmierung beendet !!!")));
        QVERIFY(!bilder.filter(QStringLiteral("_ausw.bmp")).isEmpty());
        QCOMPARE(i.data(BildRolle).toString(),
                 programm->katalog.ElementTab(programm->anlage.XY(zelle.x(), zelle.y()).XY_Element).Bmp);
        frei();
    }

    void ModulEinzelnProgramsTheClickedCell()
    {
        QVERIFY(demo());
        SimModul* m = modul();
        m->werkseinstellung();
        FensterAntworten antworten({{QStringLiteral("Meldung"), [](QWidget* w) { klick(w, QMessageBox::Ok); }}});
        Qt::CursorShape zeiger = Qt::ArrowCursor;
        wennAuswahl([&] {
            ZellenGrid* pult = win->bereich().Pult;
            zeiger = pult->cursor().shape();
            const QModelIndex i = pult->model()->index(zelle.y() - 1, zelle.x() - 1);
            pult->scrollTo(i);
            QTest::mouseClick(pult->viewport(), Qt::LeftButton, {}, pult->visualRect(i).center());
        });
        aktion("ProgMenu(2)")->trigger();
        QCOMPARE(zeiger, Qt::WhatsThisCursor);
        QVERIFY(info("InfoTxt1").endsWith(QStringLiteral("Programmierung beendet !!!")));
        for (int i = 2; i <= 119; ++i)
            if (i != 16)
                QCOMPARE(m->lncv(i), quint16(programm->anlage.XY(zelle.x(), zelle.y()).XY_LNCV(i)));
        frei();
    }

    // Last: the main window goes.
    void ClosingTheWindowGivesUpThePick()
    {
        QVERIFY(demo());
        QApplication::setQuitOnLastWindowClosed(false);
        programm->anlage.PultGeaendert = 0;
        FensterAntworten antworten({{QStringLiteral("Meldung"), [](QWidget* w) { klick(w, QMessageBox::Ok); }}});
        wennAuswahl([this] { win->close(); });
        aktion("ProgMenu(2)")->trigger();
        QVERIFY(!win->isVisible() && !win->ProgAuswWartet && !win->ProgAuswFertig);
        QVERIFY(!QApplication::overrideCursor());
    }

private:
    // The demo on the locked plan, started once; `zelle` is its first receiver.
    bool demo()
    {
        if (win)
            return true;
        if (!starten(true))
            return false;
        programm->anlage.PultOpt.PultOptGPLocked = true;
        win->GleisPlan_Lock_Unlock();
        zelle = ersteZelle(*programm, [](const XY_Typ& z, int) { return z.XY_ArtNr == 47220; });
        return !zelle.isNull();
    }
    // The simulated module of `zelle`; they come with the first opening of the port.
    SimModul* modul()
    {
        const XY_Typ& z = programm->anlage.XY(zelle.x(), zelle.y());
        Long err = 0;
        win->schnittstelle().open_com(err);
        return simulator->geraete().modul(z.XY_ArtNr, z.XY_LNCV(0));
    }
    void wennAuswahl(std::function<void()> tun)
    {
        auto* t = new QTimer(&wartende());
        connect(t, &QTimer::timeout, this, [this, t, tun] {
            if (win->ProgAuswWartet) {
                t->stop();
                tun();
            }
        });
        t->start(10);
    }
    void frei()
    {
        QVERIFY(aktion("ProgHauptMenu")->isEnabled() && aktion("OptionHauptMenu")->isEnabled());
        QVERIFY(!win->schnittstelle().istOffen());
        QVERIFY(!QApplication::overrideCursor());
    }
    QAction* aktion(const char* name) const { return win->findChild<QAction*>(QLatin1String(name)); }
    QString info(const char* name) const { return win->findChild<QLabel*>(QLatin1String(name))->text(); }

    QPoint zelle;
};

QTEST_MAIN(TstLoconetUi)
#include "tst_loconet_ui.moc"
