#pragma once
// Time is read, waited on and scheduled through this clock only. The system
// clock waits by serving the event loop (no busy spinning); the test clock
// runs in virtual time, so that retries and time-outs are tested fast and
// deterministically.

#include <QDateTime>

#include <functional>
#include <map>

namespace planor {

class Uhr {
public:
    virtual ~Uhr() = default;

    // The wall clock: dates and times of day in files and logs.
    virtual QDateTime jetzt() const = 0;

    // A monotonic clock in seconds for time limits ("limit < now - t0").
    virtual double sekunden() const = 0;

    // Runs `aufgabe` once, `sekunden` from now, from the event loop.
    virtual void nach(double sekunden, std::function<void()> aufgabe) = 0;

    // Serves events until `fertig` holds or `hoechstens` seconds have passed;
    // true when `fertig` held. `fertig` is tested after every event.
    virtual bool warten(double hoechstens, const std::function<bool()>& fertig) = 0;

    // delay: waits that long, serving events.
    void delay(double sekunden) { warten(sekunden, [] { return false; }); }
};

// The computer's clocks; waits sleep in the event loop until an event comes.
class SystemUhr final : public Uhr {
public:
    SystemUhr();
    QDateTime jetzt() const override { return QDateTime::currentDateTime(); }
    double sekunden() const override;
    void nach(double sekunden, std::function<void()> aufgabe) override;
    bool warten(double hoechstens, const std::function<bool()>& fertig) override;

private:
    qint64 start_;
};

// Virtual time: it moves only when a wait has nothing left to do, and then
// jumps to the next scheduled task or to the end of the wait.
class TestUhr final : public Uhr {
public:
    explicit TestUhr(QDateTime start) : start_(std::move(start)) {}
    QDateTime jetzt() const override { return start_.addMSecs(qint64(zeit_ * 1000)); }
    double sekunden() const override { return zeit_; }
    void nach(double sekunden, std::function<void()> aufgabe) override;
    bool warten(double hoechstens, const std::function<bool()>& fertig) override;

    void setzen(const QDateTime& zeit)
    {
        start_ = zeit;
        zeit_ = 0;
    }
    // Moves virtual time on, running what falls due.
    void weiter(qint64 millisekunden);

private:
    // Runs the tasks due by `bis`; the clock then stands at `bis`.
    void laufenBis(double bis);

    QDateTime start_;
    double zeit_ = 0;
    std::multimap<double, std::function<void()>> aufgaben_;
};

}  // namespace planor
