#include "support/clip_model.h"

#include <algorithm>
#include <type_traits>

#include "support/editing.h"

namespace support {

namespace {

template <class Handle, class Value>
PropertyValue initialOf(const Property<Handle, Value>& property)
{
    if constexpr (std::is_same_v<Value, TextPointer>) {
        return std::string();
    } else {
        return property.initial;
    }
}

} // namespace

template <class Handle>
Values<Handle>::Values() : all_(properties<Handle>().size())
{
    forget({});
}

template <class Handle>
Values<Handle>::Values(Handle* handle)
{
    forEachProperty<Handle>(
        [this, handle](const auto& property) { all_.push_back(asValue(property.get(handle))); });
}

template <class Handle>
void Values<Handle>::forget(std::string_view within)
{
    for (std::size_t i = 0; i < all_.size(); ++i) {
        std::visit(
            [&](const auto& property) {
                if (within.empty() || within == property.within) {
                    all_[i] = initialOf(property);
                }
            },
            properties<Handle>()[i]);
    }
}

template class Values<KRT_PLX_ClipBase>;
template class Values<KRT_PLX_PartBase>;
template class Values<KRT_PLX_NoteBase>;
template class Values<KRT_PLX_DvqmBase>;
template class Values<KRT_PLX_SingingSkillBase>;
template class Values<KRT_PLX_VibratoBase>;
template class Values<KRT_PLX_VibratoParameterBase>;
template class Values<KRT_PLX_EffectParameterBase>;

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
    return {Values(vibrato), pointsOf<Access>(vibrato, KRT_PLX_VIBRATO_DEPTH),
            pointsOf<Access>(vibrato, KRT_PLX_VIBRATO_RATE)};
}

DvqmModel dvqmOf(KRT_PLX_DvqmBase* dvqm)
{
    return {Values(dvqm),
            listOf(KRT_PLX_DvqmBase_numLevelNames, KRT_PLX_DvqmBase_levelName, dvqm, textOf)};
}

template <class Access>
NoteModel noteOf(KRT_PLX_NoteBase* note)
{
    return {Values(note), dvqmOf(Access::dvqm(note, true)), dvqmOf(Access::dvqm(note, false)),
            Values(Access::singingSkill(note)), vibratoOf<Access>(Access::vibrato(note))};
}

template <class Access>
std::vector<LaneModel> lanesOf(KRT_PLX_PartBase* part)
{
    std::vector<LaneModel> lanes;
    for (std::uint32_t type = 0; type < controllers.size(); ++type) {
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
            KRT_PLX_EffectParameterBase_type(parameter), Values(parameter)};
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
    model.values = Values(part);
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
    model.values = Values(clip);
    std::transform(tagLists.begin(), tagLists.end(), model.tags.begin(), [=](const TagList& list) {
        return listOf(list.count, list.at, filter, textOf);
    });
    model.languages = listOf(KRT_PLX_Filter_numLanguages, KRT_PLX_Filter_language, filter,
                             [](std::int32_t language) { return language; });
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

} // namespace support
