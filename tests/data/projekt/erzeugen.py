#!/usr/bin/env python3
"""Writes the golden project and module value files of tests/data/projekt from
the file layout alone, independently of Planor's own writer, so that the tests
compare the writer against a second implementation. Catalogue:
../Elemente_test.cfg. Run from this folder; the outputs are committed."""

DATUM = "21.11.2026"
KOPF = "// Erzeugt mit NAVIK/TOBRA-Planor Ver. 1.1.6 am " + DATUM + " //"

def gepolstert(v):          # " 5 " / "-1 "
    return (" %d " % v) if v >= 0 else ("%d " % v)

def lcv(artnr10, werte, anzahl, kommentar):
    s = KOPF + "\r\n" + "!: " + kommentar + "\r\n" + "%d:\r\n" % artnr10
    for i in range(anzahl):
        s += "%3d= %5d " % (i, werte.get(i, 0) & 0xFFFF)
        s += "\r\n" if i % 5 == 4 else "; "
    return s

# Cells beyond the empty ones: (x, y) -> (typ, [(key, value)...])
zellen = {
    (2, 3): (101, [("XY_ADR1", 12)]),
    (3, 3): (511, [("XY_ADR1", 40), ("XY_ADR2", 41), ("XY_STATTAUSCH1", 1)]),
    (4, 3): (9, []),
    (5, 3): (800, [("XY_BETR", 7), ("XY_ArtNr", 47220), ("XY_Version", 2), ("XY_BhfIDX", 1)]),
    (6, 3): (800, [("XY_BETR", 6), ("XY_ArtNr", 47240), ("XY_BhfIDX", 1), ("XY_GleisIDX", 1),
                   ("XY_SenStat", 2), ("XY_SenX", 5), ("XY_SenY", 3)]),
    (7, 5): (840, [("XY_BETR", 20), ("XY_ArtNr", 47320), ("XY_GleisIDX", 1),
                   ("XY_SenStat", 3), ("XY_SenX", 7), ("XY_SenY", 5)]),
    (8, 5): (840, [("XY_BETR", 22), ("XY_ArtNr", 47320), ("XY_GleisIDX", 2),
                   ("XY_SenStat", 4), ("XY_SenX", 7), ("XY_SenY", 5)]),
}
adressen = {(5, 3): 12, (6, 3): 13, (7, 5): 300, (8, 5): 300}
werte_47220 = {0: 12, 1: 0, 2: 16 + 7, 15: 9, 20: 65535, 21: 32768, 127: 4}
werte_47320 = {0: 300, 1: 1, 2: 20, 459: 65535, 100: 32768}

zeilen = [KOPF, "DimensionenX: 10", "DimensionenY: 9", "PultOptGPLocked: -1 ",
          "Grundeinst.BlkZustMeld: 1", "Grundeinst.BetriebszustSpeichern: 1",
          "Grundeinst.LocoNetStatMessage: 0", "Grundeinst.ZugKatRD2_47231: 0",
          "Grundeinst.LNCV14: -28800", "Grundeinst.LNCV17: 8", "Grundeinst.LNCV18: 10",
          "Grundeinst.LNCV19: 10"]
seiten = {}
reihenfolge = ["XY_ADR1", "XY_ADR2", "XY_ADR3", "XY_BETR", "XY_ArtNr", "XY_Version", "XY_BhfIDX",
               "XY_GleisIDX", "XY_STATTAUSCH1", "XY_STATTAUSCH2", "XY_ADRTAUSCH", "XY_SenStat",
               "XY_SenX", "XY_SenY"]
for x in range(1, 11):
    for y in range(1, 10):
        typ, felder = zellen.get((x, y), (0, []))
        zeilen.append("XY: %d, %d, %d" % (x, y, typ))
        d = dict(felder)
        for k in reihenfolge:
            if k in d:
                zeilen.append("%s: %d, %d, %d" % (k, x, y, d[k]))
        if (x, y) in adressen and d.get("XY_SenStat", 0) != 2:
            art, adr = d["XY_ArtNr"], adressen[(x, y)]
            name = "%d_%d.lcv" % (art, adr)
            zeilen.append("XY_File: %d, %d, %s" % (x, y, name))
            kommentar = " Modul aus Golden.anl an Pos. (x,y)= %d, %d" % (x, y)
            if art == 47220:
                seiten[name] = lcv(art // 10, werte_47220, 128, kommentar)
            else:
                seiten[name] = lcv(art // 10, werte_47320, 460, kommentar)

zeilen.append("Bhf_Anz: 1")
bhf = [5, 3, 0, 0, -1, 1, 0, 0, 0, 4094, 0, 1]
zeilen.append("Bhf_Daten: 1,  Nord" + "".join(", " + gepolstert(v) for v in bhf))
for key, liste in [("Bhf_GleisX", [6] + [0] * 12), ("Bhf_GleisY", [3] + [0] * 12),
                   ("Bhf_EinfFS", [1] + [0] * 12), ("Bhf_AusfFS", [0] * 13)]:
    zeilen.append(key + ": 1, " + " ,".join(gepolstert(v) for v in liste))
fs = [1, 1, 2, 0, 120, 1]
zeilen.append("FS_Daten: 1,  Nord - Gleis 1" + "".join(", " + gepolstert(v) for v in fs))
zeilen.append("FS_MagBfl: 1, 0, W12 g")
zeilen.append("FS_MagBfl: 1, 1, S40 rot")
zeilen.append("FS_MagBfl: 1, 100, W13 r")

open("Golden.anl", "wb").write(("\r\n".join(zeilen) + "\r\n").encode("cp1252"))
for name, text in seiten.items():
    open(name, "wb").write(text.encode("cp1252"))
