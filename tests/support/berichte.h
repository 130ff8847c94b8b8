#pragma once
// A test's own error-report environment: reports are collected instead of
// shown, Fehler.log goes to a temporary folder, the clock stands still.

#include "core/benutzer.h"
#include "core/fehlerbehandlung.h"
#include "platform/uhr.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

namespace planor::test {

struct GesammelteBerichte final : FehlerAnzeige {
    void zeigen(const QString& titel, const QString& text) override
    {
        titel_.push_back(titel);
        texte.push_back(text);
    }
    QStringList titel_;
    QStringList texte;
};

// The messages a procedure would have shown, recorded as "title|text" with
// their icons.
struct Meldungen final : Benutzer {
    void meldung(const QString& titel, const QString& text, Symbol symbol) override
    {
        texte << titel + u'|' + text;
        symbole.push_back(symbol);
    }
    QStringList texte;
    std::vector<Symbol> symbole;
};

class MitFehlerbericht : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(ordner.isValid());
        FehlerbehandlungEinrichten({logDatei(), &uhr, &berichte});
    }

    QString logDatei() const { return ordner.filePath(QStringLiteral("Fehler.log")); }

    QTemporaryDir ordner;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
    GesammelteBerichte berichte;
};

}  // namespace planor::test
