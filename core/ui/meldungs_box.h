#pragma once
// The GUI's messages: a message box with the icon the procedure asks for.

#include "core/benutzer.h"

class QWidget;

namespace planor {

class MeldungsBox final : public Benutzer {
public:
    explicit MeldungsBox(QWidget* eltern = nullptr) : eltern_(eltern) {}
    void meldung(const QString& titel, const QString& text, Symbol symbol) override;

private:
    QWidget* eltern_;
};

}  // namespace planor
