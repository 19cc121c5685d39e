#include "clip_model.h"

#include "support/editing.h"

namespace contract {

using support::countOf;
using support::utf8;

const std::array<AiExpressionField, 13> aiExpressionFields = {{
    {"pitchFine", KRT_PLX_NoteBase_pitchFine, KRT_PLX_MutableNote_setPitchFine},
    {"pitchDriftStart", KRT_PLX_NoteBase_pitchDriftStart, KRT_PLX_MutableNote_setPitchDriftStart},
    {"pitchDriftEnd", KRT_PLX_NoteBase_pitchDriftEnd, KRT_PLX_MutableNote_setPitchDriftEnd},
    {"pitchScalingCenter", KRT_PLX_NoteBase_pitchScalingCenter,
     KRT_PLX_MutableNote_setPitchScalingCenter},
    {"pitchScalingOrigin", KRT_PLX_NoteBase_pitchScalingOrigin,
     KRT_PLX_MutableNote_setPitchScalingOrigin},
    {"pitchTransitionStart", KRT_PLX_NoteBase_pitchTransitionStart,
     KRT_PLX_MutableNote_setPitchTransitionStart},
    {"pitchTransitionEnd", KRT_PLX_NoteBase_pitchTransitionEnd,
     KRT_PLX_MutableNote_setPitchTransitionEnd},
    {"amplitudeWhole", KRT_PLX_NoteBase_amplitudeWhole, KRT_PLX_MutableNote_setAmplitudeWhole},
    {"amplitudeStart", KRT_PLX_NoteBase_amplitudeStart, KRT_PLX_MutableNote_setAmplitudeStart},
    {"amplitudeEnd", KRT_PLX_NoteBase_amplitudeEnd, KRT_PLX_MutableNote_setAmplitudeEnd},
    {"formantWhole", KRT_PLX_NoteBase_formantWhole, KRT_PLX_MutableNote_setFormantWhole},
    {"formantStart", KRT_PLX_NoteBase_formantStart, KRT_PLX_MutableNote_setFormantStart},
    {"formantEnd", KRT_PLX_NoteBase_formantEnd, KRT_PLX_MutableNote_setFormantEnd},
}};

namespace {

// How to reach the children of an editable object, and those of one that was read.
struct Editable {
    static constexpr auto filter = KRT_PLX_MutableClip_filter;
    static constexpr auto audioPart = KRT_PLX_MutableClip_audioPart;
    static constexpr auto midiPart = KRT_PLX_MutableClip_midiPart;
    static constexpr auto audioPartEffect = KRT_PLX_MutableAudioPart_audioEffect;
    static constexpr auto audioEffect = KRT_PLX_MutableMidiPart_audioEffect;
    static constexpr auto midiEffect = KRT_PLX_MutableMidiPart_midiEffect;
    static constexpr auto parameter = KRT_PLX_MutableEffect_parameter;
    static constexpr auto note = KRT_PLX_MutableMidiPart_note;
    static constexpr auto dvqm = KRT_PLX_MutableNote_dvqm;
    static constexpr auto singingSkill = KRT_PLX_MutableNote_singingSkill;
    static constexpr auto vibrato = KRT_PLX_MutableNote_vibrato;
    static constexpr auto point = KRT_PLX_MutableVibrato_parameter;
    static constexpr auto lane = KRT_PLX_MutableMidiPart_midiController;
    static constexpr auto event = KRT_PLX_MutableMidiController_event;
};

struct ReadOnly {
    static constexpr auto filter = KRT_PLX_Clip_filter;
    static constexpr auto audioPart = KRT_PLX_Clip_audioPart;
    static constexpr auto midiPart = KRT_PLX_Clip_midiPart;
    static constexpr auto audioPartEffect = KRT_PLX_AudioPart_audioEffect;
    static constexpr auto audioEffect = KRT_PLX_MidiPart_audioEffect;
    static constexpr auto midiEffect = KRT_PLX_MidiPart_midiEffect;
    static constexpr auto parameter = KRT_PLX_Effect_parameter;
    static constexpr auto note = KRT_PLX_MidiPart_note;
    static constexpr auto dvqm = KRT_PLX_Note_dvqm;
    static constexpr auto singingSkill = KRT_PLX_Note_singingSkill;
    static constexpr auto vibrato = KRT_PLX_Note_vibrato;
    static constexpr auto point = KRT_PLX_Vibrato_parameter;
    static constexpr auto lane = KRT_PLX_MidiPart_midiController;
    static constexpr auto event = KRT_PLX_MidiController_event;
};

template <class Handle, class At, class Model>
auto listOf(bool (*count)(Handle*, std::uint64_t*), At at, Handle* handle, Model model)
{
    std::vector<decltype(model(at(handle, 0)))> models;
    const std::uint64_t size = countOf(count, handle);
    for (std::uint64_t index = 0; index < size; ++index) {
        models.push_back(model(at(handle, index)));
    }
    return models;
}

std::string textOf(const KRT_PLX_Char* text)
{
    return utf8(text);
}

template <class Access>
std::vector<PointModel> pointsOf(KRT_PLX_VibratoBase* vibrato, std::uint32_t type)
{
    std::vector<PointModel> points;
    std::uint64_t size = 0;
    EXPECT_TRUE(KRT_PLX_VibratoBase_numParameters(vibrato, type, &size));
    for (std::uint64_t index = 0; index < size; ++index) {
        KRT_PLX_VibratoParameterBase* const point = Access::point(vibrato, type, index);
        EXPECT_EQ(KRT_PLX_VibratoParameterBase_type(point), type);
        points.push_back(
            {KRT_PLX_VibratoParameterBase_pos(point), KRT_PLX_VibratoParameterBase_value(point)});
    }
    return points;
}

template <class Access>
VibratoModel vibratoOf(KRT_PLX_VibratoBase* vibrato)
{
    return {KRT_PLX_VibratoBase_type(vibrato), KRT_PLX_VibratoBase_duration(vibrato),
            pointsOf<Access>(vibrato, 0), pointsOf<Access>(vibrato, 1)};
}

DvqmModel dvqmOf(KRT_PLX_DvqmBase* dvqm)
{
    return {utf8(KRT_PLX_DvqmBase_compID(dvqm)),
            listOf(KRT_PLX_DvqmBase_numLevelNames, KRT_PLX_DvqmBase_levelName, dvqm, textOf),
            KRT_PLX_DvqmBase_isProtected(dvqm), KRT_PLX_DvqmBase_speed(dvqm),
            KRT_PLX_DvqmBase_topFactor(dvqm)};
}

SingingSkillModel singingSkillOf(KRT_PLX_SingingSkillBase* skill)
{
    return {KRT_PLX_SingingSkillBase_duration(skill), KRT_PLX_SingingSkillBase_preWeight(skill),
            KRT_PLX_SingingSkillBase_postWeight(skill)};
}

std::array<float, aiExpressionFields.size()> aiExpressionOf(KRT_PLX_NoteBase* note)
{
    std::array<float, aiExpressionFields.size()> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = aiExpressionFields[i].get(note);
    }
    return values;
}

template <class Access>
NoteModel noteOf(KRT_PLX_NoteBase* note)
{
    return {utf8(KRT_PLX_NoteBase_lyric(note)),
            utf8(KRT_PLX_NoteBase_phoneme(note)),
            KRT_PLX_NoteBase_langID(note),
            KRT_PLX_NoteBase_isProtected(note),
            KRT_PLX_NoteBase_pos(note),
            KRT_PLX_NoteBase_duration(note),
            KRT_PLX_NoteBase_number(note),
            KRT_PLX_NoteBase_velocity(note),
            KRT_PLX_NoteBase_accent(note),
            KRT_PLX_NoteBase_bendDepth(note),
            KRT_PLX_NoteBase_bendLength(note),
            KRT_PLX_NoteBase_decay(note),
            KRT_PLX_NoteBase_fallPort(note),
            KRT_PLX_NoteBase_risePort(note),
            KRT_PLX_NoteBase_opening(note),
            aiExpressionOf(note),
            dvqmOf(Access::dvqm(note, true)),
            dvqmOf(Access::dvqm(note, false)),
            singingSkillOf(Access::singingSkill(note)),
            vibratoOf<Access>(Access::vibrato(note))};
}

template <class Access>
std::vector<LaneModel> lanesOf(KRT_PLX_PartBase* part)
{
    std::vector<LaneModel> lanes;
    for (std::uint32_t type = 0; type < 12; ++type) {
        KRT_PLX_MidiControllerBase* const lane = Access::lane(part, type);
        if (lane != nullptr) {
            lanes.push_back({KRT_PLX_MidiControllerBase_type(lane),
                             listOf(KRT_PLX_MidiControllerBase_numEvents, Access::event, lane,
                                    [](KRT_PLX_MidiEventBase* event) -> EventModel {
                                        return {KRT_PLX_MidiEventBase_pos(event),
                                                KRT_PLX_MidiEventBase_value(event)};
                                    })});
        }
    }
    return lanes;
}

ParameterModel parameterOf(KRT_PLX_EffectParameterBase* parameter)
{
    return {utf8(KRT_PLX_EffectParameterBase_name(parameter)),
            KRT_PLX_EffectParameterBase_type(parameter),
            KRT_PLX_EffectParameterBase_valueInt32(parameter),
            KRT_PLX_EffectParameterBase_valueFloat(parameter),
            utf8(KRT_PLX_EffectParameterBase_valueString(parameter))};
}

template <class Access>
EffectModel effectOf(KRT_PLX_EffectBase* effect)
{
    return {utf8(KRT_PLX_EffectBase_id(effect)), KRT_PLX_EffectBase_type(effect),
            listOf(KRT_PLX_EffectBase_numParameters, Access::parameter, effect, parameterOf)};
}

template <class Access>
PartModel audioPartOf(KRT_PLX_PartBase* part)
{
    PartModel model;
    model.type = KRT_PLX_PartBase_type(part);
    model.wavFilePath = utf8(KRT_PLX_AudioPartBase_wavFilePath(part));
    model.begin = KRT_PLX_AudioPartBase_begin(part);
    model.end = KRT_PLX_AudioPartBase_end(part);
    model.audioEffects = listOf(KRT_PLX_AudioPartBase_numAudioEffects, Access::audioPartEffect,
                                part, effectOf<Access>);
    return model;
}

template <class Access>
PartModel midiPartOf(KRT_PLX_PartBase* part)
{
    PartModel model;
    model.type = KRT_PLX_PartBase_type(part);
    model.duration = KRT_PLX_MidiPartBase_duration(part);
    model.styleName = utf8(KRT_PLX_MidiPartBase_styleName(part));
    model.stylePresetID = utf8(KRT_PLX_MidiPartBase_stylePresetID(part));
    model.voiceBankID = utf8(KRT_PLX_MidiPartBase_voiceBankID(part));
    model.langID = KRT_PLX_MidiPartBase_langID(part);
    model.aiVoiceBankID = utf8(KRT_PLX_MidiPartBase_aiVoiceBankID(part));
    for (std::uint64_t i = 0; i < KRT_PLX_MidiPartBase_aiLangIDSize(part); ++i) {
        model.aiLangIDs.push_back(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, i));
    }
    model.audioEffects =
        listOf(KRT_PLX_MidiPartBase_numAudioEffects, Access::audioEffect, part, effectOf<Access>);
    model.midiEffects =
        listOf(KRT_PLX_MidiPartBase_numMidiEffects, Access::midiEffect, part, effectOf<Access>);
    model.notes = listOf(KRT_PLX_MidiPartBase_numNotes, Access::note, part, noteOf<Access>);
    model.lanes = lanesOf<Access>(part);
    return model;
}

template <class Access>
PartModel partOf(KRT_PLX_ClipBase* clip)
{
    if (KRT_PLX_PartBase* const audio = Access::audioPart(clip)) {
        return audioPartOf<Access>(audio);
    }
    KRT_PLX_PartBase* const midi = Access::midiPart(clip);
    return midi == nullptr ? PartModel{} : midiPartOf<Access>(midi);
}

template <class Access>
ClipModel clipOf(KRT_PLX_ClipBase* clip)
{
    KRT_PLX_Filter* const filter = Access::filter(clip);
    ClipModel model;
    model.vendorName = utf8(KRT_PLX_ClipBase_vendorName(clip));
    model.partKey = KRT_PLX_ClipBase_partKey(clip);
    model.partTempo = KRT_PLX_ClipBase_partTempo(clip);
    model.singerGroups =
        listOf(KRT_PLX_Filter_numSingerGroups, KRT_PLX_Filter_singerGroup, filter, textOf);
    model.vendors = listOf(KRT_PLX_Filter_numVendors, KRT_PLX_Filter_vendor, filter, textOf);
    model.languages = listOf(KRT_PLX_Filter_numLanguages, KRT_PLX_Filter_language, filter,
                             [](std::int32_t language) { return language; });
    model.singerIDs = listOf(KRT_PLX_Filter_numSingerIDs, KRT_PLX_Filter_singerID, filter, textOf);
    model.types = listOf(KRT_PLX_Filter_numTypes, KRT_PLX_Filter_type, filter, textOf);
    model.genres = listOf(KRT_PLX_Filter_numGenres, KRT_PLX_Filter_genre, filter, textOf);
    model.part = partOf<Access>(clip);
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), model.part.type);
    return model;
}

} // namespace

ClipModel modelOfEditable(KRT_PLX_ClipBase* clip)
{
    return clipOf<Editable>(clip);
}

ClipModel modelOfRead(KRT_PLX_ClipBase* clip)
{
    return clipOf<ReadOnly>(clip);
}

} // namespace contract
