#include "walk.h"

#include <array>
#include <bit>
#include <limits>
#include <optional>
#include <string>

#include "require_property.h"
#include "walk_variants.h"

namespace fuzz {

namespace {

using TextView = std::basic_string_view<KRT_PLX_Char>;

template <class Handle>
std::uint64_t countOf(bool (*count)(Handle*, std::uint64_t*), Handle* handle)
{
    std::uint64_t result = std::numeric_limits<std::uint64_t>::max();
    require(count(handle, &result), "a living object counts its children");
    require(!count(handle, nullptr), "no count without a place for it");
    return result;
}

template <class Element, class Handle, class Visit>
void forEach(std::uint64_t count, Element* (*at)(Handle*, std::uint64_t), Handle* handle,
             const Visit& visit)
{
    for (std::uint64_t index = 0; index < count; ++index) {
        Element* const element = at(handle, index);
        require(element != nullptr, "there is an element below the count");
        visit(element);
    }
    require(at(handle, count) == nullptr, "there is none at the count");
    require(at(handle, std::numeric_limits<std::uint64_t>::max()) == nullptr, "nor far behind it");
}

// Values that may only rise.
template <class Value>
class Rising {
public:
    explicit Rising(bool mayRepeat) : mayRepeat_(mayRepeat) {}

    void next(Value value)
    {
        require(!last_ || *last_ < value || (mayRepeat_ && *last_ == value), "a list is in order");
        last_ = value;
    }

private:
    bool mayRepeat_;
    std::optional<Value> last_;
};

// What an object may have of a property, whatever it was edited before or after it.
template <class Handle, class Value>
bool mayBe(const support::Property<Handle, Value>& property, Value value)
{
    const bool isWithin = !(value < property.minimum) && !(value > property.maximum);
    return isWithin || value == property.initial || (property.orZero && value == Value{});
}

template <class Handle>
bool mayBe(const support::Property<Handle, bool>&, bool)
{
    return true;
}

template <class Handle>
bool mayBe(const support::Property<Handle, const KRT_PLX_Char*>& property, const KRT_PLX_Char* text)
{
    return text != nullptr && (*text == 0 ? property.texts != support::Texts::notEmpty
                                          : property.accepts(nullptr, text));
}

constexpr std::int64_t lastPosition = std::numeric_limits<std::int32_t>::max();

} // namespace

void Digest::add(std::uint64_t value)
{
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
    value_ = (std::rotl(value_, 27) ^ value) * factor;
    value_ ^= value_ >> 29;
}

void Digest::add(float value)
{
    add(std::uint64_t{std::bit_cast<std::uint32_t>(value)});
}

void Digest::add(TextView text)
{
    add(std::uint64_t{text.size()});
    for (const KRT_PLX_Char unit : text) {
        add(static_cast<std::uint64_t>(unit));
    }
}

template <class Variant, class Handle>
void Walk::meet(Handle* handle)
{
    require(handle != nullptr, "there is an object");
    auto& living = std::get<Living<Handle>>(handles_);
    (Variant::isMutable ? living.editable : living.readOnly).push_back(handle);
    if (addresses_ == Addresses::counted) {
        digest_.add(std::uint64_t{reinterpret_cast<std::uintptr_t>(handle)});
    }
}

void Walk::text(const KRT_PLX_Char* text)
{
    require(text != nullptr, "a living object has its texts");
    digest_.add(TextView(text));
}

void Walk::nonEmptyText(const KRT_PLX_Char* text)
{
    this->text(text);
    require(*text != 0, "a text that may not be empty is not");
}

void Walk::number(std::uint32_t value, std::uint32_t largest)
{
    require(value <= largest, "a number is in its range");
    digest_.add(std::uint64_t{value});
}

template <class Handle>
void Walk::values(Handle* handle)
{
    support::forEachProperty<Handle>([&](const auto& property) {
        const auto value = property.get(handle);
        requireOf(property, mayBe(property, value), "is what it may be");
        if constexpr (std::is_integral_v<decltype(property.get(handle))>) {
            digest_.add(static_cast<std::uint64_t>(value));
        } else {
            digest_.add(value);
        }
    });
}

// --- Clips ----------------------------------------------------------------------------------------------

void Walk::manager(KRT_PLX_Manager* manager)
{
    require(KRT_PLX_HasManager(manager), "a manager lives until it is destroyed");
    meet<Editable>(manager);
    const auto visit = [&](KRT_PLX_ClipBase* clip) {
        text(KRT_PLX_Clip_path(clip));
        require(KRT_PLX_ClipBase_parent(clip) == manager, "a clip belongs to its manager");
        catalogueClip(clip);
    };
    forEach(countOf(KRT_PLX_Manager_numSystemClips, manager), KRT_PLX_Manager_systemClip, manager,
            visit);
    forEach(countOf(KRT_PLX_Manager_numUserClips, manager), KRT_PLX_Manager_userClip, manager,
            visit);
}

void Walk::catalogueClip(KRT_PLX_ClipBase* clip)
{
    nonEmptyText(KRT_PLX_Clip_id(clip));
    nonEmptyText(KRT_PLX_Clip_name(clip));
    number(KRT_PLX_Clip_type(clip), KRT_PLX_CLIP_USER);
    number(KRT_PLX_ClipBase_partType(clip), KRT_PLX_PART_MIDI);
    this->clip<ReadOnly>(clip);
}

void Walk::mutableClip(KRT_PLX_ClipBase* clip)
{
    number(KRT_PLX_ClipBase_partType(clip), KRT_PLX_PART_NONE);
    this->clip<Editable>(clip);
}

void Walk::readPart(KRT_PLX_ClipBase* clip)
{
    part<ReadOnly>(clip);
}

template <class Variant>
void Walk::clip(KRT_PLX_ClipBase* clip)
{
    meet<Variant>(clip);
    values(clip);
    KRT_PLX_Filter* const tags = Variant::filter(clip);
    meet<Variant>(tags);
    filter(tags);
    part<Variant>(clip);
}

void Walk::filter(KRT_PLX_Filter* filter)
{
    for (const support::TagList& list : support::tagLists) {
        const std::uint64_t count = countOf(list.count, filter);
        digest_.add(count);
        for (std::uint64_t index = 0; index < count; ++index) {
            list.takesEmpty ? text(list.at(filter, index)) : nonEmptyText(list.at(filter, index));
        }
        require(list.at(filter, count) == nullptr, "there is no tag at the count");
    }
    const std::uint64_t languages = countOf(KRT_PLX_Filter_numLanguages, filter);
    digest_.add(languages);
    for (std::uint64_t index = 0; index < languages; ++index) {
        const std::int32_t language = KRT_PLX_Filter_language(filter, index);
        number(static_cast<std::uint32_t>(language), std::uint32_t{lastPosition});
    }
}

// --- Parts ----------------------------------------------------------------------------------------------

template <class Variant>
void Walk::part(KRT_PLX_ClipBase* clip)
{
    KRT_PLX_PartBase* const audio = Variant::audioPart(clip);
    KRT_PLX_PartBase* const midi = Variant::midiPart(clip);
    require(audio == nullptr || midi == nullptr, "a clip has one part");
    KRT_PLX_PartBase* const one = audio != nullptr ? audio : midi;
    if (one == nullptr) {
        digest_.add(std::uint64_t{0});
        return;
    }
    meet<Variant>(one);
    require(KRT_PLX_PartBase_isMutable(one) == Variant::isMutable, "a part knows its variant");
    require(KRT_PLX_PartBase_type(one) == KRT_PLX_ClipBase_partType(clip), "and its type");
    number(KRT_PLX_PartBase_type(one), KRT_PLX_PART_MIDI);
    audio != nullptr ? audioPart<Variant>(audio) : midiPart<Variant>(midi);
}

template <class Variant>
void Walk::audioPart(KRT_PLX_PartBase* part)
{
    text(KRT_PLX_AudioPartBase_wavFilePath(part));
    digest_.add(static_cast<std::uint64_t>(KRT_PLX_AudioPartBase_begin(part)));
    digest_.add(static_cast<std::uint64_t>(KRT_PLX_AudioPartBase_end(part)));
    effects<Variant>(part, KRT_PLX_AudioPartBase_numAudioEffects, Variant::audioPartEffect,
                     Variant::hasAudioPartEffect, Variant::audioEffectParent);
}

template <class Variant>
void Walk::midiPart(KRT_PLX_PartBase* part)
{
    values(part);
    aiLanguages(part);
    effects<Variant>(part, KRT_PLX_MidiPartBase_numAudioEffects, Variant::audioEffect,
                     Variant::hasAudioEffect, Variant::audioEffectParent);
    effects<Variant>(part, KRT_PLX_MidiPartBase_numMidiEffects, Variant::midiEffect,
                     Variant::hasMidiEffect, Variant::midiEffectParent);
    notes<Variant>(part);
    for (std::uint32_t type = 0; type <= KRT_PLX_CONTROLLER_CHARACTER; ++type) {
        if (KRT_PLX_MidiControllerBase* const one = Variant::lane(part, type); one != nullptr) {
            require(KRT_PLX_MidiControllerBase_type(one) == type, "a lane is found by its type");
            require(Variant::hasLane(part, one), "a part has its lanes");
            require(Variant::laneParent(one) == part, "a lane belongs to its part");
            lane<Variant>(one);
        }
    }
    require(Variant::lane(part, KRT_PLX_CONTROLLER_CHARACTER + 1) == nullptr, "no unknown lane");
}

void Walk::aiLanguages(KRT_PLX_PartBase* part)
{
    const std::uint64_t languages = KRT_PLX_MidiPartBase_aiLangIDSize(part);
    digest_.add(languages);
    for (std::uint64_t index = 0; index < languages; ++index) {
        number(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, index),
               support::propertyOf(KRT_PLX_MidiPartBase_langID).maximum);
    }
    require(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, languages) == KRT_PLX_NO_LANGUAGE,
            "there is no language at the count");
}

template <class Variant>
void Walk::lane(KRT_PLX_MidiControllerBase* lane)
{
    meet<Variant>(lane);
    digest_.add(std::uint64_t{KRT_PLX_MidiControllerBase_type(lane)});
    const std::int32_t smallest = KRT_PLX_MidiControllerBase_minEventValue(lane);
    const std::int32_t largest = KRT_PLX_MidiControllerBase_maxEventValue(lane);
    const std::uint64_t count = countOf(KRT_PLX_MidiControllerBase_numEvents, lane);
    require(count != 0 || Variant::isMutable, "a lane that was read has an event");
    digest_.add(count);
    Rising<std::int32_t> order(false);
    forEach(count, Variant::event, lane, [&](KRT_PLX_MidiEventBase* event) {
        meet<Variant>(event);
        require(Variant::eventParent(event) == lane, "an event belongs to its lane");
        const std::int32_t pos = KRT_PLX_MidiEventBase_pos(event);
        const std::int32_t value = KRT_PLX_MidiEventBase_value(event);
        order.next(pos);
        require(smallest <= value && value <= largest, "an event is in its lane's range");
        digest_.add(static_cast<std::uint64_t>(pos));
        digest_.add(static_cast<std::uint64_t>(value));
    });
}

// --- Effects --------------------------------------------------------------------------------------------

template <class Variant>
void Walk::effects(KRT_PLX_PartBase* part, bool (*count)(KRT_PLX_PartBase*, std::uint64_t*),
                   KRT_PLX_EffectBase* (*at)(KRT_PLX_PartBase*, std::uint64_t),
                   bool (*has)(KRT_PLX_PartBase*, KRT_PLX_EffectBase*),
                   KRT_PLX_PartBase* (*parent)(KRT_PLX_EffectBase*))
{
    const std::uint64_t size = countOf(count, part);
    digest_.add(size);
    forEach(size, at, part, [&](KRT_PLX_EffectBase* one) {
        require(has(part, one), "a part has its effects");
        require(parent(one) == part, "an effect belongs to its part");
        effect<Variant>(one);
    });
}

template <class Variant>
void Walk::effect(KRT_PLX_EffectBase* effect)
{
    meet<Variant>(effect);
    nonEmptyText(KRT_PLX_EffectBase_id(effect));
    number(KRT_PLX_EffectBase_type(effect), 1);
    const std::uint64_t count = countOf(KRT_PLX_EffectBase_numParameters, effect);
    digest_.add(count);
    Rising<TextView> order(!Variant::isMutable);
    forEach(count, Variant::parameter, effect, [&](KRT_PLX_EffectParameterBase* parameter) {
        meet<Variant>(parameter);
        require(Variant::hasParameter(effect, parameter), "an effect has its parameters");
        require(Variant::parameterParent(parameter) == effect, "which belong to it");
        nonEmptyText(KRT_PLX_EffectParameterBase_name(parameter));
        order.next(KRT_PLX_EffectParameterBase_name(parameter));
        number(KRT_PLX_EffectParameterBase_type(parameter), 3);
        digest_.add(static_cast<std::uint64_t>(KRT_PLX_EffectParameterBase_valueInt32(parameter)));
        digest_.add(KRT_PLX_EffectParameterBase_valueFloat(parameter));
        text(KRT_PLX_EffectParameterBase_valueString(parameter));
    });
}

// --- Notes ----------------------------------------------------------------------------------------------

template <class Variant>
void Walk::notes(KRT_PLX_PartBase* part)
{
    const std::uint64_t count = countOf(KRT_PLX_MidiPartBase_numNotes, part);
    digest_.add(count);
    Rising<std::int32_t> order(true);
    forEach(count, Variant::note, part, [&](KRT_PLX_NoteBase* one) {
        require(Variant::hasNote(part, one), "a part has its notes");
        require(Variant::noteParent(one) == part, "a note belongs to its part");
        order.next(KRT_PLX_NoteBase_pos(one));
        note<Variant>(one);
    });
}

template <class Variant>
void Walk::note(KRT_PLX_NoteBase* note)
{
    meet<Variant>(note);
    require(KRT_PLX_NoteBase_isMutable(note) == Variant::isMutable, "a note knows its variant");
    values(note);
    require(std::int64_t{KRT_PLX_NoteBase_pos(note)} + KRT_PLX_NoteBase_duration(note) <=
                lastPosition,
            "a note ends before the end");
    for (const bool isAttack : {true, false}) {
        KRT_PLX_DvqmBase* const one = Variant::dvqm(note, isAttack);
        require(KRT_PLX_DvqmBase_isAttack(one) == isAttack, "attack and release are told apart");
        require(Variant::dvqmParent(one) == note, "and belong to their note");
        dvqm<Variant>(one);
    }
    singingSkill<Variant>(Variant::singingSkill(note));
    vibrato<Variant>(Variant::vibrato(note));
}

template <class Variant>
void Walk::dvqm(KRT_PLX_DvqmBase* dvqm)
{
    meet<Variant>(dvqm);
    values(dvqm);
    const std::uint64_t count = countOf(KRT_PLX_DvqmBase_numLevelNames, dvqm);
    require(count <= (Variant::isMutable ? 5 : 4), "level names are few");
    digest_.add(count);
    for (std::uint64_t index = 0; index < count; ++index) {
        text(KRT_PLX_DvqmBase_levelName(dvqm, index));
    }
}

template <class Variant>
void Walk::singingSkill(KRT_PLX_SingingSkillBase* skill)
{
    meet<Variant>(skill);
    const std::int32_t duration = KRT_PLX_SingingSkillBase_duration(skill);
    values(skill);
    require(Variant::isMutable ||
                duration <= KRT_PLX_NoteBase_duration(Variant::skillParent(skill)),
            "and lies within its note");
}

template <class Variant>
void Walk::vibrato(KRT_PLX_VibratoBase* vibrato)
{
    meet<Variant>(vibrato);
    values(vibrato);
    const std::int32_t duration = KRT_PLX_VibratoBase_duration(vibrato);
    require(Variant::isMutable ||
                duration <= KRT_PLX_NoteBase_duration(Variant::vibratoParent(vibrato)),
            "and lies within its note");
    digest_.add(static_cast<std::uint64_t>(duration));
    for (const std::uint32_t type : {0U, 1U}) {
        points<Variant>(vibrato, type);
    }
}

template <class Variant>
void Walk::points(KRT_PLX_VibratoBase* vibrato, std::uint32_t type)
{
    std::uint64_t count = 0;
    require(KRT_PLX_VibratoBase_numParameters(vibrato, type, &count), "points are counted");
    digest_.add(count);
    const std::int32_t duration = KRT_PLX_VibratoBase_duration(vibrato);
    Rising<std::int32_t> order(false);
    for (std::uint64_t index = 0; index < count; ++index) {
        KRT_PLX_VibratoParameterBase* const point = Variant::point(vibrato, type, index);
        meet<Variant>(point);
        require(Variant::hasPoint(vibrato, type, point), "a vibrato has its points");
        require(Variant::pointParent(point) == vibrato, "which belong to it");
        require(KRT_PLX_VibratoParameterBase_type(point) == type, "and know their curve");
        const std::int32_t pos = KRT_PLX_VibratoParameterBase_pos(point);
        require(pos >= 0 && (Variant::isMutable || pos <= duration), "and lie within it");
        order.next(pos);
        digest_.add(static_cast<std::uint64_t>(pos));
        number(KRT_PLX_VibratoParameterBase_value(point), 127);
    }
    require(Variant::point(vibrato, type, count) == nullptr, "there is no point at the count");
}

} // namespace fuzz
