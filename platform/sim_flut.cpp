#include "platform/sim_flut.h"

#include "loconet/nachricht.h"
#include "platform/sim_bus.h"

#include <initializer_list>

namespace planor {

namespace {

QByteArray nachricht(std::initializer_list<int> bytes)
{
    QByteArray n;
    for (const int b : bytes)
        n.append(char(b));
    return mitPruefsumme(n);
}

}  // namespace

const QList<QByteArray>& SimFlut::Runde()
{
    // Power, a switch, two feedback inputs, slot data, speed and direction
    // of its locomotive, a train report: the monitor's common texts.
    static const QList<QByteArray> runde = {
        nachricht({0x83}),
        nachricht({0xB0, 0x0A, 0x30}),
        nachricht({0xB2, 0x05, 0x10}),
        nachricht({0xE7, 0x0E, 0x10, 0x03, 0x05, 0x20, 0x21, 0x00, 0x00, 0x01, 0x03, 0x00, 0x00}),
        nachricht({0xA0, 0x10, 0x05}),
        nachricht({0xA1, 0x10, 0x30}),
        nachricht({0xE4, 0x08, 0x02, 0x41, 0x05, 0x00, 0x03}),
        nachricht({0xB2, 0x05, 0x00}),
    };
    return runde;
}

SimFlut::SimFlut(SimBus& bus, QObject* parent) : QObject(parent), bus_(bus)
{
    nachlegenZeit_.setSingleShot(true);
    nachlegenZeit_.setInterval(0);
    connect(&nachlegenZeit_, &QTimer::timeout, this, &SimFlut::nachlegen);
}

void SimFlut::starten()
{
    connect(&bus_, &SimBus::nachricht, this, &SimFlut::angekommen);
    nachlegen();
}

void SimFlut::angekommen(const QByteArray& nachricht)
{
    // Another party's message is no part of the flood.
    if (unterwegs_ > 0 && Runde().contains(nachricht))
        --unterwegs_;
    if (!nachlegenZeit_.isActive())
        nachlegenZeit_.start();
}

void SimFlut::nachlegen()
{
    while (unterwegs_ < Vorlauf) {
        ++unterwegs_;
        const QByteArray& n = Runde()[naechste_];
        naechste_ = (naechste_ + 1) % int(Runde().size());
        bus_.melden(n);
    }
}

}  // namespace planor
