#pragma once
// The test scaffold of the bus: records what goes out, injects replies at
// virtual times, optionally echoes every message as a real bus does, and
// lets CTS be held low.

#include "platform/transport.h"
#include "platform/uhr.h"

#include <functional>
#include <vector>

namespace planor::test {

class GeruestTransport final : public Transport {
public:
    explicit GeruestTransport(Uhr& uhr) : uhr_(uhr) {}

    bool oeffnen(QString&) override
    {
        protokollieren(QStringLiteral("oeffnen"));
        offen = true;
        return true;
    }
    void schliessen() override
    {
        protokollieren(QStringLiteral("schliessen"));
        offen = false;
    }
    bool istOffen() const override { return offen; }
    bool ausgangLeer() const override { return leer; }
    bool cts() const override { return ctsHoch; }
    void setzeBreak(bool an) override
    {
        protokollieren(an ? QStringLiteral("break an") : QStringLiteral("break aus"));
        breaks.push_back(an);
    }
    bool setzeParameter(const QString& text) override
    {
        protokollieren(QStringLiteral("parameter ") + text);
        return true;
    }
    void setzeLeitungen(bool dtr, bool rts) override
    {
        protokollieren(QStringLiteral("dtr %1 rts %2").arg(int(dtr)).arg(int(rts)));
    }
    void eingangVerwerfen() override
    {
        protokollieren(QStringLiteral("eingang verwerfen"));
        ++verworfen;
    }

    bool schreiben(const QByteArray& bytes) override
    {
        if (!offen)
            return false;
        protokollieren(QStringLiteral("schreiben ") + QString::fromLatin1(bytes.toHex(' ').toUpper()));
        gesendet += bytes;
        if (echo)
            uhr_.nach(0, [this, bytes] { emit empfangen(bytes); });
        if (antwort)
            antwort(bytes);
        return true;
    }

    // Delivers bytes `sekunden` from now (virtual time).
    void senden(const QByteArray& bytes, double sekunden = 0)
    {
        uhr_.nach(sekunden, [this, bytes] { emit empfangen(bytes); });
    }

    bool offen = true;
    bool leer = true;  // everything written has gone out
    bool ctsHoch = true;
    bool echo = false;
    int verworfen = 0;
    QByteArray gesendet;
    std::vector<bool> breaks;
    // Called for each write: the test's module answers here.
    std::function<void(const QByteArray&)> antwort;
    // What was done to the transport, in order, with the virtual time.
    struct Schritt {
        double zeit;
        QString was;
    };
    std::vector<Schritt> protokoll;

private:
    void protokollieren(const QString& was) { protokoll.push_back({uhr_.sekunden(), was}); }

    Uhr& uhr_;
};

}  // namespace planor::test

// open_com over the in-process simulator's transport, counted; `scheitern`
// makes it fail as a port that cannot be opened.
#include "loconet/link.h"
#include "loconet/verbindung.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"

namespace planor::test {

class SimVerbindung final : public LocoNetVerbindung {
public:
    SimVerbindung(Simulator& sim, LocoNetLink& link) : sim_(sim), link_(link) {}
    void open_com(Long& err) override
    {
        ++geoeffnet;
        err = 0;
        if (scheitern) {
            err = 8002;
            return;
        }
        if (link_.istOffen())
            return;
        link_.setzeTransport(sim_.transport());
        QString fehler;
        if (!link_.transport()->oeffnen(fehler))
            err = 8002;
    }
    bool istOffen() const override { return link_.istOffen(); }

    int geoeffnet = 0;
    bool scheitern = false;

private:
    Simulator& sim_;
    LocoNetLink& link_;
};

}  // namespace planor::test
