#pragma once

#include "fs/lock.h"
#include "fs/win32/open.h"

namespace Korvel::CANTORIS::PLX::fs {

Locked tryLock(const Handle& file, Sharing sharing);

} // namespace Korvel::CANTORIS::PLX::fs
