// The part objects of a data document: what an audio part and the two kinds of MIDI parts need, and
// what they start from.

#include <string>
#include <vector>

#include "support/reading.h"

namespace {

using support::array;
using support::audioPartObject;
using support::count;
using support::dataObject;
using support::jsonString;
using support::midiAiPartObject;
using support::midiPartObject;
using support::notArrays;
using support::notObjects;
using support::notStrings;
using support::Object;
using support::utf8;

const std::string sixteenUnits = "ABCDEFGHIJKLMNOP";

// --- Audio parts ---

class AudioPartDocumentTest : public ReaderTest {
protected:
    AudioPartDocumentTest() { addWaveFile(); }

    KRT_PLX_PartBase* readWith(std::string_view key, const std::optional<std::string>& value)
    {
        return readPart(dataObject("audio", audioPartObject().with(key, value)));
    }

    std::string folderOfWaves()
    {
        return utf8(support::pathText(clipFolder()).c_str()) + "\\audio\\";
    }
};

TEST_F(AudioPartDocumentTest, NamesItsWaveFileByItsFullPath)
{
    KRT_PLX_PartBase* part = readPart(dataObject("audio", audioPartObject()));
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_AudioPartBase_wavFilePath(part)), folderOfWaves() + "take.wav");
    EXPECT_EQ(KRT_PLX_AudioPart_parent(part), clipOfPart());
    EXPECT_FALSE(KRT_PLX_PartBase_isMutable(part));
}

TEST_F(AudioPartDocumentTest, FindsItsWaveFileBesideAClipThatIsReadWhole)
{
    KRT_PLX_ClipBase* clip = readWhole(dataObject("audio", audioPartObject()));
    ASSERT_NE(clip, nullptr);
    KRT_PLX_PartBase* part = KRT_PLX_Clip_audioPart(clip);
    EXPECT_EQ(utf8(KRT_PLX_AudioPartBase_wavFilePath(part)), folderOfWaves() + "take.wav");
}

TEST_F(AudioPartDocumentTest, NeedsTheNameOfAWaveFile)
{
    EXPECT_EQ(readWith("wavFileName", std::nullopt), nullptr);
    EXPECT_EQ(readWith("wavFileName", jsonString("")), nullptr);
    for (const std::string& value : notStrings()) {
        EXPECT_EQ(readWith("wavFileName", value), nullptr) << value;
    }
}

TEST_F(AudioPartDocumentTest, NeedsTheWaveFileItself)
{
    std::filesystem::create_directory(clipFolder() / "audio" / "folder.wav");
    support::writeFile(clipFolder() / "beside.wav", "RIFF");
    for (const std::string_view name :
         {"missing.wav", "take", "take.wav2", "folder.wav", "beside.wav", "missing\\\\take.wav"}) {
        EXPECT_EQ(readWith("wavFileName", jsonString(name)), nullptr) << name;
    }
    std::filesystem::remove(clipFolder() / "audio" / "take.wav");
    EXPECT_EQ(readWith("wavFileName", jsonString("take.wav")), nullptr);
}

TEST_F(AudioPartDocumentTest, TakesNamesInEveryScript)
{
    for (const std::string_view name : {"prise d'été.wav", "さくら.wav", "𝄞.wav", "a"}) {
        addWaveFile(name);
        KRT_PLX_PartBase* part = readWith("wavFileName", jsonString(name));
        ASSERT_NE(part, nullptr) << name;
        EXPECT_EQ(utf8(KRT_PLX_AudioPartBase_wavFilePath(part)),
                  folderOfWaves() + std::string(name));
    }
}

TEST_F(AudioPartDocumentTest, TakesANameWithABackslashAsItStands)
{
    support::writeFile(clipFolder() / "audio" / "second" / "take.wav", "RIFF");
    KRT_PLX_PartBase* part = readWith("wavFileName", jsonString("second\\\\take.wav"));
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_AudioPartBase_wavFilePath(part)), folderOfWaves() + "second\\take.wav");
}

TEST_F(AudioPartDocumentTest, HasNoRegion)
{
    const Object object = audioPartObject().with("begin", "5").with("end", "10");
    KRT_PLX_PartBase* part = readPart(dataObject("audio", object));
    EXPECT_EQ(KRT_PLX_AudioPartBase_begin(part), 0);
    EXPECT_EQ(KRT_PLX_AudioPartBase_end(part), 0);
}

TEST_F(AudioPartDocumentTest, TakesAudioEffectsOnlyFromAnArray)
{
    const std::string effects = array({R"({"id": "reverb"})", R"({"id": "delay"})"});
    KRT_PLX_PartBase* part = readWith("audioEffects", effects);
    EXPECT_EQ(count(KRT_PLX_AudioPartBase_numAudioEffects, part), 2u);
    KRT_PLX_EffectBase* effect = KRT_PLX_AudioPart_audioEffect(part, 0);
    EXPECT_EQ(utf8(KRT_PLX_EffectBase_id(effect)), "reverb");
    EXPECT_EQ(KRT_PLX_AudioEffect_parent(effect), part);

    for (const std::string& value : notArrays()) {
        part = readWith("audioEffects", value);
        EXPECT_EQ(count(KRT_PLX_AudioPartBase_numAudioEffects, part), 0u) << value;
    }
}

// --- What both kinds of MIDI parts have ---

struct MidiKind {
    std::string key;
    std::string voiceKey;
    Object object;
    std::uint32_t type;
};

class MidiPartDocumentTest : public ReaderTest, public testing::WithParamInterface<MidiKind> {
protected:
    KRT_PLX_PartBase* readObject(const Object& object)
    {
        return readPart(dataObject(GetParam().key, object));
    }
    KRT_PLX_PartBase* readWith(std::string_view key, const std::optional<std::string>& value)
    {
        return readObject(GetParam().object.with(key, value));
    }
};

INSTANTIATE_TEST_SUITE_P(
    OfBothKinds, MidiPartDocumentTest,
    testing::Values(MidiKind{"midi", "voice", midiPartObject(), KRT_PLX_PART_MIDI},
                    MidiKind{"midiAi", "aiVoice", midiAiPartObject(), KRT_PLX_PART_MIDI_AI}),
    [](const auto& kind) { return kind.param.key; });

TEST_P(MidiPartDocumentTest, StartsEmpty)
{
    KRT_PLX_PartBase* part = readObject(GetParam().object);
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(KRT_PLX_PartBase_type(part), GetParam().type);
    EXPECT_FALSE(KRT_PLX_PartBase_isMutable(part));
    EXPECT_EQ(KRT_PLX_MidiPart_parent(part), clipOfPart());
    EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDSize(part), 0u);
    EXPECT_EQ(count(KRT_PLX_MidiPartBase_numAudioEffects, part), 0u);
    EXPECT_EQ(count(KRT_PLX_MidiPartBase_numMidiEffects, part), 0u);
    EXPECT_EQ(count(KRT_PLX_MidiPartBase_numNotes, part), 0u);
    for (std::uint32_t type = 0; type < 13; ++type) {
        EXPECT_EQ(KRT_PLX_MidiPart_midiController(part, type), nullptr) << type;
    }
}

TEST_P(MidiPartDocumentTest, NeedsAVoiceThatIsAnObject)
{
    EXPECT_EQ(readWith(GetParam().voiceKey, std::nullopt), nullptr);
    for (const std::string& value : notObjects()) {
        EXPECT_EQ(readWith(GetParam().voiceKey, value), nullptr) << value;
    }
}

TEST_P(MidiPartDocumentTest, IgnoresListsThatAreNoArrays)
{
    for (const std::string_view key : {"notes", "controllers", "audioEffects", "midiEffects"}) {
        for (const std::string& value : notArrays()) {
            KRT_PLX_PartBase* part = readWith(key, value);
            ASSERT_NE(part, nullptr) << key << value;
            EXPECT_EQ(count(KRT_PLX_MidiPartBase_numNotes, part), 0u);
            EXPECT_EQ(count(KRT_PLX_MidiPartBase_numAudioEffects, part), 0u);
            EXPECT_EQ(count(KRT_PLX_MidiPartBase_numMidiEffects, part), 0u);
        }
    }
}

TEST_P(MidiPartDocumentTest, SkipsElementsThatAreNoObjects)
{
    std::vector<std::string> elements = notObjects();
    elements.insert(elements.begin() + 3, support::noteObject());
    elements.insert(elements.begin() + 5, R"({"id": "effect"})");
    elements.insert(elements.begin() + 7, R"({"name": "air", "events": [{"pos": 0, "value": 1}]})");
    const Object part = GetParam()
                            .object.with("notes", array(elements))
                            .with("controllers", array(elements))
                            .with("audioEffects", array(elements))
                            .with("midiEffects", array(elements));
    KRT_PLX_PartBase* read = readObject(part.reversed());
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(count(KRT_PLX_MidiPartBase_numNotes, read), 1u);
    EXPECT_EQ(count(KRT_PLX_MidiPartBase_numAudioEffects, read), 1u);
    EXPECT_EQ(count(KRT_PLX_MidiPartBase_numMidiEffects, read), 1u);
    EXPECT_NE(KRT_PLX_MidiPart_midiController(read, 10), nullptr);
}

// --- Parts sung by a voice bank ---

class VoiceDocumentTest : public ReaderTest {
protected:
    KRT_PLX_PartBase* readWith(std::string_view key, const std::optional<std::string>& value)
    {
        const Object voice = {{"compID", jsonString(sixteenUnits)}, {"langID", "1"}};
        return readMidiPartWith("voice", voice.with(key, value));
    }
};

TEST_F(VoiceDocumentTest, FillsVoiceBankAndLanguage)
{
    KRT_PLX_PartBase* part = readWith("langID", "4");
    EXPECT_EQ(utf8(KRT_PLX_MidiPartBase_voiceBankID(part)), sixteenUnits);
    EXPECT_EQ(KRT_PLX_MidiPartBase_langID(part), 4u);
    EXPECT_EQ(utf8(KRT_PLX_MidiPartBase_aiVoiceBankID(part)), "");
    EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDSize(part), 0u);
}

TEST_F(VoiceDocumentTest, DoesNotLookAtTheAiVoice)
{
    const Object aiVoice = {{"compID", jsonString(sixteenUnits)},
                            {"langIDs", R"([{"langID": 3}])"}};
    KRT_PLX_PartBase* part = readMidiPartWith("aiVoice", aiVoice);
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_MidiPartBase_aiVoiceBankID(part)), "");
    EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDSize(part), 0u);
    EXPECT_NE(readMidiPartWith("aiVoice", "5"), nullptr);
}

// --- Parts sung by an AI voice ---

class AiVoiceDocumentTest : public ReaderTest {
protected:
    KRT_PLX_PartBase* readWith(std::string_view key, const std::optional<std::string>& value)
    {
        const Object voice = Object{{"compID", jsonString(sixteenUnits)}}.with(key, value);
        return readPart(dataObject("midiAi", midiAiPartObject().with("aiVoice", voice)));
    }

    std::vector<std::uint32_t> readLanguages(const std::string& value)
    {
        KRT_PLX_PartBase* part = readWith("langIDs", value);
        EXPECT_NE(part, nullptr) << value;
        std::vector<std::uint32_t> languages;
        for (std::uint64_t i = 0; i < KRT_PLX_MidiPartBase_aiLangIDSize(part); ++i) {
            languages.push_back(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, i));
        }
        EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, languages.size()),
                  KRT_PLX_NO_LANGUAGE);
        return languages;
    }
};

TEST_F(AiVoiceDocumentTest, FillsTheAiVoiceBankOnly)
{
    KRT_PLX_PartBase* part = readWith("langID", "4");
    EXPECT_EQ(utf8(KRT_PLX_MidiPartBase_aiVoiceBankID(part)), sixteenUnits);
    EXPECT_EQ(utf8(KRT_PLX_MidiPartBase_voiceBankID(part)), "");
    EXPECT_EQ(KRT_PLX_MidiPartBase_langID(part), KRT_PLX_NO_LANGUAGE);
    EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDSize(part), 0u);
}

TEST_F(AiVoiceDocumentTest, TakesLanguagesInTheirOrderWithRepetitions)
{
    using Languages = std::vector<std::uint32_t>;
    EXPECT_EQ(readLanguages("[]"), Languages{});
    EXPECT_EQ(readLanguages(R"([{"langID": 4}, {"langID": 1}, {"langID": 4}])"),
              (Languages{4, 1, 4}));
    for (const std::string& value : notArrays()) {
        EXPECT_EQ(readLanguages(value), Languages{}) << value;
    }
}

TEST_F(AiVoiceDocumentTest, SkipsLanguagesThatAreNoneFrom0To127)
{
    support::expectRequiredInteger({0, 127}, [this](const auto& value) {
        const std::string element = Object().with("langID", value);
        const auto languages =
            readLanguages(R"([{"langID": 9}, )" + element + R"(, {"langID": 8}])");
        EXPECT_THAT(languages, testing::AnyOf(testing::ElementsAre(9, 8),
                                              testing::ElementsAre(9, testing::_, 8)));
        return languages.size() == 3 && std::to_string(languages[1]) == value;
    });
}

TEST_F(AiVoiceDocumentTest, SkipsLanguagesThatAreNoObjects)
{
    for (const std::string& value : notObjects()) {
        EXPECT_EQ(readLanguages(array({value, R"({"langID": 2})", value})),
                  std::vector<std::uint32_t>{2})
            << value;
    }
}

TEST_F(AiVoiceDocumentTest, DoesNotLookAtTheVoice)
{
    const Object object = midiAiPartObject().with(
        "voice", Object{{"compID", jsonString(sixteenUnits)}, {"langID", "3"}});
    KRT_PLX_PartBase* part = readPart(dataObject("midiAi", object));
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_MidiPartBase_voiceBankID(part)), "");
    EXPECT_EQ(KRT_PLX_MidiPartBase_langID(part), KRT_PLX_NO_LANGUAGE);
    EXPECT_NE(readPart(dataObject("midiAi", object.with("voice", "5"))), nullptr);
}

} // namespace
