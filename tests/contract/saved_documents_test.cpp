// Whole clips with everything in them, saved in both forms and compared byte by byte with the
// documents in expected/. There the word ID stands for the clip's ID.

#include "support/editing.h"
#include "support/properties.h"
#include "support/saving.h"

using support::addParameter;
using support::Form;
using support::Path;
using support::text;

namespace {

Path expectedFolder(const std::string& name)
{
    return support::sourceFolder(KRT_PLX_TEST_SOURCE_FOLDER) / "tests" / "contract" / "expected" /
           name;
}

// --- What all three have in common ------------------------------------------------------------------

using Add = bool (*)(KRT_PLX_Filter*, const KRT_PLX_Char*);

void addTags(KRT_PLX_ClipBase* clip, Add add, std::initializer_list<const char*> tags)
{
    for (const char* const tag : tags) {
        EXPECT_TRUE(add(KRT_PLX_MutableClip_filter(clip), text(tag).c_str()));
    }
}

void addLanguages(KRT_PLX_ClipBase* clip, std::initializer_list<std::int32_t> languages)
{
    for (const std::int32_t language : languages) {
        KRT_PLX_MutableFilter_addLanguage(KRT_PLX_MutableClip_filter(clip), language);
    }
}

void fillReverb(KRT_PLX_EffectBase* effect)
{
    KRT_PLX_MutableEffectParameter_setValueInt32(addParameter(effect, "Room"), -2147483647 - 1);
    KRT_PLX_MutableEffectParameter_setValueFloat(addParameter(effect, "Mix"), 0.1f);
    KRT_PLX_MutableEffectParameter_setValueString(addParameter(effect, "Preset"),
                                                  text("Hall \"A\"").c_str());
    addParameter(effect, "Never set");
    KRT_PLX_MutableEffectParameter_setValueInt32(addParameter(effect, "Bypass"), 1);
}

void addDelay(KRT_PLX_PartBase* part)
{
    KRT_PLX_EffectBase* const delay =
        KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0, text("com.example.delay").c_str());
    addParameter(delay, "Never set");
}

void addArpeggiator(KRT_PLX_PartBase* part)
{
    KRT_PLX_EffectBase* const effect =
        KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, text("com.example.arpeggiator").c_str());
    KRT_PLX_MutableEffectParameter_setValueInt32(addParameter(effect, "Steps"), 3);
    KRT_PLX_MutableEffectParameter_setValueFloat(addParameter(effect, "Gate"), -64.0f);
}

struct NoteText {
    const char* lyric;
    const char* phoneme;
    std::uint32_t language;
};

KRT_PLX_NoteBase* addNote(KRT_PLX_PartBase* part, std::int32_t pos, std::int32_t duration,
                          const NoteText& texts)
{
    return KRT_PLX_MutableMidiPart_insertNote(part, pos, duration, text(texts.lyric).c_str(),
                                              text(texts.phoneme).c_str(), texts.language);
}

void sing(KRT_PLX_NoteBase* note, std::uint32_t number, std::uint32_t velocity)
{
    KRT_PLX_MutableNote_setNumber(note, number);
    KRT_PLX_MutableNote_setVelocity(note, velocity);
}

void setExpression(KRT_PLX_NoteBase* note, const std::array<std::uint32_t, 4>& values,
                   std::uint32_t opening)
{
    KRT_PLX_MutableNote_setAccent(note, values[0]);
    KRT_PLX_MutableNote_setBendDepth(note, values[1]);
    KRT_PLX_MutableNote_setBendLength(note, values[2]);
    KRT_PLX_MutableNote_setDecay(note, values[3]);
    KRT_PLX_MutableNote_setOpening(note, opening);
}

void setAiExpression(KRT_PLX_NoteBase* note, const std::array<float, 13>& values)
{
    auto next = values.begin();
    support::forEachProperty<KRT_PLX_NoteBase, float>(
        [&](const auto& property) { property.set(note, *next++); });
}

void setSkill(KRT_PLX_NoteBase* note, std::int32_t duration, std::uint32_t pre, std::uint32_t post)
{
    KRT_PLX_SingingSkillBase* const skill = KRT_PLX_MutableNote_singingSkill(note);
    KRT_PLX_MutableSingingSkill_setDuration(skill, duration);
    KRT_PLX_MutableSingingSkill_setPreWeight(skill, pre);
    KRT_PLX_MutableSingingSkill_setPostWeight(skill, post);
}

KRT_PLX_VibratoBase* setVibrato(KRT_PLX_NoteBase* note, std::uint32_t type, std::int32_t duration)
{
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
    KRT_PLX_MutableVibrato_setType(vibrato, type);
    KRT_PLX_MutableVibrato_setDuration(vibrato, duration);
    return vibrato;
}

struct Point {
    std::int32_t pos;
    std::uint32_t value;
};

void addPoints(KRT_PLX_VibratoBase* vibrato, std::uint32_t type,
               std::initializer_list<Point> points)
{
    for (const Point& point : points) {
        KRT_PLX_MutableVibrato_insertParameter(vibrato, type, point.pos, point.value);
    }
}

struct Dvqm {
    std::string compID;
    std::vector<std::string> levelNames;
    bool isProtected;
    std::uint32_t speed;
    float topFactor;
};

void setDvqm(KRT_PLX_DvqmBase* dvqm, const Dvqm& values)
{
    KRT_PLX_MutableDvqm_setCompID(dvqm, text(values.compID).c_str());
    for (const std::string& level : values.levelNames) {
        KRT_PLX_MutableDvqm_addLevelName(dvqm, text(level).c_str());
    }
    KRT_PLX_MutableDvqm_protect(dvqm, values.isProtected);
    KRT_PLX_MutableDvqm_setSpeed(dvqm, values.speed);
    KRT_PLX_MutableDvqm_setTopFactor(dvqm, values.topFactor);
}

struct Event {
    std::int32_t pos;
    std::int32_t value;
};

struct Lane {
    std::uint32_t type;
    std::vector<Event> events;
};

void addLane(KRT_PLX_PartBase* part, const Lane& lane)
{
    KRT_PLX_MidiControllerBase* const own =
        KRT_PLX_MutableMidiPart_addMidiController(part, lane.type);
    for (const Event& event : lane.events) {
        KRT_PLX_MutableMidiController_insertEvent(own, event.pos, event.value);
    }
}

// --- The three clips ----------------------------------------------------------------------------------

struct WholeClip {
    const char* folder; // in expected/, without the form
    support::Text name;
    void (*build)(KRT_PLX_ClipBase*, const Path& waveFile);
};

void addFirstMidiNote(KRT_PLX_PartBase* part)
{
    KRT_PLX_NoteBase* const note = addNote(part, -120, 480, {"さ", "s a", 4});
    sing(note, 60, 100);
    KRT_PLX_MutableNote_setProtected(note, true);
    setExpression(note, {1, 2, 3, 4}, 5);
    KRT_PLX_MutableNote_setFallPort(note, true);
    KRT_PLX_MutableNote_setRisePort(note, true);
    setAiExpression(note, {0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0});
    setSkill(note, 240, 0, 127);
    KRT_PLX_VibratoBase* const vibrato = setVibrato(note, 16, 480);
    addPoints(vibrato, 0, {{240, 64}, {0, 0}, {120, 32}});
    addPoints(vibrato, 1, {{0, 64}, {480, 127}});
    setDvqm(KRT_PLX_MutableNote_dvqm(note, true), {"ATTACK-1", {"weak", "strong"}, true, 0, 0.0f});
    setDvqm(KRT_PLX_MutableNote_dvqm(note, false), {"RELEASE-1", {"only"}, false, 100, 1.9f});
}

void addMidiNotes(KRT_PLX_PartBase* part)
{
    addNote(part, 720, 1, {"ら", "4 a", 0});
    addFirstMidiNote(part);
    KRT_PLX_NoteBase* const second = addNote(part, 480, 240, {"く", "k M", 127});
    sing(second, 62, 64);
    setVibrato(second, 3, 240);
    setDvqm(KRT_PLX_MutableNote_dvqm(second, true), {"ATTACK-2", {}, true, 1, 1.0f});
    setDvqm(KRT_PLX_MutableNote_dvqm(second, false),
            {"RELEASE-2", {"1", "2", "3", "4"}, false, 50, 1.0f});
}

void buildMidi(KRT_PLX_ClipBase* clip, const Path&)
{
    KRT_PLX_MutableClip_setVendorName(clip, text("Stüdio").c_str());
    KRT_PLX_MutableClip_setPartKey(clip, 30);
    KRT_PLX_MutableClip_setPartTempo(clip, 12345);
    addTags(clip, KRT_PLX_MutableFilter_addGenre, {"Pop", "ロック"});
    addTags(clip, KRT_PLX_MutableFilter_addType, {"Melody", "Bass"});
    addTags(clip, KRT_PLX_MutableFilter_addSingerID, {"singer-1"});
    addTags(clip, KRT_PLX_MutableFilter_addSingerGroup, {"Choir", "Soloists"});
    addTags(clip, KRT_PLX_MutableFilter_addVendor, {"Other", ""});
    addLanguages(clip, {0, 4, 127});
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiPart(clip);
    KRT_PLX_MutableMidiPart_setDuration(part, 7680);
    KRT_PLX_MutableMidiPart_setStyleName(part, text("Bright\nand early").c_str());
    KRT_PLX_MutableMidiPart_setStylePresetID(part, text("preset-7").c_str());
    KRT_PLX_MutableMidiPart_setVoiceBankID(part, text("VOICEBANK-000001").c_str());
    KRT_PLX_MutableMidiPart_setLangID(part, 4);
    KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, text("AIVOICEBANK-0002").c_str());
    addDelay(part);
    fillReverb(
        KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0, text("com.example.reverb").c_str()));
    addArpeggiator(part);
    addMidiNotes(part);
    addLane(part, {11, {{2147483647, -64}}});
    addLane(part, {3, {{240, 8191}, {0, 0}, {-240, -8192}}});
    addLane(part, {0, {{0, 64}, {480, 127}}});
    addLane(part, {2, {{0, 24}}});
    addLane(part, {1, {}});
}

void buildMidiAi(KRT_PLX_ClipBase* clip, const Path&)
{
    addTags(clip, KRT_PLX_MutableFilter_addType, {"Melody"});
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiAiPart(clip);
    KRT_PLX_MutableMidiPart_setDuration(part, 1920);
    KRT_PLX_MutableMidiPart_setStyleName(part, text("Calm").c_str());
    KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, text("AIVOICEBANK-0002").c_str());
    for (const std::uint32_t language : {2u, 0u, 2u}) {
        KRT_PLX_MutableMidiPart_addAiLangID(part, language);
    }
    addDelay(part);
    addArpeggiator(part);
    KRT_PLX_NoteBase* const first = addNote(part, 0, 480, {"la", "l a", 2});
    sing(first, 64, 127);
    setExpression(first, {100, 100, 100, 100}, 0);
    KRT_PLX_MutableNote_setRisePort(first, true);
    setAiExpression(first, {0.0f, 0.1f, 0.125f, 0.25f, 0.8f, 0.375f, 0.4f, 0.5f, 0.6f, 0.625f, 0.7f,
                            0.9f, 1.0f});
    setSkill(first, 480, 127, 0);
    addPoints(setVibrato(first, 0, 10), 0, {{10, 127}});
    setDvqm(KRT_PLX_MutableNote_dvqm(first, true), {"ATTACK-1", {"weak"}, true, 0, 0.0f});
    sing(addNote(part, 480, 480, {"lo", "l o", 0}), 66, 90);
    addLane(part, {9, {{1, 63}, {0, -64}}});
    addLane(part, {7, {{0, 1}}});
}

void buildAudio(KRT_PLX_ClipBase* clip, const Path& waveFile)
{
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    KRT_PLX_MutableClip_setPartKey(clip, 5);
    KRT_PLX_MutableClip_setPartTempo(clip, 9000);
    addTags(clip, KRT_PLX_MutableFilter_addGenre, {"Pop"});
    addLanguages(clip, {3});
    KRT_PLX_PartBase* const part = support::createAudioPart(clip, waveFile);
    KRT_PLX_MutableAudioPart_setRegion(part, 10, 20);
    fillReverb(
        KRT_PLX_MutableAudioPart_insertAudioEffect(part, 0, text("com.example.reverb").c_str()));
    KRT_PLX_MutableAudioPart_insertAudioEffect(part, 1, text("com.example.delay").c_str());
}

// --- The comparison -----------------------------------------------------------------------------------

using Parameters = std::tuple<WholeClip, Form>;

std::string formName(Form form)
{
    return form == Form::compact ? "compact" : "indented";
}

class SavedDocuments : public SaveTest, public testing::WithParamInterface<Parameters> {};

TEST_P(SavedDocuments, AreAsExpectedByteByByte)
{
    const auto& [whole, form] = GetParam();
    whole.build(clip, addWaveFile("take 1, さくら.wav"));
    const auto [saved, code] = support::save(clip, whole.name, form);
    ASSERT_EQ(code, KRT_PLX_RESULT_OK);
    const Documents documents = documentsOf(saved);
    const Path folder = expectedFolder(whole.folder + ("-" + formName(form)));
    EXPECT_EQ(documents.properties, support::readFile(folder / "property.json"));
    EXPECT_EQ(documents.data, support::readFile(folder / "data.kxclip"));
}

const WholeClip wholeClips[] = {
    {"midi", text("Über \"𠮷野\" \\ / \t\x01\x1F\x7F"), buildMidi},
    {"midi-ai", text("AI"), buildMidiAi},
    {"audio", text("Loop"), buildAudio},
};

std::string nameOf(const testing::TestParamInfo<Parameters>& parameters)
{
    const WholeClip& whole = std::get<WholeClip>(parameters.param);
    const Form form = std::get<Form>(parameters.param);
    return support::replaced(whole.folder + ("_" + formName(form)), "-", "_");
}

INSTANTIATE_TEST_SUITE_P(Clips, SavedDocuments,
                         testing::Combine(testing::ValuesIn(wholeClips),
                                          testing::Values(Form::compact, Form::indented)),
                         nameOf);

} // namespace
