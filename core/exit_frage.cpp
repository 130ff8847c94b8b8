#include "core/exit_frage.h"

#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"

#include <QFile>

namespace planor {

bool ExitFrage(Anlage& anlage, ExitFrageUmgebung& umgebung)
{
    return geschuetzt("Funktionen : ExitFrage", false, [&] {
        // The settings are written whatever the user answers next.
        umgebung.Save_conf();
        if (anlage.PultGeaendert != 1)
            return true;

        switch (umgebung.frage(ExitFrageTitel, ExitFrageText)) {
        case Antwort::Abbrechen:
            return false;
        case Antwort::Nein:
            return true;
        case Antwort::Ja:
            break;
        }

        QFile vorhanden(anlage.Pfad + anlage.File);
        if (!anlage.File.isEmpty() && vorhanden.open(QIODevice::ReadOnly)) {
            vorhanden.close();
        } else {
            // As designed: a cancelled dialog ends the program without saving.
            const std::optional<QString> wahl = umgebung.speichernUnter();
            if (!wahl)
                return true;
            PfadUndFileSetzen(anlage, *wahl);
        }
        umgebung.Save_plt();
        return true;
    });
}

void PfadUndFileSetzen(Anlage& anlage, const QString& vollerPfad)
{
    const qsizetype trenner = vollerPfad.lastIndexOf(u'/');
    anlage.Pfad = vollerPfad.left(trenner + 1);
    anlage.File = vollerPfad.mid(trenner + 1);
}

}  // namespace planor
