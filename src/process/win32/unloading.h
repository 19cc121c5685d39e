#pragma once

#include "process/unloading.h"

namespace Korvel::CANTORIS::PLX::process {

// What is to be called when the host unloads the library is called.
void unload();

} // namespace Korvel::CANTORIS::PLX::process
