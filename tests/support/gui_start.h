#pragma once
// A first start in the widget tests (Part 1.1 step 11): Erststart is
// confirmed with "Simulation (ohne Hardware)" and the simulator is the test
// scaffold, so that open_com succeeds and the test goes on with the main
// window.

#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "loconet/open_com.h"
#include "platform/uhr.h"
#include "tests/support/gui.h"
#include "tests/support/bus.h"

#include <QPushButton>
#include <QRadioButton>

#include <memory>

namespace planor::test {

inline void ersterStartMitSimulation(Programm& programm)
{
    static SystemUhr uhr;
    programm.simulator = [] { return std::make_unique<GeruestTransport>(uhr); };
    wennSichtbar(QStringLiteral("Erststart"), [](QWidget* form) {
        QTest::mouseClick(form->findChild<QRadioButton*>(QStringLiteral("IntOpt(4)")), Qt::LeftButton);
        QTest::mouseClick(form->findChild<QPushButton*>(QStringLiteral("OK_But")), Qt::LeftButton);
    });
}

// The link as on a computer without the interface: closed, and set to a
// device that is not there, so that the next open_com fails with err 8002
// under "ComPort öffnen".
inline void ohneHardware(Programm& programm, MainWin& win)
{
    win.schnittstelle().schliessen();
    programm.einstellungen.Verbindung = Verbindungsart::Seriell;
    programm.einstellungen.LocoNetInterface = true;
    programm.einstellungen.USBInterface = true;
    programm.einstellungen.ComPortGeraet = QStringLiteral("/dev/planor-gibt-es-nicht");
}

}  // namespace planor::test
