#pragma once

#include "fs/lock.h"
#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

Locked tryLock(const Descriptor& file, Sharing sharing);

} // namespace Korvel::CANTORIS::PLX::fs
