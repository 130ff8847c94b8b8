#pragma once
// Starting the real program in the widget tests. On a first start Erststart
// is confirmed with "Simulation (ohne Hardware)" and the simulator is the
// test scaffold, so that open_com succeeds and the test goes on with the
// main window.

#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "loconet/schnittstelle.h"
#include "platform/uhr.h"
#include "tests/support/bus.h"
#include "tests/support/gui.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>

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

// A transport that cannot be opened, as a simulator that is not there.
struct OhneVerbindung final : Transport {
    bool oeffnen(QString& fehler) override
    {
        fehler = QStringLiteral("Der Simulator läuft nicht.");
        return false;
    }
    void schliessen() override {}
    bool istOffen() const override { return false; }
    bool schreiben(const QByteArray&) override { return false; }
};

// A program folder of its own for each test, Fehler.log inside it, the clock
// standing still, error reports collected, and the program in it with a
// simulator that fails to open `scheitern` times.
struct Programmordner {
    Programmordner() { FehlerbehandlungEinrichten({datei(QStringLiteral("Fehler.log")), &uhr, &berichte}); }
    QString datei(const QString& name) const { return ordner.filePath(name); }
    QString cfg() const { return datei(QStringLiteral("Planor.CFG")); }

    // A new program on the folder, its splash form answered.
    Programm& neu()
    {
        programm = std::make_unique<Programm>(ordner.path());
        programm->simulator = [this]() -> std::unique_ptr<Transport> {
            ++erzeugt;
            if (scheitern-- > 0)
                return std::make_unique<OhneVerbindung>();
            return std::make_unique<GeruestTransport>(systemUhr);
        };
        startDruecken();
        return *programm;
    }

    QTemporaryDir ordner;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
    SystemUhr systemUhr;
    GesammelteBerichte berichte;
    std::unique_ptr<Programm> programm;
    int erzeugt = 0, scheitern = 0;
};

// Answers the next file dialog with a path as a user does (to the folder,
// the name into the name field, then OK), or cancels it; notes its title.
inline void dateiWaehlen(const QString& pfad, QString* titel = nullptr)
{
    wennSichtbar(QStringLiteral("Dateiauswahl"), [pfad, titel](QWidget* w) {
        auto* dialog = static_cast<QFileDialog*>(w);
        if (titel)
            *titel = dialog->windowTitle();
        if (pfad.isEmpty()) {
            dialog->reject();
            return;
        }
        dialog->setDirectory(QFileInfo(pfad).absolutePath());
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QFileInfo(pfad).fileName());
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

}  // namespace planor::test
