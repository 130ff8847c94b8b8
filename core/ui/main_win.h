#pragma once
// Part 1.1: the main form MainWin with its menu bar and the status lines
// InfoTxt1 and InfoTxt2. Menus and entries carry the spec's names as their
// objectName; control arrays as "Name(i)".

#include "core/exit_frage.h"

#include <QMainWindow>

#include <functional>

class QLabel;
class QMenu;

namespace planor {

class Anlage;
struct Einstellungen;

class MainWin : public QMainWindow, private ExitFrageUmgebung {
    Q_OBJECT

public:
    // The settings file is rewritten from `einstellungen` at every exit attempt.
    MainWin(Anlage& anlage, Einstellungen& einstellungen, QString settingsDatei, QWidget* parent = nullptr);

    // Part 1.1 step 4: the stored geometry of Part 1.3, then show.
    void zeigenMitGespeicherterLage();

    // Step 5 and neues_pult_setzen: the menus that only a project makes usable.
    void projektMenusFreigeben(bool frei);

    // Part 3.3: makes EditMode the current view.
    void ChangeEditMode();
    int EditMode = 1;

    // Overview: writes status line 1 or 2 and refreshes it.
    void InfoTxt_anzeigen(int feld, const QString& text);

    // Part 1.1: "Beenden" and closing the window go through ExitFrage.
    void ProgEndeMenu_Click();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // ExitFrage's dialogs.
    void Save_conf() override;
    Antwort frage(const QString& titel, const QString& text) override;
    std::optional<QString> speichernUnter() override;
    void Save_plt() override;

    QMenu* menu(const QString& name, const QString& titel);
    QAction* eintrag(QMenu* menu, const QString& name, const QString& text);
    void menusAnlegen();

    Anlage& anlage_;
    Einstellungen& einstellungen_;
    QString settingsDatei_;
    QLabel* InfoTxt1;
    QLabel* InfoTxt2;
    bool beenden_ = false;
};

}  // namespace planor
