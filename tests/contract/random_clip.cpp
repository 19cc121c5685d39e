#include "random_clip.h"

#include <cmath>
#include <limits>
#include <string>

#include "clip_model.h"
#include "support/limits.h"
#include "support/text.h"

namespace contract {

using support::largest;
using support::smallest;

namespace {

using support::Random;
using support::Text;

// Every control character, what JSON escapes, and each length of UTF-8.
Text someCharacter(Random& random)
{
    if (random.oneIn(6)) {
        return Text(1, static_cast<KRT_PLX_Char>(random.between(1, 0x1F)));
    }
    static const char* const characters[] = {"\"",
                                             "\\",
                                             "/",
                                             "\x7F",
                                             "a",
                                             "Z",
                                             "0",
                                             " ",
                                             "{",
                                             "é",
                                             "ß",
                                             "߿",
                                             "ࠀ",
                                             "さ",
                                             "퟿",
                                             "\xEE\x80\x80",
                                             "\xEF\xBB\xBF",
                                             "\xEF\xBF\xBE",
                                             "\xEF\xBF\xBF",
                                             "\xE2\x80\xA8",
                                             "𐀀",
                                             "𠮷",
                                             "\xF4\x8F\xBF\xBF"};
    return support::text(random.oneOf(characters));
}

Text someText(Random& random, std::size_t shortest = 0)
{
    Text text;
    const std::size_t length = shortest + random.below(random.oneIn(30) ? 600 : 8);
    while (text.size() < length) {
        text += someCharacter(random);
    }
    return text;
}

// Few different ones, so that repetitions occur.
Text someTag(Random& random)
{
    static const char* const tags[] = {"",     "Pop",    "pop",
                                       "Rock", "ロック", "A longer tag, \"quoted\""};
    return random.oneIn(3) ? someText(random) : support::text(random.oneOf(tags));
}

Text someVoiceBankID(Random& random)
{
    Text id;
    while (id.size() < 16) {
        const Text next = someCharacter(random);
        if (id.size() + next.size() <= 16) {
            id += next;
        }
    }
    return id;
}

std::int32_t someInt32(Random& random)
{
    const std::int32_t ends[] = {smallest, -1, 0, 1, largest};
    return random.oneIn(4) ? random.oneOf(ends) : random.between(-100000, 100000);
}

// Any bits of a finite float.
float someFloat(Random& random)
{
    const float ends[] = {0.0f,
                          -0.0f,
                          1.0f,
                          -3.0f,
                          0.1f,
                          1e10f,
                          1e21f,
                          1e-7f,
                          16777216.0f,
                          std::numeric_limits<float>::max(),
                          std::numeric_limits<float>::lowest(),
                          std::numeric_limits<float>::min(),
                          std::numeric_limits<float>::denorm_min()};
    if (random.oneIn(3)) {
        return random.oneOf(ends);
    }
    const float mantissa = static_cast<float>(random.between(-0x7FFFFF, 0x7FFFFF)) / 8388608.0f;
    return std::ldexp(mantissa, random.between(-140, 127));
}

float someFraction(Random& random, float bound)
{
    const float ends[] = {0.0f, -0.0f,       bound,  0.5f,
                          0.1f, 1.0f / 3.0f, 1e-30f, std::numeric_limits<float>::denorm_min()};
    return random.oneIn(4) ? random.oneOf(ends)
                           : bound * static_cast<float>(random.below(0x1000000)) / 16777215.0f;
}

bool coin(Random& random)
{
    return random.oneIn(2);
}

// --- Tags -------------------------------------------------------------------------------------------

void addTags(KRT_PLX_Filter* filter, Random& random)
{
    using Add = bool (*)(KRT_PLX_Filter*, const KRT_PLX_Char*);
    const Add adds[] = {KRT_PLX_MutableFilter_addSingerGroup, KRT_PLX_MutableFilter_addSingerID,
                        KRT_PLX_MutableFilter_addType, KRT_PLX_MutableFilter_addGenre,
                        KRT_PLX_MutableFilter_addVendor};
    for (std::uint32_t count = random.below(8); count > 0; --count) {
        random.oneOf(adds)(filter, someTag(random).c_str());
    }
    for (std::uint32_t count = random.below(4); count > 0; --count) {
        KRT_PLX_MutableFilter_addLanguage(filter,
                                          random.oneIn(4) ? largest : random.between(-1, 5));
    }
}

// --- Effects ----------------------------------------------------------------------------------------

void setSomeValue(KRT_PLX_EffectParameterBase* parameter, Random& random)
{
    switch (random.below(4)) {
    case 0:
        KRT_PLX_MutableEffectParameter_setValueInt32(parameter, someInt32(random));
        break;
    case 1:
        KRT_PLX_MutableEffectParameter_setValueFloat(parameter, someFloat(random));
        break;
    case 2:
        KRT_PLX_MutableEffectParameter_setValueString(parameter, someText(random).c_str());
        break;
    default: // it stays without a value
        break;
    }
}

void addParameters(KRT_PLX_EffectBase* effect, Random& random)
{
    static const char* const names[] = {"Bypass", "bypass", "Gain", "ゲイン"};
    for (std::uint32_t count = random.below(5); count > 0; --count) {
        const Text name = coin(random) ? support::text(random.oneOf(names)) : someText(random, 1);
        setSomeValue(KRT_PLX_MutableEffect_addParameter(effect, name.c_str()), random);
    }
}

using InsertEffect = KRT_PLX_EffectBase* (*)(KRT_PLX_PartBase*, std::uint64_t, const KRT_PLX_Char*);

void addEffects(KRT_PLX_PartBase* part, InsertEffect insert, Random& random)
{
    for (std::uint32_t count = random.below(4); count > 0; --count) {
        const Text id = coin(random) ? support::text("reverb") : someText(random, 1);
        addParameters(insert(part, random.below(3), id.c_str()), random);
    }
}

// --- Notes ------------------------------------------------------------------------------------------

void setDvqm(KRT_PLX_DvqmBase* dvqm, Random& random)
{
    if (!random.oneIn(3)) {
        KRT_PLX_MutableDvqm_setCompID(dvqm, someText(random, 1).c_str());
    }
    for (std::uint32_t count = random.below(6); count > 0; --count) {
        KRT_PLX_MutableDvqm_addLevelName(dvqm, someText(random, 1).c_str());
    }
    KRT_PLX_MutableDvqm_protect(dvqm, coin(random));
    KRT_PLX_MutableDvqm_setSpeed(dvqm, random.below(101));
    KRT_PLX_MutableDvqm_setTopFactor(dvqm, someFraction(random, 2.0f));
}

void setSingingSkill(KRT_PLX_SingingSkillBase* skill, std::int32_t duration, Random& random)
{
    KRT_PLX_MutableSingingSkill_setDuration(skill, coin(random) ? duration : duration / 2);
    KRT_PLX_MutableSingingSkill_setPreWeight(skill, random.below(128));
    KRT_PLX_MutableSingingSkill_setPostWeight(skill, random.below(128));
}

void setVibrato(KRT_PLX_VibratoBase* vibrato, std::int32_t duration, Random& random)
{
    KRT_PLX_MutableVibrato_setType(vibrato, random.below(17));
    KRT_PLX_MutableVibrato_setDuration(vibrato, duration);
    for (std::uint32_t count = random.below(8); count > 0; --count) {
        KRT_PLX_MutableVibrato_insertParameter(vibrato, random.below(2),
                                               random.between(0, duration), random.below(128));
    }
    if (coin(random)) { // points may then lie beyond its end
        KRT_PLX_MutableVibrato_setDuration(vibrato, random.between(0, duration));
    }
}

void setExpression(KRT_PLX_NoteBase* note, Random& random)
{
    KRT_PLX_MutableNote_setAccent(note, random.below(101));
    KRT_PLX_MutableNote_setBendDepth(note, random.below(101));
    KRT_PLX_MutableNote_setBendLength(note, random.below(101));
    KRT_PLX_MutableNote_setDecay(note, random.below(101));
    KRT_PLX_MutableNote_setFallPort(note, coin(random));
    KRT_PLX_MutableNote_setRisePort(note, coin(random));
    KRT_PLX_MutableNote_setOpening(note, random.below(128));
}

// What is no number can be saved only where it is not written.
void setAiExpression(KRT_PLX_NoteBase* note, std::uint32_t partType, Random& random)
{
    for (const AiExpressionField& field : aiExpressionFields) {
        field.set(note, someFraction(random, 1.0f));
    }
    if (partType == KRT_PLX_PART_MIDI && random.oneIn(5)) {
        random.oneOf(aiExpressionFields).set(note, std::numeric_limits<float>::quiet_NaN());
    }
}

void addNote(KRT_PLX_PartBase* part, Random& random)
{
    const std::int32_t duration = random.between(1, 2000);
    const std::int32_t ends[] = {smallest, -480, largest - duration};
    const std::int32_t pos = random.oneIn(10) ? random.oneOf(ends) : random.between(0, 20) * 240;
    KRT_PLX_NoteBase* const note =
        KRT_PLX_MutableMidiPart_insertNote(part, pos, duration, someText(random, 1).c_str(),
                                           someText(random, 1).c_str(), random.below(128));
    KRT_PLX_MutableNote_setNumber(note, random.below(128));
    KRT_PLX_MutableNote_setVelocity(note, random.below(128));
    KRT_PLX_MutableNote_setProtected(note, coin(random));
    if (random.oneIn(4)) {
        return; // with its initial expressions
    }
    setExpression(note, random);
    setAiExpression(note, KRT_PLX_PartBase_type(part), random);
    setDvqm(KRT_PLX_MutableNote_dvqm(note, true), random);
    setDvqm(KRT_PLX_MutableNote_dvqm(note, false), random);
    setSingingSkill(KRT_PLX_MutableNote_singingSkill(note), duration, random);
    setVibrato(KRT_PLX_MutableNote_vibrato(note), random.between(0, duration), random);
    if (random.oneIn(4)) { // singing skill and vibrato may then be too long
        KRT_PLX_MutableNote_setDuration(note, random.between(1, duration));
    }
}

// --- Lanes ------------------------------------------------------------------------------------------

void addLane(KRT_PLX_PartBase* part, Random& random)
{
    KRT_PLX_MidiControllerBase* const lane =
        KRT_PLX_MutableMidiPart_addMidiController(part, random.below(12));
    if (lane == nullptr) { // the part has it already
        return;
    }
    const std::int32_t low = KRT_PLX_MidiControllerBase_minEventValue(lane);
    const std::int32_t high = KRT_PLX_MidiControllerBase_maxEventValue(lane);
    for (std::uint32_t count = random.below(6); count > 0; --count) {
        const std::int32_t bounds[] = {low, high, random.between(low, high)};
        KRT_PLX_MutableMidiController_insertEvent(lane, someInt32(random), random.oneOf(bounds));
    }
}

// --- Parts ------------------------------------------------------------------------------------------

void fillMidiPart(KRT_PLX_PartBase* part, Random& random)
{
    KRT_PLX_MutableMidiPart_setDuration(part, random.oneIn(4) ? largest : random.between(1, 9999));
    KRT_PLX_MutableMidiPart_setStyleName(part, someText(random).c_str());
    KRT_PLX_MutableMidiPart_setStylePresetID(part, someText(random).c_str());
    KRT_PLX_MutableMidiPart_setVoiceBankID(part, someVoiceBankID(random).c_str());
    KRT_PLX_MutableMidiPart_setLangID(part, random.below(128));
    KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, someVoiceBankID(random).c_str());
    for (std::uint32_t count = 1 + random.below(3); count > 0; --count) {
        KRT_PLX_MutableMidiPart_addAiLangID(part, random.below(128));
    }
    addEffects(part, KRT_PLX_MutableMidiPart_insertAudioEffect, random);
    addEffects(part, KRT_PLX_MutableMidiPart_insertMidiEffect, random);
    for (std::uint32_t count = random.below(7); count > 0; --count) {
        addNote(part, random);
    }
    for (std::uint32_t count = random.below(5); count > 0; --count) {
        addLane(part, random);
    }
}

void fillAudioPart(KRT_PLX_PartBase* part, Random& random, const support::Path& waveFile)
{
    KRT_PLX_MutableAudioPart_setWavFilePath(part, support::pathText(waveFile).c_str());
    KRT_PLX_MutableAudioPart_setRegion(part, someInt32(random), someInt32(random));
    addEffects(part, KRT_PLX_MutableAudioPart_insertAudioEffect, random);
}

} // namespace

void fillRandomly(KRT_PLX_ClipBase* clip, Random& random, const support::Path& waveFile)
{
    KRT_PLX_MutableClip_setVendorName(clip, someTag(random).c_str());
    KRT_PLX_MutableClip_setPartKey(clip, random.below(31));
    KRT_PLX_MutableClip_setPartTempo(
        clip, coin(random) ? 0 : static_cast<std::uint32_t>(random.between(2000, 30000)));
    if (!random.oneIn(4)) {
        addTags(KRT_PLX_MutableClip_filter(clip), random);
    }
    if (random.oneIn(5)) {
        fillAudioPart(KRT_PLX_MutableClip_createAudioPart(clip), random, waveFile);
    } else if (coin(random)) {
        fillMidiPart(KRT_PLX_MutableClip_createMidiPart(clip), random);
    } else {
        fillMidiPart(KRT_PLX_MutableClip_createMidiAiPart(clip), random);
    }
}

} // namespace contract
