#pragma once
// The messages a procedure of the link would have shown, recorded as
// "title|text" with their icons.

#include "core/benutzer.h"

#include <QStringList>

#include <vector>

namespace planor::test {

struct Meldungen final : Benutzer {
    void meldung(const QString& titel, const QString& text, Symbol symbol) override
    {
        texte << titel + u'|' + text;
        symbole.push_back(symbol);
    }
    QStringList texte;
    std::vector<Symbol> symbole;
};

}  // namespace planor::test
