// Save_plt: the project file and its side files.
#include "core/project_file.h"

#include "core/ansi_text.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/laufzeitfehler.h"
#include "core/lncv_datei.h"
#include "core/panel_model.h"
#include "core/project_felder.h"
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
    // A field at a new cell's value (XY_BETR -1, the others 0) is left out.
    static const XY_Typ neu;
    for (const projektfelder::Zellfeld& f : projektfelder::Zelle) {
        const long long wert = f.lang ? z.*f.lang : z.*f.integer;
        const long long leer = f.lang ? neu.*f.lang : neu.*f.integer;
        if (wert != leer)
            datei.zeile(zellZeile(f.schluessel, x, y, zahl(wert)));
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
    for (Integer Bhf_Typ::*feld : projektfelder::BhfDaten)
        daten += QStringLiteral(", ") + gepolstert(b.*feld);
    datei.zeile(daten);
    for (const auto& [schluessel, liste] : projektfelder::BhfListen) {
        QString zeile = QLatin1String(schluessel) + QStringLiteral(": ") + zahl(i) + QStringLiteral(", ");
        for (int gleis = 1; gleis <= MaxGleis; ++gleis)
            zeile += gepolstert((b.*liste)(gleis)) + (gleis < MaxGleis ? QStringLiteral(" ,") : QString());
        datei.zeile(zeile);
    }
}

void fahrstrasseSchreiben(ansi::Schreiber& datei, const FS_Typ& fs, int i)
{
    QString daten = QStringLiteral("FS_Daten: ") + zahl(i) + QStringLiteral(", ") + fs.FS_Name;
    for (Integer FS_Typ::*feld : projektfelder::FsDaten)
        daten += QStringLiteral(", ") + gepolstert(fs.*feld);
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
