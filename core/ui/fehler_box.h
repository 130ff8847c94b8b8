#pragma once
// The GUI's way of showing an error report: a message box with the critical
// icon (Conventions "Failures").

#include "core/fehlerbehandlung.h"

namespace planor {

class FehlerBox final : public FehlerAnzeige {
public:
    void zeigen(const QString& titel, const QString& text) override;
};

}  // namespace planor
