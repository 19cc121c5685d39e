#include "codegen.h"

std::uint32_t readsANumber(KRT_PLX_NoteBase* note)
{
    return KRT_PLX_NoteBase_number(note);
}

bool readsAType(KRT_PLX_PartBase* part)
{
    return KRT_PLX_PartBase_type(part) == KRT_PLX_PART_MIDI_AI;
}

KRT_PLX_MidiEventBase* walksDown(KRT_PLX_ClipBase* clip)
{
    return KRT_PLX_MidiController_event(
        KRT_PLX_MidiPart_midiController(KRT_PLX_Clip_midiPart(clip), KRT_PLX_CONTROLLER_GROWL), 3);
}

bool setsANumber(KRT_PLX_NoteBase* note, std::uint32_t value)
{
    return KRT_PLX_MutableNote_setVelocity(note, value);
}

bool setsAText(KRT_PLX_NoteBase* note, const KRT_PLX_Char* text)
{
    return KRT_PLX_MutableNote_setLyric(note, text);
}

std::uint64_t counts(KRT_PLX_PartBase* part)
{
    std::uint64_t count = 0;
    KRT_PLX_MidiPartBase_numNotes(part, &count);
    return count;
}

std::int64_t walksNotes(KRT_PLX_PartBase* part)
{
    std::int64_t sum = 0;
    std::uint64_t count = 0;
    KRT_PLX_MidiPartBase_numNotes(part, &count);
    const std::uint64_t end = count;
    for (std::uint64_t i = 0; i != end; ++i) {
        sum += KRT_PLX_NoteBase_pos(KRT_PLX_MidiPart_note(part, i));
    }
    return sum;
}

std::int64_t walksEvents(KRT_PLX_MidiControllerBase* lane)
{
    std::int64_t sum = 0;
    std::uint64_t count = 0;
    KRT_PLX_MidiControllerBase_numEvents(lane, &count);
    const std::uint64_t end = count;
    for (std::uint64_t i = 0; i != end; ++i) {
        sum += KRT_PLX_MidiEventBase_value(KRT_PLX_MidiController_event(lane, i));
    }
    return sum;
}

std::uint64_t walksVibrato(KRT_PLX_NoteBase* note)
{
    std::uint64_t sum = 0;
    std::uint64_t count = 0;
    KRT_PLX_VibratoBase* vibrato = KRT_PLX_Note_vibrato(note);
    KRT_PLX_VibratoBase_numParameters(vibrato, KRT_PLX_VIBRATO_DEPTH, &count);
    const std::uint64_t end = count;
    for (std::uint64_t i = 0; i != end; ++i) {
        sum += KRT_PLX_VibratoParameterBase_value(
            KRT_PLX_Vibrato_parameter(vibrato, KRT_PLX_VIBRATO_DEPTH, i));
    }
    return sum;
}
