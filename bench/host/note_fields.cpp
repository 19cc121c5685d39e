#include "host/note_fields.h"

namespace bench {

const std::array<NoteField<std::uint32_t>, 7> noteNumbers{
    {{&NoteValues::number, KRT_PLX_NoteBase_number, KRT_PLX_MutableNote_setNumber},
     {&NoteValues::velocity, KRT_PLX_NoteBase_velocity, KRT_PLX_MutableNote_setVelocity},
     {&NoteValues::accent, KRT_PLX_NoteBase_accent, KRT_PLX_MutableNote_setAccent},
     {&NoteValues::bendDepth, KRT_PLX_NoteBase_bendDepth, KRT_PLX_MutableNote_setBendDepth},
     {&NoteValues::bendLength, KRT_PLX_NoteBase_bendLength, KRT_PLX_MutableNote_setBendLength},
     {&NoteValues::decay, KRT_PLX_NoteBase_decay, KRT_PLX_MutableNote_setDecay},
     {&NoteValues::opening, KRT_PLX_NoteBase_opening, KRT_PLX_MutableNote_setOpening}}};

const std::array<NoteField<bool>, 3> noteSwitches{
    {{&NoteValues::isProtected, KRT_PLX_NoteBase_isProtected, KRT_PLX_MutableNote_setProtected},
     {&NoteValues::fallPort, KRT_PLX_NoteBase_fallPort, KRT_PLX_MutableNote_setFallPort},
     {&NoteValues::risePort, KRT_PLX_NoteBase_risePort, KRT_PLX_MutableNote_setRisePort}}};

const std::array<AiValue, aiValueCount> aiValues{
    {{KRT_PLX_NoteBase_pitchFine, KRT_PLX_MutableNote_setPitchFine},
     {KRT_PLX_NoteBase_pitchDriftStart, KRT_PLX_MutableNote_setPitchDriftStart},
     {KRT_PLX_NoteBase_pitchDriftEnd, KRT_PLX_MutableNote_setPitchDriftEnd},
     {KRT_PLX_NoteBase_pitchScalingCenter, KRT_PLX_MutableNote_setPitchScalingCenter},
     {KRT_PLX_NoteBase_pitchScalingOrigin, KRT_PLX_MutableNote_setPitchScalingOrigin},
     {KRT_PLX_NoteBase_pitchTransitionStart, KRT_PLX_MutableNote_setPitchTransitionStart},
     {KRT_PLX_NoteBase_pitchTransitionEnd, KRT_PLX_MutableNote_setPitchTransitionEnd},
     {KRT_PLX_NoteBase_amplitudeWhole, KRT_PLX_MutableNote_setAmplitudeWhole},
     {KRT_PLX_NoteBase_amplitudeStart, KRT_PLX_MutableNote_setAmplitudeStart},
     {KRT_PLX_NoteBase_amplitudeEnd, KRT_PLX_MutableNote_setAmplitudeEnd},
     {KRT_PLX_NoteBase_formantWhole, KRT_PLX_MutableNote_setFormantWhole},
     {KRT_PLX_NoteBase_formantStart, KRT_PLX_MutableNote_setFormantStart},
     {KRT_PLX_NoteBase_formantEnd, KRT_PLX_MutableNote_setFormantEnd}}};

} // namespace bench
