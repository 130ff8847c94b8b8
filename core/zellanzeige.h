#pragma once
// What the procedures on the records need of the panel's display: a cell's
// text and picture are to be drawn again (SetzeText); and of the editor.

namespace planor {

class Zellanzeige {
public:
    virtual ~Zellanzeige() = default;
    virtual void SetzeText(int x, int y) = 0;
};

// What reading a project needs of the panel editor: a catalogue element put
// into a cell as the user's click puts it there (index 1, the eraser, deletes
// the cell with its side file), and cells drawn again.
class Pultzellen : public Zellanzeige {
public:
    virtual void elementSetzen(int x, int y, int index) = 0;
};

}  // namespace planor
