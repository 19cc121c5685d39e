#include "fs/posix/lock.h"

#include <sys/file.h>

namespace Korvel::CANTORIS::PLX::fs {

// This kind of lock belongs to the open file: two threads of one program, which each open it, keep
// clear of each other too, and closing another opening of it releases nothing. It is older than POSIX,
// which has only locks that belong to the process; every system like it has this kind too.
Locked tryLock(const Descriptor& file, Sharing sharing)
{
    const int operation = (sharing == Sharing::exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB;
    if (uninterrupted([&] { return ::flock(file.number(), operation); }) == 0) {
        return Locked::yes;
    }
    return errno == EWOULDBLOCK ? Locked::busy : Locked::unknownHere;
}

} // namespace Korvel::CANTORIS::PLX::fs
