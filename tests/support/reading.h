// The document reader as a host meets it: documents that are good but for one thing, and a fixture
// that hands them to the library and shows what came of them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "support/host.h"
#include "support/json.h"

namespace support {

// The least that each kind of object must have.
Object propertyObject(); // of a clip with a part of type 3
Object midiPartObject();
Object midiAiPartObject();
Object audioPartObject(); // its wave file is take.wav
Object noteObject();      // at 480, 240 long

// A data document with an ID, a name and that part.
Object dataObject(std::string_view partKey, const std::string& part);
Object dataObject(); // with midiPartObject()

// One document that serves every way of reading: its part has one note, the lyric of which is also
// the clip's name.
Object universalObject(std::string_view name = "Name");

// Which ways of reading take a document: as a property document, as a whole data document, and for
// its part alone.
struct Acceptance {
    bool properties = false;
    bool whole = false;
    bool part = false;

    bool operator==(const Acceptance&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const Acceptance& acceptance);
inline constexpr Acceptance accepted{true, true, true};
inline constexpr Acceptance refused{false, false, false};

// A count that comes through an out-parameter: count(KRT_PLX_MidiPartBase_numNotes, part).
template <class Handle>
std::uint64_t count(bool (*function)(Handle*, std::uint64_t*), Handle* handle)
{
    std::uint64_t result = 0;
    EXPECT_TRUE(function(handle, &result));
    return result;
}

// Reads a document with this value at the key in question, or without the key, and tells whether the
// object that needs the key was taken.
using Accepts = std::function<bool(const std::optional<std::string>& value)>;

struct IntegerRange {
    std::int64_t minimum;
    std::int64_t maximum;
};

// The values on the bounds and within are accepted; all others, and a missing key, are not.
void expectRequiredInteger(IntegerRange range, const Accepts& accepts);

// A string that is not empty is accepted; all else, and a missing key, is not.
void expectRequiredText(const Accepts& accepts);

} // namespace support

// Every document goes into the same clip folder, so each reading ends the life of what came before.
class ReaderTest : public HostTest {
protected:
    [[nodiscard]] support::Path clipFolder() const { return systemFolder() / "clip"; }

    // The clip that a property document gives; the clip file beside it cannot be used. Null when the
    // document is refused.
    KRT_PLX_ClipBase* readProperties(const std::string& document);

    // The clip that a data document gives that stands alone. Null when the document is refused.
    KRT_PLX_ClipBase* readWhole(const std::string& document);

    // The part that a data document gives to a clip that is listed already. Null when it fails.
    KRT_PLX_PartBase* readPart(const std::string& document);

    // The clip whose part readPart() reads.
    KRT_PLX_ClipBase* clipOfPart();

    support::Acceptance accepts(const std::string& document);

    // The part of type 3 with one member changed.
    KRT_PLX_PartBase* readMidiPartWith(std::string_view key, const std::string& value);

    // The only note of a part, null when it was dropped; and the notes that were kept.
    KRT_PLX_NoteBase* readNote(const std::string& note);
    std::uint64_t countNotes(const std::vector<std::string>& notes);

    // Replaces the clip file and reads nothing.
    void writeClipFile(std::string_view bytes);

    void addWaveFile(std::string_view name = "take.wav");

private:
    void writeDocuments(std::optional<std::string_view> properties, std::string_view data);

    KRT_PLX_ClipBase* clipOfPart_ = nullptr;
};
