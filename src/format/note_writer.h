#pragma once

#include <cstdint>

#include "format/output.h"
#include "model/note.h"

namespace Korvel::CANTORIS::PLX::format {

// The object of an event of a lane, or of a point of a vibrato.
void writePoint(Output& out, std::int32_t pos, std::int32_t value);

// One note's object. What is written of its expressions depends on the type of its part.
void writeNote(Output& out, MutableNote& note, std::uint32_t partType);

} // namespace Korvel::CANTORIS::PLX::format
