#include "host/read_back.h"

#include "host/note_fields.h"
#include "model/keys.h"
#include "support/text.h"

namespace bench {

namespace {

using support::utf8;

template <class Owner, class Count>
std::uint64_t countOf(Owner* owner, Count count)
{
    std::uint64_t number = 0;
    count(owner, &number);
    return number;
}

std::vector<Point> pointsOf(KRT_PLX_VibratoBase* vibrato, std::uint32_t kind)
{
    std::uint64_t count = 0;
    KRT_PLX_VibratoBase_numParameters(vibrato, kind, &count);
    std::vector<Point> points;
    for (std::uint64_t i = 0; i < count; ++i) {
        auto* const point = KRT_PLX_Vibrato_parameter(vibrato, kind, i);
        points.push_back(
            {KRT_PLX_VibratoParameterBase_pos(point), KRT_PLX_VibratoParameterBase_value(point)});
    }
    return points;
}

Vibrato vibratoOf(KRT_PLX_VibratoBase* vibrato)
{
    return {KRT_PLX_VibratoBase_type(vibrato), KRT_PLX_VibratoBase_duration(vibrato),
            pointsOf(vibrato, KRT_PLX_VIBRATO_DEPTH), pointsOf(vibrato, KRT_PLX_VIBRATO_RATE)};
}

Dvqm dvqmOf(KRT_PLX_DvqmBase* dvqm)
{
    Dvqm result;
    result.compID = utf8(KRT_PLX_DvqmBase_compID(dvqm));
    const std::uint64_t count = countOf(dvqm, KRT_PLX_DvqmBase_numLevelNames);
    for (std::uint64_t i = 0; i < count; ++i) {
        result.levelNames.push_back(utf8(KRT_PLX_DvqmBase_levelName(dvqm, i)));
    }
    result.isProtected = KRT_PLX_DvqmBase_isProtected(dvqm);
    result.speed = KRT_PLX_DvqmBase_speed(dvqm);
    result.topFactor = KRT_PLX_DvqmBase_topFactor(dvqm);
    return result;
}

SingingSkill singingSkillOf(KRT_PLX_SingingSkillBase* skill)
{
    return {KRT_PLX_SingingSkillBase_duration(skill), KRT_PLX_SingingSkillBase_preWeight(skill),
            KRT_PLX_SingingSkillBase_postWeight(skill)};
}

template <class Fields>
void readFields(KRT_PLX_NoteBase* note, const Fields& fields, NoteValues& values)
{
    for (const auto& field : fields) {
        values.*field.member = field.get(note);
    }
}

Note noteOf(KRT_PLX_NoteBase* note)
{
    Note result;
    result.lyric = utf8(KRT_PLX_NoteBase_lyric(note));
    result.phoneme = utf8(KRT_PLX_NoteBase_phoneme(note));
    result.langID = KRT_PLX_NoteBase_langID(note);
    result.pos = KRT_PLX_NoteBase_pos(note);
    result.duration = KRT_PLX_NoteBase_duration(note);
    readFields(note, noteNumbers, result);
    readFields(note, noteSwitches, result);
    for (std::size_t i = 0; i < aiValueCount; ++i) {
        result.aiValues[i] = aiValues[i].get(note);
    }
    result.attack = dvqmOf(KRT_PLX_Note_dvqm(note, true));
    result.release = dvqmOf(KRT_PLX_Note_dvqm(note, false));
    result.singingSkill = singingSkillOf(KRT_PLX_Note_singingSkill(note));
    result.vibrato = vibratoOf(KRT_PLX_Note_vibrato(note));
    return result;
}

Parameter parameterOf(KRT_PLX_EffectParameterBase* parameter)
{
    Parameter result{utf8(KRT_PLX_EffectParameterBase_name(parameter)), {}};
    switch (KRT_PLX_EffectParameterBase_type(parameter)) {
    case KRT_PLX_VALUE_INT32:
        result.value = KRT_PLX_EffectParameterBase_valueInt32(parameter);
        break;
    case KRT_PLX_VALUE_FLOAT:
        result.value = KRT_PLX_EffectParameterBase_valueFloat(parameter);
        break;
    default:
        result.value = utf8(KRT_PLX_EffectParameterBase_valueString(parameter));
    }
    return result;
}

Effect effectOf(KRT_PLX_EffectBase* effect)
{
    Effect result{utf8(KRT_PLX_EffectBase_id(effect)), {}};
    const std::uint64_t count = countOf(effect, KRT_PLX_EffectBase_numParameters);
    for (std::uint64_t i = 0; i < count; ++i) {
        result.parameters.push_back(parameterOf(KRT_PLX_Effect_parameter(effect, i)));
    }
    return result;
}

template <class Count, class Element>
std::vector<Effect> effectsOf(KRT_PLX_PartBase* part, Count count, Element element)
{
    const std::uint64_t number = countOf(part, count);
    std::vector<Effect> effects;
    for (std::uint64_t i = 0; i < number; ++i) {
        effects.push_back(effectOf(element(part, i)));
    }
    return effects;
}

Lane laneOf(KRT_PLX_MidiControllerBase* controller)
{
    Lane lane{KRT_PLX_MidiControllerBase_type(controller), {}};
    const std::uint64_t count = countOf(controller, KRT_PLX_MidiControllerBase_numEvents);
    for (std::uint64_t i = 0; i < count; ++i) {
        auto* const event = KRT_PLX_MidiController_event(controller, i);
        lane.events.push_back(
            {KRT_PLX_MidiEventBase_pos(event), KRT_PLX_MidiEventBase_value(event)});
    }
    return lane;
}

std::vector<Lane> lanesOf(KRT_PLX_PartBase* part)
{
    std::vector<Lane> lanes;
    for (std::uint32_t type = 0; type < keys::controllers.size(); ++type) {
        if (auto* const controller = KRT_PLX_MidiPart_midiController(part, type)) {
            lanes.push_back(laneOf(controller));
        }
    }
    return lanes;
}

} // namespace

Part partOf(KRT_PLX_PartBase* part)
{
    Part result;
    result.duration = KRT_PLX_MidiPartBase_duration(part);
    result.styleName = utf8(KRT_PLX_MidiPartBase_styleName(part));
    result.stylePresetID = utf8(KRT_PLX_MidiPartBase_stylePresetID(part));
    result.voiceBankID = utf8(KRT_PLX_MidiPartBase_voiceBankID(part));
    result.langID = KRT_PLX_MidiPartBase_langID(part);
    result.audioEffects =
        effectsOf(part, KRT_PLX_MidiPartBase_numAudioEffects, KRT_PLX_MidiPart_audioEffect);
    result.midiEffects =
        effectsOf(part, KRT_PLX_MidiPartBase_numMidiEffects, KRT_PLX_MidiPart_midiEffect);
    const std::uint64_t notes = countOf(part, KRT_PLX_MidiPartBase_numNotes);
    for (std::uint64_t i = 0; i < notes; ++i) {
        result.notes.push_back(noteOf(KRT_PLX_MidiPart_note(part, i)));
    }
    result.lanes = lanesOf(part);
    return result;
}

} // namespace bench
