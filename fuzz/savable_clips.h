// A clip of each kind that can be saved as it is, with something of all that a clip can hold: what an
// input makes of it comes out in the documents.
#pragma once

#include <array>

#include <korvel/plx.h>

#include "support/text.h"

namespace fuzz {

std::array<KRT_PLX_ClipBase*, 3> createSavableClips(KRT_PLX_Manager* manager,
                                                    const support::Text& wavePath);

} // namespace fuzz
