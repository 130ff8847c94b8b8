#pragma once
// The dialog MagArtStatus over its form state. What OK does is the
// caller's (view 4 sends the state; the route editor builds a route command).

#include "editor/mag_art_status.h"

#include <QDialog>

class QRadioButton;

namespace planor {

class MagArtStatusForm : public QDialog {
    Q_OBJECT

public:
    MagArtStatusForm(const MagArtStatus_Zustand& zustand, QWidget* parent = nullptr);
    // The options as the user left them.
    const MagArtStatus_Zustand& zustand() const { return zustand_; }

private:
    MagArtStatus_Zustand zustand_;
    QRadioButton* StatOpt[2];
    QRadioButton* AdrOpt[3];
};

// Shows MagArtStatus; true after OK, with the user's choice in `zustand`.
bool MagArtStatusZeigen(MagArtStatus_Zustand& zustand, QWidget* parent);

}  // namespace planor
