// What the exports return for a null or rejected handle where that is no plain zero. The values are
// outside the range of the real ones, so that a host can tell a missing object by them.
#pragma once

#include <cstdint>
#include <limits>

#include "model/codes.h"
#include "model/expression.h"
#include "model/fields.h"
#include "result.h"

namespace Korvel::CANTORIS::PLX::exports {

inline constexpr std::int32_t noInt32 = std::numeric_limits<std::int32_t>::min();
inline constexpr std::uint32_t noUint32 = 0x80000000U;

// For what has to be above everything: a note's position, and the least value of a lane.
inline constexpr std::int32_t noPosition = std::numeric_limits<std::int32_t>::max();
inline constexpr std::int32_t noMinimum = std::numeric_limits<std::int32_t>::max();

inline constexpr std::uint32_t noPartKey = field::partKey.maximum + 1;
inline constexpr std::uint32_t noPartTempo = 0xFFFFFFFFU;
inline constexpr std::uint32_t noClipKind = 2;
inline constexpr std::uint32_t noVibratoType = field::vibratoType.maximum + 1;
inline constexpr std::uint32_t noVibratoPointType = vibratoCurves;
inline constexpr std::uint32_t noEffectType = 2;
inline constexpr std::uint32_t noValueType = 4;
inline constexpr float noAiExpression = field::aiExpression.initial;

} // namespace Korvel::CANTORIS::PLX::exports
