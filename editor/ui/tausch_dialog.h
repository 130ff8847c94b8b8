#pragma once
// The dialog TauschForm over its form state.

#include <QDialog>

class QCheckBox;

namespace planor {

class Anlage;

class TauschForm : public QDialog {
    Q_OBJECT

public:
    TauschForm(Anlage& anlage, int x, int y, QWidget* parent = nullptr);

private:
    QCheckBox* TauschChk1;
    QCheckBox* TauschChk2;
    QCheckBox* TauschChk3;
};

// Shows TauschForm for the cell; true after OK (the values are then stored).
bool TauschFormZeigen(Anlage& anlage, int x, int y, QWidget* parent);

}  // namespace planor
