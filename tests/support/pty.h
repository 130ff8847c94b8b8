#pragma once
// A pseudo-terminal for the serial port's tests: the program opens the
// slave side by its path, the test plays the device on the master side.

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace planor::test {

long ptyAusgangsBaud(int fd);

// Transports on real ports and sockets need Qt's event loop; one
// application object serves all tests of the process.
inline void QtAnwendungSicherstellen()
{
    if (QCoreApplication::instance())
        return;
    static int argc = 1;
    static char name[] = "planor_tests";
    static char* argv[] = {name, nullptr};
    new QCoreApplication(argc, argv);  // lives as long as the process
}

class Pty {
public:
    Pty()
    {
        char name[256] = {};
        if (openpty(&master, &slave, name, nullptr, nullptr) == 0) {
            pfad = QString::fromLocal8Bit(name);
            ::fcntl(master, F_SETFL, ::fcntl(master, F_GETFL) | O_NONBLOCK);
        }
    }
    ~Pty()
    {
        masterSchliessen();
        if (slave >= 0)
            ::close(slave);
    }
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;

    bool gueltig() const { return master >= 0 && !pfad.isEmpty(); }

    void schreiben(const QByteArray& bytes) const
    {
        qsizetype geschrieben = 0;
        while (geschrieben < bytes.size()) {
            const ssize_t n = ::write(master, bytes.constData() + geschrieben, size_t(bytes.size() - geschrieben));
            if (n > 0)
                geschrieben += n;
            else
                ::poll(nullptr, 0, 1);
        }
    }
    // What the device has received so far (does not wait).
    QByteArray lesen() const
    {
        QByteArray bytes;
        char puffer[512];
        ssize_t n;
        while ((n = ::read(master, puffer, sizeof puffer)) > 0)
            bytes.append(puffer, n);
        return bytes;
    }
    // The device vanishes.
    void masterSchliessen()
    {
        if (master >= 0)
            ::close(master);
        master = -1;
    }
    // The line settings the kernel holds (attributes belong to the device,
    // so the slave descriptor of the test sees what the program set).
    termios einstellungen() const
    {
        termios t{};
        ::tcgetattr(slave, &t);
        return t;
    }
    long baud() const { return ptyAusgangsBaud(slave); }
    // Until what the device sent can be read on the program's side, at most `ms`.
    bool eingangDa(int ms = 2000) const
    {
        pollfd p{slave, POLLIN, 0};
        return ::poll(&p, 1, ms) == 1;
    }

    int master = -1;
    int slave = -1;
    QString pfad;
};

}  // namespace planor::test
