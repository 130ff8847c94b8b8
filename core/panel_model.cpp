#include "core/panel_model.h"

#include <array>

namespace planor {

Anlage::Anlage()
    : XY_(std::make_unique<Feld2<XY_Typ, MaxDimension, MaxDimension>>())
    , Bhf_(std::make_unique<Feld<Bhf_Typ, 0, MaxBhf>>())
    , FS_(std::make_unique<Feld<FS_Typ, 0, MaxFS>>())
{
    XY_->fuellen(XY_Leer_);
}

void Anlage::setzeLeerElement(Integer leerIndex)
{
    XY_Leer_.XY_Element = leerIndex;
}

void Anlage::neues_pult_setzen()
{
    XY_->fuellen(XY_Leer_);
    Bhf_->fuellen(Bhf_Typ{});
    FS_->fuellen(FS_Typ{});
    Bhf_Anz = 0;
}

Long Int_to_Unsig(Integer wert)
{
    return wert < 0 ? Long{wert} + 65536 : Long{wert};
}

Integer Unsig_to_Int(Long wert)
{
    return CInt(wert > 32767 ? double(wert) - 65536 : double(wert));
}

QString BetriebsartTxt(int betriebsart)
{
    static const std::array<const char*, BetriebsartMax + 1> texte = {
        "PV Zeit", "PV Sig", "Aufenthalt", "Block", "Einfahrt Bhf.", "Ausfahrt Bhf.",
        "Bhfgl.", "Einfahrt", "Ausfahrt", "Einzelsensor", "Fkten./Geschw.",
    };
    if (betriebsart == BetriebsartKeine)
        return QString();
    if (betriebsart < 0 || betriebsart > BetriebsartMax)
        throw Laufzeitfehler(Fehlernummer::IndexAusserhalb);
    return QString::fromUtf8(texte[static_cast<std::size_t>(betriebsart)]);
}

}  // namespace planor
