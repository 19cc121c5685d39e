#pragma once

#include "process/unloading.h"

namespace Korvel::CANTORIS::PLX::process {

// Calls the function that atUnload() has set.
void unload();

} // namespace Korvel::CANTORIS::PLX::process
