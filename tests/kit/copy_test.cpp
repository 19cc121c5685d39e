// Copying clips: equal, or told.
#include <map>
#include <set>
#include <sstream>

#include "kit_fixture.h"
#include "support/random_clip.h"

namespace {

using kit::linked;
using kit::Notices;
using support::ClipModel;
using support::text;
using support::utf8;
using testing::ElementsAre;
using testing::IsEmpty;

// "clip.part.notes[3].attack.speed" -> "50"
using Lines = std::map<std::string, std::string>;

Lines linesOf(const ClipModel& model)
{
    Lines result;
    std::istringstream stream(describe(model));
    std::string line;
    std::string path;
    while (std::getline(stream, line)) {
        const std::size_t sign = line.find(" = ");
        if (line.starts_with("clip") && sign != std::string::npos) {
            path = line.substr(0, sign);
        }
        result[path] += line; // a text may have lines itself
    }
    return result;
}

bool isOneOf(const std::string& path, std::initializer_list<const char*> words)
{
    return std::ranges::any_of(words,
                               [&](const char* word) { return path.find(word) != path.npos; });
}

// What a notice would be about: "note 3", "attack 3", "lanes", "audio effect 0", "tags".
std::string itemOf(const std::string& path)
{
    const std::size_t bracket = path.find('[');
    const std::string number =
        bracket == path.npos ? "" : " " + std::to_string(std::stoi(path.substr(bracket + 1)));
    for (const char* const item : {"attack", "release", "singingSkill", "vibrato"}) {
        if (path.find(std::string("].") + item) != path.npos) {
            return item + number;
        }
    }
    if (isOneOf(path, {"clip.part.key", "clip.part.tempo", "clip.vendor."})) {
        return "clip";
    }
    if (isOneOf(path, {".notes["})) {
        return "note" + number;
    }
    if (isOneOf(path, {".audioEffects["})) {
        return "audioEffect" + number;
    }
    if (isOneOf(path, {".midiEffects["})) {
        return "midiEffect" + number;
    }
    if (isOneOf(path, {".lanes"})) {
        return "lanes";
    }
    return path.starts_with("clip.part") ? "part" : "tags";
}

std::string itemOf(const KRT_PLX_KitNotice& notice)
{
    static const char* const names[] = {"clip",   "tags",        "part",         "note",
                                        "attack", "release",     "singingSkill", "vibrato",
                                        "lanes",  "audioEffect", "midiEffect"};
    const bool isNumbered = notice.item >= KRT_PLX_KIT_NOTE && notice.item != KRT_PLX_KIT_LANE;
    return names[notice.item] + (isNumbered ? " " + std::to_string(notice.index) : "");
}

using Items = std::set<std::string>;

// What differs between two clips, but for the path of the wave file.
Items differences(const ClipModel& left, const ClipModel& right)
{
    Lines here = linesOf(left);
    Lines there = linesOf(right);
    Items items;
    for (Lines* const lines : {&here, &there}) {
        for (const auto& [path, line] : *lines) {
            if (here[path] != there[path] && path != "clip.part.wavFilePath") {
                items.insert(itemOf(path));
            }
        }
    }
    return items;
}

Items itemsOf(const Notices& notices)
{
    Items items;
    for (const KRT_PLX_KitNotice& notice : notices.all()) {
        items.insert(itemOf(notice));
    }
    return items;
}

class KitCopy : public SaveTest {
protected:
    KRT_PLX_ClipBase* edit(KRT_PLX_ClipBase* source, std::uint32_t language = KRT_PLX_NO_LANGUAGE)
    {
        return KRT_PLX_Kit_edit(linked(), source, language, notices.report());
    }

    // Saved and read.
    ClipModel savedModel(KRT_PLX_ClipBase* editable)
    {
        KRT_PLX_ClipBase* const saved = support::save(editable).clip;
        EXPECT_NE(saved, nullptr);
        EXPECT_TRUE(KRT_PLX_Clip_readPart(saved));
        return support::modelOfRead(saved);
    }

    // The copy of a clip of any kind, saved: what it lost must be what was told.
    void expectToldWhatDiffers(KRT_PLX_ClipBase* source, const ClipModel& model)
    {
        Notices told;
        KRT_PLX_ClipBase* const copy = createMutableClip();
        ASSERT_TRUE(KRT_PLX_Kit_fill(linked(), copy, source, KRT_PLX_NO_LANGUAGE, told.report()));
        EXPECT_EQ(told.report()->count, told.all().size());
        if (std::ranges::all_of(told.all(), isAboutSaving)) {
            EXPECT_EQ(describe(support::modelOfEditable(copy)), describe(model));
        }
        if (preventsSaving(told)) {
            EXPECT_EQ(support::save(copy).clip, nullptr);
        } else {
            EXPECT_EQ(differences(model, savedModel(copy)), itemsOf(told))
                << testing::PrintToString(told.lines());
        }
        KRT_PLX_MutableClip_destroy(copy);
    }

    static bool isAboutSaving(const KRT_PLX_KitNotice& notice)
    {
        return notice.reason == KRT_PLX_KIT_NOT_SAVED ||
               notice.reason == KRT_PLX_KIT_PREVENTS_SAVING;
    }

    static bool preventsSaving(const Notices& told)
    {
        return std::ranges::any_of(told.all(), [](const KRT_PLX_KitNotice& notice) {
            return notice.reason == KRT_PLX_KIT_PREVENTS_SAVING;
        });
    }

    Notices notices;
};

TEST_F(KitCopy, OfEveryExampleIsEqualOrTold)
{
    const support::Path library =
        support::place(KRT_PLX_TEST_SOURCE_FOLDER) / "examples" / "library";
    const auto examples =
        support::createManager({library / "system", scratch() / "none", {}, {library / "user"}});
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(examples.get()), KRT_PLX_RESULT_OK);
    KRT_PLX_KitQuery any = KRT_PLX_Kit_anyClip();
    std::uint64_t place = 0;
    int copied = 0;
    while (KRT_PLX_ClipBase* const found =
               KRT_PLX_Kit_find(linked(), examples.get(), &any, &place)) {
        SCOPED_TRACE(utf8(KRT_PLX_Clip_name(found)));
        if (KRT_PLX_Clip_readPart(found)) {
            expectToldWhatDiffers(found, support::modelOfRead(found));
            ++copied;
        }
    }
    EXPECT_GE(copied, 30);
}

class KitCopyOfRandom : public KitCopy, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(KitCopyOfRandom, IsEqualOrTold)
{
    support::Random random(GetParam());
    const support::Path wave = addWaveFile();
    for (int i = 0; i < 5; ++i) {
        KRT_PLX_ClipBase* const own = createMutableClip();
        fillRandomly(own, random, wave);
        ASSERT_NO_FATAL_FAILURE(expectToldWhatDiffers(own, support::modelOfEditable(own)));
        KRT_PLX_ClipBase* const saved = support::save(own).clip;
        ASSERT_TRUE(KRT_PLX_Clip_readPart(saved));
        ASSERT_NO_FATAL_FAILURE(expectToldWhatDiffers(saved, support::modelOfRead(saved)));
        KRT_PLX_MutableClip_destroy(own);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, KitCopyOfRandom, testing::Range(1u, 11u));

TEST_F(KitCopy, OfWhatSavingDoesNotKeepTellsSo)
{
    for (const auto create : {support::createMidiPart, support::createMidiAiPart}) {
        KRT_PLX_PartBase* const part = create(clip);
        for (std::int32_t pos = 0; pos < 9; ++pos) {
            support::insertNote(part, pos);
        }
        const auto notes = support::notesOf(part);
        for (const auto i : {0, 1, 2}) {
            KRT_PLX_MutableSingingSkill_setDuration(KRT_PLX_MutableNote_singingSkill(notes[i]), 99);
        }
        for (const auto i : {3, 4}) {
            KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(notes[i]);
            KRT_PLX_MutableVibrato_setDuration(vibrato, 99);
            KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_RATE, 99, 1);
        }
        KRT_PLX_MutableNote_setDuration(notes[0], 98);
        KRT_PLX_MutableNote_setDuration(notes[3], 98);
        KRT_PLX_MutableVibrato_setDuration(KRT_PLX_MutableNote_vibrato(notes[4]), 98);
        for (const auto& [i, levels] : {std::pair(1, 1), std::pair(5, 5), std::pair(6, 0)}) {
            KRT_PLX_DvqmBase* const dvqm = KRT_PLX_MutableNote_dvqm(notes[i], i == 1);
            KRT_PLX_MutableDvqm_setCompID(dvqm, text("ID").c_str());
            for (int level = 0; level < levels; ++level) {
                KRT_PLX_MutableDvqm_addLevelName(dvqm, text("level").c_str());
            }
        }
        KRT_PLX_MutableDvqm_setSpeed(KRT_PLX_MutableNote_dvqm(notes[7], true), 51);
        KRT_PLX_MutableNote_setFormantEnd(notes[8], 0.25F);
        KRT_PLX_MutableMidiPart_addMidiController(part, KRT_PLX_CONTROLLER_AIR);
        KRT_PLX_EffectBase* const effect =
            KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0, text("x").c_str());
        KRT_PLX_MutableEffectParameter_setValueInt32(support::addParameter(effect, "Bypass"), 1);
        KRT_PLX_MutableEffectParameter_setValueInt32(support::addParameter(effect, "Room"), 1);
        ASSERT_NO_FATAL_FAILURE(expectToldWhatDiffers(clip, support::modelOfEditable(clip)));
    }
}

// --- Languages --------------------------------------------------------------------------------------

class KitLanguage : public KitCopy {
protected:
    // A part of an AI voice with notes of these languages; "" is none.
    KRT_PLX_ClipBase* read(const std::string& aiLanguages,
                           const std::vector<std::string>& languages)
    {
        std::string notes;
        for (std::size_t i = 0; i < languages.size(); ++i) {
            notes += std::string(i == 0 ? "" : ",") + R"({"pos":)" + std::to_string(480 * i) +
                     R"(,"duration":480,"lyric":"la","phoneme":"l a","number":60,"velocity":90)" +
                     (languages[i].empty() ? "" : R"(,"langID":)" + languages[i]) + "}";
        }
        return readSystemClip(R"({"id":"i","name":"n","part":{"type":"midiAi"}})",
                              R"({"midiAi":{"duration":1,"aiVoice":{"compID":")" +
                                  std::string(support::voiceBankID) + R"(","langIDs":[)" +
                                  aiLanguages + R"(]},"notes":[)" + notes + "]}}");
    }

    std::vector<std::uint32_t> languagesOf(KRT_PLX_ClipBase* copy)
    {
        std::vector<std::uint32_t> languages;
        for (KRT_PLX_NoteBase* const note : support::notesOf(KRT_PLX_MutableClip_midiPart(copy))) {
            languages.push_back(KRT_PLX_NoteBase_langID(note));
        }
        return languages;
    }
};

TEST_F(KitLanguage, IsTheOneThatIsOffered)
{
    KRT_PLX_ClipBase* const copy = edit(read(R"({"langID":5})", {"", "7", ""}), 9);
    EXPECT_THAT(languagesOf(copy), ElementsAre(9, 7, 9));
    EXPECT_THAT(notices.lines(),
                ElementsAre("note 1 at 0: langID: had no language and was given one",
                            "note 3 at 960: langID: had no language and was given one"));
    EXPECT_EQ(notices.all()[1].value, 9u);
    EXPECT_EQ(notices.all()[1].index, 2u);
}

TEST_F(KitLanguage, IsThePartsOwnWhenNoneIsOffered)
{
    EXPECT_THAT(languagesOf(edit(read(R"({"langID":5})", {"", "7"}))), ElementsAre(5, 7));
    EXPECT_EQ(notices.all().at(0).value, 5u);
}

TEST_F(KitLanguage, IsThatOfAnotherNoteWhenThePartHasNone)
{
    EXPECT_THAT(languagesOf(edit(read("", {"", "7", "8"}))), ElementsAre(7, 7, 8));
}

TEST_F(KitLanguage, WithoutAnyNotesAreLeftOutAndTold)
{
    EXPECT_THAT(languagesOf(edit(read("", {"", ""}))), IsEmpty());
    EXPECT_THAT(notices.lines(), ElementsAre("note 1 at 0: langID: left out; it has no language",
                                             "note 2 at 480: langID: left out; it has no language",
                                             "part: aiVoice.langIDs: prevents saving"));
}

// --- Order and handles ------------------------------------------------------------------------------

TEST_F(KitCopy, KeepsTheOrderOfNotesAtOnePosition)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    std::vector<std::uint32_t> numbers;
    for (std::uint32_t number = 0; number < 6; ++number) {
        KRT_PLX_MutableNote_setNumber(support::insertNote(part, number < 4 ? 0 : 480), number);
    }
    for (KRT_PLX_NoteBase* const note :
         support::notesOf(KRT_PLX_MutableClip_midiPart(edit(clip)))) {
        numbers.push_back(KRT_PLX_NoteBase_number(note));
    }
    EXPECT_THAT(numbers, ElementsAre(3, 2, 1, 0, 5, 4));
}

TEST_F(KitCopy, ReplacesWhatTheTargetHad)
{
    KRT_PLX_ClipBase* const target = createMutableClip();
    support::insertNote(support::createMidiAiPart(target), 0);
    KRT_PLX_Filter* const tags = KRT_PLX_MutableClip_filter(target);
    KRT_PLX_MutableFilter_addGenre(tags, text("old").c_str());
    KRT_PLX_MutableFilter_addGenre(tags, text("older").c_str());
    KRT_PLX_MutableFilter_addVendor(tags, text("").c_str());
    KRT_PLX_MutableFilter_addLanguage(tags, 3);
    KRT_PLX_MutableClip_setVendorName(target, text("old").c_str());
    KRT_PLX_MutableClip_setPartKey(target, 3);
    support::createMidiPart(clip);
    ASSERT_TRUE(KRT_PLX_Kit_fill(linked(), target, clip, KRT_PLX_NO_LANGUAGE, notices.report()));
    EXPECT_EQ(describe(support::modelOfEditable(target)), describe(support::modelOfEditable(clip)));
    EXPECT_THAT(notices.lines(), IsEmpty());
}

TEST_F(KitCopy, OfWhatCannotBeReadIsNoneAndTold)
{
    KRT_PLX_ClipBase* const damaged =
        readSystemClip(R"({"id":"i","name":"n","part":{"type":"midi"}})", "{");
    EXPECT_EQ(edit(damaged), nullptr);
    EXPECT_EQ(edit(createMutableClip()), nullptr);
    EXPECT_THAT(notices.lines(), ElementsAre("part: cannot be read", "part: cannot be read"));
}

TEST_F(KitCopy, OfNothingAndIntoNothingIsFalse)
{
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const read =
        readSystemClip(R"({"id":"i","name":"n","part":{"type":"midi"}})", "{}");
    const auto fill = [](const KRT_PLX_Api* plx, KRT_PLX_ClipBase* to, KRT_PLX_ClipBase* from) {
        return KRT_PLX_Kit_fill(plx, to, from, KRT_PLX_NO_LANGUAGE, nullptr);
    };
    EXPECT_FALSE(fill(linked(), nullptr, clip));
    EXPECT_FALSE(fill(linked(), clip, nullptr));
    EXPECT_FALSE(fill(linked(), clip, clip));
    EXPECT_FALSE(fill(linked(), read, clip));
    EXPECT_FALSE(fill(nullptr, createMutableClip(), clip));
    const KRT_PLX_Api empty = {};
    EXPECT_FALSE(fill(&empty, createMutableClip(), clip));
    EXPECT_TRUE(fill(linked(), createMutableClip(), clip));
}

TEST_F(KitCopy, WithoutItsWaveFileTellsSo)
{
    const support::Path wave = addWaveFile();
    support::createAudioPart(clip, wave);
    std::filesystem::remove(wave);
    EXPECT_NE(edit(clip), nullptr);
    EXPECT_THAT(notices.lines(), ElementsAre("part: wavFileName: the wave file does not exist",
                                             "part: wavFileName: prevents saving"));
}

// --- What prevents saving ---------------------------------------------------------------------------

TEST_F(KitCopy, TellsWhatPreventsSaving)
{
    KRT_PLX_MutableClip_createMidiPart(clip);
    EXPECT_FALSE(KRT_PLX_Kit_checkSaving(linked(), clip, notices.report()));
    EXPECT_FALSE(KRT_PLX_Kit_checkSaving(linked(), clip, nullptr));
    EXPECT_FALSE(KRT_PLX_Kit_checkSaving(linked(), nullptr, nullptr));
    EXPECT_THAT(notices.lines(), ElementsAre("part: voice.compID: prevents saving",
                                             "part: voice.langID: prevents saving"));
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_NO_VOICE_BANK);
    KRT_PLX_NoteBase* const note = support::insertNote(support::createMidiAiPart(clip), 0);
    EXPECT_TRUE(KRT_PLX_Kit_checkSaving(linked(), clip, notices.report()));
    KRT_PLX_MutableNote_setPitchFine(note, std::numeric_limits<float>::quiet_NaN());
    EXPECT_FALSE(KRT_PLX_Kit_checkSaving(linked(), clip, notices.report()));
    EXPECT_EQ(notices.lines().back(), "note 1 at 0: pitchFine: prevents saving");
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_FILE_NOT_WRITTEN);
}

} // namespace
