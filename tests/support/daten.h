#pragma once
// Small helpers shared by the logic tests.

#include <QByteArray>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace planor::test {

// Bytes written as numbers, as a message is read off the wire.
inline QByteArray bytes(std::initializer_list<int> werte)
{
    QByteArray b;
    for (int w : werte)
        b.append(static_cast<char>(w));
    return b;
}

// Bytes from a hex dump such as "E5 0F 05".
inline QByteArray hex(const char* text) { return QByteArray::fromHex(QByteArray(text)); }

// A message as upper-case hex bytes, so that a failing test shows it readably.
inline std::string h(const QByteArray& bytes) { return bytes.toHex(' ').toUpper().toStdString(); }

// A whole file; a file that cannot be read fails the test.
inline QByteArray datei(const QString& pfad)
{
    QFile f(pfad);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << qPrintable(pfad);
    return f.readAll();
}

}  // namespace planor::test
