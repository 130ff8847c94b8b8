#include "editor/monitor_ansicht.h"

#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "editor/bus_meldung.h"
#include "editor/mon_modell.h"
#include "loconet/link.h"
#include "loconet/lncv_austausch.h"
#include "platform/uhr.h"

namespace planor {

namespace {

// The pause after each Ask_Navik: it does not wait for its answer, and the
// next query clears the table and discards input, so the report needs time
// to arrive.
constexpr double AskNavikPause = 0.02;

bool zwischen(int typ, int von, int bis) { return typ >= von && typ <= bis; }

// The letter of a state in a picture's name.
QString Buchstabe(Long zustand) { return zustand == 0 ? QStringLiteral("r") : QStringLiteral("g"); }

}  // namespace

bool IstMonitorEmpfaenger(Long artNr)
{
    return artNr == 47120 || artNr == 47220 || artNr == 47230 || artNr == 47240 || artNr == 5330;
}

QString MonitorBild(const Anlage& anlage, const Elementkatalog& katalog, const Feld<Long, 1, MaxMagAdresse>& MagStatus,
                    int x, int y, Integer zustand)
{
    const XY_Typ& z = anlage.XY(x, y);
    const ElementTab_Typ& e = katalog.ElementTab(z.XY_Element);
    const int typ = e.Typ;
    // B is Bmp up to and including its first "_" (none: empty, as Left(Bmp, 0)).
    const qsizetype strich = e.Bmp.indexOf(u'_');
    const QString B = e.Bmp.left(strich + 1);
    // A head the cell has no address for counts as red.
    const auto S = [&](Integer adresse) -> Long { return adresse == 0 ? 0 : (MagStatus(adresse) != 0 ? 1 : 0); };
    const Long s = Long(zustand) ^ z.XY_STATTAUSCH1;
    const QString bmp = QStringLiteral(".bmp");

    if (zwischen(typ, 101, 199) || typ == 501 || typ == 502 || zwischen(typ, 541, 542) || zwischen(typ, 551, 552))
        return s == 0 ? e.Bmp : B + QStringLiteral("g") + bmp;
    if (zwischen(typ, 201, 399)) {
        if (typ <= 299 && z.XY_ADR2 == 0)
            return B + (s == 0 ? QStringLiteral("rr") : QStringLiteral("rg")) + bmp;
        const QString a = Buchstabe(S(z.XY_ADR1) ^ z.XY_STATTAUSCH1);
        const QString b = Buchstabe(S(z.XY_ADR2) ^ z.XY_STATTAUSCH2);
        // XY_ADRTAUSCH swaps the letters of 201..299 only; 301..399 stay as they are.
        if (typ <= 299 && z.XY_ADRTAUSCH != 0)
            return B + b + a + bmp;
        return B + a + b + bmp;
    }
    const Long S1 = S(z.XY_ADR1), S2 = S(z.XY_ADR2), S3 = S(z.XY_ADR3);
    if (typ == 511 || typ == 512) {
        if (S1 == 0 && S2 == 0)
            return e.Bmp;
        return B + (S1 == 1 ? (S2 == 1 ? QStringLiteral("gg") : QStringLiteral("gr")) : QStringLiteral("rr")) + bmp;
    }
    if (typ == 521 || typ == 522) {
        if (S1 == 0 && S3 == 0)
            return e.Bmp;
        return B + (S1 == 1 ? QStringLiteral("gr") : QStringLiteral("rg")) + bmp;
    }
    if (typ == 531 || typ == 532) {
        if (S1 == 0)
            return S3 == 0 ? e.Bmp : B + QStringLiteral("rrg") + bmp;
        return B + (S2 == 0 ? QStringLiteral("grr") : QStringLiteral("ggr")) + bmp;
    }
    return {};
}

MonitorAnsicht::MonitorAnsicht(const Anlage& anlage, const Elementkatalog& katalog, MonModell& mon)
    : anlage_(anlage), katalog_(katalog), mon_(mon)
{
}

void MonitorAnsicht::Show_Monitor(LocoNetLink* link)
{
    geschuetzt("MainWin : Show_Monitor", [&] {
        // The plan may have changed since the view was last shown: the cells
        // of the addresses are found anew; the known states stay.
        MagZelle.fuellen({});
        NavikStatus.fuellen({});
        // 1. Every cell.
        const MonZelle leer{katalog_.ElementTab(katalog_.LeerIndex).Bmp, {}, {}, 9};
        for (int x = 1; x <= anlage_.DimensionenX; ++x)
            for (int y = 1; y <= anlage_.DimensionenY; ++y) {
                if (katalog_.ElementTab(anlage_.XY(x, y).XY_Element).Typ > 0)
                    set_mon(x, y);
                else
                    mon_.setzeZelle(x, y, leer);
            }
        // 2. The states, only over an open port.
        if (!link)
            return;
        for (Long adresse = 1; adresse <= MaxMagAdresse; ++adresse) {
            if (MagZelle(adresse).x == 0)
                continue;
            // Read_Mag leaves the state untouched when no answer told it.
            Integer zustand = -1;
            Long err = ProgOK;
            Read_Mag(*link, adresse, zustand, err);
            if (err == ProgOK && zustand >= 0)
                set_mon_mag(adresse, zustand);
        }
        for (Long adresse = 1; adresse <= MaxNavikAdresse; ++adresse) {
            if (NavikStatus(adresse).zelle.x == 0)
                continue;
            Long err = ProgOK;
            Ask_Navik(*link, adresse, err);
            link->uhr().delay(AskNavikPause);
        }
    });
}

void MonitorAnsicht::set_mon(int x, int y)
{
    geschuetzt("MainWin : set_mon", [&] {
        const XY_Typ& z = anlage_.XY(x, y);
        const ElementTab_Typ& e = katalog_.ElementTab(z.XY_Element);
        MonZelle inhalt;
        inhalt.bild = e.BmpAusw;
        const bool empfaenger = IstMonitorEmpfaenger(z.XY_ArtNr);
        if (empfaenger) {
            inhalt.schrift = {QStringLiteral("Arial"), 8, true};
            inhalt.ausrichtung = 4;
            inhalt.text = QStringLiteral("-");
        }
        mon_.setzeZelle(x, y, inhalt);
        // Of several cells with one address the one visited last stands.
        if (zwischen(e.Typ, 101, 599))
            for (const Integer adresse : {z.XY_ADR1, z.XY_ADR2, z.XY_ADR3})
                if (adresse != 0)
                    MagZelle(adresse) = {x, y};
        if (empfaenger && z.XY_LNCV(0) != 0)
            NavikStatus(z.XY_LNCV(0)) = {{x, y}, 0};
    });
}

void MonitorAnsicht::set_mon_mag(Long adresse, Integer zustand)
{
    geschuetzt("MainWin : set_mon_mag", [&] {
        const ZellOrt ort = MagZelle(adresse);
        if (ort.x == 0 || ort.y == 0)
            return;
        MagStatus(adresse) = zustand;
        const QString bild = MonitorBild(anlage_, katalog_, MagStatus, ort.x, ort.y, zustand);
        if (bild.isEmpty())
            return;
        MonZelle inhalt = mon_.zelle(ort.x, ort.y);
        inhalt.bild = bild;
        mon_.setzeZelle(ort.x, ort.y, inhalt);
    });
}

bool MonitorAnsicht::schaltbar(int x, int y) const
{
    return geschuetzt("MainWin : Mon_MouseUp", false, [&] {
        const XY_Typ& z = anlage_.XY(x, y);
        return zwischen(katalog_.ElementTab(z.XY_Element).Typ, 101, 599)
               && (z.XY_ADR1 != 0 || z.XY_ADR2 != 0 || z.XY_ADR3 != 0);
    });
}

Integer MonitorAnsicht::gespeichert(Long adresse) const
{
    return adresse == 0 ? 0 : (MagStatus(adresse) != 0 ? 1 : 0);
}

void MonitorAnsicht::schalten(LocoNetLink& link, Long adresse, Integer stellung)
{
    if (adresse == 0)
        return;
    Long err = ProgOK;
    SendMag(link, adresse, stellung, err);
    if (err == ProgOK)
        set_mon_mag(adresse, stellung);
}

void MonitorAnsicht::Mon_MouseUp_Links(LocoNetLink& link, int x, int y)
{
    geschuetzt("MainWin : Mon_MouseUp", [&] {
        if (!schaltbar(x, y))
            return;
        const XY_Typ& z = anlage_.XY(x, y);
        const int typ = katalog_.ElementTab(z.XY_Element).Typ;
        const Integer a1 = z.XY_ADR1, a2 = z.XY_ADR2, a3 = z.XY_ADR3;
        if (zwischen(typ, 101, 199) || typ == 501 || typ == 502) {
            // One address: the other position.
            schalten(link, a1, 1 - gespeichert(a1));
        } else if (zwischen(typ, 201, 299) || zwischen(typ, 511, 552)) {
            // Several addresses: each to its other position, by its own SendMag.
            for (const Integer a : {a1, a2, a3})
                schalten(link, a, 1 - gespeichert(a));
        } else if (zwischen(typ, 301, 399)) {
            // The next aspect of a three- or four-aspect element, never 0 again.
            const int s = 2 * gespeichert(a2) + gespeichert(a1);
            int naechster = (s + 1) % 4;
            if (naechster == 0)
                naechster = 1;
            schalten(link, a1, naechster & 1);
            schalten(link, a2, naechster >> 1);
        }
    });
}

void MonitorAnsicht::neuZeichnen(int x, int y)
{
    geschuetzt("MainWin : Mon_MouseUp", [&] {
        const XY_Typ& z = anlage_.XY(x, y);
        for (const Integer a : {z.XY_ADR1, z.XY_ADR2, z.XY_ADR3})
            if (a != 0) {
                set_mon_mag(a, gespeichert(a));
                return;
            }
    });
}

void MonitorAnsicht::meldung(const BusMeldung& m)
{
    geschuetzt("MainWin : Get_Adr_from_LN", [&] {
        if (m.art == BusMeldung::Magnetartikel) {
            set_mon_mag(m.adresse, m.zustand);
        } else if (m.art == BusMeldung::Empfaenger && m.zugmeldung() && m.adresse >= 1) {
            // Receiver 0 is no module's address (a report of an unset module): no cell shows it.
            NavikEintrag& e = NavikStatus(m.adresse);
            if (e.zelle.x == 0 || e.zelle.y == 0)
                return;
            e.lok = m.lok;
            MonZelle inhalt = mon_.zelle(e.zelle.x, e.zelle.y);
            inhalt.text = QString::number(m.lok);
            mon_.setzeZelle(e.zelle.x, e.zelle.y, inhalt);
        }
    });
}

MagArtStatus_Zustand MonitorAnsicht::MagArtStatus_laden(int x, int y) const
{
    MagArtStatus_Zustand z = MagArtStatus_fuerMonitor(anlage_, katalog_, x, y);
    StatOpt_Click(z, gespeichert(MagArtStatus_Adresse(z)));
    return z;
}

void MonitorAnsicht::MagArtStatus_OK(const MagArtStatus_Zustand& zustand, LocoNetLink& link)
{
    geschuetzt("MagArtStatus : OK_But_Click", [&] { schalten(link, MagArtStatus_Adresse(zustand), MagArtStatus_Stellung(zustand)); });
}

}  // namespace planor
