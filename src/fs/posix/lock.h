// Advisory locks: other programs that ask find a file taken. The system releases one when its file is
// closed, hence also when the program dies.
#pragma once

#include "fs/patience.h"
#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

enum class Sharing { shared, exclusive };
enum class Locked { yes, busy, unknownHere };

// Without waiting.
Locked tryLock(const Descriptor& file, Sharing sharing);

// Waits for others as long as there is patience.
Locked lock(const Descriptor& file, Sharing sharing, Patience& patience);

} // namespace Korvel::CANTORIS::PLX::fs
