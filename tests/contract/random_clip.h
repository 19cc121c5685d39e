// Editable clips of any content that the interface lets in and that can be saved.
#pragma once

#include <korvel/plx.h>

#include "support/files.h"
#include "support/random.h"

namespace contract {

// The same clip for the same state of `random`. An audio part names the wave file.
void fillRandomly(KRT_PLX_ClipBase* clip, support::Random& random, const support::Path& waveFile);

} // namespace contract
