#pragma once

#include "format/output.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX::format {

// Writes the data document of an editable part. False when there is nothing to write.
bool writePart(Output& out, PartBase& part);

} // namespace Korvel::CANTORIS::PLX::format
