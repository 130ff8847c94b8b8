#include "core/element_katalog.h"

#include "core/ansi_text.h"
#include "core/laufzeitfehler.h"
#include "core/panel_model.h"

#include <QFile>

namespace planor {

namespace {

// The fields of a file in the catalogue's comma-separated format:
// separated by commas and line ends, strings optionally quoted, blanks
// around unquoted fields dropped. Blank lines give no fields.
class Felder {
public:
    explicit Felder(const QString& text) : text_(text) {}

    bool amEnde()
    {
        ueberspringen();
        return pos_ >= text_.size();
    }

    QString text()
    {
        if (amEnde())
            throw Laufzeitfehler(Fehlernummer::EinlesenHinterDateiende);
        QString feld;
        if (text_.at(pos_) == u'"') {
            const qsizetype ende = text_.indexOf(u'"', pos_ + 1);
            const qsizetype stop = ende < 0 ? text_.size() : ende;
            feld = text_.mid(pos_ + 1, stop - pos_ - 1);
            pos_ = stop + 1;
            // What stands between the closing quote and the separator is dropped.
            while (pos_ < text_.size() && !istTrenner(text_.at(pos_)))
                ++pos_;
        } else {
            const qsizetype anfang = pos_;
            while (pos_ < text_.size() && !istTrenner(text_.at(pos_)))
                ++pos_;
            feld = text_.mid(anfang, pos_ - anfang).trimmed();
        }
        if (pos_ < text_.size() && text_.at(pos_) == u',')
            ++pos_;
        return feld;
    }

    Integer zahl()
    {
        const QString feld = text();
        bool ok = false;
        const double wert = feld.trimmed().toDouble(&ok);
        if (feld.trimmed().isEmpty())
            return 0;
        if (!ok)
            throw Laufzeitfehler(Fehlernummer::TypenUnvertraeglich);
        return CInt(wert);
    }

private:
    static bool istTrenner(QChar c) { return c == u',' || c == u'\r' || c == u'\n'; }

    void ueberspringen()
    {
        while (pos_ < text_.size()
               && (text_.at(pos_) == u'\r' || text_.at(pos_) == u'\n' || text_.at(pos_) == u' '
                   || text_.at(pos_) == u'\t'))
            ++pos_;
    }

    const QString& text_;
    qsizetype pos_ = 0;
};

Integer lncvAnzahl(int typ)
{
    if (typ >= 800 && typ <= 839)
        return 128;
    if (typ == 840 || typ == 841)
        return 460;
    return 0;
}

}  // namespace

void Elementkatalog::lesen(const QByteArray& bytes, Anlage& anlage)
{
    const QString text = ansi::decode(bytes);
    Felder felder(text);
    palette_.clear();
    int index = 0;
    while (!felder.amEnde()) {
        const QString bmp = felder.text();
        if (bmp == u"###")
            break;
        ElementTab_Typ& e = ElementTab(++index);
        e.Bmp = bmp;
        e.Name = felder.text();
        e.Typ = felder.zahl();
        e.Palette = felder.zahl();
        e.Familie = felder.zahl();
        e.TextAusrichtung = felder.zahl();
        e.BmpAusw = felder.text();
        e.LNCVAnz = lncvAnzahl(e.Typ);
        ElementAnz = static_cast<Integer>(index);
        if (e.Name == u"Leer") {
            LeerIndex = static_cast<Integer>(index);
            anlage.setzeLeerElement(LeerIndex);
        }
        if (e.Palette != 0)
            palette_.push_back(index);
    }
    familienBilden();
}

void Elementkatalog::familienBilden()
{
    for (int i = 1; i <= ElementAnz; ++i) {
        ElementTab_Typ& kopf = ElementTab(i);
        if (kopf.Palette != 1)
            continue;
        kopf.Drehung.fuellen(DrehungEnde);
        kopf.Drehung(0) = static_cast<Integer>(i);
        int stelle = 1;
        for (int j = 1; j <= ElementAnz; ++j)
            if (ElementTab(j).Familie == kopf.Typ)
                kopf.Drehung(stelle++) = static_cast<Integer>(j);
    }
}

int Elementkatalog::paletteZeilen() const
{
    const int anzahl = static_cast<int>(palette_.size());
    return anzahl / PaletteSpalten + (anzahl % PaletteSpalten != 0 ? 1 : 0);
}

int Elementkatalog::PaletteFeld(int spalte, int zeile) const
{
    const std::size_t stelle = static_cast<std::size_t>(zeile * PaletteSpalten + spalte);
    if (spalte < 0 || spalte >= PaletteSpalten || zeile < 0 || stelle >= palette_.size())
        return 0;
    return palette_[stelle];
}

int Elementkatalog::indexVonTyp(int typ) const
{
    for (int i = 0; i <= MaxElemente; ++i)
        if (ElementTab(i).Typ == typ)
            return i;
    return -1;
}

void Elemente_laden(const QString& datei, Elementkatalog& katalog, Anlage& anlage)
{
    QFile f(datei);
    if (!f.exists())
        throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden);
    if (!f.open(QIODevice::ReadOnly))
        throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
    katalog.lesen(f.readAll(), anlage);
}

}  // namespace planor
