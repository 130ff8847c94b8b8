#pragma once
// Every text file Planor reads or writes is Windows-1252 with CR LF line
// ends. Readers accept CR LF, CR or LF alone and a last
// line without an end; writers always end lines with CR LF.

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace planor::ansi {

// Windows-1252 bytes to text. The five bytes the code page leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) become the code points of the same value,
// so that every byte survives a round trip.
QString decode(const QByteArray& bytes);

// Text to Windows-1252 bytes; a character the code page cannot hold becomes
// "?", so that files stay readable by programs that expect the code page.
QByteArray encode(const QString& text);

// The lines of a file's bytes, without their ends.
QStringList zeilen(const QByteArray& bytes);

// Builds a text file line by line.
class Schreiber {
public:
    Schreiber& zeile(const QString& text);
    // Text without a line end (a value table that ends in "; ").
    Schreiber& text(const QString& text);
    const QByteArray& bytes() const { return bytes_; }

private:
    QByteArray bytes_;
};

}  // namespace planor::ansi
