// The property document: its keys, which of them it needs, and what it does with the others.

#include <string>
#include <vector>

#include "support/reading.h"

namespace {

using support::array;
using support::jsonString;
using support::notObjects;
using support::notStrings;
using support::Object;
using support::propertyObject;
using support::utf8;

class PropertyDocumentTest : public ReaderTest {
protected:
    KRT_PLX_ClipBase* readWith(std::string_view key, const std::optional<std::string>& value)
    {
        return readProperties(propertyObject().with(key, value));
    }

    // The document with one member of its "part" changed.
    KRT_PLX_ClipBase* readWithPart(std::string_view type, std::string_view key,
                                   const std::optional<std::string>& value)
    {
        return readWith("part", Object{{"type", jsonString(type)}}.with(key, value));
    }
};

TEST_F(PropertyDocumentTest, FillsTheCatalogueProperties)
{
    const Object part = {{"type", jsonString("midi")}, {"key", "7"}, {"tempo", "12050"}};
    const Object filter = {{"genres", array({jsonString("Lied")})}};
    KRT_PLX_ClipBase* clip = readProperties(propertyObject()
                                                .with("part", part)
                                                .with("vendor", jsonString("Studio"))
                                                .with("filter", filter));
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "ID");
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "Name");
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), KRT_PLX_PART_MIDI);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 7u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 12050u);
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio");
    EXPECT_EQ(utf8(KRT_PLX_Filter_genre(KRT_PLX_Clip_filter(clip), 0)), "Lied");
}

TEST_F(PropertyDocumentTest, LeavesWhatItDoesNotNameAsItWas)
{
    KRT_PLX_ClipBase* clip = readProperties(propertyObject());
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 0u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 0u);
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "");
    EXPECT_EQ(support::count(KRT_PLX_Filter_numVendors, KRT_PLX_Clip_filter(clip)), 0u);
}

TEST_F(PropertyDocumentTest, TakesTheMembersInAnyOrder)
{
    const Object part = {{"tempo", "9000"}, {"key", "30"}, {"type", jsonString("midiAi")}};
    KRT_PLX_ClipBase* clip = readProperties(propertyObject().with("part", part).reversed());
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "ID");
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), KRT_PLX_PART_MIDI_AI);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 30u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 9000u);
}

TEST_F(PropertyDocumentTest, NeedsAnId)
{
    support::expectRequiredText([this](const auto& value) {
        KRT_PLX_ClipBase* clip = readWith("id", value);
        return clip != nullptr && jsonString(utf8(KRT_PLX_Clip_id(clip))) == value;
    });
}

TEST_F(PropertyDocumentTest, NeedsAName)
{
    support::expectRequiredText([this](const auto& value) {
        KRT_PLX_ClipBase* clip = readWith("name", value);
        return clip != nullptr && jsonString(utf8(KRT_PLX_Clip_name(clip))) == value;
    });
}

TEST_F(PropertyDocumentTest, NeedsAPartThatIsAnObject)
{
    EXPECT_EQ(readWith("part", std::nullopt), nullptr);
    for (const std::string& value : notObjects()) {
        EXPECT_EQ(readWith("part", value), nullptr) << value;
    }
}

TEST_F(PropertyDocumentTest, KnowsThreePartTypes)
{
    const std::vector<std::pair<std::string, std::uint32_t>> types = {
        {"audio", KRT_PLX_PART_AUDIO},
        {"midiAi", KRT_PLX_PART_MIDI_AI},
        {"midi", KRT_PLX_PART_MIDI}};
    for (const auto& [type, code] : types) {
        EXPECT_EQ(KRT_PLX_ClipBase_partType(readWithPart(type, "type", jsonString(type))), code);
    }
}

TEST_F(PropertyDocumentTest, NeedsAPartTypeThatItKnows)
{
    EXPECT_EQ(readWith("part", "{}"), nullptr);
    EXPECT_EQ(readWith("part", R"({"key": 5, "tempo": 9000})"), nullptr);
    for (const std::string& value : notStrings()) {
        EXPECT_EQ(readWithPart("", "type", value), nullptr) << value;
    }
    for (const std::string_view type :
         {"", "Audio", "AUDIO", "audio ", " audio", "audi", "audios", "midiai", "MidiAi", "midiAI",
          "MIDI", "Midi", "mid", "midi2", "none", "1", "2", "3", "さくら"}) {
        EXPECT_EQ(readWithPart("", "type", jsonString(type)), nullptr) << type;
    }
}

TEST_F(PropertyDocumentTest, LooksForNoKeyAndTempoInAnAudioPart)
{
    const Object part = {{"key", "7"}, {"type", jsonString("audio")}, {"tempo", "12000"}};
    KRT_PLX_ClipBase* clip = readWith("part", part);
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 0u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 0u);
}

TEST_F(PropertyDocumentTest, LooksForKeyAndTempoInThePartOnly)
{
    const Object document = propertyObject().with("key", "7").with("tempo", "12000");
    KRT_PLX_ClipBase* clip = readProperties(document);
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 0u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 0u);
}

TEST_F(PropertyDocumentTest, IgnoresKeysThatItDoesNotKnow)
{
    const Object document = propertyObject()
                                .with("Vendor", jsonString("Studio"))
                                .with("midi", "false")
                                .with("", "[{}]")
                                .with("さくら", "null");
    KRT_PLX_ClipBase* clip = readProperties(document);
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "");
}

TEST_F(PropertyDocumentTest, TellsKeysApartByCase)
{
    for (const std::string_view key : {"id", "name", "part"}) {
        const Object rest = propertyObject().without(key);
        for (const std::string_view other : {"ID", "Id", "NAME", "Name", "PART", "Part", "parts"}) {
            const std::string value = key == "part" ? R"({"type": "midi"})" : R"("text")";
            EXPECT_EQ(readProperties(rest.with(other, value)), nullptr) << other;
        }
    }
}

TEST_F(PropertyDocumentTest, LoadsNoPart)
{
    const Object document = propertyObject()
                                .with("midi", support::midiPartObject())
                                .with("vendor", jsonString("Studio"));
    KRT_PLX_ClipBase* clip = readProperties(document);
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip), nullptr);
    EXPECT_EQ(KRT_PLX_Clip_audioPart(clip), nullptr);
}

TEST_F(PropertyDocumentTest, GivesWayToTheClipFileWhenItIsRefused)
{
    const Object refusedDocument =
        propertyObject().with("part", "{}").with("vendor", jsonString("A"));
    const Object data = support::dataObject().with("name", jsonString("Of the clip file"));
    support::addClip(clipFolder(), refusedDocument.text(), data.text());
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    ASSERT_NE(systemClip(0), nullptr);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(systemClip(0))), "Of the clip file");
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(systemClip(0))), "");
    EXPECT_NE(KRT_PLX_Clip_midiPart(systemClip(0)), nullptr);
}

TEST_F(PropertyDocumentTest, ServesUserClipsTheSame)
{
    const Object document = propertyObject().with("vendor", jsonString("Studio"));
    KRT_PLX_ClipBase* clip = readUserClip(document.text(), "no document");
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(KRT_PLX_Clip_type(clip), KRT_PLX_CLIP_USER);
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio");
    EXPECT_EQ(readUserClip(document.without("name").text(), "no document"), nullptr);
}

} // namespace
