#pragma once
// The simulator's tests: a clock in virtual time, a simulator on it and a
// party that records what reaches it, with the virtual time of arrival.

#include "platform/sim_bus.h"
#include "platform/simulator.h"
#include "platform/uhr.h"
#include "tests/support/daten.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace planor::test {

// What a party received, with the arrival time in seconds.
struct Ankunft {
    double zeit;
    QByteArray bytes;
};

struct SimUmgebung {
    SimUmgebung()
    {
        sim.bus().zeiten = {false, 0.0};
        teilnehmer = sim.bus().anschliessen([this](const QByteArray& b) { angekommen.push_back({uhr.sekunden(), b}); });
    }

    // Writes bytes as the program's line delivers them and lets `ms` pass.
    void schreiben(const QByteArray& bytes, qint64 ms = 100)
    {
        sim.bus().schreiben(teilnehmer, bytes);
        uhr.weiter(ms);
    }

    // The messages received after the first `ab`.
    std::vector<std::string> nachrichten(std::size_t ab = 0) const
    {
        std::vector<std::string> n;
        for (std::size_t i = ab; i < angekommen.size(); ++i)
            n.push_back(h(angekommen[i].bytes));
        return n;
    }

    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 0))};
    Simulator sim{uhr};
    int teilnehmer = 0;
    std::vector<Ankunft> angekommen;
};

class SimTest : public ::testing::Test, public SimUmgebung {};

}  // namespace planor::test
