#pragma once

#include <chrono>

namespace Korvel::CANTORIS::PLX::fs {

// A file that was last written longer ago than this is not being changed: file systems store that
// time in steps of up to two seconds, and the change of a document is one write.
inline constexpr std::chrono::seconds settledAfter{3};

// In either direction, because the clocks of file servers differ from ours.
constexpr bool isRecent(std::chrono::nanoseconds age)
{
    return -settledAfter < age && age < settledAfter;
}

} // namespace Korvel::CANTORIS::PLX::fs
