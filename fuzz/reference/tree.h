// The tree that the reader of this folder makes of a document.
#pragma once

#include "format/rapidjson.h"

#include <rapidjson/document.h>

namespace Korvel::CANTORIS::PLX::reference {

using namespace format; // what both readers share

using Pool = json::MemoryPoolAllocator<ThrowingAllocator>;
using Value = json::GenericValue<CheckedUtf8, Pool>;
using Tree = json::GenericDocument<CheckedUtf8, Pool, ThrowingAllocator>;

} // namespace Korvel::CANTORIS::PLX::reference

namespace Korvel::CANTORIS::PLX::format::json {

// In number_reader.cpp.
template <>
template <>
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): named for what they are here
void GenericReader<CheckedUtf8, CheckedUtf8, ThrowingAllocator>::ParseNumber<parseFlags>(
    Text& text, reference::Tree& tree);

} // namespace Korvel::CANTORIS::PLX::format::json
