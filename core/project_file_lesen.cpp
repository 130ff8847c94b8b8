// Load_plt: the project file's line reader.
#include "core/project_file.h"

#include "core/ansi_text.h"
#include "core/element_katalog.h"
#include "core/laufzeitfehler.h"
#include "core/lncv_datei.h"
#include "core/panel_model.h"
#include "core/project_felder.h"
#include "core/zellanzeige.h"

#include <QFile>

#include <algorithm>
#include <iterator>

namespace planor {

QStringList decode_liste(const QString& text)
{
    const QStringList liste = text.split(u',');
    if (liste.size() > 21)
        throw Laufzeitfehler(Fehlernummer::IndexAusserhalb);
    return liste;
}

namespace {

Integer integer(const QString& text) { return CInt(Val(text)); }

class Leser {
public:
    Leser(Anlage& anlage, Elementkatalog& katalog, Pultzellen& editor, ProjektAnzeige& anzeige)
        : anlage_(anlage), katalog_(katalog), editor_(editor), anzeige_(anzeige)
    {
    }

    void zeile(const QString& zeile);

private:
    void load_new_element(const QString& wert);
    void zellFeld(const QString& schluessel, const QString& wert);
    void seitendatei(int x, int y, const QString& name);
    void bahnhof(const QString& schluessel, const QString& wert);
    void fahrstrasse(const QString& schluessel, const QString& wert);

    Anlage& anlage_;
    Elementkatalog& katalog_;
    Pultzellen& editor_;
    ProjektAnzeige& anzeige_;
    // The cell placed last: a missing side file deletes it, as it is the
    // editor's current cell.
    int letzteX_ = 0, letzteY_ = 0;
};

void Leser::zeile(const QString& zeile)
{
    if (!zeile.isEmpty() && (zeile.front() == u';' || zeile.front() == u'/'))
        return;
    const qsizetype doppelpunkt = zeile.indexOf(u':');
    if (doppelpunkt < 0)
        throw Laufzeitfehler(Fehlernummer::UnzulaessigerAufruf);
    const QString schluessel = zeile.left(doppelpunkt);
    const QString wert = zeile.mid(doppelpunkt + 1);

    Grundeinst_Typ& g = anlage_.Grundeinst;
    const std::pair<const char*, Integer*> zahlen[] = {
        {"DimensionenX", &anlage_.DimensionenX},
        {"DimensionenY", &anlage_.DimensionenY},
        {"Grundeinst.BlkZustMeld", &g.BlkZustMeld},
        {"Grundeinst.BetriebszustSpeichern", &g.BetriebszustSpeichern},
        {"Grundeinst.LocoNetStatMessage", &g.LocoNetStatMessage},
        {"Grundeinst.ZugKatRD2_47231", &g.ZugKatRD2_47231},
        {"Grundeinst.LNCV14", &g.LNCV14},
        {"Grundeinst.LNCV17", &g.LNCV17},
        {"Grundeinst.LNCV18", &g.LNCV18},
        {"Grundeinst.LNCV19", &g.LNCV19},
        {"Bhf_Anz", &anlage_.Bhf_Anz},
    };
    for (const auto& [name, feld] : zahlen)
        if (schluessel == QLatin1String(name)) {
            *feld = integer(wert);
            return;
        }
    if (schluessel == u"PultOptGPLocked")
        anlage_.PultOpt.PultOptGPLocked = Val(wert) != 0;
    else if (schluessel == u"XY")
        load_new_element(wert);
    else if (schluessel.startsWith(QStringLiteral("XY_")))
        zellFeld(schluessel, wert);
    else if (schluessel.startsWith(QStringLiteral("Bhf_")))
        bahnhof(schluessel, wert);
    else if (schluessel.startsWith(QStringLiteral("FS_")))
        fahrstrasse(schluessel, wert);
}

void Leser::load_new_element(const QString& wert)
{
    if (anzeige_.pultNeuSetzen())
        anzeige_.neues_pult_setzen();
    const QStringList liste = decode_liste(wert);
    const int x = integer(liste.value(0)), y = integer(liste.value(1)), typ = integer(liste.value(2));
    anzeige_.InfoTxt_anzeigen(2, QStringLiteral("X=") + QString::number(x) + QStringLiteral(" Y=") + QString::number(y));
    // The grid cannot make a cell outside the panel current.
    if (x < 1 || y < 1 || x > anlage_.DimensionenX || y > anlage_.DimensionenY)
        throw Laufzeitfehler(Fehlernummer::IndexAusserhalb);
    for (int i = 1; i <= MaxElemente; ++i) {
        if (katalog_.ElementTab(i).Typ == typ) {
            editor_.elementSetzen(x, y, i);
            letzteX_ = x;
            letzteY_ = y;
            return;
        }
    }
}

void Leser::zellFeld(const QString& schluessel, const QString& wert)
{
    const QStringList liste = decode_liste(wert);
    const int x = integer(liste.value(0)), y = integer(liste.value(1));
    if (schluessel == u"XY_File") {
        seitendatei(x, y, liste.value(2).mid(1));
        return;
    }
    XY_Typ& z = anlage_.XY(x, y);
    const double v = Val(liste.value(2));
    const auto* feld = std::find_if(std::begin(projektfelder::Zelle), std::end(projektfelder::Zelle),
                                    [&](const projektfelder::Zellfeld& f) { return schluessel == QLatin1String(f.schluessel); });
    if (feld == std::end(projektfelder::Zelle))
        return;
    if (feld->lang)
        z.*feld->lang = CLng(v);
    else
        z.*feld->integer = CInt(v);
    if (schluessel != u"XY_BhfIDX")
        editor_.SetzeText(x, y);
}

void Leser::seitendatei(int x, int y, const QString& name)
{
    // Project data never makes Planor read
    // outside the project's folder; such a name counts as missing.
    const bool sicher = !name.contains(u'/') && !name.contains(u'\\') && !name.contains(QStringLiteral(".."));
    const QString pfad = anlage_.Pfad + name;
    if (sicher && !name.isEmpty() && QFile::exists(pfad)) {
        XY_Typ& z = anlage_.XY(x, y);
        Long artnr = 0;
        QString kommentar = QStringLiteral(" Modul aus ") + anlage_.File + QStringLiteral(" an Pos. (x,y)= ")
                            + QString::number(x) + QStringLiteral(", ") + QString::number(y);
        int ergebnis = 0;
        // The catalogue's count is passed by reference: a raised count stays.
        load_lncv(artnr, z.XY_LNCV, katalog_.ElementTab(z.XY_Element).LNCVAnz, pfad, kommentar, ergebnis);
        if (z.XY_LNCV(2) & 16)
            z.XY_BlkMeld = 1;
        return;
    }
    if (anzeige_.elementLoeschen(QStringLiteral("Fehler beim Laden"),
                                 QStringLiteral("Das File ") + name
                                     + QStringLiteral(" existiert nicht!\n          Element löschen?            "))
        && letzteX_ != 0)
        editor_.elementSetzen(letzteX_, letzteY_, 1);
}

void Leser::bahnhof(const QString& schluessel, const QString& wert)
{
    const QStringList liste = decode_liste(wert);
    Bhf_Typ& b = anlage_.Bhf(integer(liste.value(0)));
    if (schluessel == u"Bhf_Daten") {
        b.Bhf_Name = liste.value(1);
        int i = 2;
        for (Integer Bhf_Typ::*feld : projektfelder::BhfDaten)
            b.*feld = integer(liste.value(i++));
        return;
    }
    for (const auto& [name, feld] : projektfelder::BhfListen)
        if (schluessel == QLatin1String(name))
            for (int gleis = 1; gleis <= MaxGleis; ++gleis)
                (b.*feld)(gleis) = integer(liste.value(gleis));
}

void Leser::fahrstrasse(const QString& schluessel, const QString& wert)
{
    const QStringList liste = decode_liste(wert);
    FS_Typ& fs = anlage_.FS(integer(liste.value(0)));
    if (schluessel == u"FS_Daten") {
        fs.FS_Name = liste.value(1);
        int i = 2;
        for (Integer FS_Typ::*feld : projektfelder::FsDaten)
            fs.*feld = integer(liste.value(i++));
    } else if (schluessel == u"FS_MagBfl") {
        // The command drops exactly the one blank behind the comma.
        fs.FS_MagBfl(integer(liste.value(1))) = liste.value(2).mid(1);
    }
}

}  // namespace

void Load_plt_bytes(const QByteArray& bytes, Anlage& anlage, Elementkatalog& katalog, Pultzellen& editor,
                    ProjektAnzeige& anzeige)
{
    anzeige.ladenBeginnt();
    anzeige.InfoTxt_anzeigen(1, QStringLiteral("Laden"));
    Leser leser(anlage, katalog, editor, anzeige);
    // The grid comes back also when a line ends the load with an error.
    struct Ende {
        ProjektAnzeige& a;
        ~Ende() { a.ladenEndet(); }
    } ende{anzeige};
    for (const QString& zeile : ansi::zeilen(bytes))
        leser.zeile(zeile);
}

void Load_plt(Anlage& anlage, Elementkatalog& katalog, Pultzellen& editor, ProjektAnzeige& anzeige)
{
    QFile f(anlage.Pfad + anlage.File);
    if (!f.exists())
        throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden);
    if (!f.open(QIODevice::ReadOnly))
        throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
    Load_plt_bytes(f.readAll(), anlage, katalog, editor, anzeige);
}

}  // namespace planor
