#pragma once

#include "reference/tree.h"
#include "model/controller_impl.h"

namespace Korvel::CANTORIS::PLX::reference {

// Adds the lanes of an array, the first of each type; null, or a value that is no array, holds none.
void readControllers(const Value* array, MidiPartBase& part, OwnedList<MidiControllerImpl>& lanes);

} // namespace Korvel::CANTORIS::PLX::reference
