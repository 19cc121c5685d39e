#include "support/editing.h"

namespace support {

KRT_PLX_NoteBase* insertNote(KRT_PLX_PartBase* midiPart, std::int32_t pos, std::int32_t duration)
{
    return KRT_PLX_MutableMidiPart_insertNote(midiPart, pos, duration, text("la").c_str(),
                                              text("l a").c_str(), 0);
}

std::vector<KRT_PLX_NoteBase*> notesOf(KRT_PLX_PartBase* midiPart)
{
    return elementsOf(KRT_PLX_MidiPartBase_numNotes, KRT_PLX_MutableMidiPart_note, midiPart);
}

std::vector<KRT_PLX_MidiEventBase*> eventsOf(KRT_PLX_MidiControllerBase* lane)
{
    return elementsOf(KRT_PLX_MidiControllerBase_numEvents, KRT_PLX_MutableMidiController_event,
                      lane);
}

std::vector<KRT_PLX_VibratoParameterBase*> pointsOf(KRT_PLX_VibratoBase* vibrato,
                                                    std::uint32_t kind)
{
    std::vector<KRT_PLX_VibratoParameterBase*> points;
    std::uint64_t count = 0;
    EXPECT_TRUE(KRT_PLX_VibratoBase_numParameters(vibrato, kind, &count));
    for (std::uint64_t index = 0; index < count; ++index) {
        points.push_back(KRT_PLX_MutableVibrato_parameter(vibrato, kind, index));
    }
    EXPECT_EQ(KRT_PLX_MutableVibrato_parameter(vibrato, kind, count), nullptr);
    return points;
}

std::vector<KRT_PLX_EffectParameterBase*> parametersOf(KRT_PLX_EffectBase* effect)
{
    return elementsOf(KRT_PLX_EffectBase_numParameters, KRT_PLX_MutableEffect_parameter, effect);
}

KRT_PLX_EffectParameterBase* addParameter(KRT_PLX_EffectBase* effect, std::string_view name)
{
    return KRT_PLX_MutableEffect_addParameter(effect, text(name).c_str());
}

} // namespace support
