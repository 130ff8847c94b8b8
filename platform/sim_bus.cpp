#include "platform/sim_bus.h"

#include "platform/uhr.h"

#include <QPointer>

#include <algorithm>
#include <vector>

namespace planor {

SimBus::SimBus(Uhr& uhr, QObject* parent) : QObject(parent), uhr_(uhr) {}

SimBus::~SimBus() = default;

int SimBus::anschliessen(Empfaenger empfaenger)
{
    const int nummer = naechsteNummer_++;
    teilnehmer_[nummer].empfaenger = std::move(empfaenger);
    return nummer;
}

void SimBus::abtrennen(int teilnehmer)
{
    teilnehmer_.erase(teilnehmer);
}

void SimBus::schreiben(int teilnehmer, const QByteArray& bytes)
{
    auto t = teilnehmer_.find(teilnehmer);
    if (t == teilnehmer_.end())
        return;
    for (SimRahmen::Stueck& s : t->second.rahmen.bytes(bytes)) {
        if (s.text)
            emit textZeile(teilnehmer, s.bytes);
        else
            aufDenBus(std::move(s.bytes), false);
    }
}

void SimBus::antworten(const QByteArray& nachricht)
{
    QPointer<SimBus> selbst(this);
    uhr_.nach(zeiten.reaktion, [selbst, nachricht] {
        if (selbst)
            selbst->aufDenBus(nachricht, true);
    });
}

void SimBus::melden(const QByteArray& nachricht)
{
    aufDenBus(nachricht, true);
}

void SimBus::anTeilnehmer(int teilnehmer, const QByteArray& bytes)
{
    einplanen(uhr_.sekunden() + zeiten.reaktion, {teilnehmer, bytes});
}

void SimBus::aufDenBus(QByteArray nachricht, bool vonGeraet)
{
    const SimStoerung::Urteil u = stoerung.beurteilen(nachricht, vonGeraet);
    if (u.verwerfen)
        return;
    const int mal = u.verdoppeln ? 2 : 1;
    if (u.verzoegerung > 0) {
        QPointer<SimBus> selbst(this);
        uhr_.nach(u.verzoegerung, [selbst, nachricht, mal] {
            for (int i = 0; selbst && i < mal; ++i)
                selbst->aufDenDraht(nachricht);
        });
        return;
    }
    for (int i = 0; i < mal; ++i)
        aufDenDraht(nachricht);
}

void SimBus::aufDenDraht(const QByteArray& nachricht)
{
    const double jetzt = uhr_.sekunden();
    if (!zeiten.drahtzeit) {
        einplanen(jetzt, {-1, nachricht});
        return;
    }
    // One message at a time: a message waits until the one before is through.
    const double beginn = std::max(jetzt, drahtFreiAb_);
    drahtFreiAb_ = beginn + ByteZeit * double(nachricht.size());
    einplanen(drahtFreiAb_, {-1, nachricht});
}

void SimBus::einplanen(double zeitpunkt, Lieferung lieferung)
{
    faellig_.emplace(zeitpunkt, std::move(lieferung));
    wecken(zeitpunkt);
}

void SimBus::wecken(double zeitpunkt)
{
    ++geweckt_;
    QPointer<SimBus> selbst(this);
    uhr_.nach(std::max(0.0, zeitpunkt - uhr_.sekunden()), [selbst] {
        if (selbst)
            selbst->ausliefern();
    });
}

void SimBus::zustellen(int teilnehmer, const QByteArray& bytes)
{
    auto t = teilnehmer_.find(teilnehmer);
    if (t == teilnehmer_.end() || !t->second.empfaenger)
        return;
    // A copy: the party may leave the bus from inside its own call.
    const Empfaenger empfaenger = t->second.empfaenger;
    empfaenger(bytes);
}

void SimBus::ausliefern()
{
    // Each scheduled call delivers whatever is due, in order. A timer that
    // fires a little early (coarse timers may) leaves an entry without a
    // call of its own: then one more is scheduled.
    --geweckt_;
    const double jetzt = uhr_.sekunden() + 1e-9;
    while (!faellig_.empty() && faellig_.begin()->first <= jetzt) {
        Lieferung l = std::move(faellig_.begin()->second);
        faellig_.erase(faellig_.begin());
        if (l.ziel >= 0) {
            zustellen(l.ziel, l.bytes);
            continue;
        }
        emit nachricht(l.bytes);
        // A party may attach or leave while it is served: deliver to those
        // present now, and to each only while it is still there.
        std::vector<int> nummern;
        for (const auto& [nummer, t] : teilnehmer_)
            nummern.push_back(nummer);
        for (const int nummer : nummern)
            zustellen(nummer, l.bytes);
    }
    if (int(faellig_.size()) > geweckt_)
        wecken(faellig_.begin()->first);
}

}  // namespace planor
