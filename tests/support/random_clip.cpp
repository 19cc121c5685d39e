#include "support/random_clip.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

#include "support/properties.h"
#include "support/text.h"

namespace support {

namespace {

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
    return text(random.oneOf(characters));
}

Text someText(Random& random, std::size_t shortest = 0)
{
    Text result;
    const std::size_t length = shortest + random.below(random.oneIn(30) ? 600 : 8);
    while (result.size() < length) {
        result += someCharacter(random);
    }
    return result;
}

// Few different ones, so that repetitions occur.
Text someTag(Random& random)
{
    static const char* const tags[] = {"",     "Pop",    "pop",
                                       "Rock", "ロック", "A longer tag, \"quoted\""};
    return random.oneIn(3) ? someText(random) : text(random.oneOf(tags));
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

// --- Properties -------------------------------------------------------------------------------------

// Wide ranges are short at their beginning.
template <class Handle>
std::int32_t someValue(const Property<Handle, std::int32_t>& property, Handle* handle,
                       Random& random)
{
    const std::int32_t low = property.leastOf(handle);
    const std::int32_t high = property.mostOf(handle);
    const std::int32_t bounds[] = {low, high};
    return random.oneIn(3) ? random.oneOf(bounds)
                           : random.between(low, std::min(high, std::max(low, 0) + 9999));
}

template <class Handle>
std::uint32_t someValue(const Property<Handle, std::uint32_t>& property, Handle*, Random& random)
{
    return property.orZero && coin(random)
               ? 0
               : property.minimum + random.below(property.maximum - property.minimum + 1);
}

template <class Handle>
float someValue(const Property<Handle, float>& property, Handle*, Random& random)
{
    return someFraction(random, property.maximum);
}

template <class Handle>
bool someValue(const Property<Handle, bool>&, Handle*, Random& random)
{
    return coin(random);
}

// No voice bank is left out: without its own a part is not saved.
template <class Handle>
Text someValue(const Property<Handle, TextPointer>& property, Handle*, Random& random)
{
    switch (property.texts) {
    case Texts::any:
    case Texts::name:
        return someText(random);
    case Texts::notEmpty:
        return someText(random, 1);
    default:
        return someVoiceBankID(random);
    }
}

// But for the place in time, on which other things depend.
template <class Handle>
void setAll(Handle* handle, Random& random)
{
    forEachProperty<Handle>([&](const auto& property) {
        const auto value = someValue(property, handle, random);
        using Value = std::remove_const_t<decltype(value)>;
        if constexpr (std::is_same_v<Value, Text>) {
            property.set(handle, value.c_str());
        } else if (!std::is_same_v<Value, std::int32_t> || property.need != Need::argument) {
            property.set(handle, value);
        }
    });
}

// --- Tags -------------------------------------------------------------------------------------------

void addTags(KRT_PLX_Filter* filter, Random& random)
{
    for (std::uint32_t count = random.below(8); count > 0; --count) {
        random.oneOf(tagLists).add(filter, someTag(random).c_str());
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
        const Text name = coin(random) ? text(random.oneOf(names)) : someText(random, 1);
        setSomeValue(KRT_PLX_MutableEffect_addParameter(effect, name.c_str()), random);
    }
}

using InsertEffect = KRT_PLX_EffectBase* (*)(KRT_PLX_PartBase*, std::uint64_t, const KRT_PLX_Char*);

void addEffects(KRT_PLX_PartBase* part, InsertEffect insert, Random& random)
{
    for (std::uint32_t count = random.below(4); count > 0; --count) {
        const Text id = coin(random) ? text("reverb") : someText(random, 1);
        addParameters(insert(part, random.below(3), id.c_str()), random);
    }
}

// --- Notes ------------------------------------------------------------------------------------------

void setDvqm(KRT_PLX_DvqmBase* dvqm, Random& random)
{
    setAll(dvqm, random);
    if (random.oneIn(3)) {
        KRT_PLX_MutableDvqm_setCompID(dvqm, nullptr);
    }
    for (std::uint32_t count = random.below(6); count > 0; --count) {
        KRT_PLX_MutableDvqm_addLevelName(dvqm, someText(random, 1).c_str());
    }
}

void setVibrato(KRT_PLX_VibratoBase* vibrato, Random& random)
{
    setAll(vibrato, random);
    const std::int32_t duration = KRT_PLX_VibratoBase_duration(vibrato);
    for (std::uint32_t count = random.below(8); count > 0; --count) {
        KRT_PLX_MutableVibrato_insertParameter(
            vibrato, random.below(2), random.between(0, duration),
            random.below(propertyOf(KRT_PLX_VibratoParameterBase_value).maximum + 1));
    }
    if (coin(random)) { // points may then lie beyond its end
        KRT_PLX_MutableVibrato_setDuration(vibrato, random.between(0, duration));
    }
}

// What is not finite can be saved only where it is not written.
void setSomethingNotFinite(KRT_PLX_NoteBase* note, Random& random)
{
    forEachProperty<KRT_PLX_NoteBase, float>([&](const auto& property) {
        if (random.oneIn(13)) {
            property.set(note, std::numeric_limits<float>::quiet_NaN());
        }
    });
}

void addNote(KRT_PLX_PartBase* part, Random& random)
{
    const std::int32_t duration = random.between(1, 2000);
    const std::int32_t ends[] = {smallest, -480, largest - duration};
    const std::int32_t pos = random.oneIn(10) ? random.oneOf(ends) : random.between(0, 20) * 240;
    KRT_PLX_NoteBase* const note =
        KRT_PLX_MutableMidiPart_insertNote(part, pos, duration, someText(random, 1).c_str(),
                                           someText(random, 1).c_str(), random.below(128));
    if (random.oneIn(4)) {
        return; // with its initial values
    }
    setAll(note, random);
    if (KRT_PLX_PartBase_type(part) == KRT_PLX_PART_MIDI && random.oneIn(5)) {
        setSomethingNotFinite(note, random);
    }
    setDvqm(KRT_PLX_MutableNote_dvqm(note, true), random);
    setDvqm(KRT_PLX_MutableNote_dvqm(note, false), random);
    setAll(KRT_PLX_MutableNote_singingSkill(note), random);
    setVibrato(KRT_PLX_MutableNote_vibrato(note), random);
    if (random.oneIn(4)) { // singing skill and vibrato may then be too long
        KRT_PLX_MutableNote_setDuration(note, random.between(1, duration));
    }
}

// --- Lanes ------------------------------------------------------------------------------------------

void addLane(KRT_PLX_PartBase* part, Random& random)
{
    KRT_PLX_MidiControllerBase* const lane =
        KRT_PLX_MutableMidiPart_addMidiController(part, random.below(controllers.size()));
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
    setAll(part, random);
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

void fillAudioPart(KRT_PLX_PartBase* part, Random& random, const Path& waveFile)
{
    KRT_PLX_MutableAudioPart_setWavFilePath(part, pathText(waveFile).c_str());
    KRT_PLX_MutableAudioPart_setRegion(part, someInt32(random), someInt32(random));
    addEffects(part, KRT_PLX_MutableAudioPart_insertAudioEffect, random);
}

} // namespace

void fillRandomly(KRT_PLX_ClipBase* clip, Random& random, const Path& waveFile)
{
    setAll(clip, random);
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

} // namespace support
