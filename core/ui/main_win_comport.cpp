// The main window's link, ComPortForm on OptionMenu(1) and the
// form Erststart.
#include "core/ui/main_win.h"

#include "loconet/comport_form.h"
#include "loconet/schnittstelle.h"
#include "loconet/ui/comport_dialog.h"

namespace planor {

Schnittstelle& MainWin::schnittstelle()
{
    return *verbindung_;
}

ComPortUmgebung MainWin::comPortUmgebung()
{
    return {[this] { return verbindung_->istOffen(); }, [this] { verbindung_->schliessen(); },
            [this] { Save_conf(); }};
}

void MainWin::ComPortNummer_aendern()
{
    // The form is modal: the caller waits, serving events, until it is done.
    ComPortFormZeigen(einstellungen_, comPortUmgebung(), this);
}

int MainWin::Erststart_zeigen()
{
    return ErststartZeigen(einstellungen_, comPortUmgebung(), this);
}

}  // namespace planor
