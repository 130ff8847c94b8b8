// Bulk programming and read-back.
#include "programmierung/programmierung.h"

#include "config/clear_modul.h"
#include "core/fehlerbehandlung.h"
#include "core/modul_artikel.h"
#include "core/panel_model.h"
#include "core/zellanzeige.h"
#include "loconet/empfang.h"
#include "loconet/link.h"
#include "loconet/lncv_austausch.h"
#include "loconet/nachricht.h"
#include "loconet/verbindung.h"
#include "platform/uhr.h"

#include <QStringList>

#include <array>

namespace planor {

namespace {

// Only the main cell of a universal controller is worked on.
bool nebenzelle(const XY_Typ& zelle, int x, int y)
{
    return istUniversal(zelle.XY_ArtNr) && (zelle.XY_SenX != x || zelle.XY_SenY != y);
}

// A 5330 whose generation is still open asks the module first.
void versionKlaeren(Programmierumgebung& u, int x, int y)
{
    const XY_Typ& zelle = u.anlage.XY(x, y);
    if (zelle.XY_ArtNr == 5330 && zelle.XY_Version == 0) {
        Get_Navik_Version(u.link, u.benutzer, u.anlage, x, y);
        ProgOffEcho_abwarten(u.link);
    }
}

// A cell a bulk run works on (counted for "Modul n von m"): a bulk run
// passes over the second input of a sensor pair and a controller's further cells.
bool programmierbar(const Anlage& anlage, int x, int y)
{
    const XY_Typ& zelle = anlage.XY(x, y);
    if (zelle.XY_SenStat == 2 || nebenzelle(zelle, x, y))
        return false;
    if (zelle.XY_ArtNr == 5330)
        return true; // a 5330 of generation 0 is decided before its turn
    return LetzteLncv(zelle.XY_ArtNr, zelle.XY_Version) >= 0;
}

int programmierbareZellen(const Anlage& anlage)
{
    int m = 0;
    for (int x = 1; x <= anlage.DimensionenX; ++x)
        for (int y = 1; y <= anlage.DimensionenY; ++y)
            if (programmierbar(anlage, x, y))
                ++m;
    return m;
}

QString zeilen(std::initializer_list<QString> z)
{
    QStringList liste;
    for (const QString& s : z)
        liste << s;
    return liste.join(u'\n');
}

QString ortText(int x, int y)
{
    return QStringLiteral("X: ") + QString::number(x) + QStringLiteral(" Y: ") + QString::number(y);
}

QString modulText(int x, int y, const QString& was)
{
    return QStringLiteral("Modul in Spalte ") + QString::number(x) + QStringLiteral(" Zeile ") + QString::number(y)
        + was;
}

using ModulArbeit = void (*)(Programmierumgebung&, int, int, Long&, bool&, Long&, Long&);

// The texts of one kind of bulk operation.
struct Ablauf {
    ModulArbeit arbeit;
    QString frageTitel;
    QString frage;
    QString fehlerText;
    QString endeText;
    QString formTitel; // PultFehlMeldung_Form's title
};

const Ablauf& ProgAlleAblauf()
{
    static const Ablauf a {
        Prog_modul,
        QStringLiteral("Programmierung: alle Module"),
        zeilen({QStringLiteral("  Die Programmierung aller Module starten?  "), QString(),
            QStringLiteral("Beachten Sie die Hinweise in der Info-Zeile!")}),
        QStringLiteral("Achtung Fehler: Modul Programmierung fehlerhaft"),
        QStringLiteral("Programmierung beendet !!!"),
        QStringLiteral("alle Module programmieren"),
    };
    return a;
}

const Ablauf& ReadAlleAblauf()
{
    static const Ablauf a {
        Read_modul,
        QStringLiteral("Auslesen: alle Module"),
        zeilen({QStringLiteral("                      Das Auslesen aller Module starten?  "),
            QStringLiteral("  Es werden alle Einstellungen im Programm mit den Werten aus den Modulen überschrieben"),
            QStringLiteral("                      Beachten Sie die Hinweise in der Info-Zeile!")}),
        QStringLiteral("Achtung Fehler: Modul Auslesen fehlerhaft"),
        QStringLiteral("Auslesen beendet !!!"),
        QStringLiteral("-"),
    };
    return a;
}

const Ablauf& ProgEinzelnAblauf()
{
    static const Ablauf a {
        Prog_modul,
        QStringLiteral("Modul-Programmierung"),
        zeilen({QStringLiteral("       Ein Module programmieren!!         "),
            QStringLiteral("  Bitte das Modul mit der Maus auswählen  "),
            QStringLiteral("Beachten Sie die Hinweise in der Info-Zeile!")}),
        QStringLiteral("Achtung Fehler: Programmierung fehlerhaft"),
        QStringLiteral("Programmierung beendet !!!"),
        QStringLiteral("ein Module programmieren"),
    };
    return a;
}

const Ablauf& ReadEinzelnAblauf()
{
    static const Ablauf a {
        Read_modul,
        QStringLiteral("Modul-Auslesen"),
        zeilen({QStringLiteral("                         Ein Modul auslesen!!         "),
            QStringLiteral("                Bitte das Modul mit der Maus auswählen  "),
            QStringLiteral("  Es werden alle Einstellungen im Programm mit den Werten aus dem Modul überschrieben"),
            QStringLiteral("              Beachten Sie die Hinweise in der Info-Zeile!")}),
        QStringLiteral("Achtung Fehler: Auslesen fehlerhaft"),
        QStringLiteral("Auslesen beendet !!!"),
        QStringLiteral("-"),
    };
    return a;
}

// The menus come back whatever way an operation ends.
struct Beschaeftigt {
    explicit Beschaeftigt(ProgrammierAnzeige& a)
        : anzeige(a)
    {
        anzeige.beschaeftigt(true);
    }
    ~Beschaeftigt()
    {
        anzeige.markierungAus();
        anzeige.beschaeftigt(false);
    }
    ProgrammierAnzeige& anzeige;
};

// How every operation begins: the link and the start question.
bool beginnen(Programmierumgebung& u, const Ablauf& a)
{
    Long err = 0;
    u.verbindung.open_com(err);
    if (err != 0)
        return false;
    return u.anzeige.frageOkAbbrechen(a.frageTitel, a.frage);
}

// A module failed in Prog_all: its session closed, the place told,
// the error shown, and the user's answer.
FehlerAntwort fehlerFragen(
    Programmierumgebung& u, const Ablauf& a, int x, int y, Long err, bool prog_off, Long artikel, Long adresse)
{
    if (prog_off) {
        Long offErr = 0;
        Prog_Off_mit_Echo(u.link, artikel, adresse, offErr);
    }
    u.anzeige.markierungAus();
    u.anzeige.InfoTxt_anzeigen(1, a.fehlerText);
    u.anzeige.InfoTxt_anzeigen(2, ortText(x, y));
    prog_error_meldung(u.benutzer, err);
    return u.anzeige.fehlerMeldung(a.formTitel);
}

bool alle(Programmierumgebung& u, const Ablauf& a)
{
    if (!beginnen(u, a))
        return false;
    Beschaeftigt frame(u.anzeige);
    const int m = programmierbareZellen(u.anlage);
    int n = 0;
    bool alleGut = true;
    for (int x = 1; x <= u.anlage.DimensionenX; ++x) {
        for (int y = 1; y <= u.anlage.DimensionenY; ++y) {
            if (!programmierbar(u.anlage, x, y))
                continue;
            u.anzeige.fortschritt(++n, m);
            for (;;) {
                Long err = 0, artikel = 0, adresse = 0;
                bool on_flag = false;
                a.arbeit(u, x, y, err, on_flag, artikel, adresse);
                if (err == 0)
                    break;
                const FehlerAntwort antwort = fehlerFragen(u, a, x, y, err, on_flag, artikel, adresse);
                if (antwort == FehlerAntwort::Nochmal)
                    continue;
                if (antwort == FehlerAntwort::Naechstes) {
                    alleGut = false;
                    break;
                }
                return false; // Abbruch: no further word
            }
        }
    }
    u.anzeige.InfoTxt_anzeigen(1, a.endeText);
    return alleGut;
}

// The pick of Prog_einzeln / Read_einzeln. Read_einzeln asks from the
// second click on a cell without module whether to give up.
bool waehlen(Programmierumgebung& u, bool abbruchFrage, int& x, int& y)
{
    int leereKlicks = 0;
    for (;;) {
        if (!u.anzeige.zelleWaehlen(x, y))
            return false;
        if (x >= 1 && x <= u.anlage.DimensionenX && y >= 1 && y <= u.anlage.DimensionenY
            && u.anlage.XY(x, y).XY_ArtNr != 0)
            return true;
        if (abbruchFrage && ++leereKlicks >= 2
            && u.anzeige.frageJaNein(
                QStringLiteral("Achtung!"), QStringLiteral("Soll die Auswahl abgebrochen werden?"))) {
            u.anzeige.InfoTxt_anzeigen(1, QString());
            return false;
        }
    }
}

bool einzeln(Programmierumgebung& u, const Ablauf& a, bool abbruchFrage)
{
    if (!beginnen(u, a))
        return false;
    u.anzeige.InfoTxt_anzeigen(1, QStringLiteral("Modul bitte mit der Maus auswählen"));
    u.anzeige.InfoTxt_anzeigen(2, QString());
    int x = 0, y = 0;
    if (!waehlen(u, abbruchFrage, x, y))
        return false;
    Beschaeftigt frame(u.anzeige);
    const XY_Typ& zelle = u.anlage.XY(x, y);
    if (istUniversal(zelle.XY_ArtNr)) {
        const int hx = zelle.XY_SenX, hy = zelle.XY_SenY;
        x = hx;
        y = hy;
    }
    u.anzeige.fortschritt(1, 1);
    for (;;) {
        Long err = 0, artikel = 0, adresse = 0;
        bool on_flag = false;
        a.arbeit(u, x, y, err, on_flag, artikel, adresse);
        if (err == 0) {
            u.anzeige.InfoTxt_anzeigen(1, a.endeText);
            u.anzeige.InfoTxt_anzeigen(2, QString());
            return true;
        }
        // On failure the session is closed whether or not it was opened.
        if (fehlerFragen(u, a, x, y, err, true, artikel, adresse) != FehlerAntwort::Nochmal)
            return false;
    }
}

} // namespace

int LetzteLncv(Long artNr, Integer version)
{
    switch (artNr) {
    case 47120:
    case 47130:
    case 47190:
    case 47230:
        return 127;
    case 47220:
    case 47240:
        return 119;
    case 5330:
        return version == 1 ? 119 : version == 2 ? 127 : -1;
    case 47320:
    case 47330:
        return 459;
    default:
        return -1;
    }
}

int NieGeschrieben(Long artNr)
{
    if (istUniversal(artNr))
        return -1;
    return LetzteLncv(artNr, 2) >= 0 ? 16 : -1;
}

Integer BetriebsartAusLncv2(Integer lncv2)
{
    static constexpr std::array<Integer, 16> tabelle {-1, -1, 10, 9, 0, 1, 2, 3, 7, 8, 8, 8, 8, -1, -1, -1};
    return tabelle[std::size_t(lncv2 & 15)];
}

void Prog_modul(Programmierumgebung& u, int x, int y, Long& err, bool& on_flag, Long& artikel, Long& adresse)
{
    geschuetzt("LocoNet : Prog_modul", [&] {
        if (nebenzelle(u.anlage.XY(x, y), x, y))
            return;
        versionKlaeren(u, x, y);
        const XY_Typ& zelle = u.anlage.XY(x, y);
        const int letzte = LetzteLncv(zelle.XY_ArtNr, zelle.XY_Version);
        if (letzte < 0) {
            err = 0;
            return;
        }
        const int nie = NieGeschrieben(zelle.XY_ArtNr);
        artikel = DrahtArtikel(zelle.XY_ArtNr);
        adresse = Int_to_Unsig(zelle.XY_LNCV(0));
        u.anzeige.markieren(x, y);
        u.anzeige.InfoTxt_anzeigen(1, modulText(x, y, QStringLiteral(" wird programmiert ")));
        u.anzeige.InfoTxt_anzeigen(2, QString());
        Prog_On(u.link, artikel, adresse, err);
        if (err != 0)
            return;
        on_flag = true;
        for (int i = 2; i <= letzte; ++i) {
            Long wert = 0;
            Read_Lncv(u.link, artikel, i, wert, err);
            if (err != 0)
                return;
            // Compared in the stored 16-bit signed form.
            if (i != nie && Unsig_to_Int(wert) != zelle.XY_LNCV(i)) {
                u.anzeige.InfoTxt_anzeigen(
                    2, QStringLiteral("LNCV ") + QString::number(i) + QStringLiteral(" wird programmiert!"));
                Prog_Lncv(u.link, artikel, i, zelle.XY_LNCV(i), err);
                if (err != 0)
                    return;
            }
        }
        Prog_Off_mit_Echo(u.link, artikel, adresse, err);
        on_flag = false;
        if (err != 0)
            return;
        u.anzeige.InfoTxt_anzeigen(1, QStringLiteral("Modul Programmierung -  O.K.  "));
        u.anzeige.InfoTxt_anzeigen(2, QString());
        u.anzeige.markierungAus();
        err = 0;
    });
}

void Read_modul(Programmierumgebung& u, int x, int y, Long& err, bool& on_flag, Long& artikel, Long& adresse)
{
    geschuetzt("LocoNet : Read_modul", [&] {
        if (nebenzelle(u.anlage.XY(x, y), x, y))
            return;
        // Decision: a 5330 of generation 0 asks the module first here too,
        // else it could not be read at all (its last LNCV is unknown).
        versionKlaeren(u, x, y);
        XY_Typ& zelle = u.anlage.XY(x, y);
        const int letzte = LetzteLncv(zelle.XY_ArtNr, zelle.XY_Version);
        if (letzte < 0) {
            err = 0;
            return;
        }
        artikel = DrahtArtikel(zelle.XY_ArtNr);
        adresse = Int_to_Unsig(zelle.XY_LNCV(0));
        // The cell keeps its address (LNCV 0 and 1), which
        // Clear_Universal would clear with the rest.
        const Integer lncv0 = zelle.XY_LNCV(0), lncv1 = zelle.XY_LNCV(1);
        Clear_Modul(u.anlage, u.zellen, x, y);
        zelle.XY_LNCV(0) = lncv0;
        zelle.XY_LNCV(1) = lncv1;
        u.anzeige.markieren(x, y);
        u.anzeige.InfoTxt_anzeigen(1, modulText(x, y, QStringLiteral(" wird ausgelesen ")));
        u.anzeige.InfoTxt_anzeigen(2, QString());
        Prog_On(u.link, artikel, adresse, err);
        if (err != 0)
            return;
        on_flag = true;
        for (int i = 2; i <= letzte; ++i) {
            Long wert = 0;
            Read_Lncv(u.link, artikel, i, wert, err);
            if (err != 0)
                return;
            zelle.XY_LNCV(i) = Unsig_to_Int(wert);
        }
        Prog_Off_mit_Echo(u.link, artikel, adresse, err);
        on_flag = false;
        if (err != 0)
            return;
        Get_Navik_Version(u.link, u.benutzer, u.anlage, x, y);
        ProgOffEcho_abwarten(u.link);
        // The mode comes from LNCV 2; the controllers keep 20.
        if (!istUniversal(zelle.XY_ArtNr)) {
            zelle.XY_BlkMeld = (zelle.XY_LNCV(2) >> 4) & 1;
            zelle.XY_BETR = BetriebsartAusLncv2(zelle.XY_LNCV(2));
        }
        u.anlage.PultGeaendert = 1;
        u.zellen.SetzeText(x, y);
        if ((zelle.XY_BETR == 7 || zelle.XY_BETR == 8) && u.Make_bhf)
            u.Make_bhf(x, y);
        u.anzeige.InfoTxt_anzeigen(1, QStringLiteral("Modul Auslesen -  O.K.  "));
        u.anzeige.InfoTxt_anzeigen(2, QString());
        u.anzeige.markierungAus();
        err = 0;
    });
}

bool Prog_all(Programmierumgebung& u)
{
    return geschuetzt("LocoNet : Prog_all", false, [&] { return alle(u, ProgAlleAblauf()); });
}

bool Read_all(Programmierumgebung& u)
{
    return geschuetzt("LocoNet : Read_all", false, [&] { return alle(u, ReadAlleAblauf()); });
}

bool Prog_einzeln(Programmierumgebung& u)
{
    return geschuetzt("LocoNet : Prog_einzeln", false, [&] { return einzeln(u, ProgEinzelnAblauf(), false); });
}

bool Read_einzeln(Programmierumgebung& u)
{
    return geschuetzt("LocoNet : Read_einzeln", false, [&] { return einzeln(u, ReadEinzelnAblauf(), true); });
}

} // namespace planor
