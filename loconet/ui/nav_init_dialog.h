#pragma once
// The form Nav_Init, "Modul initialisieren". The logic is in
// loconet/nav_init.h; this dialog binds the widgets, named as the form state
// names the controls, to it. Closing the window is Abbruch_Cmd.

#include "loconet/nav_init.h"

#include <QDialog>

#include <array>
#include <functional>

class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace planor {

class NavInitDialog final : public QDialog, private NavInitAnzeige {
    Q_OBJECT

public:
    NavInitDialog(LocoNetVerbindung& verbindung, LocoNetLink& link, Benutzer& benutzer, QWidget* parent = nullptr);

    const NavInitForm& form() const { return form_; }
    // The "only one module?" question; a yes/no message box unless a test answers.
    std::function<bool(const QString& titel, const QString& text)> frage;

    void reject() override;

private:
    bool frageJaNein(const QString& titel, const QString& text) override;
    void beschaeftigt(bool ja) override;
    void fortschritt(double anteil, const QString& text) override;

    void OK_But_Click();
    void formAnzeigen();

    LocoNetVerbindung& verbindung_;
    LocoNetLink& link_;
    Benutzer& benutzer_;
    NavInitForm form_;

    QComboBox* ArtNrCb;
    QLineEdit* Adr_Txt1;
    QLineEdit* Adr_Txt2;
    QGroupBox* SensorFrame;
    std::array<QRadioButton*, 2> SenOpt{};
    QLabel* Label4;
    QFrame* ProzFrame;
    QProgressBar* ProzBalken;
    QLabel* ProzTxt;
    QPushButton* OK_But;
    QPushButton* Abbruch_Cmd;
};

// Shows Nav_Init modally; the port it opens stays open for the caller.
void NavInitZeigen(LocoNetVerbindung& verbindung, LocoNetLink& link, Benutzer& benutzer, QWidget* parent);

}  // namespace planor
