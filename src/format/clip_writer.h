// Writes clips as documents.
#pragma once

#include "clip/clip_base.h"
#include "clip/filter.h"
#include "format/output.h"

namespace Korvel::CANTORIS::PLX::format {

// Writes the property document of a clip being built, or of a user clip that was edited.
void writeProperties(Output& out, const ClipBase& clip, const Filter& tags, StringView id,
                     StringView name);

} // namespace Korvel::CANTORIS::PLX::format
