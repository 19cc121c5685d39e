// The data document: the clip that it gives when it stands alone, and which of its parts is taken.

#include <string>
#include <vector>

#include "support/reading.h"

namespace {

using support::array;
using support::audioPartObject;
using support::dataObject;
using support::jsonString;
using support::midiAiPartObject;
using support::midiPartObject;
using support::notObjects;
using support::notStrings;
using support::Object;
using support::utf8;

class DataDocumentTest : public ReaderTest {
protected:
    KRT_PLX_ClipBase* readWith(std::string_view key, const std::optional<std::string>& value)
    {
        return readWhole(dataObject().with(key, value));
    }

    // Both ways of reading must agree about the part.
    void expectNoPart(const Object& document)
    {
        EXPECT_EQ(readWhole(document), nullptr) << document.text();
        EXPECT_EQ(readPart(document), nullptr) << document.text();
    }

    void expectPart(const Object& document, std::uint32_t type)
    {
        EXPECT_EQ(KRT_PLX_ClipBase_partType(readWhole(document)), type) << document.text();
        EXPECT_EQ(KRT_PLX_PartBase_type(readPart(document)), type) << document.text();
    }
};

const Object badMidiPart = midiPartObject().without("duration");
const Object badMidiAiPart = midiAiPartObject().without("duration");
const Object badAudioPart = {{"wavFileName", jsonString("missing.wav")}};

TEST_F(DataDocumentTest, FillsTheWholeClip)
{
    const Object filter = {{"types", array({jsonString("Ballad")})}};
    KRT_PLX_ClipBase* clip = readWhole(
        dataObject().with("vendor", jsonString("Studio")).with("filter", filter).reversed());
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "ID");
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "Name");
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio");
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), KRT_PLX_PART_MIDI);
    EXPECT_EQ(utf8(KRT_PLX_Filter_type(KRT_PLX_Clip_filter(clip), 0)), "Ballad");
    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clip);
    EXPECT_EQ(KRT_PLX_MidiPart_parent(part), clip);
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(part), 1920);
}

TEST_F(DataDocumentTest, ServesUserClipsTheSame)
{
    KRT_PLX_ClipBase* clip = readUserClip(std::nullopt, dataObject().text());
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(KRT_PLX_Clip_type(clip), KRT_PLX_CLIP_USER);
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(KRT_PLX_Clip_midiPart(clip)), 1920);
    EXPECT_EQ(readUserClip(std::nullopt, dataObject("midi", badMidiPart).text()), nullptr);
}

TEST_F(DataDocumentTest, HasNoKeyAndTempo)
{
    const Object part = midiPartObject().with("key", "7").with("tempo", "12000");
    const Object document = dataObject("midi", part).with("key", "7").with("tempo", "12000");
    KRT_PLX_ClipBase* clip =
        readWhole(document.with("part", R"({"type": "midi", "key": 7, "tempo": 12000})"));
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 0u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 0u);
}

TEST_F(DataDocumentTest, NeedsAnId)
{
    support::expectRequiredText([this](const auto& value) {
        KRT_PLX_ClipBase* clip = readWith("id", value);
        return clip != nullptr && jsonString(utf8(KRT_PLX_Clip_id(clip))) == value;
    });
}

TEST_F(DataDocumentTest, NeedsAName)
{
    support::expectRequiredText([this](const auto& value) {
        KRT_PLX_ClipBase* clip = readWith("name", value);
        return clip != nullptr && jsonString(utf8(KRT_PLX_Clip_name(clip))) == value;
    });
}

TEST_F(DataDocumentTest, TakesAnyTextAsVendor)
{
    for (const std::string_view value : {"", " ", "Studio", "株式会社", "𝄞"}) {
        KRT_PLX_ClipBase* clip = readWith("vendor", jsonString(value));
        EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), value);
    }
    for (const std::string& value : notStrings()) {
        EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(readWith("vendor", value))), "") << value;
    }
}

TEST_F(DataDocumentTest, TellsThePartsApartByTheirKeys)
{
    addWaveFile();
    expectPart(dataObject("audio", audioPartObject()), KRT_PLX_PART_AUDIO);
    expectPart(dataObject("midiAi", midiAiPartObject()), KRT_PLX_PART_MIDI_AI);
    expectPart(dataObject("midi", midiPartObject()), KRT_PLX_PART_MIDI);
}

TEST_F(DataDocumentTest, ShowsAnAudioPartAsAudioOnlyAndAMidiPartAsMidiOnly)
{
    addWaveFile();
    KRT_PLX_PartBase* part = readPart(dataObject("audio", audioPartObject()));
    EXPECT_EQ(KRT_PLX_Clip_audioPart(clipOfPart()), part);
    EXPECT_EQ(KRT_PLX_Clip_midiPart(clipOfPart()), nullptr);

    part = readPart(dataObject("midiAi", midiAiPartObject()));
    EXPECT_EQ(KRT_PLX_Clip_midiPart(clipOfPart()), part);
    EXPECT_EQ(KRT_PLX_Clip_audioPart(clipOfPart()), nullptr);
}

TEST_F(DataDocumentTest, NeedsAPart)
{
    expectNoPart(dataObject().without("midi"));
    expectNoPart(dataObject().without("midi").with("filter", "{}"));
    expectNoPart(dataObject().without("midi").with("part", R"({"type": "midi"})"));
    for (const std::string_view key : {"Midi", "MIDI", "midiai", "Audio", "AUDIO"}) {
        expectNoPart(dataObject(key, midiPartObject()));
    }
}

TEST_F(DataDocumentTest, FailsWithAPartThatIsNoObject)
{
    for (const std::string_view key : {"audio", "midiAi", "midi"}) {
        for (const std::string& value : notObjects()) {
            expectNoPart(dataObject(key, value));
        }
    }
}

TEST_F(DataDocumentTest, FailsWithAPartThatFails)
{
    expectNoPart(dataObject("audio", badAudioPart));
    expectNoPart(dataObject("midiAi", badMidiAiPart));
    expectNoPart(dataObject("midi", badMidiPart));
}

TEST_F(DataDocumentTest, PrefersAudioToMidiAiToMidiWhateverTheirOrder)
{
    addWaveFile();
    Object document = dataObject().with("midiAi", midiAiPartObject());
    expectPart(document, KRT_PLX_PART_MIDI_AI);
    expectPart(document.reversed(), KRT_PLX_PART_MIDI_AI);
    document = document.with("audio", audioPartObject());
    expectPart(document, KRT_PLX_PART_AUDIO);
    expectPart(document.reversed(), KRT_PLX_PART_AUDIO);
    expectPart(document.without("midiAi"), KRT_PLX_PART_AUDIO);
}

TEST_F(DataDocumentTest, DoesNotTryTheNextPartWhenOneFails)
{
    const Object both = dataObject().with("midiAi", midiAiPartObject());
    expectNoPart(both.with("audio", badAudioPart));
    expectNoPart(both.with("audio", "null"));
    expectNoPart(both.with("midiAi", badMidiAiPart));
    expectNoPart(both.with("midiAi", "null"));
}

TEST_F(DataDocumentTest, DoesNotLookAtTheOtherPartsOnceOneIsTaken)
{
    addWaveFile();
    const Object audio = dataObject("audio", audioPartObject());
    expectPart(audio.with("midiAi", badMidiAiPart).with("midi", "null"), KRT_PLX_PART_AUDIO);
    const Object midiAi = dataObject("midiAi", midiAiPartObject());
    expectPart(midiAi.with("midi", badMidiPart), KRT_PLX_PART_MIDI_AI);
}

TEST_F(DataDocumentTest, NeedsNothingButThePartWhenOnlyThePartIsRead)
{
    EXPECT_NE(readPart(Object{{"midi", midiPartObject()}}), nullptr);
    EXPECT_NE(readPart(dataObject().with("id", "1").with("name", "[]")), nullptr);
    EXPECT_NE(readPart(dataObject().with("filter", "7").with("vendor", "7")), nullptr);
}

TEST_F(DataDocumentTest, ChangesNothingButThePartWhenOnlyThePartIsRead)
{
    const Object properties = support::propertyObject()
                                  .with("part", R"({"type": "audio"})")
                                  .with("vendor", jsonString("Studio"))
                                  .with("filter", R"({"genres": ["Lied"]})");
    const Object data = dataObject()
                            .with("id", jsonString("Other"))
                            .with("name", jsonString("Other"))
                            .with("vendor", jsonString("Other"))
                            .with("filter", R"({"genres": ["Other"]})");
    KRT_PLX_ClipBase* clip = readSystemClip(properties.text(), data.text());
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), KRT_PLX_PART_AUDIO);
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), KRT_PLX_PART_MIDI);
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "ID");
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "Name");
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio");
    KRT_PLX_Filter* filter = KRT_PLX_Clip_filter(clip);
    EXPECT_EQ(support::count(KRT_PLX_Filter_numGenres, filter), 1u);
    EXPECT_EQ(utf8(KRT_PLX_Filter_genre(filter, 0)), "Lied");
    EXPECT_EQ(utf8(KRT_PLX_Filter_vendor(filter, 0)), "Studio");
}

TEST_F(DataDocumentTest, KeepsTheLoadedPartWhenReadingItAgainFails)
{
    KRT_PLX_PartBase* part = readPart(dataObject());
    ASSERT_NE(part, nullptr);
    const std::vector<std::string> bad = {"", "{", "{}", dataObject("midi", badMidiPart),
                                          dataObject().with("midiAi", "5")};
    for (const std::string& document : bad) {
        ASSERT_EQ(readPart(document), nullptr) << document;
        ASSERT_EQ(KRT_PLX_Clip_midiPart(clipOfPart()), part) << document;
        EXPECT_EQ(KRT_PLX_MidiPartBase_duration(part), 1920);
    }
}

TEST_F(DataDocumentTest, ReadsThePartOfAClipThatWasReadWhole)
{
    KRT_PLX_ClipBase* clip = readWhole(dataObject());
    ASSERT_NE(clip, nullptr);
    const Object part = midiPartObject().with("duration", "77");
    writeClipFile(dataObject("midi", part).text());
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(KRT_PLX_Clip_midiPart(clip)), 77);
}

} // namespace
