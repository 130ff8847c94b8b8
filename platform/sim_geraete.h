#pragma once
// What stands on the simulated bus besides the program: the LNCV modules
// (sim_modul.h), and the command station with its accessories, feedback
// inputs and the text interface. It listens to every message on
// the bus and answers as the real devices do:
//
// - LNCV requests go to the modules (answers after the reaction time).
// - OPC_SW_REQ (0xB0) sets an accessory (bit 5 of byte 2: 1 green, 0 red);
//   OPC_SW_STATE (0xBC) is answered by B4 3C 30 (green) or B4 3C 50 (red).
//   An accessory never switched reads green.
// - OPC_INPUT_REP (0xB2) is noted as the input's level; `rueckmelden` sends one.
// - 0xE4: `zugMelden` sends a train report (receiver = (b3 AND 31) × 128 + b4,
//   locomotive = b5 × 128 + b6, category (b2 AND 3) + 1); a receiver query
//   (Ask_Navik: E4 08 01, b3 AND 0x60 = 0x20, b5 = b6 = 0) is answered with
//   the receiver's last report, or not at all before its first. A train
//   report put on the bus by another party counts as the receiver's too.
// - A command-station text line starting with "x" ("xB19200", "x&LN$55AA")
//   is answered to its sender alone with "[OK]".
// Messages with a wrong checksum are ignored, as real receivers ignore them.

#include "core/vb_zahlen.h"
#include "platform/sim_modul.h"
#include "platform/sim_zustand.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <map>
#include <memory>
#include <vector>

namespace planor {

class SimBus;

// The 0xE4 train report. `richtung`: 0 none, 1 from S1 to S2, 2 from S2 to S1.
QByteArray ZugMeldung(Long empfaenger, Long lok, int kategorie = 1, int richtung = 0);

class SimGeraete : public QObject {
    Q_OBJECT

public:
    explicit SimGeraete(SimBus& bus, QObject* parent = nullptr);
    // Saves a pending change of the state file.
    ~SimGeraete() override;

    // A module by article and address; an existing one with the same article
    // and creation address is returned as it is.
    SimModul& modulHinzufuegen(Long artikel, Long adresse, int version = -1);
    // The module of the article whose LNCV 0 is `adresse`, or null.
    SimModul* modul(Long artikel, Long adresse) const;
    const std::vector<std::unique_ptr<SimModul>>& module() const { return module_; }

    // Accessories 1..2048: 1 green, 0 red.
    int weiche(Long adresse) const;
    void setzeWeiche(Long adresse, int stellung);

    // Sends OPC_INPUT_REP for input `adresse` at `pegel` 0 or 1.
    void rueckmelden(Long adresse, int pegel);
    // The last level of the input seen on the bus; -1 when none was.
    int rueckmelder(Long adresse) const;

    // Sends a train report of receiver `empfaenger` and keeps it as its last.
    void zugMelden(Long empfaenger, Long lok, int kategorie = 1, int richtung = 0);
    QByteArray letzteMeldung(Long empfaenger) const;

    // The state file: modules and accessories. A file set here is saved half
    // a second after each change and when the devices go.
    SimZustand zustand() const;
    void zustandUebernehmen(const SimZustand& zustand);
    void setzeZustandsdatei(const QString& pfad) { zustandsdatei_ = pfad; }
    // A missing file is a fresh start, not an error.
    bool zustandLaden(QString& fehler);
    bool zustandSpeichern(QString& fehler);

    int empfangeneNachrichten() const { return empfangen_; }

signals:
    // A value or an accessory changed.
    void geaendert();
    void speicherFehler(const QString& text);

private:
    void nachricht(const QByteArray& m);
    void textZeile(int teilnehmer, const QByteArray& zeile);
    void aenderung();

    QPointer<SimBus> bus_;
    int teilnehmer_ = 0;
    std::vector<std::unique_ptr<SimModul>> module_;
    std::map<Long, int> weichen_;
    std::map<Long, int> rueckmelder_;
    std::map<Long, QByteArray> meldungen_;
    QString zustandsdatei_;
    bool ungespeichert_ = false;
    bool speichernGeplant_ = false;
    int empfangen_ = 0;
};

}  // namespace planor
