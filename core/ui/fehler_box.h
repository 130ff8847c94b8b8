#pragma once
// The GUI's way of showing an error report: a message box with the critical
// icon.

#include "core/fehlerbehandlung.h"

namespace planor {

class FehlerBox final : public FehlerAnzeige {
public:
    void zeigen(const QString& titel, const QString& text) override;
};

}  // namespace planor
