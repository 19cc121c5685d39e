// All ranges and initial values of the object model. Setters, document readers and boundary tests
// all use this table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include "korvel/plx/common.h"

namespace Korvel::CANTORIS::PLX {

template <class Value>
struct Field {
    Value initial;
    Value minimum;
    Value maximum;

    // Written so that a NaN is accepted: hosts may store one in a float field.
    constexpr bool accepts(Value value) const { return !(value < minimum) && !(maximum < value); }
};

using UnsignedField = Field<std::uint32_t>;
using FloatField = Field<float>;

// A position plus a duration may not exceed this.
inline constexpr std::int32_t lastPosition = std::numeric_limits<std::int32_t>::max();

// Voice bank identifiers have this many UTF-16 units.
inline constexpr std::size_t voiceBankIdLength = 16;

// How many level names a Dvqm takes from an editing host, and from a document.
inline constexpr std::size_t maxEditedLevelNames = 5;
inline constexpr std::size_t maxReadLevelNames = 4;

// For something within a longer object: 0 up to the duration of the longer one.
constexpr Field<std::int32_t> within(std::int32_t duration)
{
    return {.initial = 0, .minimum = 0, .maximum = duration};
}

namespace field {

// Catalogue properties. A tempo of 0 means none and is accepted in addition to the range.
inline constexpr UnsignedField partKey{.initial = 0, .minimum = 0, .maximum = 30};
inline constexpr UnsignedField partTempo{.initial = 0, .minimum = 2000, .maximum = 30000};

// Parts.
inline constexpr Field<std::int32_t> partDuration{
    .initial = 1, .minimum = 1, .maximum = std::numeric_limits<std::int32_t>::max()};
inline constexpr UnsignedField language{
    .initial = KRT_PLX_NO_LANGUAGE, .minimum = 0, .maximum = 127};

// Notes.
inline constexpr Field<std::int32_t> notePosition{
    .initial = 0, .minimum = std::numeric_limits<std::int32_t>::min(), .maximum = lastPosition - 1};
inline constexpr Field<std::int32_t> noteDuration{
    .initial = 1, .minimum = 1, .maximum = lastPosition};
inline constexpr UnsignedField noteNumber{.initial = 0, .minimum = 0, .maximum = 127};
inline constexpr UnsignedField velocity{.initial = 0, .minimum = 0, .maximum = 127};
inline constexpr UnsignedField accent{.initial = 50, .minimum = 0, .maximum = 100};
inline constexpr UnsignedField bendDepth{.initial = 0, .minimum = 0, .maximum = 100};
inline constexpr UnsignedField bendLength{.initial = 0, .minimum = 0, .maximum = 100};
inline constexpr UnsignedField decay{.initial = 50, .minimum = 0, .maximum = 100};
inline constexpr UnsignedField opening{.initial = 127, .minimum = 0, .maximum = 127};
inline constexpr FloatField aiExpression{.initial = 0.5F, .minimum = 0.0F, .maximum = 1.0F};

// Note expressions.
inline constexpr UnsignedField dvqmSpeed{.initial = 50, .minimum = 0, .maximum = 100};
inline constexpr FloatField dvqmTopFactor{.initial = 1.0F, .minimum = 0.0F, .maximum = 2.0F};
inline constexpr UnsignedField singingSkillWeight{.initial = 64, .minimum = 0, .maximum = 127};
inline constexpr UnsignedField vibratoType{.initial = 0, .minimum = 0, .maximum = 16};
inline constexpr UnsignedField vibratoValue{.initial = 0, .minimum = 0, .maximum = 127};

} // namespace field
} // namespace Korvel::CANTORIS::PLX
