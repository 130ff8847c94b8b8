#pragma once
// Time is read through this clock only, so that tests run on a clock of their
// own (dates in logs and files, time limits of the bus exchanges).

#include <QDateTime>

namespace planor {

class Uhr {
public:
    virtual ~Uhr() = default;
    virtual QDateTime jetzt() const = 0;
};

// The computer's local time.
class SystemUhr final : public Uhr {
public:
    QDateTime jetzt() const override { return QDateTime::currentDateTime(); }
};

// A clock that stands still until it is set or moved on.
class TestUhr final : public Uhr {
public:
    explicit TestUhr(QDateTime start) : zeit_(std::move(start)) {}
    QDateTime jetzt() const override { return zeit_; }
    void setzen(const QDateTime& zeit) { zeit_ = zeit; }
    void weiter(qint64 millisekunden) { zeit_ = zeit_.addMSecs(millisekunden); }

private:
    QDateTime zeit_;
};

}  // namespace planor
