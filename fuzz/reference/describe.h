// Everything that a host can see of what was read, as text.
#pragma once

#include <string>

#include "clip/clip_properties.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX::reference {

std::string describe(const ClipProperties& properties);
std::string describe(PartBase* part); // null, too

} // namespace Korvel::CANTORIS::PLX::reference
