#pragma once
// PultFehlMeldung_Form, the failure prompt of the bulk operations.
// Its three EXIT_But buttons give the answer (the form's tag); closing the
// window counts as "Abbruch".

#include "programmierung/programmierung.h"

#include <QDialog>

#include <array>

class QLabel;
class QPushButton;

namespace planor {

class PultFehlMeldung_Form : public QDialog {
    Q_OBJECT

public:
    explicit PultFehlMeldung_Form(const QString& titel, QWidget* parent = nullptr);

    // The tag: Offen until a button was pressed or the window closed.
    FehlerAntwort Antwort() const { return antwort_; }

    // Escape and the window's close button.
    void reject() override;

    std::array<QPushButton*, 3> EXIT_But{};

private:
    void EXIT_But_Click(int index);

    FehlerAntwort antwort_ = FehlerAntwort::Offen;
};

// Shows the form modal (serving events) and returns the answer.
FehlerAntwort PultFehlMeldungZeigen(const QString& titel, QWidget* parent);

}  // namespace planor
