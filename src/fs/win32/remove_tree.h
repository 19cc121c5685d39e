#pragma once

#include "fs/win32/open.h"

namespace Korvel::CANTORIS::PLX::fs {

// Removes an entry of a folder, and everything in it if that is a folder; links are removed, not
// followed. What cannot be removed stays.
void removeAll(const Handle& folder, const Entry& entry);

} // namespace Korvel::CANTORIS::PLX::fs
