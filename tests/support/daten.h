#pragma once
// Small helpers shared by the logic tests.

#include "core/laufzeitfehler.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>

// Readable texts in failure messages.
inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }
inline void PrintTo(const QStringList& l, std::ostream* os) { *os << '{' << l.join(QStringLiteral("; ")).toStdString() << '}'; }

// The statement must fail with the program's runtime error `nr`.
#define EXPECT_LAUFZEITFEHLER(nr, stmt)                                                        \
    do {                                                                                       \
        try {                                                                                  \
            stmt;                                                                              \
            ADD_FAILURE() << #stmt " ended without runtime error " << (nr);                    \
        } catch (const ::planor::Laufzeitfehler& fehler_) {                                    \
            EXPECT_EQ(fehler_.nummer(), (nr)) << #stmt;                                        \
        }                                                                                      \
    } while (0)

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

#ifdef PLANOR_TESTDATA
// A file of tests/data, by its path below that folder.
inline QString testdaten(const QString& name) { return QStringLiteral(PLANOR_TESTDATA "/") + name; }
inline QByteArray golden(const QString& name) { return datei(testdaten(name)); }
#endif

// A template, so that the widget tests' own writer (gui.h) takes precedence.
template <typename = void>
void schreiben(const QString& pfad, const QByteArray& bytes)
{
    QFile f(pfad);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly)) << qPrintable(pfad);
    f.write(bytes);
}

}  // namespace planor::test
