#pragma once

#include <optional>

#include "fs/listing.h"
#include "fs/win32/open.h"

namespace Korvel::CANTORIS::PLX::fs {

// What identifies a file or folder; none if the file system does not say.
std::optional<Identity> identityOf(const Handle& handle);

} // namespace Korvel::CANTORIS::PLX::fs
