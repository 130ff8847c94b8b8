#include "core/ui/main.h"

#include "core/fehlerbehandlung.h"
#include "core/programmordner.h"
#include "core/ui/fehler_box.h"
#include "core/ui/main_win.h"
#include "core/ui/meldungs_box.h"
#include "core/ui/start_form.h"
#include "loconet/schnittstelle.h"
#include "loconet/ui/comport_dialog.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

namespace planor {

Programm::Programm(QString ablageordner) : ablageordner_(std::move(ablageordner)) {}

Programm::~Programm() = default;

QString Programm::settingsDatei() const
{
    return QDir(ablageordner_).filePath(SettingsDateiname);
}

MainWin& Programm::starten()
{
    // 1. Load_conf. A first start has no settings to read: the report of a
    //    missing file is kept for a file that vanished, not for a new
    //    installation.
    ersterStart_ = !QFileInfo::exists(settingsDatei());
    if (!ersterStart_)
        geschuetzt("Laden_und_Speichern : Load_conf", [&] { Load_conf(settingsDatei(), einstellungen); });

    // 2, 3. The version text on the splash form; wait for StartBut.
    {
        Start_Form start;
        start.warteAufStart();
    }

    // 4. The main window with its stored geometry.
    mainWin_ = std::make_unique<MainWin>(anlage, katalog, einstellungen, settingsDatei(), *uhr);
    mainWin_->schnittstelle().setzeSimulator(simulator);
    anlage.Pfad = einstellungen.Pfad;
    anlage.File = einstellungen.File;
    mainWin_->zeigenMitGespeicherterLage();

    // 5. Without a project the project menus are disabled.
    mainWin_->projektMenusFreigeben(false);

    // 6. View 1.
    mainWin_->EditMode = 1;
    mainWin_->ChangeEditMode();

    // 7, 8. The element catalogue from KonfPfad and the palette. Without it
    //       the program stands without a palette.
    geschuetzt("Funktionen : Elemente_laden",
               [&] { Elemente_laden(KonfPfad() + QStringLiteral("Elemente.cfg"), katalog, anlage); });
    mainWin_->paletteAufbauen();

    // 10. The project last worked on, if its file still exists; else the
    //     window stays empty with the project menus disabled.
    anlage.PultGeaendert = 0;
    if (QFileInfo(anlage.Pfad + anlage.File).isFile() && !anlage.File.isEmpty())
        mainWin_->anlageLaden();

    // 11. A first start connects before anything else; "Ende" ends the program.
    if (ersterStart_ && !ersteVerbindung()) {
        beendet_ = true;
        mainWin_->hide();
    }
    return *mainWin_;
}

bool Programm::ersteVerbindung()
{
    MeldungsBox meldungen(mainWin_.get());
    while (true) {
        // Confirming Erststart has closed the link and written Planor.CFG.
        if (mainWin_->Erststart_zeigen() != ComPortOK)
            return false;
        Long err = 0;
        mainWin_->schnittstelle().open_com(err);
        if (err == 0)
            return true;
        meldungen.meldung(VerbindungsFehlerTitel, VerbindungsFehlerText, Symbol::Kritisch);
    }
}

int Main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Planor"));
    QApplication::setOrganizationName(QStringLiteral("Planor"));

    SystemUhr uhr;
    FehlerBox box;
    const QString ablage = Ablageordner();
    FehlerbehandlungEinrichten({QDir(ablage).filePath(QStringLiteral("Fehler.log")), &uhr, &box});

    Programm programm(ablage);
    // "Simulation (ohne Hardware)": one simulator for the run, holding the
    // modules of the project that is open when the link is first opened.
    Simulator simulator(*programm.uhr);
    bool bestueckt = false;
    programm.simulator = [&]() -> std::unique_ptr<Transport> {
        if (!bestueckt) {
            for (const SimModulAngabe& m : SimModuleAusAnlage(programm.anlage))
                simulator.modulHinzufuegen(m);
            bestueckt = true;
        }
        return simulator.transport();
    };
    programm.starten();
    if (programm.beendet())
        return 0;
    return QApplication::exec();
}

}  // namespace planor
