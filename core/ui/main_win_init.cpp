// OptionMenu(2) "Modul initialisieren" opens Nav_Init; the menu
// frame closes the port the form has opened.
#include "core/ui/main_win.h"

#include "loconet/schnittstelle.h"
#include "loconet/ui/nav_init_dialog.h"

namespace planor {

void MainWin::ModulInitialisieren_Click()
{
    NavInitZeigen(schnittstelle(), schnittstelle().link(), meldungen_, this);
    schnittstelle().schliessen();
}

}  // namespace planor
