// Every exported function with what it returns for a handle that it does not take. A test compares
// the names with those that the public headers declare, so a function cannot be forgotten here.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <korvel/plx.h>

#include "support/text.h"

namespace contract {

// The handle types. A function's family is that of its first argument.
enum class Family {
    none,
    manager,
    clip,
    propertyEditor,
    filter,
    part,
    note,
    dvqm,
    singingSkill,
    vibrato,
    vibratoParameter,
    midiController,
    midiEvent,
    effect,
    effectParameter,
};

// The results, as bits, that stand for "no such object".
inline constexpr std::uint64_t null = 0;
inline constexpr std::uint64_t no = 0;
inline constexpr std::uint64_t nothing = 0; // of a function without a result
inline constexpr std::uint64_t smallestBits = 0x80000000;
inline constexpr std::uint64_t largestBits = 0x7FFFFFFF;
inline constexpr std::uint64_t half = 0x3F000000; // 0.5 as a 32-bit float

// A living object for each family, passed where a function takes an element besides its handle: a
// function that did not check its handle first would have an object to work on.
using Elements = std::map<Family, void*>;

struct Outcome {
    std::uint64_t bits = nothing; // of the result, no wider than its type
    std::string text;             // what a returned text says
    std::uint64_t count = 0;      // what the out-parameters hold afterwards
    std::uint32_t code = 0;
    bool wroteOutParameter = false;

    bool operator==(const Outcome&) const = default;
};

struct Export {
    std::string_view name; // without "KRT_PLX_"
    Family family;
    std::uint64_t defaultBits;
    void (*address)();
    std::function<Outcome(void* handle, const Elements& elements)> call;

    [[nodiscard]] std::string_view className() const { return name.substr(0, name.find('_')); }
    [[nodiscard]] std::string_view operation() const { return name.substr(name.find('_') + 1); }

    // Whether a call may change or destroy an object.
    [[nodiscard]] bool changes() const;

    // Whether the default is impossible for a living object of these tests. A truth value has no mark,
    // and a clip has its part in one of two forms.
    [[nodiscard]] bool defaultMeansRefusal() const;
};

// All of them, family by family.
const std::vector<Export>& exportTable();

std::vector<Export> catalogueExports();
std::vector<Export> partExports();
std::vector<Export> noteExports();
std::vector<Export> expressionExports();
std::vector<Export> controllerExports();
std::vector<Export> effectExports();

template <typename Handle>
constexpr Family familyOf = Family::none;
template <>
inline constexpr Family familyOf<KRT_PLX_Manager> = Family::manager;
template <>
inline constexpr Family familyOf<KRT_PLX_ClipBase> = Family::clip;
template <>
inline constexpr Family familyOf<KRT_PLX_PropertyEditor> = Family::propertyEditor;
template <>
inline constexpr Family familyOf<KRT_PLX_Filter> = Family::filter;
template <>
inline constexpr Family familyOf<KRT_PLX_PartBase> = Family::part;
template <>
inline constexpr Family familyOf<KRT_PLX_NoteBase> = Family::note;
template <>
inline constexpr Family familyOf<KRT_PLX_DvqmBase> = Family::dvqm;
template <>
inline constexpr Family familyOf<KRT_PLX_SingingSkillBase> = Family::singingSkill;
template <>
inline constexpr Family familyOf<KRT_PLX_VibratoBase> = Family::vibrato;
template <>
inline constexpr Family familyOf<KRT_PLX_VibratoParameterBase> = Family::vibratoParameter;
template <>
inline constexpr Family familyOf<KRT_PLX_MidiControllerBase> = Family::midiController;
template <>
inline constexpr Family familyOf<KRT_PLX_MidiEventBase> = Family::midiEvent;
template <>
inline constexpr Family familyOf<KRT_PLX_EffectBase> = Family::effect;
template <>
inline constexpr Family familyOf<KRT_PLX_EffectParameterBase> = Family::effectParameter;

// Arguments that every function accepts where it accepts its handle: the text "x", index 0, number
// 0, true, an element, and out-parameters that are watched.
class Arguments {
public:
    explicit Arguments(const Elements& elements) : elements_(elements) {}

    template <typename T>
    T make();

    void report(Outcome& outcome) const;

private:
    static constexpr std::uint64_t countMark = 0xC0FFEE00C0FFEE00;
    static constexpr std::uint32_t codeMark = 0xC0DEC0DE;

    const Elements& elements_;
    support::Text text_ = support::text("x");
    std::uint64_t count_ = countMark;
    std::uint32_t code_ = codeMark;
};

template <typename T>
T Arguments::make()
{
    if constexpr (std::is_same_v<T, const KRT_PLX_Char*>) {
        return text_.c_str();
    } else if constexpr (std::is_same_v<T, const KRT_PLX_Char* const*>) {
        return nullptr;
    } else if constexpr (std::is_same_v<T, std::uint64_t*>) {
        return &count_;
    } else if constexpr (std::is_same_v<T, std::uint32_t*>) {
        return &code_;
    } else if constexpr (std::is_pointer_v<T>) {
        const auto element = elements_.find(familyOf<std::remove_pointer_t<T>>);
        return element == elements_.end() ? nullptr : static_cast<T>(element->second);
    } else if constexpr (std::is_same_v<T, bool>) {
        return true;
    } else {
        return T{};
    }
}

template <typename Result>
Outcome outcomeOf(Result result)
{
    Outcome outcome;
    if constexpr (std::is_pointer_v<Result>) {
        outcome.bits = reinterpret_cast<std::uintptr_t>(result);
    } else if constexpr (std::is_same_v<Result, float>) {
        outcome.bits = std::bit_cast<std::uint32_t>(result);
    } else {
        outcome.bits = static_cast<std::make_unsigned_t<
            std::conditional_t<std::is_same_v<Result, bool>, unsigned char, Result>>>(result);
    }
    if constexpr (std::is_same_v<Result, const KRT_PLX_Char*>) {
        outcome.text = support::utf8(result);
    }
    return outcome;
}

template <typename Result, typename Handle, typename... Rest>
Outcome callWith(Result (*function)(Handle*, Rest...), void* handle, Arguments& arguments)
{
    if constexpr (std::is_void_v<Result>) {
        function(static_cast<Handle*>(handle), arguments.template make<Rest>()...);
        return {};
    } else {
        return outcomeOf(
            function(static_cast<Handle*>(handle), arguments.template make<Rest>()...));
    }
}

template <typename Result, typename Handle, typename... Rest>
Export exported(std::string_view name, Result (*function)(Handle*, Rest...),
                std::uint64_t defaultBits)
{
    const auto call = [function](void* handle, const Elements& elements) {
        Arguments arguments(elements);
        Outcome outcome = callWith(function, handle, arguments);
        arguments.report(outcome);
        return outcome;
    };
    return {name, familyOf<Handle>, defaultBits, reinterpret_cast<void (*)()>(function), call};
}

} // namespace contract
