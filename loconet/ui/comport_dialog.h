#pragma once
// The forms ComPortForm and Erststart. The logic is in
// loconet/comport_form.h; these classes bind the widgets, named as the form
// state names the controls, to it. Both hold the same connection
// frame (VerbindungsDialog); they differ in their buttons.

#include "loconet/comport_form.h"

#include <QDialog>

#include <array>
#include <functional>

class QButtonGroup;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace planor {

struct Einstellungen;

// The forms' results: open, confirmed, cancelled (Erststart: "Ende").
inline constexpr int ComPortOffen = 0;
inline constexpr int ComPortOK = 1;
inline constexpr int ComPortAbbruch = 2;

class VerbindungsDialog : public QDialog {
    Q_OBJECT

public:
    // 0 while open, 1 after OK, 2 after cancel (also Escape and closing the
    // window).
    int Ergebnis() const { return ergebnis_; }
    const ComPort_Form& form() const { return form_; }

    // The system's ports, for the device list and the USB search.
    std::function<QList<PortEintrag>()> portsListen = SystemPorts;

    void reject() override;

protected:
    VerbindungsDialog(Einstellungen& einstellungen, ComPortUmgebung umgebung, const QString& titel,
                      const QString& rahmenTitel, QWidget* parent);

    // The buttons under the frame, right-aligned, in the order added.
    QPushButton* knopf(const QString& text, const char* name);
    // Erststart's USB_But, placed in the frame.
    void usbKnopfEinbauen(QPushButton* knopf);
    void showEvent(QShowEvent* ereignis) override;
    void formAnzeigen();

    ComPort_Form form_;
    QPushButton* OK_But;
    QPushButton* USB_But = nullptr;  // Erststart only

private:
    void geraeteListeFuellen();
    void pruefungAnzeigen();
    void okGedrueckt();

    Einstellungen& einstellungen_;
    ComPortUmgebung umgebung_;
    QString titel_;
    int ergebnis_ = ComPortOffen;

    QGroupBox* rahmen_;
    std::array<QRadioButton*, IntOptAnz> IntOpt{};
    QButtonGroup* IntOptGruppe;
    QLabel* ComPortNr_Lbl;
    QLineEdit* ComPortNr_Txt;
    QComboBox* Geraet_Combo;
    QLineEdit* Host_Txt;
    QLineEdit* TcpPort_Txt;
    QGridLayout* gitter_;
    QHBoxLayout* knoepfe_;
};

// ComPortForm, title "ComPort Einstellungen": OK_But and Abbruch_Cmd.
class ComPortForm final : public VerbindungsDialog {
    Q_OBJECT

public:
    ComPortForm(Einstellungen& einstellungen, ComPortUmgebung umgebung, QWidget* parent = nullptr);

private:
    QPushButton* Abbruch_Cmd;
};

// Erststart, the form of the first start: USB_But, OK_But and End_But.
// Its cancel is "Ende", which ends the program.
class Erststart final : public VerbindungsDialog {
    Q_OBJECT

public:
    Erststart(Einstellungen& einstellungen, ComPortUmgebung umgebung, QWidget* parent = nullptr);

private:
    void usbSuchen();

    QPushButton* End_But;
};

// ComPortNummer_aendern's and the first start's way to the forms: shown
// modally over `parent`, the result as Ergebnis() gives it.
int ComPortFormZeigen(Einstellungen& einstellungen, const ComPortUmgebung& umgebung, QWidget* parent);
int ErststartZeigen(Einstellungen& einstellungen, const ComPortUmgebung& umgebung, QWidget* parent);

}  // namespace planor
