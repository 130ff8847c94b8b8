#pragma once
// Fault injection for the simulated bus: a message can be dropped, delayed,
// corrupted (one byte changed) or duplicated, each with a probability or for
// the next N messages. Deterministic: the same seed and the same traffic give
// the same faults.

#include <QByteArray>
#include <QRandomGenerator>

namespace planor {

struct SimStoerungen {
    // Probabilities, 0 to 1.
    double verwerfen = 0;
    double verfaelschen = 0;
    double verdoppeln = 0;
    double verzoegern = 0;
    // How long a delayed message is held back, in seconds.
    double verzoegerung = 0.3;
    // The next N messages get the fault for sure (counted down as they do).
    int naechsteVerwerfen = 0;
    int naechsteVerfaelschen = 0;
    int naechsteVerdoppeln = 0;
    int naechsteVerzoegern = 0;
    // Only what the simulated devices send is hit, never the program's own messages.
    bool nurGeraete = false;
};

class SimStoerung {
public:
    explicit SimStoerung(quint32 saat = 1) : zufall_(saat) {}
    void saat(quint32 saat) { zufall_.seed(saat); }

    SimStoerungen einstellungen;

    struct Urteil {
        bool verwerfen = false;
        bool verdoppeln = false;
        double verzoegerung = 0;  // seconds
    };
    // Decides the fate of one message; a corruption is done in place.
    Urteil beurteilen(QByteArray& nachricht, bool vonGeraet);

    // What was done so far.
    int verworfen = 0, verfaelscht = 0, verdoppelt = 0, verzoegert = 0;

private:
    bool trifft(int& naechste, double wahrscheinlichkeit);

    QRandomGenerator zufall_;
};

}  // namespace planor
