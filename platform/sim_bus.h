#pragma once
// The built-in LocoNet simulator's bus. Every message written to it reaches
// every attached party, the writer included, as on a real bus that echoes.
// The wire is modelled: a message takes 0.6 ms a byte (16.66 kbit/s, ten bits
// a byte), messages go out one after the other, and a simulated device
// answers after a reaction time. Both can be switched off for fast tests.
// All timing runs through the injected clock (virtual time under TestUhr,
// timers under SystemUhr).

#include "platform/sim_rahmen.h"
#include "platform/sim_stoerung.h"

#include <QByteArray>
#include <QObject>

#include <functional>
#include <map>

namespace planor {

class Uhr;

struct SimZeiten {
    bool drahtzeit = true;    // 0.6 ms a byte on the wire
    double reaktion = 0.010;  // seconds from a message to a device's answer
};

class SimBus : public QObject {
    Q_OBJECT

public:
    static constexpr double ByteZeit = 0.0006;
    using Empfaenger = std::function<void(const QByteArray&)>;

    explicit SimBus(Uhr& uhr, QObject* parent = nullptr);
    ~SimBus() override;

    Uhr& uhr() const { return uhr_; }
    SimZeiten zeiten;
    SimStoerung stoerung;

    // A party on the bus: it gets every message, and the answers to its own
    // command-station text lines. Returns the party's number.
    int anschliessen(Empfaenger empfaenger);
    void abtrennen(int teilnehmer);

    // Bytes as a party's line delivers them; framed per party. Complete
    // messages go onto the bus, text lines are announced by `textZeile`.
    void schreiben(int teilnehmer, const QByteArray& bytes);

    // A simulated device's answer: on the bus after the reaction time.
    void antworten(const QByteArray& nachricht);
    // A simulated device's own message (a report, a feedback input): on the bus now.
    void melden(const QByteArray& nachricht);
    // Bytes for one party only, after the reaction time (a command station's text answer).
    void anTeilnehmer(int teilnehmer, const QByteArray& bytes);

signals:
    // Each message as it reaches the parties (after faults and wire time).
    void nachricht(const QByteArray& bytes);
    // A line of text from a party, for the command station.
    void textZeile(int teilnehmer, const QByteArray& zeile);

private:
    struct Teilnehmer {
        Empfaenger empfaenger;
        SimRahmen rahmen;
    };
    struct Lieferung {
        int ziel;  // a party, or -1: every party
        QByteArray bytes;
    };

    // A message enters the bus: faults first, then the wire.
    void aufDenBus(QByteArray nachricht, bool vonGeraet);
    void aufDenDraht(const QByteArray& nachricht);
    void einplanen(double zeitpunkt, Lieferung lieferung);
    void zustellen(int teilnehmer, const QByteArray& bytes);
    void wecken(double zeitpunkt);
    void ausliefern();

    Uhr& uhr_;
    std::map<int, Teilnehmer> teilnehmer_;
    int naechsteNummer_ = 1;
    double drahtFreiAb_ = 0;
    int geweckt_ = 0;  // scheduled calls of `ausliefern` not yet run
    // Deliveries by due time; equal times keep the order in which they came.
    std::multimap<double, Lieferung> faellig_;
};

}  // namespace planor
