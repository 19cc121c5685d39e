#pragma once

#include <optional>

#include "fs/listing.h"
#include "fs/win32/open.h"

namespace Korvel::CANTORIS::PLX::fs {

// What the file system knows a file or folder by; none where it does not tell.
std::optional<Identity> identityOf(const Handle& handle);

} // namespace Korvel::CANTORIS::PLX::fs
