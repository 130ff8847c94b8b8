#pragma once
// The splash form Start_Form with InfoLbl and StartBut.

#include <QDialog>

class QLabel;
class QPushButton;

namespace planor {

class Start_Form : public QDialog {
    Q_OBJECT

public:
    explicit Start_Form(QWidget* parent = nullptr);

    // Shows the form and waits until the user presses StartBut. Closing the
    // window counts as StartBut, its only button.
    void warteAufStart();

private:
    QLabel* InfoLbl;
    QPushButton* StartBut;
};

}  // namespace planor
