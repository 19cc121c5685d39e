// Making a new clip of what a snapshot holds.
#pragma once

#include <string>
#include <vector>

#include <korvel/plx.hpp>

#include "snapshot.h"

namespace plxclip {

// Fills an empty editable clip as far as it takes what the snapshot holds.
void build(korvel::plx::MutableClip clip, const Properties& properties, const Part& part);

// What the copy lacks or has otherwise, in words; nothing when it is the same in everything but ID,
// name and place.
std::vector<std::string> differences(const Properties& original, const Part& originalPart,
                                     const Properties& copy, const Part& copiedPart);

} // namespace plxclip
