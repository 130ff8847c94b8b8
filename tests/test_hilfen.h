#pragma once
// Small helpers shared by the logic tests.

#include <QByteArray>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>

#include <initializer_list>

namespace planor::test {

// Bytes written as numbers, as the spec writes messages.
inline QByteArray bytes(std::initializer_list<int> werte)
{
    QByteArray b;
    for (int w : werte)
        b.append(static_cast<char>(w));
    return b;
}

// A whole file; a file that cannot be read fails the test.
inline QByteArray datei(const QString& pfad)
{
    QFile f(pfad);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << qPrintable(pfad);
    return f.readAll();
}

}  // namespace planor::test
