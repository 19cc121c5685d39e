// Making a new clip from a snapshot.
#pragma once

#include <string>
#include <vector>

#include <korvel/plx.hpp>

#include "snapshot.h"

namespace plxclip {

// Fills an empty editable clip with the snapshot, as far as the library accepts it.
void build(korvel::plx::MutableClip clip, const Properties& properties, const Part& part);

// Describes the differences between the copy and the original, except ID, name and path.
std::vector<std::string> differences(const Properties& original, const Part& originalPart,
                                     const Properties& copy, const Part& copiedPart);

} // namespace plxclip
