#include "platform/sim_stoerung.h"

namespace planor {

bool SimStoerung::trifft(int& naechste, double wahrscheinlichkeit)
{
    if (naechste > 0) {
        --naechste;
        return true;
    }
    // No draw without a probability, so that switching one fault on does not
    // change the sequence of another's.
    return wahrscheinlichkeit > 0 && zufall_.generateDouble() < wahrscheinlichkeit;
}

SimStoerung::Urteil SimStoerung::beurteilen(QByteArray& nachricht, bool vonGeraet)
{
    Urteil u;
    SimStoerungen& e = einstellungen;
    if (e.nurGeraete && !vonGeraet)
        return u;
    if (trifft(e.naechsteVerwerfen, e.verwerfen)) {
        ++verworfen;
        u.verwerfen = true;
        return u;
    }
    if (nachricht.size() > 1 && trifft(e.naechsteVerfaelschen, e.verfaelschen)) {
        // A data byte or the checksum, never the opcode, and bit 7 stays
        // clear: the message keeps its frame, only its checksum fails.
        const int stelle = 1 + int(zufall_.bounded(quint32(nachricht.size() - 1)));
        const quint8 maske = quint8(1 + zufall_.bounded(127u));
        nachricht[stelle] = char(quint8(nachricht.at(stelle)) ^ maske);
        ++verfaelscht;
    }
    if (trifft(e.naechsteVerzoegern, e.verzoegern)) {
        u.verzoegerung = e.verzoegerung;
        ++verzoegert;
    }
    if (trifft(e.naechsteVerdoppeln, e.verdoppeln)) {
        u.verdoppeln = true;
        ++verdoppelt;
    }
    return u;
}

}  // namespace planor
