#pragma once
// The form Grundeinstellungen. The logic is in
// core/grundeinstellungen.h; this class binds the widgets, named as the form
// state names the controls, to it.

#include "core/grundeinstellungen.h"

#include <QDialog>

#include <array>

class QButtonGroup;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace planor {

class Anlage;

class Grundeinstellungen : public QDialog {
    Q_OBJECT

public:
    explicit Grundeinstellungen(Anlage& anlage, QWidget* parent = nullptr);

    // 0 while open, 1 after OK, 2 after cancel (also Escape and closing the
    // window).
    int GrundeinstErgebnis() const { return ergebnis_; }

    void reject() override;

protected:
    // Form_Activate: the fields are loaded anew each time the form shows.
    void showEvent(QShowEvent* ereignis) override;

private:
    QLineEdit* zahlenfeld(const char* name);
    void formAnzeigen();
    void pruefungenAnzeigen();
    void okGedrueckt();

    Anlage& anlage_;
    Grundeinstellungen_Form form_;
    int ergebnis_ = GrundeinstOffen;

    QLineEdit* FeldAnzX;
    QLineEdit* FeldAnzY;
    QLineEdit* Geschw_Txt;
    QLineEdit* AutomZeitTxt;
    QLineEdit* StartupZeitTxt;
    QLabel* FeldAnzX_Lbl;
    QLabel* FeldAnzY_Lbl;
    QLabel* Geschw_Lbl;
    QLabel* AutomZeit_Lbl;
    QLabel* StartupZeit_Lbl;
    QCheckBox* BlkStatChk;
    std::array<QCheckBox*, 3> AllgOptChk;
    std::array<QRadioButton*, SpurAnz> opSpur;
    QButtonGroup* opSpurGruppe;
    QPushButton* OK_But;
    QPushButton* Abbruch_But;
};

// Shows the form modally over `parent` and gives GrundeinstErgebnis: 1 after
// OK (the project holds the new values), 2 after cancel (nothing changed).
int GrundeinstellungenZeigen(Anlage& anlage, QWidget* parent);

}  // namespace planor
