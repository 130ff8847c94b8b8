// planor-elementbilder: writes the element catalogue Elemente.cfg and all its
// bitmaps into a folder (normally data/KT_Conf), and on request sheets to
// look at them. Only Qt Gui's raster painting is used, so no display is
// needed and the output is the same on every run.

#include "dateien.h"
#include "uebersicht.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QSet>

#include <cstdio>

using namespace planor::elementbilder;

namespace {

bool speichern(const QImage& bild, const QString& datei)
{
    if (bild.save(datei, "PNG"))
        return true;
    std::fprintf(stderr, "Kann %s nicht schreiben\n", qPrintable(datei));
    return false;
}

// Files from an older run that this run did not write would stay in the
// catalogue folder unnoticed; name them.
void fremdeMelden(const QString& ordner, const QStringList& geschrieben)
{
    const QSet<QString> bekannt(geschrieben.begin(), geschrieben.end());
    const QStringList vorhanden = QDir(ordner).entryList({"*.bmp", "*.BMP", "*.cfg", "*.CFG"}, QDir::Files);
    for (const QString& name : vorhanden)
        if (!bekannt.contains(name))
            std::fprintf(stderr, "Warnung: %s gehört nicht zum Katalog\n", qPrintable(name));
}

}  // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("planor-elementbilder"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Schreibt Elemente.cfg und alle Bitmaps des Elementkatalogs."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("ordner"), QStringLiteral("Zielordner, z. B. data/KT_Conf"));
    const QCommandLineOption uebersichtOpt(QStringLiteral("uebersicht"),
                                           QStringLiteral("Alle Planbilder in einem PNG."), QStringLiteral("datei"));
    const QCommandLineOption zustaendeOpt(
        QStringLiteral("zustaende"), QStringLiteral("Je Element Plan-, Markierungs-, Monitor- und Zustandsbilder."),
        QStringLiteral("datei"));
    const QCommandLineOption planOpt(QStringLiteral("beispielplan"),
                                     QStringLiteral("Ein kleiner Gleisplan aus den Bildern."), QStringLiteral("datei"));
    const QCommandLineOption massstabOpt(QStringLiteral("massstab"),
                                         QStringLiteral("Vergrößerung der PNGs (1..8)."), QStringLiteral("n"),
                                         QStringLiteral("1"));
    const QCommandLineOption tabelleOpt(QStringLiteral("tabelle"),
                                        QStringLiteral("Die Elementtabelle für data/KT_Conf/README.md ausgeben."));
    parser.addOptions({uebersichtOpt, zustaendeOpt, planOpt, massstabOpt, tabelleOpt});
    parser.process(app);

    const QStringList ordner = parser.positionalArguments();
    const int massstab = parser.value(massstabOpt).toInt();
    if (ordner.size() > 1 || massstab < 1 || massstab > 8) {
        parser.showHelp(2);
    }
    if (parser.isSet(tabelleOpt)) {
        std::fputs(markdownTabelle().toUtf8().constData(), stdout);
        if (ordner.isEmpty())
            return 0;
    }
    const bool nurBoegen = parser.isSet(uebersichtOpt) || parser.isSet(zustaendeOpt) || parser.isSet(planOpt);
    if (ordner.isEmpty() && !nurBoegen)
        parser.showHelp(2);

    if (!ordner.isEmpty()) {
        QString fehler;
        const QStringList geschrieben = allesSchreiben(ordner.front(), fehler);
        if (geschrieben.isEmpty()) {
            std::fprintf(stderr, "%s\n", qPrintable(fehler));
            return 1;
        }
        fremdeMelden(ordner.front(), geschrieben);
        std::printf("%lld Dateien in %s geschrieben\n", static_cast<long long>(geschrieben.size()),
                    qPrintable(QDir::toNativeSeparators(ordner.front())));
    }
    bool gut = true;
    if (parser.isSet(uebersichtOpt))
        gut = speichern(uebersicht(massstab), parser.value(uebersichtOpt)) && gut;
    if (parser.isSet(zustaendeOpt))
        gut = speichern(zustandsBogen(massstab), parser.value(zustaendeOpt)) && gut;
    if (parser.isSet(planOpt))
        gut = speichern(beispielplan(massstab), parser.value(planOpt)) && gut;
    return gut ? 0 : 1;
}
