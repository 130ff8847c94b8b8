#include "app/planor-cli/signale.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace planor::cli {

namespace {

int signalRohr[2] = {-1, -1};

void aufSignal(int)
{
    const char c = 1;
    [[maybe_unused]] const ssize_t n = ::write(signalRohr[1], &c, 1);
}

}  // namespace

bool signaleUmleiten(QObject* eltern)
{
    if (signalRohr[0] < 0 && ::pipe2(signalRohr, O_CLOEXEC | O_NONBLOCK) != 0)
        return false;
    struct sigaction sa {};
    sa.sa_handler = aufSignal;
    sigemptyset(&sa.sa_mask);
    sa.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &sa, nullptr);
    ::sigaction(SIGTERM, &sa, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    auto* melder = new QSocketNotifier(signalRohr[0], QSocketNotifier::Read, eltern);
    // The byte stays in the pipe: the notifier fires again until an event
    // loop that quit() can end is running (a signal during open_com's waits).
    QObject::connect(melder, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    return true;
}

}  // namespace planor::cli
