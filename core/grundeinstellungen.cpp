#include "core/grundeinstellungen.h"

#include "core/fehlerbehandlung.h"
#include "core/laufzeitfehler.h"
#include "core/panel_model.h"

namespace planor {

namespace {

QString zahl(long long wert)
{
    return QString::number(wert);
}

Integer ganzzahl(const QString& feldText)
{
    return CInt(Feldwert(feldText));
}

void alleFelderPruefen(Grundeinstellungen_Form& form)
{
    FeldAnzX_Change(form);
    FeldAnzY_Change(form);
    Geschw_Txt_Change(form);
    AutomZeitTxt_Change(form);
    StartupZeitTxt_Change(form);
}

}  // namespace

QString SpurName(int spur)
{
    static const std::array<const char*, SpurAnz> namen = {"N", "TT", "H0", "0", "Spur 1"};
    if (spur < 0 || spur >= SpurAnz)
        throw Laufzeitfehler(Fehlernummer::IndexAusserhalb);
    return QString::fromLatin1(namen[static_cast<std::size_t>(spur)]);
}

int Spur_Faktor(int spur)
{
    if (spur == SpurKeine)
        return SpurFaktorOhneSpur;
    if (spur < 0 || spur >= SpurAnz)
        throw Laufzeitfehler(Fehlernummer::IndexAusserhalb);
    return SpurFaktor[static_cast<std::size_t>(spur)];
}

int SpurAuswahl(Long u, std::span<const int> faktoren)
{
    int auswahl = SpurKeine;
    if (u == 0)
        return auswahl;
    // The option buttons exclude each other: the last hit stands.
    for (std::size_t i = 0; i < faktoren.size(); ++i)
        if (u % faktoren[i] == static_cast<Long>(i))
            auswahl = static_cast<int>(i);
    return auswahl;
}

Geschwindigkeitsmessung LNCV14_lesen(Integer lncv14)
{
    const Long u = Int_to_Unsig(lncv14);
    Geschwindigkeitsmessung m;
    m.spur = SpurAuswahl(u);
    if (m.spur != SpurKeine)
        m.abstand = (u - m.spur) / Spur_Faktor(m.spur);
    return m;
}

Integer LNCV14_bilden(int spur, Long abstand)
{
    const long long u = static_cast<long long>(abstand) * Spur_Faktor(spur) + (spur == SpurKeine ? 0 : spur);
    if (u < 0 || u > 65535)
        throw Laufzeitfehler(Fehlernummer::Ueberlauf);
    return Unsig_to_Int(static_cast<Long>(u));
}

void Form_Activate(Grundeinstellungen_Form& form, const Anlage& anlage)
{
    geschuetzt("Grundeinstellungen : Form_Activate", [&] {
        const Grundeinst_Typ& g = anlage.Grundeinst;
        // The dimensions and the check boxes.
        form.FeldAnzX = zahl(anlage.DimensionenX);
        form.FeldAnzY = zahl(anlage.DimensionenY);
        form.BlkStatChk = g.BlkZustMeld != 0;
        form.AllgOptChk = {g.BetriebszustSpeichern != 0, g.LocoNetStatMessage != 0, g.ZugKatRD2_47231 != 0};
        // The scale and distance of the speed measurement.
        form.opSpur = SpurKeine;
        form.Geschw_Txt = QStringLiteral("-");
        const Geschwindigkeitsmessung m = LNCV14_lesen(g.LNCV14);
        if (m.spur != SpurKeine) {
            form.opSpur = m.spur;
            form.Geschw_Txt = zahl(m.abstand);
        }
        // LNCV 19 counts half seconds; integer division rounds toward 0.
        form.AutomZeitTxt = zahl(g.LNCV18);
        form.StartupZeitTxt = zahl(g.LNCV19 / 2);
        // Filling the fields runs their change handlers.
        alleFelderPruefen(form);
    });
}

void FeldAnzX_Change(Grundeinstellungen_Form& form)
{
    geschuetzt("Grundeinstellungen : FeldAnzX_Change", [&] {
        form.FeldAnzX_Pruefung = Check_Wert(FeldAnzX_Text, form.FeldAnzX, FeldAnzMax, FeldAnzMin);
    });
}

void FeldAnzY_Change(Grundeinstellungen_Form& form)
{
    geschuetzt("Grundeinstellungen : FeldAnzY_Change", [&] {
        form.FeldAnzY_Pruefung = Check_Wert(FeldAnzY_Text, form.FeldAnzY, FeldAnzMax, FeldAnzMin);
    });
}

void AutomZeitTxt_Change(Grundeinstellungen_Form& form)
{
    geschuetzt("Grundeinstellungen : AutomZeitTxt_Change", [&] {
        form.AutomZeit_Pruefung = Check_Wert(AutomZeit_Text, form.AutomZeitTxt, AutomZeitMax, 0);
    });
}

void StartupZeitTxt_Change(Grundeinstellungen_Form& form)
{
    geschuetzt("Grundeinstellungen : StartupZeitTxt_Change", [&] {
        form.StartupZeit_Pruefung = Check_Wert(StartupZeit_Text, form.StartupZeitTxt, StartupZeitMax, 0);
    });
}

void Geschw_Txt_Change(Grundeinstellungen_Form& form)
{
    geschuetzt("Grundeinstellungen : Geschw_Txt_Change", [&] {
        // value · factor > 65530 is refused, i.e. value > 65530 / factor.
        const double maximum = MaxGeschwWert / Spur_Faktor(form.opSpur);
        form.Geschw_Pruefung = Check_Wert(Geschw_Text, form.Geschw_Txt, maximum, 0);
    });
}

void opSpur_Click(Grundeinstellungen_Form& form, int spur)
{
    geschuetzt("Grundeinstellungen : opSpur_Click", [&] {
        Spur_Faktor(spur);  // an index outside 0..4 raises error 9 here
        form.opSpur = spur;
        Geschw_Txt_Change(form);
    });
}

bool OK_But_Enabled(const Grundeinstellungen_Form& form)
{
    return form.FeldAnzX_Pruefung.gueltig && form.FeldAnzY_Pruefung.gueltig && form.Geschw_Pruefung.gueltig
           && form.AutomZeit_Pruefung.gueltig && form.StartupZeit_Pruefung.gueltig;
}

bool OK_But_Click(const Grundeinstellungen_Form& form, Anlage& anlage)
{
    return geschuetzt("Grundeinstellungen : OK_But_Click", false, [&] {
        // Checked anew: the stored results may predate the last change.
        Grundeinstellungen_Form geprueft = form;
        alleFelderPruefen(geprueft);
        if (!OK_But_Enabled(geprueft))
            return false;

        // Everything is computed before anything is stored, so that an error
        // leaves the project as it was.
        Grundeinst_Typ g = anlage.Grundeinst;
        const Integer dimX = ganzzahl(form.FeldAnzX);
        const Integer dimY = ganzzahl(form.FeldAnzY);
        g.BlkZustMeld = form.BlkStatChk ? 1 : 0;
        g.BetriebszustSpeichern = form.AllgOptChk[0] ? 1 : 0;
        g.LocoNetStatMessage = form.AllgOptChk[1] ? 1 : 0;
        g.ZugKatRD2_47231 = form.AllgOptChk[2] ? 1 : 0;
        // The distance is rounded to whole millimetres.
        g.LNCV14 = LNCV14_bilden(form.opSpur, CLng(Feldwert(form.Geschw_Txt)));
        // LNCV 17 has no control and keeps its value.
        g.LNCV18 = ganzzahl(form.AutomZeitTxt);
        g.LNCV19 = CInt(2.0 * ganzzahl(form.StartupZeitTxt));

        anlage.DimensionenX = dimX;
        anlage.DimensionenY = dimY;
        anlage.Grundeinst = g;
        return true;
    });
}

}  // namespace planor
