// Save_plt: the project file and its side files.
#include "core/project_file.h"

#include "core/ansi_text.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/laufzeitfehler.h"
#include "core/lncv_datei.h"
#include "core/panel_model.h"
#include "core/version.h"
#include "platform/uhr.h"

#include <QFile>
#include <QSaveFile>

namespace planor {

namespace {

// A padded number: a leading blank or the minus sign, the digits, a trailing blank.
QString gepolstert(long long wert) { return Str(wert) + u' '; }

QString zahl(long long wert) { return QString::number(wert); }

QString zellZeile(const char* schluessel, int x, int y, const QString& wert)
{
    return QLatin1String(schluessel) + QStringLiteral(": ") + zahl(x) + QStringLiteral(", ") + zahl(y)
           + QStringLiteral(", ") + wert;
}

void zelleSchreiben(ansi::Schreiber& datei, ProjektBytes& projekt, const Anlage& anlage,
                    const Elementkatalog& katalog, const QString& file, const QDate& datum, int x, int y)
{
    const XY_Typ& z = anlage.XY(x, y);
    const ElementTab_Typ& element = katalog.ElementTab(z.XY_Element);
    datei.zeile(zellZeile("XY", x, y, zahl(element.Typ)));
    const std::pair<const char*, long long> felder[] = {
        {"XY_ADR1", z.XY_ADR1},     {"XY_ADR2", z.XY_ADR2},
        {"XY_ADR3", z.XY_ADR3},     {"XY_BETR", z.XY_BETR},
        {"XY_ArtNr", z.XY_ArtNr},   {"XY_Version", z.XY_Version},
        {"XY_BhfIDX", z.XY_BhfIDX}, {"XY_GleisIDX", z.XY_GleisIDX},
        {"XY_STATTAUSCH1", z.XY_STATTAUSCH1}, {"XY_STATTAUSCH2", z.XY_STATTAUSCH2},
        {"XY_ADRTAUSCH", z.XY_ADRTAUSCH},     {"XY_SenStat", z.XY_SenStat},
        {"XY_SenX", z.XY_SenX},     {"XY_SenY", z.XY_SenY},
    };
    for (const auto& [schluessel, wert] : felder) {
        const long long leer = QLatin1String(schluessel) == QLatin1String("XY_BETR") ? -1 : 0;
        if (wert != leer)
            datei.zeile(zellZeile(schluessel, x, y, zahl(wert)));
    }
    if (z.XY_LNCV(0) == 0 || z.XY_ArtNr == 0 || z.XY_SenStat == 2)
        return;
    const QString name = zahl(z.XY_ArtNr) + u'_' + zahl(z.XY_LNCV(0)) + QStringLiteral(".lcv");
    datei.zeile(zellZeile("XY_File", x, y, name));
    // A further cell of a universal block
    // controller holds no values; its side file carries the main cell's.
    const XY_Typ& werte = z.XY_SenStat == 4 ? anlage.XY(z.XY_SenX, z.XY_SenY) : z;
    const QString kommentar = QStringLiteral(" Modul aus ") + file + QStringLiteral(" an Pos. (x,y)= ") + zahl(x)
                              + QStringLiteral(", ") + zahl(y);
    projekt.seitendateien.push_back(
        {name, lncv_bytes(z.XY_ArtNr / 10, werte.XY_LNCV, element.LNCVAnz, kommentar, datum)});
}

void bahnhofSchreiben(ansi::Schreiber& datei, const Bhf_Typ& b, int i)
{
    QString daten = QStringLiteral("Bhf_Daten: ") + zahl(i) + QStringLiteral(", ") + b.Bhf_Name;
    for (long long wert : {b.Bhf_EinfX, b.Bhf_EinfY, b.Bhf_AusfX, b.Bhf_AusfY, b.Bhf_Adr, b.Bhf_EinfAktiv,
                           b.Bhf_AusfAktiv, b.Bhf_UmfAktiv, b.Bhf_UmfLNCV, b.Bhf_UmfAdr, b.Bhf_Status66, b.Bhf_Art})
        daten += QStringLiteral(", ") + gepolstert(wert);
    datei.zeile(daten);
    const std::pair<const char*, const Feld<Integer, 0, MaxGleis>*> listen[] = {
        {"Bhf_GleisX", &b.Bhf_GleisX}, {"Bhf_GleisY", &b.Bhf_GleisY},
        {"Bhf_EinfFS", &b.Bhf_EinfFS}, {"Bhf_AusfFS", &b.Bhf_AusfFS}};
    for (const auto& [schluessel, liste] : listen) {
        QString zeile = QLatin1String(schluessel) + QStringLiteral(": ") + zahl(i) + QStringLiteral(", ");
        for (int gleis = 1; gleis <= MaxGleis; ++gleis)
            zeile += gepolstert((*liste)(gleis)) + (gleis < MaxGleis ? QStringLiteral(" ,") : QString());
        datei.zeile(zeile);
    }
}

void fahrstrasseSchreiben(ansi::Schreiber& datei, const FS_Typ& fs, int i)
{
    QString daten = QStringLiteral("FS_Daten: ") + zahl(i) + QStringLiteral(", ") + fs.FS_Name;
    for (long long wert : {fs.FS_Nummer, fs.FS_Sub, fs.FS_Art, fs.FS_RM, fs.FS_Mag, fs.FS_Kennung})
        daten += QStringLiteral(", ") + gepolstert(wert);
    datei.zeile(daten);
    for (int j = 0; j <= MaxMagBfl; ++j)
        if (!fs.FS_MagBfl(j).isEmpty())
            datei.zeile(QStringLiteral("FS_MagBfl: ") + zahl(i) + QStringLiteral(", ") + zahl(j) + QStringLiteral(", ")
                        + fs.FS_MagBfl(j));
}

void schreibeDatei(const QString& pfad, const QByteArray& bytes)
{
    // A side file that already holds these bytes is left alone: a layout of
    // hundreds of modules saves without rewriting (and syncing) each of them.
    QFile alt(pfad);
    if (alt.open(QIODevice::ReadOnly) && alt.size() == bytes.size() && alt.readAll() == bytes)
        return;
    alt.close();
    QSaveFile f(pfad);
    if (!f.open(QIODevice::WriteOnly))
        throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
    f.write(bytes);
    if (!f.commit())
        throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
}

}  // namespace

ProjektBytes Save_plt_bytes(const Anlage& anlage, const Elementkatalog& katalog, const QString& file,
                            const QDate& datum, ProjektAnzeige* anzeige)
{
    ProjektBytes projekt;
    ansi::Schreiber datei;
    if (anzeige)
        anzeige->InfoTxt_anzeigen(1, QStringLiteral("Speichern"));
    datei.zeile(QStringLiteral("// Erzeugt mit NAVIK/TOBRA-Planor Ver. ") + Version() + QStringLiteral(" am ")
                + datum.toString(QStringLiteral("dd.MM.yyyy")) + QStringLiteral(" //"));
    datei.zeile(QStringLiteral("DimensionenX: ") + zahl(anlage.DimensionenX));
    datei.zeile(QStringLiteral("DimensionenY: ") + zahl(anlage.DimensionenY));
    datei.zeile(QStringLiteral("PultOptGPLocked: ") + gepolstert(anlage.PultOpt.PultOptGPLocked ? -1 : 0));
    const Grundeinst_Typ& g = anlage.Grundeinst;
    const std::pair<const char*, long long> grundeinst[] = {
        {"BlkZustMeld", g.BlkZustMeld},         {"BetriebszustSpeichern", g.BetriebszustSpeichern},
        {"LocoNetStatMessage", g.LocoNetStatMessage}, {"ZugKatRD2_47231", g.ZugKatRD2_47231},
        {"LNCV14", g.LNCV14}, {"LNCV17", g.LNCV17}, {"LNCV18", g.LNCV18}, {"LNCV19", g.LNCV19}};
    for (const auto& [schluessel, wert] : grundeinst)
        datei.zeile(QStringLiteral("Grundeinst.") + QLatin1String(schluessel) + QStringLiteral(": ") + zahl(wert));

    for (int x = 1; x <= anlage.DimensionenX; ++x)
        for (int y = 1; y <= anlage.DimensionenY; ++y) {
            if (anzeige)
                anzeige->InfoTxt_anzeigen(2, QStringLiteral("X=") + zahl(x) + QStringLiteral(" Y=") + zahl(y));
            zelleSchreiben(datei, projekt, anlage, katalog, file, datum, x, y);
        }

    datei.zeile(QStringLiteral("Bhf_Anz: ") + zahl(anlage.Bhf_Anz));
    for (int i = 1; i <= MaxBhf; ++i)
        if (!anlage.Bhf(i).Bhf_Name.isEmpty())
            bahnhofSchreiben(datei, anlage.Bhf(i), i);
    for (int i = 1; i <= MaxFS; ++i)
        if (anlage.FS(i).FS_Nummer != 0)
            fahrstrasseSchreiben(datei, anlage.FS(i), i);
    projekt.anl = datei.bytes();
    return projekt;
}

void Save_plt(const Anlage& anlage, const Elementkatalog& katalog, ProjektAnzeige& anzeige)
{
    const ProjektBytes projekt =
        Save_plt_bytes(anlage, katalog, anlage.File, FehlerbehandlungUmgebung().uhr->jetzt().date(), &anzeige);
    schreibeDatei(anlage.Pfad + anlage.File, projekt.anl);
    for (const Seitendatei& seite : projekt.seitendateien)
        schreibeDatei(anlage.Pfad + seite.name, seite.bytes);
}

}  // namespace planor
