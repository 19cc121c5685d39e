// Clips into documents.
#pragma once

#include "clip/clip_base.h"
#include "clip/filter.h"
#include "format/output.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX::format {

// The property document: of a clip being built, or of a user clip that was edited.
void writeProperties(Output& out, const ClipBase& clip, const Filter& tags, StringView id,
                     StringView name);

// The data document: an object whose one key is the part's type. False, with the output cut short, for
// a part that has nothing to write or is not editable.
bool writeData(Output& out, PartBase& part);

} // namespace Korvel::CANTORIS::PLX::format
