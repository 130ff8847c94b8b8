#pragma once
// The one way every subsystem opens the link to the bus. Callers test
// `err`: 0 success, anything else no usable link (they give their own
// message or stop).

#include "core/vb_zahlen.h"

namespace planor {

class LocoNetVerbindung {
public:
    virtual ~LocoNetVerbindung() = default;
    virtual void open_com(Long& err) = 0;
    virtual bool istOffen() const = 0;
};

}  // namespace planor
