// Every exported function that builds or edits, each called once in an order in which each has
// something to work on.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "library_call.h"
#include "support/files.h"
#include "support/text.h"

namespace faults {

// The handles that one operation leaves for the next.
struct Desk {
    explicit Desk(const support::Path& waveFile) : wave(support::pathText(waveFile)) {}

    support::Text wave;
    KRT_PLX_Manager* manager = nullptr;
    KRT_PLX_ClipBase* clip = nullptr;
    KRT_PLX_Filter* filter = nullptr;
    KRT_PLX_PartBase* part = nullptr;
    KRT_PLX_NoteBase* note = nullptr;
    KRT_PLX_DvqmBase* dvqm = nullptr;
    KRT_PLX_VibratoBase* vibrato = nullptr;
    KRT_PLX_VibratoParameterBase* point = nullptr;
    KRT_PLX_MidiControllerBase* lane = nullptr;
    KRT_PLX_MidiEventBase* event = nullptr;
    KRT_PLX_EffectBase* effect = nullptr;
    KRT_PLX_EffectParameterBase* parameter = nullptr;
};

struct Operation {
    std::string_view name; // of the function, without its prefix
    // False: what the function returns when memory runs out.
    std::function<bool(Desk& desk)> run;
};
using Operations = std::vector<Operation>;

const Operations& clipOperations();  // from createMutableClip on, up to the part
const Operations& midiOperations();  // of a part of type 3
const Operations& aiOperations();    // of a part of type 2
const Operations& audioOperations(); // of an audio part
const Operations& removals();        // of what the clip and the MIDI part then hold

std::uint32_t keyOfBuiltClips(); // that clipOperations() set

// A clip of that part in one go, undisturbed.
KRT_PLX_ClipBase* build(KRT_PLX_Manager* manager, const Operations& part,
                        const support::Path& waveFile);

} // namespace faults
