#pragma once
// What the procedures on the records need of the panel's display: a cell's
// text and picture are to be drawn again (SetzeText).

namespace planor {

class Zellanzeige {
public:
    virtual ~Zellanzeige() = default;
    virtual void SetzeText(int x, int y) = 0;
};

}  // namespace planor
