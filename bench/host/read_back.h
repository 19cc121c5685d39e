#pragma once

#include <korvel/plx.h>

#include "model/part.h"

namespace bench {

// Everything that a read-only MIDI part of the library holds, as plain values.
Part partOf(KRT_PLX_PartBase* part);

} // namespace bench
