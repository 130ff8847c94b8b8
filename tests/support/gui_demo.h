#pragma once
// The widget tests that drive the real main window on the bus: the program
// started on a copy of the demo project, "Simulation (ohne Hardware)" as its
// link, the link and the simulated layout in virtual time.

#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/programmordner.h"
#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"
#include "tests/support/gui.h"

#include <QDialog>
#include <QDir>
#include <QPoint>
#include <QTemporaryDir>

#include <functional>

#include <memory>

namespace planor::test {

class DemoProgramm {
public:
    // Steps of Main, the demo loaded. `mitModulen`: the simulator holds the
    // project's modules from the first opening on, at factory values.
    bool starten(bool mitModulen)
    {
        if (!ordner.isValid())
            return false;
        FehlerbehandlungEinrichten({ordner.filePath(QStringLiteral("Fehler.log")), &uhr, &berichte});
        const QDir demo(QStringLiteral(PLANOR_TESTDATA "/../../data/demo"));
        QDir(ordner.path()).mkdir(QStringLiteral("demo"));
        for (const QString& datei : demo.entryList(QDir::Files))
            if (!QFile::copy(demo.filePath(datei), ordner.filePath(QStringLiteral("demo/") + datei)))
                return false;
        schreiben(ordner.filePath(QStringLiteral("Planor.CFG")), "ComPort: 1\r\nVerbindungsart: 2\r\n");

        programm = std::make_unique<Programm>(ordner.path());
        programm->uhr = &testUhr;
        simulator = std::make_unique<Simulator>(testUhr);
        programm->simulator = [this, mitModulen] {
            if (mitModulen && !bestueckt_) {
                for (const SimModulAngabe& m : SimModuleAusAnlage(programm->anlage))
                    simulator->modulHinzufuegen(m);
                bestueckt_ = true;
            }
            return std::unique_ptr<Transport>(simulator->transport());
        };
        startDruecken();
        win = &programm->starten();
        if (!QTest::qWaitForWindowExposed(win))
            return false;
        PfadUndFileSetzen(programm->anlage, ordner.filePath(QStringLiteral("demo/Demo.anl")));
        win->anlageLaden();
        return true;
    }

    // Nothing may wait for ever: after `ms` a stuck dialog is answered with
    // its way out and `notbremse` tells the test's cleanup.
    void notbremseSpannen(int ms)
    {
        notbremse = false;
        auto* sicherung = new QTimer(&wartende());
        sicherung->setSingleShot(true);
        QObject::connect(sicherung, &QTimer::timeout, [this] {
            notbremse = true;
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* d = qobject_cast<QDialog*>(w); d && d->isVisible())
                    d->reject();
        });
        sicherung->start(ms);
    }

    QTemporaryDir ordner;
    SystemUhr uhr;
    TestUhr testUhr{QDateTime(QDate(2026, 1, 1), QTime(12, 0))};
    GesammelteBerichte berichte;
    std::unique_ptr<Simulator> simulator;
    std::unique_ptr<Programm> programm;
    MainWin* win = nullptr;
    bool notbremse = false;

private:
    bool bestueckt_ = false;
};

// The first cell, column by column, that `passt(cell, type code)` accepts;
// (0, 0) when there is none.
inline QPoint ersteZelle(const Programm& p, const std::function<bool(const XY_Typ&, int)>& passt)
{
    for (int x = 1; x <= p.anlage.DimensionenX; ++x)
        for (int y = 1; y <= p.anlage.DimensionenY; ++y)
            if (passt(p.anlage.XY(x, y), p.katalog.ElementTab(p.anlage.XY(x, y).XY_Element).Typ))
                return {x, y};
    return {};
}

}  // namespace planor::test
