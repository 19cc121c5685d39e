#include "codegen.h"

#include <korvel/plx.hpp>

namespace plx = korvel::plx;

std::uint32_t readsANumber(KRT_PLX_NoteBase* note)
{
    return plx::Note(note).number();
}

bool readsAType(KRT_PLX_PartBase* part)
{
    return plx::PartBase(part).type() == plx::PartType::midiAi;
}

KRT_PLX_MidiEventBase* walksDown(KRT_PLX_ClipBase* clip)
{
    return plx::Clip(clip).midiPart().midiController(plx::ControllerType::growl).event(3).raw();
}

bool setsANumber(KRT_PLX_NoteBase* note, std::uint32_t value)
{
    return plx::MutableNote(note).setVelocity(value);
}

bool setsAText(KRT_PLX_NoteBase* note, const KRT_PLX_Char* text)
{
    return plx::MutableNote(note).setLyric(text);
}

std::uint64_t counts(KRT_PLX_PartBase* part)
{
    return plx::MidiPart(part).numNotes();
}

std::int64_t walksNotes(KRT_PLX_PartBase* part)
{
    std::int64_t sum = 0;
    for (const auto note : plx::MidiPart(part).notes()) {
        sum += note.pos();
    }
    return sum;
}

std::int64_t walksEvents(KRT_PLX_MidiControllerBase* lane)
{
    std::int64_t sum = 0;
    for (const auto event : plx::MidiController(lane).events()) {
        sum += event.value();
    }
    return sum;
}

std::uint64_t walksVibrato(KRT_PLX_NoteBase* note)
{
    std::uint64_t sum = 0;
    const plx::Vibrato vibrato = plx::Note(note).vibrato();
    for (const auto point : vibrato.depths()) {
        sum += point.value();
    }
    return sum;
}
