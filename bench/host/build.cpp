#include "host/build.h"

#include "host/note_fields.h"

namespace bench {

namespace {

using support::Text;
using HostDvqm = BasicDvqm<Text>;
using HostEffect = BasicEffect<Text>;
using HostParameter = BasicParameter<Text>;

HostDvqm toHost(const Dvqm& dvqm)
{
    HostDvqm result{support::text(dvqm.compID), {}, dvqm.isProtected, dvqm.speed, dvqm.topFactor};
    for (const std::string& name : dvqm.levelNames) {
        result.levelNames.push_back(support::text(name));
    }
    return result;
}

struct ToHostValue {
    using Value = decltype(HostParameter::value);

    Value operator()(const std::string& text) const { return support::text(text); }
    Value operator()(std::int32_t number) const { return number; }
    Value operator()(float number) const { return number; }
};

std::vector<HostEffect> toHost(const std::vector<Effect>& effects)
{
    std::vector<HostEffect> result;
    for (const Effect& effect : effects) {
        HostEffect& converted = result.emplace_back();
        converted.id = support::text(effect.id);
        for (const Parameter& parameter : effect.parameters) {
            converted.parameters.push_back(
                {support::text(parameter.name), std::visit(ToHostValue{}, parameter.value)});
        }
    }
    return result;
}

void buildDvqm(KRT_PLX_DvqmBase* target, const HostDvqm& dvqm)
{
    KRT_PLX_MutableDvqm_setCompID(target, dvqm.compID.c_str());
    for (const Text& name : dvqm.levelNames) {
        KRT_PLX_MutableDvqm_addLevelName(target, name.c_str());
    }
    KRT_PLX_MutableDvqm_protect(target, dvqm.isProtected);
    KRT_PLX_MutableDvqm_setSpeed(target, dvqm.speed);
    KRT_PLX_MutableDvqm_setTopFactor(target, dvqm.topFactor);
}

void buildPoints(KRT_PLX_VibratoBase* target, std::uint32_t kind, const std::vector<Point>& points)
{
    for (const Point& point : points) {
        KRT_PLX_MutableVibrato_insertParameter(target, kind, point.pos, point.value);
    }
}

void buildVibrato(KRT_PLX_VibratoBase* target, const Vibrato& vibrato)
{
    KRT_PLX_MutableVibrato_setType(target, vibrato.type);
    KRT_PLX_MutableVibrato_setDuration(target, vibrato.duration);
    buildPoints(target, KRT_PLX_VIBRATO_DEPTH, vibrato.depths);
    buildPoints(target, KRT_PLX_VIBRATO_RATE, vibrato.rates);
}

void buildSingingSkill(KRT_PLX_SingingSkillBase* target, const SingingSkill& skill)
{
    KRT_PLX_MutableSingingSkill_setDuration(target, skill.duration);
    KRT_PLX_MutableSingingSkill_setPreWeight(target, skill.preWeight);
    KRT_PLX_MutableSingingSkill_setPostWeight(target, skill.postWeight);
}

template <class Fields>
void setFields(KRT_PLX_NoteBase* target, const Fields& fields, const NoteValues& values)
{
    for (const auto& field : fields) {
        field.set(target, values.*field.member);
    }
}

struct SetValue {
    KRT_PLX_EffectParameterBase* parameter;

    void operator()(std::int32_t value) const
    {
        KRT_PLX_MutableEffectParameter_setValueInt32(parameter, value);
    }
    void operator()(float value) const
    {
        KRT_PLX_MutableEffectParameter_setValueFloat(parameter, value);
    }
    void operator()(const Text& value) const
    {
        KRT_PLX_MutableEffectParameter_setValueString(parameter, value.c_str());
    }
};

template <class Insert>
void buildEffects(KRT_PLX_PartBase* part, Insert insert, const std::vector<HostEffect>& effects)
{
    for (std::size_t i = 0; i < effects.size(); ++i) {
        auto* const effect = insert(part, i, effects[i].id.c_str());
        for (const HostParameter& parameter : effects[i].parameters) {
            auto* const target = KRT_PLX_MutableEffect_addParameter(effect, parameter.name.c_str());
            std::visit(SetValue{target}, parameter.value);
        }
    }
}

void buildLane(KRT_PLX_PartBase* part, const Lane& lane)
{
    auto* const controller = KRT_PLX_MutableMidiPart_addMidiController(part, lane.type);
    for (const Event& event : lane.events) {
        KRT_PLX_MutableMidiController_insertEvent(controller, event.pos, event.value);
    }
}

} // namespace

HostNote toHost(const Note& note)
{
    HostNote result;
    static_cast<NoteValues&>(result) = note;
    result.lyric = support::text(note.lyric);
    result.phoneme = support::text(note.phoneme);
    result.attack = toHost(note.attack);
    result.release = toHost(note.release);
    return result;
}

HostPart toHost(const Part& part)
{
    HostPart result;
    result.duration = part.duration;
    result.styleName = support::text(part.styleName);
    result.stylePresetID = support::text(part.stylePresetID);
    result.voiceBankID = support::text(part.voiceBankID);
    result.langID = part.langID;
    result.audioEffects = toHost(part.audioEffects);
    result.midiEffects = toHost(part.midiEffects);
    result.lanes = part.lanes;
    for (const Note& note : part.notes) {
        result.notes.push_back(toHost(note));
    }
    return result;
}

void buildNote(KRT_PLX_PartBase* part, const HostNote& note)
{
    auto* const target = KRT_PLX_MutableMidiPart_insertNote(
        part, note.pos, note.duration, note.lyric.c_str(), note.phoneme.c_str(), note.langID);
    setFields(target, noteNumbers, note);
    setFields(target, noteSwitches, note);
    for (std::size_t i = 0; i < aiValueCount; ++i) {
        aiValues[i].set(target, note.aiValues[i]);
    }
    buildDvqm(KRT_PLX_MutableNote_dvqm(target, true), note.attack);
    buildDvqm(KRT_PLX_MutableNote_dvqm(target, false), note.release);
    buildSingingSkill(KRT_PLX_MutableNote_singingSkill(target), note.singingSkill);
    buildVibrato(KRT_PLX_MutableNote_vibrato(target), note.vibrato);
}

KRT_PLX_PartBase* buildEmptyPart(KRT_PLX_ClipBase* clip, const HostPart& part)
{
    auto* const target = KRT_PLX_MutableClip_createMidiPart(clip);
    KRT_PLX_MutableMidiPart_setDuration(target, part.duration);
    KRT_PLX_MutableMidiPart_setStyleName(target, part.styleName.c_str());
    KRT_PLX_MutableMidiPart_setStylePresetID(target, part.stylePresetID.c_str());
    KRT_PLX_MutableMidiPart_setVoiceBankID(target, part.voiceBankID.c_str());
    KRT_PLX_MutableMidiPart_setLangID(target, part.langID);
    return target;
}

KRT_PLX_PartBase* buildPart(KRT_PLX_ClipBase* clip, const HostPart& part)
{
    auto* const target = buildEmptyPart(clip, part);
    buildEffects(target, KRT_PLX_MutableMidiPart_insertAudioEffect, part.audioEffects);
    buildEffects(target, KRT_PLX_MutableMidiPart_insertMidiEffect, part.midiEffects);
    for (const HostNote& note : part.notes) {
        buildNote(target, note);
    }
    for (const Lane& lane : part.lanes) {
        buildLane(target, lane);
    }
    return target;
}

} // namespace bench
