// Editable clips of any content that the interface lets in and that can be saved.
#pragma once

#include <korvel/plx.h>

#include "support/files.h"
#include "support/random.h"

namespace support {

// The same clip for the same state of `random`. An audio part names the wave file.
void fillRandomly(KRT_PLX_ClipBase* clip, Random& random, const Path& waveFile);

} // namespace support
