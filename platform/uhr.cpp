#include "platform/uhr.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace planor {

namespace {

qint64 monotonNs()
{
    static QElapsedTimer uhr = [] {
        QElapsedTimer u;
        u.start();
        return u;
    }();
    return uhr.nsecsElapsed();
}

}  // namespace

SystemUhr::SystemUhr() : start_(monotonNs()) {}

double SystemUhr::sekunden() const
{
    return double(monotonNs() - start_) / 1e9;
}

void SystemUhr::nach(double sekunden, std::function<void()> aufgabe)
{
    QTimer::singleShot(int(std::ceil(sekunden * 1000)), QCoreApplication::instance(), std::move(aufgabe));
}

bool SystemUhr::warten(double hoechstens, const std::function<bool()>& fertig)
{
    const double ende = sekunden() + hoechstens;
    // A timer wakes the loop at the end; between events the thread sleeps.
    QTimer wecker;
    wecker.setSingleShot(true);
    wecker.setTimerType(Qt::PreciseTimer);
    wecker.start(int(std::ceil(hoechstens * 1000)));
    while (true) {
        if (fertig())
            return true;
        if (sekunden() >= ende)
            return false;
        // A timer may fire a little early; without it the loop would sleep
        // until some other event.
        if (!wecker.isActive())
            wecker.start(std::max(1, int(std::ceil((ende - sekunden()) * 1000))));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
    }
}

void TestUhr::nach(double sekunden, std::function<void()> aufgabe)
{
    aufgaben_.emplace(zeit_ + std::max(0.0, sekunden), std::move(aufgabe));
}

void TestUhr::laufenBis(double bis)
{
    while (!aufgaben_.empty() && aufgaben_.begin()->first <= bis) {
        auto naechste = aufgaben_.begin();
        zeit_ = std::max(zeit_, naechste->first);
        auto aufgabe = std::move(naechste->second);
        aufgaben_.erase(naechste);
        aufgabe();
    }
    zeit_ = std::max(zeit_, bis);
}

void TestUhr::weiter(qint64 millisekunden)
{
    laufenBis(zeit_ + double(millisekunden) / 1000);
}

bool TestUhr::warten(double hoechstens, const std::function<bool()>& fertig)
{
    const double ende = zeit_ + hoechstens;
    while (true) {
        // Events that are already due (queued signals, zero timers) first.
        if (QCoreApplication::instance())
            QCoreApplication::processEvents();
        if (fertig())
            return true;
        if (zeit_ >= ende)
            return false;
        // Nothing happens before the next task: time jumps there.
        const double naechste = aufgaben_.empty() ? ende : std::min(ende, aufgaben_.begin()->first);
        laufenBis(naechste);
    }
}

}  // namespace planor
