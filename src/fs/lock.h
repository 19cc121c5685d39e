// Advisory locks: they only stop programs that ask for them. The system releases a lock when its
// file is closed, so also when the program dies.
#pragma once

#include "fs/patience.h"

namespace Korvel::CANTORIS::PLX::fs {

enum class Sharing { shared, exclusive };
enum class Locked { yes, busy, unknownHere };

// Waits for other programs as long as there is patience. Each system has its own tryLock(), which
// does not wait.
template <class File>
Locked lock(const File& file, Sharing sharing, Patience& patience)
{
    patience.calm();
    Locked locked = tryLock(file, sharing);
    while (locked == Locked::busy && patience.wait()) {
        locked = tryLock(file, sharing);
    }
    return locked;
}

} // namespace Korvel::CANTORIS::PLX::fs
