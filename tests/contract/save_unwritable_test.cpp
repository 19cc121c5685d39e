// A clip with values that no document can hold (lone surrogates, numbers that are not finite) is not
// saved, wherever the value stands; values that are not written do not matter.
#include <limits>
#include <vector>

#include "support/clip_model.h"
#include "support/editing.h"
#include "support/saving.h"

using support::Text;
using support::text;
using support::units;

namespace {

// --- Texts ------------------------------------------------------------------------------------------

// Each 16 units long, so that they serve as IDs of voice banks too.
const Text badTexts[] = {
    text("abcdefghijklmno") + units({0xD800}),            // a high one at the end
    units({0xDBFF}) + text("abcdefghijklmno"),            // a high one before a letter
    text("abcdefgh") + units({0xDC00}) + text("ijklmno"), // a low one
    text("abcdefghijklmn") + units({0xDFFF, 0xD800}),     // two in the wrong order
    text("abcdefghijklm") + units({0xD83D, 0xD83D, 0xDE00}),
};

struct Place {
    const char* name;
    void (*put)(KRT_PLX_ClipBase*, const KRT_PLX_Char*);
};

KRT_PLX_Filter* tagsOf(KRT_PLX_ClipBase* clip)
{
    return KRT_PLX_MutableClip_filter(clip);
}

KRT_PLX_PartBase* midiOf(KRT_PLX_ClipBase* clip)
{
    return KRT_PLX_MutableClip_midiPart(clip);
}

KRT_PLX_NoteBase* noteOf(KRT_PLX_ClipBase* clip)
{
    return KRT_PLX_MutableMidiPart_note(midiOf(clip), 0);
}

KRT_PLX_EffectBase* effectOf(KRT_PLX_ClipBase* clip)
{
    return KRT_PLX_MutableMidiPart_insertAudioEffect(midiOf(clip), 0, text("x").c_str());
}

using C = KRT_PLX_ClipBase*;
using T = const KRT_PLX_Char*;

const Place anyPlaces[] = {
    {"vendor", [](C c, T t) { KRT_PLX_MutableClip_setVendorName(c, t); }},
    {"singer group", [](C c, T t) { KRT_PLX_MutableFilter_addSingerGroup(tagsOf(c), t); }},
    {"singer ID", [](C c, T t) { KRT_PLX_MutableFilter_addSingerID(tagsOf(c), t); }},
    {"type", [](C c, T t) { KRT_PLX_MutableFilter_addType(tagsOf(c), t); }},
    {"genre", [](C c, T t) { KRT_PLX_MutableFilter_addGenre(tagsOf(c), t); }},
    {"style name", [](C c, T t) { KRT_PLX_MutableMidiPart_setStyleName(midiOf(c), t); }},
    {"style preset", [](C c, T t) { KRT_PLX_MutableMidiPart_setStylePresetID(midiOf(c), t); }},
    {"audio effect", [](C c, T t) { KRT_PLX_MutableMidiPart_insertAudioEffect(midiOf(c), 0, t); }},
    {"MIDI effect", [](C c, T t) { KRT_PLX_MutableMidiPart_insertMidiEffect(midiOf(c), 0, t); }},
    {"parameter name",
     [](C c, T t) {
         KRT_PLX_MutableEffectParameter_setValueInt32(
             KRT_PLX_MutableEffect_addParameter(effectOf(c), t), 1);
     }},
    {"parameter text",
     [](C c, T t) {
         KRT_PLX_MutableEffectParameter_setValueString(
             KRT_PLX_MutableEffect_addParameter(effectOf(c), text("p").c_str()), t);
     }},
    {"lyric", [](C c, T t) { KRT_PLX_MutableNote_setLyric(noteOf(c), t); }},
    {"phoneme", [](C c, T t) { KRT_PLX_MutableNote_setPhoneme(noteOf(c), t); }},
};

const Place voiceBank = {"voice bank",
                         [](C c, T t) { KRT_PLX_MutableMidiPart_setVoiceBankID(midiOf(c), t); }};
const Place aiVoiceBank = {
    "AI voice bank", [](C c, T t) { KRT_PLX_MutableMidiPart_setAiVoiceBankID(midiOf(c), t); }};

void nameLevel(KRT_PLX_DvqmBase* dvqm, T compID, T levelName)
{
    KRT_PLX_MutableDvqm_setCompID(dvqm, compID);
    KRT_PLX_MutableDvqm_addLevelName(dvqm, levelName);
}

const Place attackID = {
    "attack",
    [](C c, T t) { nameLevel(KRT_PLX_MutableNote_dvqm(noteOf(c), true), t, text("x").c_str()); }};
const Place releaseLevel = {
    "release level",
    [](C c, T t) { nameLevel(KRT_PLX_MutableNote_dvqm(noteOf(c), false), text("x").c_str(), t); }};

class SaveText : public SaveTest {
protected:
    using CreatePart = KRT_PLX_PartBase* (*)(KRT_PLX_ClipBase*);

    // A fresh clip with a part and a note, and the text in that place.
    KRT_PLX_ClipBase* clipWith(CreatePart create, const Place& place, const Text& value)
    {
        KRT_PLX_ClipBase* const own = createMutableClip();
        support::insertNote(create(own), 0);
        place.put(own, value.c_str());
        return own;
    }

    void expectCode(std::uint32_t code, CreatePart create, const Place& place)
    {
        for (const Text& value : badTexts) {
            SCOPED_TRACE(place.name);
            const support::Tree before = support::treeOf(scratch());
            const auto result = support::save(clipWith(create, place, value));
            EXPECT_EQ(result.code, code);
            if (code != KRT_PLX_RESULT_OK) {
                EXPECT_EQ(result.clip, nullptr);
                EXPECT_EQ(support::treeOf(scratch()), before);
            }
        }
    }
};

TEST_F(SaveText, LoneSurrogatesInTheNameRefuseTheClip)
{
    support::createMidiPart(clip);
    for (const Text& name : badTexts) {
        expectRefused(KRT_PLX_RESULT_FILE_NOT_WRITTEN, name);
    }
}

TEST_F(SaveText, LoneSurrogatesAnywhereRefuseTheClip)
{
    for (const Place& place : anyPlaces) {
        expectCode(KRT_PLX_RESULT_FILE_NOT_WRITTEN, support::createMidiPart, place);
        expectCode(KRT_PLX_RESULT_FILE_NOT_WRITTEN, support::createMidiAiPart, place);
    }
    EXPECT_EQ(support::userClipCount(manager()), 0u);
}

TEST_F(SaveText, LoneSurrogatesInTheOwnVoiceRefuseTheClip)
{
    expectCode(KRT_PLX_RESULT_FILE_NOT_WRITTEN, support::createMidiPart, voiceBank);
    expectCode(KRT_PLX_RESULT_FILE_NOT_WRITTEN, support::createMidiPart, attackID);
    expectCode(KRT_PLX_RESULT_FILE_NOT_WRITTEN, support::createMidiPart, releaseLevel);
    expectCode(KRT_PLX_RESULT_FILE_NOT_WRITTEN, support::createMidiAiPart, aiVoiceBank);
    EXPECT_EQ(support::userClipCount(manager()), 0u);
}

TEST_F(SaveText, LoneSurrogatesThatAreNotWrittenDoNoHarm)
{
    expectCode(KRT_PLX_RESULT_OK, support::createMidiPart, aiVoiceBank);
    expectCode(KRT_PLX_RESULT_OK, support::createMidiAiPart, voiceBank);
    expectCode(KRT_PLX_RESULT_OK, support::createMidiAiPart, attackID);
    expectCode(KRT_PLX_RESULT_OK, support::createMidiAiPart, releaseLevel);
    const Place vendorTag = {"vendor tag",
                             [](C c, T t) { KRT_PLX_MutableFilter_addVendor(tagsOf(c), t); }};
    expectCode(KRT_PLX_RESULT_OK, support::createMidiPart, vendorTag);
    const Place valueless = {"parameter without value",
                             [](C c, T t) { KRT_PLX_MutableEffect_addParameter(effectOf(c), t); }};
    expectCode(KRT_PLX_RESULT_OK, support::createMidiPart, valueless);
}

// Only some systems let such a name into a file system at all.
TEST_F(SaveText, ALoneSurrogateInTheNameOfTheWaveFileRefusesTheClip)
{
    const Text path = support::pathText(addWaveFile().parent_path()) + units({'\\', 'x', 0xD800});
    KRT_PLX_PartBase* const part = support::createAudioPart(clip, addWaveFile());
#ifdef _WIN32
    std::error_code error;
    std::filesystem::copy_file(addWaveFile(), std::filesystem::path(path), error);
    if (error) {
        GTEST_SKIP() << "no such file names here: " << error.message();
    }
    ASSERT_TRUE(KRT_PLX_MutableAudioPart_setWavFilePath(part, path.c_str()));
    expectRefused(KRT_PLX_RESULT_FILE_NOT_WRITTEN);
#else
    EXPECT_FALSE(KRT_PLX_MutableAudioPart_setWavFilePath(part, path.c_str()));
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
#endif
}

// --- Numbers ----------------------------------------------------------------------------------------

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

TEST_F(SaveTest, NoNumberInTheAiExpressionOfAnAiVoiceRefusesTheClip)
{
    KRT_PLX_NoteBase* const note = support::insertNote(support::createMidiAiPart(clip), 0);
    support::forEachProperty<KRT_PLX_NoteBase, float>([&](const auto& property) {
        SCOPED_TRACE(support::nameOf(property));
        EXPECT_TRUE(property.set(note, notANumber));
        expectRefused(KRT_PLX_RESULT_FILE_NOT_WRITTEN);
        EXPECT_TRUE(property.set(note, 0.5f));
    });
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
}

TEST_F(SaveTest, NoNumberInTheAiExpressionOfAVoiceBankDoesNoHarm)
{
    KRT_PLX_NoteBase* const note = support::insertNote(support::createMidiPart(clip), 0);
    support::forEachProperty<KRT_PLX_NoteBase, float>(
        [=](const auto& property) { EXPECT_TRUE(property.set(note, notANumber)); });
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
}

TEST_F(SaveTest, NoNumberInAnAttackRefusesTheClipOnlyWhereItIsWritten)
{
    const auto build = [this](KRT_PLX_PartBase* part) {
        KRT_PLX_DvqmBase* const dvqm = KRT_PLX_MutableNote_dvqm(support::insertNote(part, 0), true);
        EXPECT_TRUE(KRT_PLX_MutableDvqm_setTopFactor(dvqm, notANumber));
        EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK); // it has no names yet
        nameLevel(dvqm, text("ID").c_str(), text("level").c_str());
    };
    build(support::createMidiPart(clip));
    expectRefused(KRT_PLX_RESULT_FILE_NOT_WRITTEN);
    build(support::createMidiAiPart(clip));
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
}

TEST_F(SaveTest, NoNumberInAnEffectRefusesTheClip)
{
    KRT_PLX_PartBase* const midi = support::createMidiPart(clip);
    KRT_PLX_EffectBase* const effects[] = {
        KRT_PLX_MutableMidiPart_insertAudioEffect(midi, 0, text("x").c_str()),
        KRT_PLX_MutableMidiPart_insertMidiEffect(midi, 0, text("x").c_str())};
    for (KRT_PLX_EffectBase* const effect : effects) {
        KRT_PLX_EffectParameterBase* const parameter =
            KRT_PLX_MutableEffect_addParameter(effect, text("p").c_str());
        for (const float value : {notANumber, infinity, -infinity}) {
            KRT_PLX_MutableEffectParameter_setValueFloat(parameter, value);
            expectRefused(KRT_PLX_RESULT_FILE_NOT_WRITTEN);
        }
        KRT_PLX_MutableEffectParameter_setValueInt32(parameter, 1);
    }
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
}

TEST_F(SaveTest, NoNumberInAnEffectOfAnAudioPartLeavesNoCopyOfTheWaveFile)
{
    KRT_PLX_EffectBase* const effect = KRT_PLX_MutableAudioPart_insertAudioEffect(
        support::createAudioPart(clip, addWaveFile()), 0, text("x").c_str());
    KRT_PLX_MutableEffectParameter_setValueFloat(
        KRT_PLX_MutableEffect_addParameter(effect, text("p").c_str()), infinity);
    expectRefused(KRT_PLX_RESULT_FILE_NOT_WRITTEN);
}

} // namespace
