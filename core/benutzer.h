#pragma once
// The messages a procedure shows the user. The GUI shows message boxes; tests
// record what would have been shown. Procedures never reach for widgets.

#include <QString>

namespace planor {

enum class Symbol { Kritisch, Ausruf, Information };

class Benutzer {
public:
    virtual ~Benutzer() = default;
    // A message box with an OK button.
    virtual void meldung(const QString& titel, const QString& text, Symbol symbol) = 0;
};

}  // namespace planor
