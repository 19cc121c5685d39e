#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "host/catalogue.h"
#include "host/note_fields.h"
#include "limit/virtual_call.h"
#include "model/keys.h"
#include "support/contest.h"
#include "works/works.h"

namespace bench {

namespace {

// Takes what a getter returned, and counts it.
class Taker {
public:
    template <class T>
    T operator()(T value)
    {
        ++count_;
        benchmark::DoNotOptimize(value);
        return value;
    }

    template <class Owner>
    std::uint64_t countOf(bool (*getter)(Owner*, std::uint64_t*), Owner* owner)
    {
        std::uint64_t count = 0;
        (*this)(getter(owner, &count));
        return count;
    }

    [[nodiscard]] std::size_t count() const { return count_; }

private:
    std::size_t count_ = 0;
};

void walkDvqm(Taker& take, KRT_PLX_DvqmBase* dvqm)
{
    take(KRT_PLX_Dvqm_parent(dvqm));
    take(KRT_PLX_DvqmBase_isMutable(dvqm));
    take(KRT_PLX_DvqmBase_isAttack(dvqm));
    take(KRT_PLX_DvqmBase_compID(dvqm));
    const std::uint64_t names = take.countOf(KRT_PLX_DvqmBase_numLevelNames, dvqm);
    for (std::uint64_t i = 0; i < names; ++i) {
        take(KRT_PLX_DvqmBase_levelName(dvqm, i));
    }
    take(KRT_PLX_DvqmBase_isProtected(dvqm));
    take(KRT_PLX_DvqmBase_speed(dvqm));
    take(KRT_PLX_DvqmBase_topFactor(dvqm));
}

void walkSingingSkill(Taker& take, KRT_PLX_SingingSkillBase* skill)
{
    take(KRT_PLX_SingingSkill_parent(skill));
    take(KRT_PLX_SingingSkillBase_isMutable(skill));
    take(KRT_PLX_SingingSkillBase_duration(skill));
    take(KRT_PLX_SingingSkillBase_preWeight(skill));
    take(KRT_PLX_SingingSkillBase_postWeight(skill));
}

void walkPoints(Taker& take, KRT_PLX_VibratoBase* vibrato, std::uint32_t kind)
{
    std::uint64_t count = 0;
    take(KRT_PLX_VibratoBase_numParameters(vibrato, kind, &count));
    for (std::uint64_t i = 0; i < count; ++i) {
        auto* const point = take(KRT_PLX_Vibrato_parameter(vibrato, kind, i));
        take(KRT_PLX_VibratoParameter_parent(point));
        take(KRT_PLX_VibratoParameterBase_isMutable(point));
        take(KRT_PLX_VibratoParameterBase_type(point));
        take(KRT_PLX_VibratoParameterBase_pos(point));
        take(KRT_PLX_VibratoParameterBase_value(point));
    }
}

void walkVibrato(Taker& take, KRT_PLX_VibratoBase* vibrato)
{
    take(KRT_PLX_Vibrato_parent(vibrato));
    take(KRT_PLX_VibratoBase_isMutable(vibrato));
    take(KRT_PLX_VibratoBase_type(vibrato));
    take(KRT_PLX_VibratoBase_duration(vibrato));
    walkPoints(take, vibrato, KRT_PLX_VIBRATO_DEPTH);
    walkPoints(take, vibrato, KRT_PLX_VIBRATO_RATE);
}

void walkNote(Taker& take, KRT_PLX_NoteBase* note)
{
    take(KRT_PLX_Note_parent(note));
    take(KRT_PLX_NoteBase_isMutable(note));
    take(KRT_PLX_NoteBase_lyric(note));
    take(KRT_PLX_NoteBase_phoneme(note));
    take(KRT_PLX_NoteBase_langID(note));
    take(KRT_PLX_NoteBase_pos(note));
    take(KRT_PLX_NoteBase_duration(note));
    for (const auto& field : noteNumbers) {
        take(field.get(note));
    }
    for (const auto& field : noteSwitches) {
        take(field.get(note));
    }
    for (const auto& value : aiValues) {
        take(value.get(note));
    }
    walkDvqm(take, take(KRT_PLX_Note_dvqm(note, true)));
    walkDvqm(take, take(KRT_PLX_Note_dvqm(note, false)));
    walkSingingSkill(take, take(KRT_PLX_Note_singingSkill(note)));
    walkVibrato(take, take(KRT_PLX_Note_vibrato(note)));
}

void walkLane(Taker& take, KRT_PLX_MidiControllerBase* lane)
{
    take(KRT_PLX_MidiController_parent(lane));
    take(KRT_PLX_MidiControllerBase_type(lane));
    take(KRT_PLX_MidiControllerBase_minEventValue(lane));
    take(KRT_PLX_MidiControllerBase_maxEventValue(lane));
    const std::uint64_t events = take.countOf(KRT_PLX_MidiControllerBase_numEvents, lane);
    for (std::uint64_t i = 0; i < events; ++i) {
        auto* const event = take(KRT_PLX_MidiController_event(lane, i));
        take(KRT_PLX_MidiEvent_parent(event));
        take(KRT_PLX_MidiEventBase_type(event));
        take(KRT_PLX_MidiEventBase_pos(event));
        take(KRT_PLX_MidiEventBase_value(event));
        take(KRT_PLX_MidiEventBase_minValue(event));
        take(KRT_PLX_MidiEventBase_maxValue(event));
    }
}

void walkEffect(Taker& take, KRT_PLX_EffectBase* effect)
{
    take(KRT_PLX_EffectBase_id(effect));
    take(KRT_PLX_EffectBase_type(effect));
    const std::uint64_t parameters = take.countOf(KRT_PLX_EffectBase_numParameters, effect);
    for (std::uint64_t i = 0; i < parameters; ++i) {
        auto* const parameter = take(KRT_PLX_Effect_parameter(effect, i));
        take(KRT_PLX_EffectParameter_parent(parameter));
        take(KRT_PLX_EffectParameterBase_name(parameter));
        take(KRT_PLX_EffectParameterBase_type(parameter));
        take(KRT_PLX_EffectParameterBase_valueInt32(parameter));
        take(KRT_PLX_EffectParameterBase_valueFloat(parameter));
        take(KRT_PLX_EffectParameterBase_valueString(parameter));
    }
}

void walkEffects(Taker& take, KRT_PLX_PartBase* part)
{
    const std::uint64_t audio = take.countOf(KRT_PLX_MidiPartBase_numAudioEffects, part);
    for (std::uint64_t i = 0; i < audio; ++i) {
        auto* const effect = take(KRT_PLX_MidiPart_audioEffect(part, i));
        take(KRT_PLX_AudioEffect_parent(effect));
        walkEffect(take, effect);
    }
    const std::uint64_t midi = take.countOf(KRT_PLX_MidiPartBase_numMidiEffects, part);
    for (std::uint64_t i = 0; i < midi; ++i) {
        auto* const effect = take(KRT_PLX_MidiPart_midiEffect(part, i));
        take(KRT_PLX_MidiEffect_parent(effect));
        walkEffect(take, effect);
    }
}

void walkWholePart(Taker& take, KRT_PLX_PartBase* part)
{
    take(KRT_PLX_MidiPart_parent(part));
    take(KRT_PLX_PartBase_isMutable(part));
    take(KRT_PLX_PartBase_type(part));
    take(KRT_PLX_MidiPartBase_duration(part));
    take(KRT_PLX_MidiPartBase_styleName(part));
    take(KRT_PLX_MidiPartBase_stylePresetID(part));
    take(KRT_PLX_MidiPartBase_voiceBankID(part));
    take(KRT_PLX_MidiPartBase_aiVoiceBankID(part));
    take(KRT_PLX_MidiPartBase_langID(part));
    take(KRT_PLX_MidiPartBase_aiLangIDSize(part));
    take(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, 0));
    walkEffects(take, part);
    const std::uint64_t notes = take.countOf(KRT_PLX_MidiPartBase_numNotes, part);
    for (std::uint64_t i = 0; i < notes; ++i) {
        walkNote(take, take(KRT_PLX_MidiPart_note(part, i)));
    }
    for (std::uint32_t type = 0; type < keys::controllers.size(); ++type) {
        if (auto* const lane = take(KRT_PLX_MidiPart_midiController(part, type))) {
            walkLane(take, lane);
        }
    }
}

void callBare(Thing* thing, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        benchmark::DoNotOptimize(thing);
        benchmark::DoNotOptimize(thing->value());
    }
}

} // namespace

void walkPart(Run& run)
{
    Manager manager({run.data.clips("big")}, run.data.emptyFolder());
    manager.read();
    require(KRT_PLX_Clip_readPart(manager.systemClip(0)), "the big part could not be read");
    KRT_PLX_PartBase* const part = KRT_PLX_Clip_midiPart(manager.systemClip(0));
    Taker counting;
    walkWholePart(counting, part);
    const std::size_t calls = counting.count();
    const std::shared_ptr<Thing> thing = makeThing();
    const auto walk = [part] {
        Taker take;
        walkWholePart(take, part);
    };
    Contest contest("walk the big part, " + std::to_string(calls) + " getters, cost of one",
                    run.rounds);
    contest.add({.name = "library", .run = walk, .things = static_cast<double>(calls)});
    contest.add({.name = "limit: bare virtual calls",
                 .run = [=] { callBare(thing.get(), calls); },
                 .things = static_cast<double>(calls)});
    contest.run(run.clock, run.table);
}

} // namespace bench
