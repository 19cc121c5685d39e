#include "fs/posix/lock.h"

#include <sys/file.h>

namespace Korvel::CANTORIS::PLX::fs {

// This kind of lock belongs to the opened file: two threads of one program that each open the file
// exclude each other too, and closing another descriptor of the file releases nothing. POSIX only
// has locks that belong to the process, but all Unix-like systems have this kind too.
Locked tryLock(const Descriptor& file, Sharing sharing)
{
    const int operation = (sharing == Sharing::exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB;
    if (uninterrupted([&] { return ::flock(file.number(), operation); }) == 0) {
        return Locked::yes;
    }
    return errno == EWOULDBLOCK ? Locked::busy : Locked::unknownHere;
}

} // namespace Korvel::CANTORIS::PLX::fs
