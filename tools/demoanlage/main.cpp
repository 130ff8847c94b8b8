// Writes the demo project data/demo/Demo.anl with its value files: an oval
// with a three-track station, turnouts and signals with addresses, four
// receivers and a universal block controller with two cells. Built through
// the editor and saved by Save_plt, as a user's project would be.
//   planor-demoanlage KT_CONF_ORDNER ZIELORDNER
#include "config/modul_familie.h"
#include "core/benutzer.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/project_file.h"
#include "editor/pult_editor.h"
#include "platform/uhr.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>

using namespace planor;

namespace {

struct PlanFeld {
    int x, y, typ, adr1 = 0, adr2 = 0, adr3 = 0;
};

// x to the east, y to the south, on a panel of 16 by 10 cells.
const PlanFeld Plan[] = {
    // The oval's upper straight with two sidings ending at buffer stops.
    {3, 2, 3}, {4, 2, 9}, {5, 2, 104, 1}, {6, 2, 800}, {7, 2, 9}, {8, 2, 102, 2}, {9, 2, 9}, {10, 2, 541, 20},
    {11, 2, 9}, {12, 2, 840}, {13, 2, 9}, {14, 2, 5},
    {4, 3, 1}, {3, 3, 16}, {9, 3, 7}, {10, 3, 9}, {11, 3, 14},
    // The two bends with a receiver each.
    {2, 3, 6}, {2, 4, 10}, {2, 5, 803}, {2, 6, 10}, {2, 7, 2}, {3, 8, 7},
    {15, 3, 4}, {15, 4, 10}, {15, 5, 802}, {15, 6, 10}, {15, 7, 8}, {14, 8, 1},
    // The station: three tracks between turnouts, signals at the exits.
    {4, 8, 101, 3}, {5, 8, 532, 21, 22, 23}, {6, 8, 9}, {7, 8, 9}, {8, 8, 9}, {9, 8, 840}, {10, 8, 9},
    {11, 8, 9}, {12, 8, 531, 24, 25, 26}, {13, 8, 103, 4},
    {5, 7, 105, 5}, {6, 7, 512, 27, 28}, {7, 7, 9}, {8, 7, 801}, {9, 7, 9}, {10, 7, 9}, {11, 7, 511, 29, 30},
    {12, 7, 108, 6},
    {6, 6, 3}, {7, 6, 502, 31}, {8, 6, 920}, {9, 6, 920}, {10, 6, 501, 32}, {11, 6, 5},
};

struct Stille final : Benutzer {
    void meldung(const QString& titel, const QString& text, Symbol) override
    {
        std::fprintf(stderr, "%s: %s\n", qPrintable(titel), qPrintable(text));
    }
};

struct OhneAnzeige final : ProjektAnzeige {
    void InfoTxt_anzeigen(int, const QString&) override {}
    bool pultNeuSetzen() const override { return false; }
    void neues_pult_setzen() override {}
    bool elementLoeschen(const QString&, const QString&) override { return false; }
};

// A NAVIK receiver 47220 with its general values and an operating mode (XY_BETR's codes).
void empfaenger(Anlage& a, int x, int y, int adresse, int betriebsart, int signal, int aufenthalt = 0)
{
    XY_Typ& z = a.XY(x, y);
    z.XY_ArtNr = 47220;
    z.XY_LNCV(0) = static_cast<Integer>(adresse);
    set_modul_optionen(a, x, y);
    z.XY_BETR = static_cast<Integer>(betriebsart);
    z.XY_LNCV(2) = static_cast<Integer>(16 * z.XY_BlkMeld + (betriebsart == 3 ? 7 : 6));
    z.XY_LNCV(3) = 0;
    z.XY_LNCV(4) = static_cast<Integer>(aufenthalt);
    z.XY_LNCV(6) = static_cast<Integer>(signal);
}

// One cell of the universal block controller 47320 at address 100.
void universal(Anlage& a, int x, int y, int eingang, int hauptX, int hauptY)
{
    XY_Typ& z = a.XY(x, y);
    z.XY_ArtNr = 47320;
    z.XY_LNCV(0) = 100;
    z.XY_GleisIDX = static_cast<Integer>(eingang);
    z.XY_BETR = 20;
    z.XY_SenStat = x == hauptX && y == hauptY ? 3 : 4;
    z.XY_SenX = static_cast<Integer>(hauptX);
    z.XY_SenY = static_cast<Integer>(hauptY);
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3) {
        std::fputs("Aufruf: planor-demoanlage KT_CONF_ORDNER ZIELORDNER\n", stderr);
        return 2;
    }
    // A fixed date, so that the committed files are reproducible.
    TestUhr uhr(QDateTime(QDate(2026, 11, 21), QTime(12, 0)));
    FehlerbehandlungEinrichten({QDir(QString::fromLocal8Bit(argv[2])).filePath(QStringLiteral("Fehler.log")), &uhr,
                                nullptr});
    Anlage anlage;
    Elementkatalog katalog;
    Stille stille;
    PultEditor editor(anlage, katalog, stille);
    try {
        Elemente_laden(QString::fromLocal8Bit(argv[1]) + QStringLiteral("/Elemente.cfg"), katalog, anlage);
        anlage.DimensionenX = 16;
        anlage.DimensionenY = 10;
        anlage.neues_pult_setzen();
        for (const PlanFeld& f : Plan) {
            editor.setzeAktuell(f.x, f.y);
            editor.SetzePultElement(katalog.indexVonTyp(f.typ));
            XY_Typ& z = anlage.XY(f.x, f.y);
            z.XY_ADR1 = static_cast<Integer>(f.adr1);
            z.XY_ADR2 = static_cast<Integer>(f.adr2);
            z.XY_ADR3 = static_cast<Integer>(f.adr3);
        }
        empfaenger(anlage, 6, 2, 1, 3, 24);
        empfaenger(anlage, 2, 5, 2, 3, 21);
        empfaenger(anlage, 15, 5, 3, 3, 24);
        empfaenger(anlage, 8, 7, 4, 2, 27, 30);
        universal(anlage, 9, 8, 1, 9, 8);
        universal(anlage, 12, 2, 2, 9, 8);
        XY_Typ& haupt = anlage.XY(9, 8);
        haupt.XY_LNCV(1) = 1;
        haupt.XY_LNCV(2) = 10;  // 5 s start-up wait, in half seconds
        haupt.XY_LNCV(9) = 25;  // 250 ms switching time

        anlage.Pfad = QDir(QString::fromLocal8Bit(argv[2])).absolutePath() + u'/';
        anlage.File = QStringLiteral("Demo.anl");
        OhneAnzeige anzeige;
        Save_plt(anlage, katalog, anzeige);
    } catch (const Laufzeitfehler& f) {
        std::fprintf(stderr, "Fehler %d: %s\n", f.nummer(), qPrintable(f.beschreibung()));
        return 1;
    }
    return 0;
}
