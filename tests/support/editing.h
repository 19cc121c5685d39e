// A host that edits, for tests: lists read back as vectors, and a part to begin with.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "support/host.h"

namespace support {

// What one of the library's counting functions says.
template <class Handle>
std::uint64_t countOf(bool (*count)(Handle*, std::uint64_t*), Handle* handle)
{
    std::uint64_t result = 0;
    EXPECT_TRUE(count(handle, &result));
    return result;
}

// All elements of a list, in order; the element behind the last one must be null.
template <class Element, class Handle>
std::vector<Element*> elementsOf(bool (*count)(Handle*, std::uint64_t*),
                                 Element* (*at)(Handle*, std::uint64_t), Handle* handle)
{
    std::vector<Element*> elements;
    const std::uint64_t size = countOf(count, handle);
    for (std::uint64_t index = 0; index < size; ++index) {
        elements.push_back(at(handle, index));
    }
    EXPECT_EQ(at(handle, size), nullptr);
    return elements;
}

// A note with some texts and language 0.
KRT_PLX_NoteBase* insertNote(KRT_PLX_PartBase* midiPart, std::int32_t pos,
                             std::int32_t duration = 480);

std::vector<KRT_PLX_NoteBase*> notesOf(KRT_PLX_PartBase* midiPart);
std::vector<KRT_PLX_MidiEventBase*> eventsOf(KRT_PLX_MidiControllerBase* lane);
std::vector<KRT_PLX_VibratoParameterBase*> pointsOf(KRT_PLX_VibratoBase* vibrato,
                                                    std::uint32_t kind);
std::vector<KRT_PLX_EffectParameterBase*> parametersOf(KRT_PLX_EffectBase* effect);

// The parameter of that name, added if it is not there.
KRT_PLX_EffectParameterBase* addParameter(KRT_PLX_EffectBase* effect, std::string_view name);

} // namespace support

// An editable clip with an empty MIDI part of type 3.
class MidiPartTest : public HostTest {
protected:
    KRT_PLX_ClipBase* const clip = createMutableClip();
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiPart(clip);
};

// The same with one note, 480 long, at 0.
class NoteTest : public MidiPartTest {
protected:
    KRT_PLX_NoteBase* const note = support::insertNote(part, 0);
};
