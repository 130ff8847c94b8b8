#include "core/settings_file.h"

#include "core/ansi_text.h"
#include "core/laufzeitfehler.h"
#include "core/version.h"

#include <QFile>
#include <QSaveFile>

#include <cfloat>
#include <cmath>

namespace planor {

namespace {

// A line is "Key:", value printed with a comma: the value starts in the next
// print zone of 14 columns, strictly behind the key.
QString zone(const QString& schluessel)
{
    constexpr int Zonenbreite = 14;
    const qsizetype breite = (schluessel.size() / Zonenbreite + 1) * Zonenbreite;
    return schluessel.leftJustified(breite, u' ');
}

// A number written blank-padded: its sign or leading blank and a trailing blank.
QString zahl(long long wert) { return Str(wert) + u' '; }

QString flag(bool wert) { return zahl(wert ? -1 : 0); }

// A Single: fractional values are cut to whole numbers when written.
QString geometrie(double twips) { return zahl(static_cast<long long>(std::trunc(twips))); }

// An unknown kind (a file of a later version) falls back to the serial port.
Verbindungsart VerbindungsartAusZahl(Integer zahl)
{
    switch (zahl) {
    case static_cast<Integer>(Verbindungsart::LbServer):
        return Verbindungsart::LbServer;
    case static_cast<Integer>(Verbindungsart::Simulation):
        return Verbindungsart::Simulation;
    default:
        return Verbindungsart::Seriell;
    }
}

double Single(double wert)
{
    if (std::fabs(wert) > FLT_MAX)
        throw Laufzeitfehler(Fehlernummer::Ueberlauf);
    return wert;
}

}  // namespace

void LiesEinstellungen(const QByteArray& bytes, Einstellungen& e)
{
    for (const QString& zeile : ansi::zeilen(bytes)) {
        if (zeile.isEmpty() || zeile.front() == u';' || zeile.front() == u'/')
            continue;
        // Only the first colon separates: a path keeps its drive colon.
        const qsizetype doppelpunkt = zeile.indexOf(u':');
        if (doppelpunkt < 0)
            continue;
        const QString schluessel = zeile.left(doppelpunkt).trimmed();
        const QString wert = zeile.mid(doppelpunkt + 1);

        if (schluessel == u"ComPort")
            e.ComPort = CInt(Val(wert));
        else if (schluessel == u"LocoNetInterface")
            e.LocoNetInterface = Val(wert) != 0;
        else if (schluessel == u"USBInterface")
            e.USBInterface = Val(wert) != 0;
        else if (schluessel == u"StartHilfe")
            e.StartHilfe = CInt(Val(wert));
        else if (schluessel == u"MainWinState")
            e.MainWinState = CInt(Val(wert));
        else if (schluessel == u"MainWinWidth")
            e.MainWinWidth = Single(Val(wert));
        else if (schluessel == u"MainWinHeight")
            e.MainWinHeight = Single(Val(wert));
        else if (schluessel == u"MainWinLeft")
            e.MainWinLeft = Single(Val(wert));
        else if (schluessel == u"MainWinTop")
            e.MainWinTop = Single(Val(wert));
        else if (schluessel == u"Pfad")
            e.Pfad = wert;
        else if (schluessel == u"File")
            e.File = wert;
        else if (schluessel == u"ComPortGeraet")
            e.ComPortGeraet = wert.trimmed();
        else if (schluessel == u"Verbindungsart")
            e.Verbindung = VerbindungsartAusZahl(CInt(Val(wert)));
        else if (schluessel == u"LbServerHost")
            e.LbServerHost = wert.trimmed();
        else if (schluessel == u"LbServerPort")
            e.LbServerPort = CLng(Val(wert));
    }
}

void FenstergeometrieUebernehmen(const Fensterlage& fenster, Einstellungen& e)
{
    const double fensterBreite = double(fenster.rahmen.width()) * TwipsJePixel;
    const double fensterHoehe = double(fenster.rahmen.height()) * TwipsJePixel;
    const double schirmBreite = double(fenster.bildschirm.width()) * TwipsJePixel;
    const double schirmHoehe = double(fenster.bildschirm.height()) * TwipsJePixel;

    switch (fenster.zustand) {
    case Fensterlage::Zustand::Normal:
        e.MainWinState = 0;
        e.MainWinWidth = std::floor(fensterBreite);
        e.MainWinHeight = std::floor(fensterHoehe);
        e.MainWinLeft = std::floor(double(fenster.rahmen.left()) * TwipsJePixel);
        e.MainWinTop = std::floor(double(fenster.rahmen.top()) * TwipsJePixel);
        break;
    case Fensterlage::Zustand::Minimiert:
        // A minimised window comes back as a window of a quarter of the screen.
        e.MainWinState = 0;
        e.MainWinWidth = std::floor(schirmBreite / 2);
        e.MainWinHeight = std::floor(schirmHoehe / 2);
        e.MainWinLeft = schirmBreite / 4;
        e.MainWinTop = schirmHoehe / 4;
        break;
    case Fensterlage::Zustand::Maximiert:
        e.MainWinState = 2;
        e.MainWinWidth = fensterBreite - 200;
        e.MainWinHeight = fensterHoehe - 200;
        e.MainWinLeft = 100;
        e.MainWinTop = 100;
        break;
    }
}

QByteArray SchreibEinstellungen(Einstellungen e, const Fensterlage& fenster, const QString& version,
                                const QDate& datum)
{
    FenstergeometrieUebernehmen(fenster, e);
    ansi::Schreiber datei;
    datei.zeile(QStringLiteral("// Konfigurationsfile von NAVIK/TOBRA-Planor Ver. ") + version + QStringLiteral(" am ")
                + datum.toString(QStringLiteral("dd.MM.yyyy")) + QStringLiteral(" //"));
    datei.zeile(QStringLiteral("ComPort: ") + zahl(e.ComPort));
    datei.zeile(zone(QStringLiteral("LocoNetInterface: ")) + flag(e.LocoNetInterface));
    datei.zeile(zone(QStringLiteral("USBInterface:")) + flag(e.USBInterface));
    datei.zeile(zone(QStringLiteral("StartHilfe:")) + zahl(e.StartHilfe));
    datei.zeile(QStringLiteral("MainWinState:") + zahl(e.MainWinState));
    datei.zeile(zone(QStringLiteral("MainWinWidth:")) + geometrie(e.MainWinWidth));
    datei.zeile(zone(QStringLiteral("MainWinHeight:")) + geometrie(e.MainWinHeight));
    datei.zeile(zone(QStringLiteral("MainWinLeft:")) + geometrie(e.MainWinLeft));
    datei.zeile(zone(QStringLiteral("MainWinTop:")) + geometrie(e.MainWinTop));
    datei.zeile(QStringLiteral("Pfad:") + e.Pfad);
    datei.zeile(QStringLiteral("File:") + e.File);

    // The extension keys, only where they differ from their defaults.
    if (!e.ComPortGeraet.isEmpty())
        datei.zeile(QStringLiteral("ComPortGeraet:") + e.ComPortGeraet);
    if (e.Verbindung != Verbindungsart::Seriell)
        datei.zeile(zone(QStringLiteral("Verbindungsart:")) + zahl(static_cast<Integer>(e.Verbindung)));
    if (e.LbServerHost != LbServerStandardHost)
        datei.zeile(QStringLiteral("LbServerHost:") + e.LbServerHost);
    if (e.LbServerPort != LbServerStandardPort)
        datei.zeile(zone(QStringLiteral("LbServerPort:")) + zahl(e.LbServerPort));
    return datei.bytes();
}

GespeicherteLage LageAusEinstellungen(const Einstellungen& e)
{
    auto pixel = [](double twips) -> std::optional<int> {
        if (twips > 0)
            return static_cast<int>(twips / TwipsJePixel);
        return std::nullopt;
    };
    return {pixel(e.MainWinLeft), pixel(e.MainWinTop), pixel(e.MainWinWidth), pixel(e.MainWinHeight),
            e.MainWinState == 2};
}

void Load_conf(const QString& datei, Einstellungen& einstellungen)
{
    QFile f(datei);
    if (!f.exists())
        throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden);
    if (!f.open(QIODevice::ReadOnly))
        throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
    LiesEinstellungen(f.readAll(), einstellungen);
}

void Save_conf(const QString& datei, const Einstellungen& einstellungen, const Fensterlage& fenster,
               const QDate& datum)
{
    // Through a temporary file: a crash or a full disk never destroys the old one.
    QSaveFile f(datei);
    if (!f.open(QIODevice::WriteOnly))
        throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
    f.write(SchreibEinstellungen(einstellungen, fenster, Version(), datum));
    if (!f.commit())
        throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
}

}  // namespace planor
