// The bit rate the kernel holds for a terminal, also a custom one (BOTHER):
// asm/termbits.h clashes with termios.h, so it lives in a file of its own.
#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace planor::test {

long ptyAusgangsBaud(int fd)
{
    struct termios2 tio {};
    if (ioctl(fd, TCGETS2, &tio) == -1)
        return -1;
    return static_cast<long>(tio.c_ospeed);
}

}  // namespace planor::test
