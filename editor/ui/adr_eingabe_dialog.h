#pragma once
// The dialogs of the address view over their form state
// (editor/adr_eingabe.h): AdrEingabe and Adr12_Abfrage.

#include "editor/adr_eingabe.h"

#include <QDialog>

#include <array>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace planor {

class AdrEingabe : public QDialog {
    Q_OBJECT

public:
    AdrEingabe(AdrEingabe_Zustand zustand, Anlage& anlage, const Elementkatalog& katalog, Zellanzeige& anzeige,
        Benutzer& benutzer, int x, int y, QWidget* parent = nullptr);

    // What the last OK did (meaningful after the dialog was accepted).
    AdrEingabeErgebnis ergebnis() const { return ergebnis_; }

private:
    // The widgets show the form state: checks, OK, the input choice.
    void zeigen();
    void OK_But_Click();

    AdrEingabe_Zustand z_;
    std::array<QLabel*, 3> AdrLbl;
    std::array<QLineEdit*, 3> AdrTxt;
    QComboBox* ArtNrCb;
    std::array<QRadioButton*, 2> EingangOpt;
    QPushButton* OK_But;
    AdrEingabeErgebnis ergebnis_ = AdrEingabeErgebnis::Abgebrochen;
};

// AdrEingabe for cell (x, y), modal; Abgebrochen for a cell without addresses.
AdrEingabeErgebnis AdrEingabeZeigen(Anlage& anlage, const Elementkatalog& katalog, Zellanzeige& anzeige,
    Benutzer& benutzer, int x, int y, QWidget* parent);

// Adr12_Abfrage: "Welcher Adresswert soll zugewiesen werden?" with the buttons
// "Adresse 1", "Adresse 2" (Adr1_But, Adr2_But) and, for a signal with three
// addresses, "Adresse 3" (Adr3_But). The chosen number; 0 when closed.
int Adr12_AbfrageZeigen(int anzahl, QWidget* parent);

} // namespace planor
