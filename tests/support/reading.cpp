#include "support/reading.h"

#include <limits>

namespace support {
namespace {

constexpr std::int64_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t greatest = std::numeric_limits<std::int32_t>::max();

std::vector<std::int64_t> within(IntegerRange range)
{
    return {range.minimum, range.minimum + 1, range.maximum - 1, range.maximum};
}

// What is outside as 32 bits; what has more bits is no int to the reader and stands among these.
std::vector<std::int64_t> outside(IntegerRange range)
{
    std::vector<std::int64_t> values;
    for (const std::int64_t value :
         {least, least + 1, std::int64_t{-128}, std::int64_t{-1}, range.minimum - 1,
          range.maximum + 1, range.maximum + 256, greatest - 1, greatest}) {
        if (value < range.minimum || value > range.maximum) {
            values.push_back(value);
        }
    }
    return values;
}

} // namespace

Object propertyObject()
{
    return {{"id", jsonString("ID")},
            {"name", jsonString("Name")},
            {"part", Object{{"type", jsonString("midi")}}}};
}

Object midiPartObject()
{
    return {{"duration", "1920"},
            {"voice", Object{{"compID", jsonString("ABCDEFGHIJKLMNOP")}, {"langID", "1"}}}};
}

Object midiAiPartObject()
{
    return {{"duration", "1920"}, {"aiVoice", Object{{"compID", jsonString("ABCDEFGHIJKLMNOP")}}}};
}

Object audioPartObject()
{
    return {{"wavFileName", jsonString("take.wav")}};
}

Object noteObject()
{
    return {{"lyric", jsonString("la")},
            {"phoneme", jsonString("l a")},
            {"pos", "480"},
            {"duration", "240"},
            {"number", "60"},
            {"velocity", "64"}};
}

Object dataObject(std::string_view partKey, const std::string& part)
{
    return Object{{"id", jsonString("ID")}, {"name", jsonString("Name")}}.with(partKey, part);
}

Object dataObject()
{
    return dataObject("midi", midiPartObject());
}

Object universalObject(std::string_view name)
{
    const Object note = noteObject().with("lyric", jsonString(name));
    const Object part = midiPartObject().with("notes", array({note}));
    return propertyObject().with("name", jsonString(name)).with("midi", part);
}

std::ostream& operator<<(std::ostream& stream, const Acceptance& acceptance)
{
    stream << (acceptance.properties ? "taken" : "refused") << " as properties, "
           << (acceptance.whole ? "taken" : "refused") << " whole, "
           << (acceptance.part ? "taken" : "refused") << " for its part";
    return stream;
}

void expectRequiredInteger(IntegerRange range, const Accepts& accepts)
{
    EXPECT_FALSE(accepts(std::nullopt)) << "absent";
    for (const std::int64_t value : within(range)) {
        EXPECT_TRUE(accepts(std::to_string(value))) << value;
    }
    for (const std::int64_t value : outside(range)) {
        EXPECT_FALSE(accepts(std::to_string(value))) << value;
    }
    for (const std::string& value : notIntegers()) {
        EXPECT_FALSE(accepts(value)) << value;
    }
}

void expectRequiredText(const Accepts& accepts)
{
    EXPECT_FALSE(accepts(std::nullopt)) << "absent";
    EXPECT_FALSE(accepts(jsonString(""))) << "empty";
    for (const std::string& value : notStrings()) {
        EXPECT_FALSE(accepts(value)) << value;
    }
    for (const std::string_view value : {" ", "0", "null", "さくら", "𝄞"}) {
        EXPECT_TRUE(accepts(jsonString(value))) << value;
    }
}

} // namespace support

void ReaderTest::writeDocuments(std::optional<std::string_view> properties, std::string_view data)
{
    // A file that is made anew costs a fraction of one that is emptied: the disk is not waited for.
    std::filesystem::remove(clipFolder() / "property.json");
    std::filesystem::remove(clipFolder() / "clip.kxclip");
    support::addClip(clipFolder(), properties, data);
}

KRT_PLX_ClipBase* ReaderTest::readProperties(const std::string& document)
{
    clipOfPart_ = nullptr;
    writeDocuments(document, "no document");
    EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
    return systemClip(0);
}

KRT_PLX_ClipBase* ReaderTest::readWhole(const std::string& document)
{
    clipOfPart_ = nullptr;
    writeDocuments(std::nullopt, document);
    EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
    return systemClip(0);
}

KRT_PLX_ClipBase* ReaderTest::clipOfPart()
{
    if (clipOfPart_ == nullptr) {
        clipOfPart_ = readProperties(support::propertyObject());
        EXPECT_NE(clipOfPart_, nullptr);
    }
    return clipOfPart_;
}

KRT_PLX_PartBase* ReaderTest::readPart(const std::string& document)
{
    KRT_PLX_ClipBase* clip = clipOfPart();
    writeClipFile(document);
    if (!KRT_PLX_Clip_readPart(clip)) {
        return nullptr;
    }
    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clip);
    return part != nullptr ? part : KRT_PLX_Clip_audioPart(clip);
}

support::Acceptance ReaderTest::accepts(const std::string& document)
{
    return {readProperties(document) != nullptr, readWhole(document) != nullptr,
            readPart(document) != nullptr};
}

KRT_PLX_PartBase* ReaderTest::readMidiPartWith(std::string_view key, const std::string& value)
{
    const support::Object part = support::midiPartObject().with(key, value);
    return readPart(support::dataObject("midi", part));
}

KRT_PLX_NoteBase* ReaderTest::readNote(const std::string& note)
{
    KRT_PLX_PartBase* part = readMidiPartWith("notes", support::array({note}));
    EXPECT_NE(part, nullptr);
    return KRT_PLX_MidiPart_note(part, 0);
}

std::uint64_t ReaderTest::countNotes(const std::vector<std::string>& notes)
{
    return support::count(KRT_PLX_MidiPartBase_numNotes,
                          readMidiPartWith("notes", support::array(notes)));
}

void ReaderTest::writeClipFile(std::string_view bytes)
{
    std::filesystem::remove(clipFolder() / "clip.kxclip");
    support::writeFile(clipFolder() / "clip.kxclip", bytes);
}

void ReaderTest::addWaveFile(std::string_view name)
{
    support::writeFile(clipFolder() / "audio" / support::place(name), "RIFF");
}
