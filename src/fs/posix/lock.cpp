#include "fs/posix/lock.h"

namespace Korvel::CANTORIS::PLX::fs {

Locked lock(const Descriptor& file, Sharing sharing, Patience& patience)
{
    patience.calm();
    Locked locked = tryLock(file, sharing);
    while (locked == Locked::busy && patience.wait()) {
        locked = tryLock(file, sharing);
    }
    return locked;
}

} // namespace Korvel::CANTORIS::PLX::fs
