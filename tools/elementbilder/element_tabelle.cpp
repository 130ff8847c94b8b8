#include "element_tabelle.h"

// Type codes: codes below 100 are plain track; 9 is
// the horizontal straight because the KT-Edit import maps several old symbols
// to 9. Every orientation has a code of its own, as the project
// file stores codes, not catalogue indices. The text alignment (flex-grid
// code) puts the cell's text where the picture is empty.

namespace planor::elementbilder {

namespace {

using P = Port;

Bild werkzeug(Art art)
{
    return Bild{.art = art};
}

Bild gleis(Port a, Port b)
{
    return Bild{.art = Art::Gleis, .beine = {Bein{a, b, true}}};
}

Bild kreuzung(Port a, Port b, Port c, Port d)
{
    return Bild{.art = Art::Gleis, .beine = {Bein{a, b, true}, Bein{c, d, true}}};
}

Bild prellbock(Port ende)
{
    return Bild{.art = Art::Prellbock, .ende = ende};
}

// A turnout: the points at `spitze`, the straight (green) leg to `gerade`,
// the diverging (red) leg to `abzweig`. A Y turnout has two curved legs.
Bild weiche(Port spitze, Port gerade, Port abzweig)
{
    return Bild{.art = Art::Weiche, .beine = {Bein{spitze, gerade, true}, Bein{spitze, abzweig, true}}};
}

// Legs of an element with two addresses, by the state that sets them. The
// first letter is address 1, which chooses the track on the west side; the
// second is address 2.
Bild fahrwege(Bein gg, Bein rr, Bein gr, Bein rg)
{
    return Bild{.art = Art::Fahrwege, .beine = {gg, rr, gr, rg}};
}

Bein b(Port a, Port z)
{
    return Bein{a, z, true};
}

Bild signal(bool nachWest, std::vector<Kopf> koepfe)
{
    return Bild{.art = Art::Signal, .koepfe = std::move(koepfe), .nachWest = nachWest};
}

// Receivers: `von` -> `nach` is the travel direction from sensor 1 to sensor 2.
Bild melder(Art art, Port von, Port nach)
{
    return Bild{.art = art, .beine = {Bein{von, nach, true}}};
}

std::vector<Element> aufbauen()
{
    const Bein keins{};
    const auto H = Kopf::Haupt;
    const auto V = Kopf::Vor;
    const auto R = Kopf::Rangier;
    const auto E = Art::Empfaenger;
    return {
        // Tools first: loading and the plan's editing delete with entry 1, the eraser.
        {"radierer_pal", "Radierer", -99, 1, -99, 4, werkzeug(Art::Radierer)},
        {"auswahl_pal", "Auswahl", -1, 1, -1, 4, werkzeug(Art::Auswahl)},
        {"leer_feld", "Leer", 0, 0, 0, 4, werkzeug(Art::Leer)},

        // Straights; the walk turns by 45 degrees each click.
        {"gl9_waag", "Gleis waagerecht", 9, 1, 9, 5, gleis(P::W, P::O)},
        {"gl11_diag_auf", "Gleis diagonal steigend", 11, 0, 9, 8, gleis(P::SW, P::NO)},
        {"gl10_senk", "Gleis senkrecht", 10, 0, 9, 5, gleis(P::N, P::S)},
        {"gl12_diag_ab", "Gleis diagonal fallend", 12, 0, 9, 2, gleis(P::NW, P::SO)},

        // Curves from an edge midpoint to a corner: four turned by 90 degrees,
        // then their four mirror images.
        {"gl1_bg_w_no", "Gleisbogen West-Nordost", 1, 1, 1, 5, gleis(P::W, P::NO)},
        {"gl2_bg_n_so", "Gleisbogen Nord-Südost", 2, 0, 1, 2, gleis(P::N, P::SO)},
        {"gl3_bg_o_sw", "Gleisbogen Ost-Südwest", 3, 0, 1, 3, gleis(P::O, P::SW)},
        {"gl4_bg_s_nw", "Gleisbogen Süd-Nordwest", 4, 0, 1, 6, gleis(P::S, P::NW)},
        {"gl5_bg_w_so", "Gleisbogen West-Südost", 5, 0, 1, 3, gleis(P::W, P::SO)},
        {"gl6_bg_s_no", "Gleisbogen Süd-Nordost", 6, 0, 1, 0, gleis(P::S, P::NO)},
        {"gl7_bg_o_nw", "Gleisbogen Ost-Nordwest", 7, 0, 1, 5, gleis(P::O, P::NW)},
        {"gl8_bg_n_sw", "Gleisbogen Nord-Südwest", 8, 0, 1, 8, gleis(P::N, P::SW)},

        // Buffer stops, named by the closed end.
        {"pb14_ende_o", "Prellbock Ende Ost", 14, 1, 14, 5, prellbock(P::O)},
        {"pb15_ende_s", "Prellbock Ende Süd", 15, 0, 14, 5, prellbock(P::S)},
        {"pb16_ende_w", "Prellbock Ende West", 16, 0, 14, 5, prellbock(P::W)},
        {"pb17_ende_n", "Prellbock Ende Nord", 17, 0, 14, 5, prellbock(P::N)},
        {"pb24_ende_no", "Prellbock Ende Nordost", 24, 0, 14, 8, prellbock(P::NO)},
        {"pb25_ende_so", "Prellbock Ende Südost", 25, 0, 14, 2, prellbock(P::SO)},
        {"pb26_ende_sw", "Prellbock Ende Südwest", 26, 0, 14, 8, prellbock(P::SW)},
        {"pb27_ende_nw", "Prellbock Ende Nordwest", 27, 0, 14, 2, prellbock(P::NW)},

        // Crossings without connection.
        {"kr18_plus", "Kreuzung waagerecht/senkrecht", 18, 1, 18, 0, kreuzung(P::W, P::O, P::N, P::S)},
        {"kr19_diag", "Kreuzung diagonal", 19, 0, 18, 3, kreuzung(P::SW, P::NO, P::NW, P::SO)},
        {"kr20_w_auf", "Kreuzung waagerecht/diagonal steigend", 20, 0, 18, 0, kreuzung(P::W, P::O, P::SW, P::NO)},
        {"kr21_w_ab", "Kreuzung waagerecht/diagonal fallend", 21, 0, 18, 2, kreuzung(P::W, P::O, P::NW, P::SO)},
        {"kr22_s_auf", "Kreuzung senkrecht/diagonal steigend", 22, 0, 18, 0, kreuzung(P::N, P::S, P::SW, P::NO)},
        {"kr23_s_ab", "Kreuzung senkrecht/diagonal fallend", 23, 0, 18, 6, kreuzung(P::N, P::S, P::NW, P::SO)},

        // Turnouts with one address: red diverging, green straight; of a Y
        // turnout green is the left branch seen from the points.
        {"w101_w_no", "Weiche von West nach Nordost", 101, 1, 101, 5, weiche(P::W, P::O, P::NO)},
        {"w102_w_so", "Weiche von West nach Südost", 102, 0, 101, 3, weiche(P::W, P::O, P::SO)},
        {"w103_o_nw", "Weiche von Ost nach Nordwest", 103, 0, 101, 5, weiche(P::O, P::W, P::NW)},
        {"w104_o_sw", "Weiche von Ost nach Südwest", 104, 0, 101, 3, weiche(P::O, P::W, P::SW)},
        {"w109_y_w", "Y-Weiche von West", 109, 0, 101, 0, weiche(P::W, P::NO, P::SO)},
        {"w110_y_o", "Y-Weiche von Ost", 110, 0, 101, 6, weiche(P::O, P::SW, P::NW)},
        {"w105_sw_o", "Weiche diagonal von Südwest nach Ost", 105, 1, 105, 0, weiche(P::SW, P::NO, P::O)},
        {"w106_no_w", "Weiche diagonal von Nordost nach West", 106, 0, 105, 8, weiche(P::NO, P::SW, P::W)},
        {"w107_nw_o", "Weiche diagonal von Nordwest nach Ost", 107, 0, 105, 2, weiche(P::NW, P::SO, P::O)},
        {"w108_so_w", "Weiche diagonal von Südost nach West", 108, 0, 105, 6, weiche(P::SO, P::NW, P::W)},

        // Two drives: address 1 chooses W (green) or the diagonal's west end
        // (red), address 2 the east side likewise.
        {"dkw201_auf", "Doppelkreuzungsweiche steigend", 201, 1, 201, 0,
         fahrwege(b(P::W, P::O), b(P::SW, P::NO), b(P::W, P::NO), b(P::SW, P::O))},
        {"dkw202_ab", "Doppelkreuzungsweiche fallend", 202, 0, 201, 2,
         fahrwege(b(P::W, P::O), b(P::NW, P::SO), b(P::W, P::SO), b(P::NW, P::O))},
        {"ekw203_auf", "Einfache Kreuzungsweiche steigend", 203, 0, 201, 8,
         fahrwege(b(P::W, P::O), b(P::SW, P::NO), b(P::W, P::NO), keins)},

        // Three-way turnouts: both green straight, address 1 red the left
        // branch, address 2 red the right branch, both red no route.
        {"dw301_w", "Dreiwegweiche von West", 301, 1, 301, 0,
         fahrwege(b(P::W, P::O), keins, b(P::W, P::SO), b(P::W, P::NO))},
        {"dw302_o", "Dreiwegweiche von Ost", 302, 0, 301, 6,
         fahrwege(b(P::O, P::W), keins, b(P::O, P::NW), b(P::O, P::SW))},

        // Signals: x01 stands at the east-bound track, x02 at the west-bound
        // one, each on the right-hand side in the direction of travel.
        {"s501_hp_o", "Hauptsignal Fahrt nach Ost", 501, 1, 501, 3, signal(false, {H})},
        {"s502_hp_w", "Hauptsignal Fahrt nach West", 502, 0, 501, 5, signal(true, {H})},
        {"s511_hpvr_o", "Haupt- und Vorsignal Fahrt nach Ost", 511, 1, 511, 3, signal(false, {H, V})},
        {"s512_hpvr_w", "Haupt- und Vorsignal Fahrt nach West", 512, 0, 511, 5, signal(true, {H, V})},
        {"s521_hpsh_o", "Haupt- und Rangiersignal Fahrt nach Ost", 521, 1, 521, 3, signal(false, {H, R})},
        {"s522_hpsh_w", "Haupt- und Rangiersignal Fahrt nach West", 522, 0, 521, 5, signal(true, {H, R})},
        {"s531_hpvrsh_o", "Haupt- Vor- und Rangiersignal Fahrt nach Ost", 531, 1, 531, 3, signal(false, {H, V, R})},
        {"s532_hpvrsh_w", "Haupt- Vor- und Rangiersignal Fahrt nach West", 532, 0, 531, 5, signal(true, {H, V, R})},
        {"s541_vr_o", "Vorsignal Fahrt nach Ost", 541, 1, 541, 3, signal(false, {V})},
        {"s542_vr_w", "Vorsignal Fahrt nach West", 542, 0, 541, 5, signal(true, {V})},
        {"s551_sh_o", "Rangiersignal Fahrt nach Ost", 551, 1, 551, 3, signal(false, {R})},
        {"s552_sh_w", "Rangiersignal Fahrt nach West", 552, 0, 551, 5, signal(true, {R})},

        // NAVIK/TOBRA receivers with two sensors; each family is one track
        // with its two directions, so a right click reverses the direction.
        {"e800_ost", "Empfänger Fahrtrichtung Ost", 800, 1, 800, 5, melder(E, P::W, P::O)},
        {"e801_west", "Empfänger Fahrtrichtung West", 801, 0, 800, 5, melder(E, P::O, P::W)},
        {"e802_sued", "Empfänger Fahrtrichtung Süd", 802, 1, 802, 5, melder(E, P::N, P::S)},
        {"e803_nord", "Empfänger Fahrtrichtung Nord", 803, 0, 802, 5, melder(E, P::S, P::N)},
        {"e804_nordost", "Empfänger Fahrtrichtung Nordost", 804, 1, 804, 8, melder(E, P::SW, P::NO)},
        {"e805_suedwest", "Empfänger Fahrtrichtung Südwest", 805, 0, 804, 8, melder(E, P::NO, P::SW)},
        {"e806_suedost", "Empfänger Fahrtrichtung Südost", 806, 1, 806, 2, melder(E, P::NW, P::SO)},
        {"e807_nordwest", "Empfänger Fahrtrichtung Nordwest", 807, 0, 806, 2, melder(E, P::SO, P::NW)},
        {"es808_waag", "Einzelsensor waagerecht", 808, 1, 808, 5, melder(Art::Einzelsensor, P::W, P::O)},
        {"es809_senk", "Einzelsensor senkrecht", 809, 0, 808, 5, melder(Art::Einzelsensor, P::N, P::S)},
        {"es810_diag_auf", "Einzelsensor diagonal steigend", 810, 0, 808, 8, melder(Art::Einzelsensor, P::SW, P::NO)},
        {"es811_diag_ab", "Einzelsensor diagonal fallend", 811, 0, 808, 2, melder(Art::Einzelsensor, P::NW, P::SO)},
        {"em830_ost", "Empfängermodul Fahrtrichtung Ost", 830, 1, 830, 5, melder(Art::Modul, P::W, P::O)},
        {"em831_west", "Empfängermodul Fahrtrichtung West", 831, 0, 830, 5, melder(Art::Modul, P::O, P::W)},
        {"em832_sued", "Empfängermodul Fahrtrichtung Süd", 832, 0, 830, 5, melder(Art::Modul, P::N, P::S)},
        {"em833_nord", "Empfängermodul Fahrtrichtung Nord", 833, 0, 830, 5, melder(Art::Modul, P::S, P::N)},

        // Universal block controller cells (460 values each).
        {"us840_waag", "Universal-Blocksteuerung waagerecht", 840, 1, 840, 5,
         melder(Art::Blocksteuerung, P::W, P::O)},
        {"us841_senk", "Universal-Blocksteuerung senkrecht", 841, 0, 840, 5,
         melder(Art::Blocksteuerung, P::N, P::S)},

        {"bs920_bahnsteig", "Bahnsteig", 920, 1, 920, 5, Bild{.art = Art::Bahnsteig}},
    };
}

}  // namespace

const std::vector<Element>& elementTabelle()
{
    static const std::vector<Element> tabelle = aufbauen();
    return tabelle;
}

}  // namespace planor::elementbilder
