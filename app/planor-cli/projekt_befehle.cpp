#include "app/planor-cli/projekt_befehle.h"

#include "app/planor-cli/cli.h"
#include "app/planor-cli/projekt_laden.h"

#include <QDir>

namespace planor::cli {

namespace {

void zeile(std::FILE* aus, const QString& text)
{
    std::fputs(text.toUtf8().constData(), aus);
    std::fputc('\n', aus);
}

QString betriebsart(int betr)
{
    switch (betr) {
    case -1:
        return QStringLiteral("-");
    case 20:
        return QStringLiteral("Block");
    case 21:
    case 22:
        return QStringLiteral("Block/Einfm.");
    case 23:
        return QStringLiteral("Block/Ausfm.");
    default:
        return betr >= 0 && betr <= BetriebsartMax ? BetriebsartTxt(betr) : QString::number(betr);
    }
}

QString n(long long wert) { return QString::number(wert); }

void infoAusgeben(const ProjektLaden& p, std::FILE* aus)
{
    const Anlage& a = p.anlage;
    zeile(aus, QStringLiteral("Dimensionen: %1 x %2").arg(a.DimensionenX).arg(a.DimensionenY));
    const Grundeinst_Typ& g = a.Grundeinst;
    zeile(aus, QStringLiteral("Grundeinst: BlkZustMeld=%1 BetriebszustSpeichern=%2 LocoNetStatMessage=%3 "
                              "ZugKatRD2_47231=%4 LNCV14=%5 LNCV17=%6 LNCV18=%7 LNCV19=%8")
                   .arg(g.BlkZustMeld).arg(g.BetriebszustSpeichern).arg(g.LocoNetStatMessage)
                   .arg(g.ZugKatRD2_47231).arg(Int_to_Unsig(g.LNCV14)).arg(g.LNCV17).arg(g.LNCV18).arg(g.LNCV19));
    for (int x = 1; x <= a.DimensionenX; ++x)
        for (int y = 1; y <= a.DimensionenY; ++y) {
            const XY_Typ& z = a.XY(x, y);
            const int typ = p.katalog.ElementTab(z.XY_Element).Typ;
            if (typ < 800 || typ > 841)
                continue;
            zeile(aus, QStringLiteral("Modul: x=%1 y=%2 Typ=%3 ArtNr=%4 Adresse=%5 Betriebsart=%6")
                           .arg(x).arg(y).arg(typ).arg(z.XY_ArtNr).arg(z.XY_LNCV(0)).arg(betriebsart(z.XY_BETR)));
        }
    for (int i = 1; i <= MaxBhf; ++i) {
        const Bhf_Typ& b = a.Bhf(i);
        if (b.Bhf_Name.isEmpty())
            continue;
        QStringList gleise;
        for (int gl = 1; gl <= MaxGleis; ++gl)
            if (b.Bhf_GleisX(gl) != 0 || b.Bhf_GleisY(gl) != 0)
                gleise << n(gl) + u'=' + n(b.Bhf_GleisX(gl)) + u',' + n(b.Bhf_GleisY(gl));
        zeile(aus, QStringLiteral("Bahnhof: %1 Name=%2 Art=%3 Einfahrt=%4,%5 Ausfahrt=%6,%7 Gleise=%8")
                       .arg(i).arg(b.Bhf_Name.trimmed()).arg(b.Bhf_Art).arg(b.Bhf_EinfX).arg(b.Bhf_EinfY)
                       .arg(b.Bhf_AusfX).arg(b.Bhf_AusfY).arg(gleise.join(u' ')));
    }
    for (int i = 1; i <= MaxFS; ++i) {
        const FS_Typ& fs = a.FS(i);
        if (fs.FS_Nummer == 0)
            continue;
        QStringList befehle;
        for (int j = 0; j <= MaxMagBfl; ++j)
            if (!fs.FS_MagBfl(j).isEmpty())
                befehle << fs.FS_MagBfl(j);
        zeile(aus, QStringLiteral("Fahrstraße: %1 Name=%2 Nummer=%3 Sub=%4 Art=%5 FS-Nr=%6 Ausloeser=%7 Befehle=%8")
                       .arg(i).arg(fs.FS_Name.trimmed()).arg(fs.FS_Nummer).arg(fs.FS_Sub).arg(fs.FS_Art)
                       .arg(fs.FS_RM).arg(fs.FS_Mag).arg(befehle.join(QStringLiteral("; "))));
    }
}

}  // namespace

int info(const QStringList& argumente, std::FILE* aus, std::FILE* fehler)
{
    if (argumente.size() != 1) {
        std::fputs("Aufruf: planor-cli info PROJEKT.anl\n", fehler);
        return Aufruffehler;
    }
    ProjektLaden projekt(fehler);
    if (!projekt.laden(argumente.front()))
        return Fehler;
    infoAusgeben(projekt, aus);
    return Erfolg;
}

int resave(const QStringList& argumente, std::FILE*, std::FILE* fehler)
{
    if (argumente.size() != 2) {
        std::fputs("Aufruf: planor-cli resave PROJEKT.anl ZIELORDNER\n", fehler);
        return Aufruffehler;
    }
    if (!QDir(argumente.at(1)).exists()) {
        std::fputs(qPrintable(QStringLiteral("Der Zielordner %1 existiert nicht.\n").arg(argumente.at(1))), fehler);
        return Fehler;
    }
    ProjektLaden projekt(fehler);
    if (!projekt.laden(argumente.front()))
        return Fehler;
    return projekt.speichernNach(argumente.at(1)) ? Erfolg : Fehler;
}

}  // namespace planor::cli
