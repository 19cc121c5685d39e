// Editable clips, built through the library's functions as a host builds them.
#pragma once

#include <korvel/plx.h>

#include "model/part.h"
#include "support/text.h"

namespace bench {

using HostNote = BasicNote<support::Text>;
using HostPart = BasicPart<support::Text>;

// The texts as the library takes them.
HostNote toHost(const Note& note);
HostPart toHost(const Part& part);

// Inserts the note and sets everything that it has.
void buildNote(KRT_PLX_PartBase* part, const HostNote& note);

// A new part of the editable clip, sung by a voice bank.
KRT_PLX_PartBase* buildPart(KRT_PLX_ClipBase* clip, const HostPart& part);

// The same without notes, lanes and effects: what saving needs.
KRT_PLX_PartBase* buildEmptyPart(KRT_PLX_ClipBase* clip, const HostPart& part);

} // namespace bench
