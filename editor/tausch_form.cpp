#include "editor/tausch_form.h"

#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"

namespace planor {

TauschForm_Zustand TauschForm_laden(const Anlage& anlage, int x, int y)
{
    return geschuetzt("TauschForm : Form_Activate", TauschForm_Zustand{}, [&] {
        const XY_Typ& z = anlage.XY(x, y);
        return TauschForm_Zustand{z.XY_STATTAUSCH1 != 0, z.XY_STATTAUSCH2 != 0, z.XY_ADRTAUSCH != 0};
    });
}

void TauschForm_OK(const TauschForm_Zustand& zustand, Anlage& anlage, int x, int y)
{
    geschuetzt("TauschForm : OK_But_Click", [&] {
        XY_Typ& z = anlage.XY(x, y);
        z.XY_STATTAUSCH1 = zustand.TauschChk1 ? 1 : 0;
        z.XY_STATTAUSCH2 = zustand.TauschChk2 ? 1 : 0;
        z.XY_ADRTAUSCH = zustand.TauschChk3 ? 1 : 0;
        anlage.PultGeaendert = 1;
    });
}

}  // namespace planor
