// Random clips, built through the interface, saved in both forms and read again by a new manager.
// What is read is compared with what was built, except for what saving and reading are known to lose.
#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>

#include "support/clip_model.h"
#include "support/effort.h"
#include "support/random_clip.h"
#include "support/saving.h"

using support::ClipModel;
using support::DvqmModel;
using support::EffectModel;
using support::Form;
using support::LaneModel;
using support::NoteModel;
using support::ParameterModel;
using support::PartModel;
using support::PointModel;
using support::propertyOf;
using support::text;
using support::utf8;
using support::VibratoModel;

namespace {

// --- What is lost ---------------------------------------------------------------------------------------

bool isWritten(const DvqmModel& dvqm)
{
    return !dvqm.values[KRT_PLX_DvqmBase_compID].empty() && !dvqm.levelNames.empty();
}

DvqmModel reread(const DvqmModel& dvqm)
{
    constexpr std::size_t mostLevelNames = 4;
    return isWritten(dvqm) && dvqm.levelNames.size() <= mostLevelNames ? dvqm : DvqmModel{};
}

void dropPointsBeyond(std::int32_t duration, std::vector<PointModel>& points)
{
    std::erase_if(points, [duration](const PointModel& point) { return point.pos > duration; });
}

VibratoModel reread(VibratoModel vibrato, std::int32_t noteDuration)
{
    std::int32_t& duration = vibrato.values[KRT_PLX_VibratoBase_duration];
    if (duration > noteDuration) {
        duration = 0;
        return {vibrato.values, {}, {}};
    }
    dropPointsBeyond(duration, vibrato.depths);
    dropPointsBeyond(duration, vibrato.rates);
    return vibrato;
}

void forgetTypeThree(NoteModel& note)
{
    note.values.forget("aiExp");
    if (isWritten(note.attack) || isWritten(note.release)) {
        note.singingSkill = {};
    }
    note.attack = reread(note.attack);
    note.release = reread(note.release);
}

void forgetTypeTwo(NoteModel& note)
{
    note.attack = {};
    note.release = {};
}

NoteModel reread(NoteModel note, std::uint32_t partType)
{
    const std::int32_t duration = note.values[KRT_PLX_NoteBase_duration];
    std::int32_t& skillDuration = note.singingSkill[KRT_PLX_SingingSkillBase_duration];
    if (skillDuration > duration) {
        skillDuration = 0;
    }
    if (partType == KRT_PLX_PART_MIDI) {
        forgetTypeThree(note);
    } else {
        forgetTypeTwo(note);
    }
    note.vibrato = reread(note.vibrato, duration);
    return note;
}

constexpr std::uint32_t integerType = 1;
constexpr std::uint32_t floatType = 2;

ParameterModel reread(ParameterModel parameter, bool isAudio)
{
    float& number = parameter.values[KRT_PLX_EffectParameterBase_valueFloat];
    if (parameter.type == integerType && isAudio && parameter.name != "Bypass") {
        number = static_cast<float>(parameter.values[KRT_PLX_EffectParameterBase_valueInt32]);
        parameter.values[KRT_PLX_EffectParameterBase_valueInt32] = KRT_PLX_VALUE_UNSET_INT32;
        parameter.type = floatType;
    } else if (number == std::numeric_limits<float>::lowest()) {
        number = propertyOf(KRT_PLX_EffectParameterBase_valueFloat).initial;
    }
    return parameter;
}

void rereadEffects(std::vector<EffectModel>& effects, bool areAudio)
{
    for (EffectModel& effect : effects) {
        std::erase_if(effect.parameters,
                      [](const ParameterModel& parameter) { return parameter.type == 0; });
        for (ParameterModel& parameter : effect.parameters) {
            parameter = reread(parameter, areAudio);
        }
    }
}

void forgetOtherVoice(PartModel& part)
{
    if (part.type == KRT_PLX_PART_MIDI) {
        part.values.forget("aiVoice");
        part.aiLangIDs.clear();
    } else {
        part.values.forget("voice");
    }
}

void rereadMidi(PartModel& part)
{
    forgetOtherVoice(part);
    for (NoteModel& note : part.notes) {
        note = reread(note, part.type);
    }
    std::erase_if(part.lanes, [](const LaneModel& lane) { return lane.events.empty(); });
}

bool hasWrittenTag(const ClipModel& clip)
{
    return !clip.languages.empty() ||
           std::ranges::any_of(clip.tags, [](const auto& tags) { return !tags.empty(); });
}

ClipModel reread(ClipModel clip, const std::string& wavePath)
{
    clip.vendors().clear();
    if (hasWrittenTag(clip)) {
        clip.vendors().push_back(clip.values[KRT_PLX_ClipBase_vendorName]);
    }
    rereadEffects(clip.part.audioEffects, true);
    rereadEffects(clip.part.midiEffects, false);
    if (clip.part.type == KRT_PLX_PART_AUDIO) {
        clip.values.forget("part");
        clip.part.wavFilePath = wavePath;
    } else {
        rereadMidi(clip.part);
    }
    return clip;
}

// --- The trip -------------------------------------------------------------------------------------------

constexpr std::uint32_t clipsPerSeed = 100;

class RoundTrip : public SaveTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    void saveInBothForms(KRT_PLX_ClipBase* own, const std::string& name)
    {
        const ClipModel model = support::modelOfEditable(own);
        for (const Form form : {Form::compact, Form::indented}) {
            const auto [saved, code] = support::save(own, name, form);
            ASSERT_EQ(code, KRT_PLX_RESULT_OK) << name;
            expected.emplace(utf8(KRT_PLX_Clip_id(saved)), model);
        }
        EXPECT_EQ(support::describe(support::modelOfEditable(own)), support::describe(model));
    }

    void expectReread(KRT_PLX_ClipBase* found)
    {
        const std::string id = utf8(KRT_PLX_Clip_id(found));
        ASSERT_TRUE(expected.contains(id));
        ASSERT_TRUE(KRT_PLX_Clip_readPart(found));
        const support::Path wave = userFolder() / id / "audio" / "take.wav";
        const ClipModel wanted = reread(expected.at(id), utf8(support::pathText(wave)));
        EXPECT_EQ(support::describe(support::modelOfRead(found)), support::describe(wanted));
        if (wanted.part.type == KRT_PLX_PART_AUDIO) {
            EXPECT_EQ(support::readFile(wave), "RIFF");
        }
    }

    std::map<std::string, ClipModel> expected; // by the ID of the saved clip
};

TEST_P(RoundTrip, GivesBackWhatIsNotLost)
{
    support::Random random(GetParam());
    const support::Path wave = addWaveFile();
    for (std::uint32_t i = 0; i < clipsPerSeed; ++i) {
        KRT_PLX_ClipBase* const own = createMutableClip();
        fillRandomly(own, random, wave);
        ASSERT_NO_FATAL_FAILURE(saveInBothForms(own, "Clip " + std::to_string(i)));
        KRT_PLX_MutableClip_destroy(own);
    }
    const auto other = support::createManager({systemFolder(), userFolder(), {}, {}});
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);
    ASSERT_EQ(support::userClipCount(other.get()), 2 * clipsPerSeed);
    for (std::uint64_t i = 0; i < 2 * clipsPerSeed; ++i) {
        expectReread(KRT_PLX_Manager_userClip(other.get(), i));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RoundTrip, testing::Range(1u, 1 + support::seeds(10)));

} // namespace
