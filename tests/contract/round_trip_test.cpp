// Random clips, built through the interface, saved in both forms and read again by a new manager.
// What comes back is compared with what was built, less what saving and reading are known to lose.
#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>

#include "clip_model.h"
#include "random_clip.h"
#include "support/saving.h"

using contract::ClipModel;
using contract::DvqmModel;
using contract::EffectModel;
using contract::LaneModel;
using contract::NoteModel;
using contract::ParameterModel;
using contract::PartModel;
using contract::PointModel;
using contract::SingingSkillModel;
using contract::VibratoModel;
using support::Form;
using support::text;
using support::utf8;

namespace {

// --- What is lost ---------------------------------------------------------------------------------------

bool isWritten(const DvqmModel& dvqm)
{
    return !dvqm.compID.empty() && !dvqm.levelNames.empty();
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
    if (vibrato.duration > noteDuration) {
        return {vibrato.type, 0, {}, {}};
    }
    dropPointsBeyond(vibrato.duration, vibrato.depths);
    dropPointsBeyond(vibrato.duration, vibrato.rates);
    return vibrato;
}

void forgetTypeThree(NoteModel& note)
{
    note.aiExpression.fill(0.5f);
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
    if (note.singingSkill.duration > note.duration) {
        note.singingSkill.duration = 0;
    }
    if (partType == KRT_PLX_PART_MIDI) {
        forgetTypeThree(note);
    } else {
        forgetTypeTwo(note);
    }
    note.vibrato = reread(note.vibrato, note.duration);
    return note;
}

constexpr std::uint32_t integerType = 1;
constexpr std::uint32_t floatType = 2;
constexpr float unsetFloat = std::numeric_limits<float>::min();

ParameterModel reread(ParameterModel parameter, bool isAudio)
{
    if (parameter.type == integerType && isAudio && parameter.name != "Bypass") {
        parameter.valueFloat = static_cast<float>(parameter.valueInt32);
        parameter.valueInt32 = std::numeric_limits<std::int32_t>::min();
        parameter.type = floatType;
    } else if (parameter.valueFloat == std::numeric_limits<float>::lowest()) {
        parameter.valueFloat = unsetFloat;
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
        part.aiVoiceBankID.clear();
        part.aiLangIDs.clear();
    } else {
        part.voiceBankID.clear();
        part.langID = KRT_PLX_NO_LANGUAGE;
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
    return !clip.singerGroups.empty() || !clip.languages.empty() || !clip.singerIDs.empty() ||
           !clip.types.empty() || !clip.genres.empty();
}

ClipModel reread(ClipModel clip, const std::string& wavePath)
{
    clip.vendors.clear();
    if (hasWrittenTag(clip)) {
        clip.vendors.push_back(clip.vendorName);
    }
    rereadEffects(clip.part.audioEffects, true);
    rereadEffects(clip.part.midiEffects, false);
    if (clip.part.type == KRT_PLX_PART_AUDIO) {
        clip.partKey = 0;
        clip.partTempo = 0;
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
        const ClipModel model = contract::modelOfEditable(own);
        for (const Form form : {Form::compact, Form::indented}) {
            const auto [saved, code] = support::save(own, name, form);
            ASSERT_EQ(code, KRT_PLX_RESULT_OK) << name;
            expected.emplace(utf8(KRT_PLX_Clip_id(saved)), model);
        }
        EXPECT_EQ(describe(contract::modelOfEditable(own)), describe(model));
    }

    void expectReread(KRT_PLX_ClipBase* found)
    {
        const std::string id = utf8(KRT_PLX_Clip_id(found));
        ASSERT_TRUE(expected.contains(id));
        ASSERT_TRUE(KRT_PLX_Clip_readPart(found));
        const support::Path wave = userFolder() / id / "audio" / "take.wav";
        const ClipModel wanted = reread(expected.at(id), utf8(support::pathText(wave)));
        EXPECT_EQ(describe(contract::modelOfRead(found)), describe(wanted));
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
        contract::fillRandomly(own, random, wave);
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

INSTANTIATE_TEST_SUITE_P(Seeds, RoundTrip, testing::Range(1u, 11u));

} // namespace
