#include "core/ansi_text.h"

#include <array>

namespace planor::ansi {

namespace {

// Bytes 0x80..0x9F; the rest of the code page equals Latin-1.
constexpr std::array<char16_t, 32> Bereich80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char zuByte(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    for (std::size_t i = 0; i < Bereich80.size(); ++i)
        if (Bereich80[i] == c)
            return static_cast<char>(0x80 + i);
    return '?';
}

}  // namespace

QString decode(const QByteArray& bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto b = static_cast<unsigned char>(bytes.at(i));
        text[i] = QChar(b >= 0x80 && b < 0xA0 ? Bereich80[b - 0x80] : char16_t{b});
    }
    return text;
}

QByteArray encode(const QString& text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        bytes[i] = zuByte(text.at(i).unicode());
    return bytes;
}

QStringList zeilen(const QByteArray& bytes)
{
    QStringList ergebnis;
    qsizetype anfang = 0;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const char c = bytes.at(i);
        if (c != '\r' && c != '\n')
            continue;
        ergebnis << decode(bytes.mid(anfang, i - anfang));
        if (c == '\r' && i + 1 < bytes.size() && bytes.at(i + 1) == '\n')
            ++i;
        anfang = i + 1;
    }
    if (anfang < bytes.size())
        ergebnis << decode(bytes.mid(anfang));
    return ergebnis;
}

Schreiber& Schreiber::zeile(const QString& text)
{
    bytes_ += encode(text);
    bytes_ += "\r\n";
    return *this;
}

Schreiber& Schreiber::text(const QString& text)
{
    bytes_ += encode(text);
    return *this;
}

}  // namespace planor::ansi
