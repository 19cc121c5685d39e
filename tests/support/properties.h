// What the objects of a clip hold, once: the key of each property, the functions that read and set it,
// what it takes and what it is at first. All tests take these facts from here. They were written down
// from the manual and not from the library's own tables, so that the one can be held against the other.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include <korvel/plx.h>

#include "support/limits.h"

namespace support {

// Whether an object is read from a document that lacks the property. An argument is given where the
// object is made, so that a new object has no initial value of it.
enum class Need : std::uint8_t { optional, required, argument };

// What a row of the list says of every property.
template <class Handle, class Value>
struct Place {
    const char* within; // the object, inside the handle's own, that has the key; "" for the own one
    const char* key;
    Value (*get)(Handle*) noexcept;
    bool (*set)(Handle*, Value) noexcept;
    Need need = Need::optional;
};

// A bound that depends on what else the editable object holds.
template <class Handle, class Value>
using Bound = Value (*)(Handle*);

// A whole number or a float.
template <class Handle, class Value>
struct Property : Place<Handle, Value> {
    Value minimum;
    Value maximum;
    Value initial;
    bool orZero = false; // beside the range
    Bound<Handle, Value> least = nullptr;
    Bound<Handle, Value> most = nullptr;

    Value leastOf(Handle* handle) const { return least == nullptr ? minimum : least(handle); }
    Value mostOf(Handle* handle) const { return most == nullptr ? maximum : most(handle); }

    bool succeeds(Value) const { return true; }

    // A NaN is not outside the range.
    bool accepts(Handle* handle, Value value) const
    {
        return (orZero && value == Value{}) ||
               (!(value < leastOf(handle)) && !(mostOf(handle) < value));
    }
};

template <class Handle>
struct Property<Handle, bool> : Place<Handle, bool> {
    bool initial = false;
    bool setReturnsIt = false; // instead of success

    // What the setter says to a value that it takes.
    bool succeeds(bool value) const { return !setReturnsIt || value; }
    bool accepts(Handle*, bool) const { return true; }
};

// Of a named object, an editing host may take the name away; a document has no object without it.
enum class Texts : std::uint8_t { any, notEmpty, name, voiceBank, voiceBankOrEmpty };
inline constexpr std::size_t voiceBankLength = 16; // in units

using TextPointer = const KRT_PLX_Char*;

// At first it is empty. Null is an empty text.
template <class Handle>
struct Property<Handle, TextPointer> : Place<Handle, TextPointer> {
    Texts texts = Texts::any;

    bool succeeds(TextPointer) const { return true; }

    // The ID of an AI voice bank is emptied by an empty text, not by null.
    bool accepts(Handle*, TextPointer text) const
    {
        const std::size_t length =
            text == nullptr ? 0 : std::basic_string_view<KRT_PLX_Char>(text).size();
        switch (texts) {
        case Texts::any:
        case Texts::name:
            return true;
        case Texts::notEmpty:
            return length > 0;
        case Texts::voiceBank:
            return length == voiceBankLength;
        case Texts::voiceBankOrEmpty:
            break;
        }
        return text != nullptr && (length == 0 || length == voiceBankLength);
    }
};

template <class Handle>
using AnyProperty =
    std::variant<Property<Handle, std::uint32_t>, Property<Handle, std::int32_t>,
                 Property<Handle, float>, Property<Handle, bool>, Property<Handle, TextPointer>>;

// --- The list -----------------------------------------------------------------------------------------

// The properties of an object, in the order in which documents have them, and what messages call it.
template <class Handle>
std::span<const AnyProperty<Handle>> properties()
{
    return {};
}
template <class Handle>
const char* objectName()
{
    return "";
}

template <>
std::span<const AnyProperty<KRT_PLX_ClipBase>> properties<KRT_PLX_ClipBase>();
template <>
const char* objectName<KRT_PLX_ClipBase>();
template <>
std::span<const AnyProperty<KRT_PLX_PartBase>> properties<KRT_PLX_PartBase>();
template <>
const char* objectName<KRT_PLX_PartBase>();
template <>
std::span<const AnyProperty<KRT_PLX_NoteBase>> properties<KRT_PLX_NoteBase>();
template <>
const char* objectName<KRT_PLX_NoteBase>();
template <>
std::span<const AnyProperty<KRT_PLX_SingingSkillBase>> properties<KRT_PLX_SingingSkillBase>();
template <>
const char* objectName<KRT_PLX_SingingSkillBase>();
template <>
std::span<const AnyProperty<KRT_PLX_DvqmBase>> properties<KRT_PLX_DvqmBase>();
template <>
const char* objectName<KRT_PLX_DvqmBase>();
template <>
std::span<const AnyProperty<KRT_PLX_VibratoBase>> properties<KRT_PLX_VibratoBase>();
template <>
const char* objectName<KRT_PLX_VibratoBase>();
template <>
std::span<const AnyProperty<KRT_PLX_VibratoParameterBase>> properties<
    KRT_PLX_VibratoParameterBase>();
template <>
const char* objectName<KRT_PLX_VibratoParameterBase>();
template <>
std::span<const AnyProperty<KRT_PLX_MidiEventBase>> properties<KRT_PLX_MidiEventBase>();
template <>
const char* objectName<KRT_PLX_MidiEventBase>();
template <>
std::span<const AnyProperty<KRT_PLX_EffectParameterBase>> properties<KRT_PLX_EffectParameterBase>();
template <>
const char* objectName<KRT_PLX_EffectParameterBase>();

// The types of controller lanes, in the order of their codes, and what their events take.
struct Controller {
    const char* name;
    std::uint32_t code;
    std::int32_t minimum;
    std::int32_t maximum;
};
inline constexpr auto controllers = std::to_array<Controller>({{"dynamics", 0, 0, 127},
                                                               {"portamento", 1, 0, 127},
                                                               {"pitchBendSens", 2, 0, 24},
                                                               {"pitchBend", 3, -8192, 8191},
                                                               {"breathiness", 4, 0, 127},
                                                               {"brightness", 5, 0, 127},
                                                               {"clearness", 6, 0, 127},
                                                               {"voiceBlend", 7, 0, 127},
                                                               {"growl", 8, 0, 127},
                                                               {"exciter", 9, -64, 63},
                                                               {"air", 10, 0, 127},
                                                               {"character", 11, -64, 63}});

// The texts of a filter. Vendors have no key: a document's own vendor takes their place.
struct TagList {
    const char* key;
    bool (*count)(KRT_PLX_Filter*, std::uint64_t*) noexcept;
    TextPointer (*at)(KRT_PLX_Filter*, std::uint64_t) noexcept;
    bool (*add)(KRT_PLX_Filter*, TextPointer) noexcept;
    bool (*remove)(KRT_PLX_Filter*, TextPointer) noexcept;
    bool takesEmpty = false;

    [[nodiscard]] const char* name() const { return *key == 0 ? "vendors" : key; }
};
inline constexpr TagList vendorTags = {"",
                                       KRT_PLX_Filter_numVendors,
                                       KRT_PLX_Filter_vendor,
                                       KRT_PLX_MutableFilter_addVendor,
                                       KRT_PLX_MutableFilter_removeVendor,
                                       true};
inline constexpr auto tagLists = std::to_array<TagList>(
    {{"singerGroups", KRT_PLX_Filter_numSingerGroups, KRT_PLX_Filter_singerGroup,
      KRT_PLX_MutableFilter_addSingerGroup, KRT_PLX_MutableFilter_removeSingerGroup},
     {"singerIDs", KRT_PLX_Filter_numSingerIDs, KRT_PLX_Filter_singerID,
      KRT_PLX_MutableFilter_addSingerID, KRT_PLX_MutableFilter_removeSingerID},
     {"types", KRT_PLX_Filter_numTypes, KRT_PLX_Filter_type, KRT_PLX_MutableFilter_addType,
      KRT_PLX_MutableFilter_removeType},
     {"genres", KRT_PLX_Filter_numGenres, KRT_PLX_Filter_genre, KRT_PLX_MutableFilter_addGenre,
      KRT_PLX_MutableFilter_removeGenre},
     vendorTags});
inline constexpr auto tagListsWithKeys = std::span(tagLists).first<tagLists.size() - 1>();

// --- Looking into it ----------------------------------------------------------------------------------

// Calls visit(property) for each property of an object, with its own type.
template <class Handle, class Visit>
void forEachProperty(Visit visit)
{
    for (const AnyProperty<Handle>& any : properties<Handle>()) {
        std::visit(visit, any);
    }
}

// The same for those of one type: forEachProperty<KRT_PLX_NoteBase, float>(visit).
template <class Handle, class Value, class Visit>
void forEachProperty(Visit visit)
{
    forEachProperty<Handle>([&visit](const auto& property) {
        if constexpr (std::is_same_v<decltype(property), const Property<Handle, Value>&>) {
            visit(property);
        }
    });
}

// "note.velocity". In an object within the handle's own, a key that others have too is not enough:
// "part.voice.langID".
template <class Handle, class Value>
std::string nameOf(const Place<Handle, Value>& property)
{
    const std::string within = property.within;
    const bool isLong = within == "voice" || within == "aiVoice" || within == "weight";
    return std::string(objectName<Handle>()) + "." + (isLong ? within + "." : "") + property.key;
}

// The row that has this getter. Throws std::logic_error when none has.
template <class Handle, class Value>
const Property<Handle, Value>& propertyOf(Value (*get)(Handle*) noexcept)
{
    const auto found = std::ranges::find_if(properties<Handle>(), [get](const auto& any) {
        const auto* const property = std::get_if<Property<Handle, Value>>(&any);
        return property != nullptr && property->get == get;
    });
    if (found == properties<Handle>().end()) {
        throw std::logic_error("no property has this getter");
    }
    return std::get<Property<Handle, Value>>(*found);
}

} // namespace support
