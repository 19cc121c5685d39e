// What temp_dir.h needs of each system.
#pragma once

#include "support/temp_dir.h"

namespace support {

Text makeFreshFolder();
void removeAll(const Text& folder) noexcept;

} // namespace support
