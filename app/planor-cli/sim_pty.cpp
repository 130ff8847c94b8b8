#include "app/planor-cli/sim_pty.h"

#include "platform/sim_bus.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace planor::cli {

SimPty::SimPty(SimBus& bus, QObject* parent) : QObject(parent), bus_(bus) {}

SimPty::~SimPty()
{
    if (teilnehmer_ != 0)
        bus_.abtrennen(teilnehmer_);
    delete melder_;
    if (master_ >= 0)
        ::close(master_);
    if (slave_ >= 0)
        ::close(slave_);
}

bool SimPty::oeffnen(QString& fehler)
{
    // Raw from the start: with the default line discipline the slave side
    // would echo what we write and turn CR into LF.
    termios roh{};
    ::cfmakeraw(&roh);
    ::cfsetispeed(&roh, B19200);
    ::cfsetospeed(&roh, B19200);
    if (::openpty(&master_, &slave_, nullptr, &roh, nullptr) != 0) {
        fehler = QStringLiteral("Das Pseudo-Terminal kann nicht angelegt werden: %1")
                     .arg(QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    ::fcntl(master_, F_SETFL, ::fcntl(master_, F_GETFL) | O_NONBLOCK);
    ::fcntl(master_, F_SETFD, FD_CLOEXEC);
    ::fcntl(slave_, F_SETFD, FD_CLOEXEC);
    pfad_ = QString::fromLocal8Bit(::ptsname(master_));
    melder_ = new QSocketNotifier(master_, QSocketNotifier::Read);
    connect(melder_, &QSocketNotifier::activated, this, &SimPty::lesen);
    teilnehmer_ = bus_.anschliessen([this](const QByteArray& bytes) { schreiben(bytes); });
    return true;
}

void SimPty::lesen()
{
    char puffer[512];
    while (true) {
        const ssize_t n = ::read(master_, puffer, sizeof puffer);
        if (n > 0) {
            bus_.schreiben(teilnehmer_, QByteArray(puffer, int(n)));
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        break;  // EAGAIN: all read
    }
}

void SimPty::schreiben(const QByteArray& bytes)
{
    int wartend = 0;
    if (::ioctl(slave_, FIONREAD, &wartend) == 0 && wartend > StauGrenze)
        return;
    const char* p = bytes.constData();
    qsizetype rest = bytes.size();
    while (rest > 0) {
        const ssize_t n = ::write(master_, p, std::size_t(rest));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return;  // the terminal is full: the rest is lost as on a jammed line
        p += n;
        rest -= n;
    }
}

}  // namespace planor::cli
