// The rows of the table of keys.
//
// A row describes a key of an object: facts that all code can read, and, if the value fills a field
// of the model, how the reader stores it and the writer gets it.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <string_view>
#include <tuple>

#include "model/fields.h"

namespace Korvel::CANTORIS::PLX::format::keys {

// --- The facts ----------------------------------------------------------------------------------------

enum class Kind : std::uint8_t {
    integer,
    real,
    flag,
    text,
    word,  // a text of a fixed set, compared whole
    value, // an integer, a real or a text
    object,
    integers, // lists
    texts,
    objects,
};

// If a required value is missing, of another kind or not accepted, its object is refused. For an
// optional one the object keeps its initial value.
enum class Need : bool { optional, required };

enum class Written : bool { always, unlessEmpty };

// The rule for a text. Every text ends at its first NUL, except a word and a file name, because no
// file has a NUL in its name.
enum class TextRule : std::uint8_t {
    any,
    notEmpty,
    voiceBank, // has as many UTF-16 units as the identifier of a voice bank
    voiceBankOrEmpty,
    fileName,
    partType,
    controllerName,
};

// The accepted numbers; the initial value is that of a new object.
struct Range {
    double initial = 0;
    double minimum = std::numeric_limits<std::int32_t>::min();
    double maximum = std::numeric_limits<std::int32_t>::max();
    bool takesZero = false; // in addition to the range
};

template <class Value>
constexpr Range rangeOf(const Field<Value>& field)
{
    return {static_cast<double>(field.initial), static_cast<double>(field.minimum),
            static_cast<double>(field.maximum)};
}

inline constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

// The first bytes of a key as it is written, with its closing quotation mark if that is one of
// them. Most keys differ in these bytes, which are compared at once.
struct Beginning {
    static constexpr std::size_t size = sizeof(std::uint64_t);

    constexpr Beginning(std::string_view key)
    {
        std::array<unsigned char, size> bytes{};
        std::array<unsigned char, size> used{};
        for (std::size_t place = 0; place < size && place <= key.size(); ++place) {
            bytes[place] = static_cast<unsigned char>(place < key.size() ? key[place] : '"');
            used[place] = 0xFF;
        }
        value = std::bit_cast<std::uint64_t>(bytes);
        mask = std::bit_cast<std::uint64_t>(used);
    }

    // False also when fewer bytes follow than are compared; no valid key is so close to the end of
    // a document.
    bool isAt(const char* at, const char* end) const
    {
        std::uint64_t bytes = 0;
        if (static_cast<std::size_t>(end - at) < size) {
            return false;
        }
        std::memcpy(&bytes, at, size);
        return (bytes & mask) == value;
    }

    std::uint64_t value = 0;
    std::uint64_t mask = 0;
};

struct Shape;

struct Row {
    std::string_view key;
    Kind kind;
    Need need = Need::optional;
    Written written = Written::always;
    Range range = {};
    TextRule rule = TextRule::any;
    std::size_t fewest = 0; // elements that a list must have
    std::size_t most = anyNumber;
    const Shape* inner = nullptr; // that of an object, or of the objects in a list
    Beginning beginning = Beginning(key);
};

// An object of a document: its rows, in the order in which they are written and stored.
struct Shape {
    enum class Id : std::uint8_t {
        propertyDocument,
        partHeader,
        filter,
        dataDocument,
        audioPart,
        midiAiPart,
        midiPart,
        voice,
        aiVoice,
        aiLanguage,
        audioEffect,
        midiEffect,
        audioParameter,
        midiParameter,
        controller,
        event,
        note,
        expression,
        aiExpression,
        singingSkill,
        weight,
        dvqmPair,
        attack,
        release,
        vibrato,
        rate,
        depth,
    };

    Id id;
    std::span<const Row> rows;
};

// --- Rows and what they fill --------------------------------------------------------------------------
//
// `get` is called with the source of the values, `put` with the object to fill and the value; put
// may return whether the value was accepted.

template <Kind ofKind, class Get, class Put>
struct Entry {
    static constexpr Kind kind = ofKind;

    Row row;
    Get get;
    Put put;
};

struct NotWritten {};

template <class Number, class Get, class Put>
constexpr Entry<Kind::integer, Get, Put> integer(std::string_view key, const Field<Number>& field,
                                                 Get get, Put put, Need need = Need::optional)
{
    return {{.key = key, .kind = Kind::integer, .need = need, .range = rangeOf(field)}, get, put};
}

template <class Get, class Put>
constexpr Entry<Kind::real, Get, Put> real(std::string_view key, const FloatField& field, Get get,
                                           Put put)
{
    return {{.key = key, .kind = Kind::real, .range = rangeOf(field)}, get, put};
}

template <class Get, class Put>
constexpr Entry<Kind::flag, Get, Put> flag(std::string_view key, Get get, Put put)
{
    return {{.key = key, .kind = Kind::flag, .range = {.minimum = 0, .maximum = 1}}, get, put};
}

template <class Get, class Put>
constexpr Entry<Kind::text, Get, Put> optionalText(std::string_view key, Get get, Put put)
{
    return {{.key = key, .kind = Kind::text, .written = Written::unlessEmpty}, get, put};
}

template <class Get, class Put>
constexpr Entry<Kind::text, Get, Put> requiredText(std::string_view key, TextRule rule, Get get,
                                                   Put put)
{
    return {{.key = key, .kind = Kind::text, .need = Need::required, .rule = rule}, get, put};
}

template <class Get, class Put>
constexpr Entry<Kind::word, Get, Put> word(std::string_view key, TextRule rule, Get get, Put put)
{
    return {{.key = key, .kind = Kind::word, .need = Need::required, .rule = rule}, get, put};
}

// The value of an effect's parameter. What it accepts depends on the effect and on the name, which
// may come later.
struct ParameterValue {
    static constexpr Kind kind = Kind::value;

    Row row;
};

constexpr ParameterValue parameterValue(std::string_view key, Need need)
{
    return {{.key = key, .kind = Kind::value, .need = need}};
}

// A list of texts. `what` distinguishes it from others; count and at are called with the source.
template <class Count, class At, class What>
struct Texts {
    static constexpr Kind kind = Kind::texts;

    Row row;
    Count count;
    At at;
    What what;
};

template <class Count, class At>
struct Integers {
    static constexpr Kind kind = Kind::integers;

    Row row;
    Count count;
    At at;
};

// An object, or a list of objects, whose rows are those of `Inner`.
template <class Inner>
struct Object {
    static constexpr Kind kind = Kind::object;

    Row row;
};

template <class Inner>
struct Objects {
    static constexpr Kind kind = Kind::objects;

    Row row;
};

// --- Tables -------------------------------------------------------------------------------------------
//
// An object of a document is a type with an identity, `id`, and a tuple of rows, `entries`.

template <class Of>
inline constexpr auto rows =
    std::apply([](const auto&... entry) { return std::array<Row, sizeof...(entry)>{entry.row...}; },
               Of::entries);

template <class Of>
inline constexpr Shape shape{Of::id, rows<Of>};

template <class Inner>
constexpr Object<Inner> object(std::string_view key, Need need = Need::optional)
{
    return {{.key = key, .kind = Kind::object, .need = need, .inner = &shape<Inner>}};
}

template <class Inner>
constexpr Objects<Inner> objects(std::string_view key, Need need = Need::optional)
{
    return {{.key = key, .kind = Kind::objects, .need = need, .inner = &shape<Inner>}};
}

// The index of a key's row. A key that is not there does not compile.
template <class Of>
consteval std::size_t place(std::string_view key)
{
    std::size_t found = 0;
    while (rows<Of>.at(found).key != key) {
        ++found;
    }
    return found;
}

// Looks at the kind: with sanitizers on, some compilers cannot compare the pointer at compile time.
constexpr bool holdsObjects(const Row& row)
{
    return row.kind == Kind::object || row.kind == Kind::objects;
}

// The greatest depth of objects and lists in each other, and the greatest number of rows of an
// object.
constexpr std::size_t depthOf(const Shape& outer)
{
    std::size_t deepest = 0;
    for (const Row& row : outer.rows) {
        const bool isList = row.kind >= Kind::integers;
        const std::size_t depth =
            (isList ? 1U : 0U) + (holdsObjects(row) ? depthOf(*row.inner) : 0);
        deepest = depth > deepest ? depth : deepest;
    }
    return deepest + 1;
}

constexpr std::size_t widthOf(const Shape& outer)
{
    std::size_t widest = outer.rows.size();
    for (const Row& row : outer.rows) {
        const std::size_t width = holdsObjects(row) ? widthOf(*row.inner) : 0;
        widest = width > widest ? width : widest;
    }
    return widest;
}

} // namespace Korvel::CANTORIS::PLX::format::keys
