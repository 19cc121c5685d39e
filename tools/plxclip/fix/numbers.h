// Numbers that are written as another kind of number than a key takes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "format/rows.h"

namespace plxclip::fix {

namespace keys = Korvel::CANTORIS::PLX::format::keys;

// A JSON number times a power of ten, as an integer; none if that would lose digits, or is beyond the
// range.
std::optional<std::string> wholeIn(const keys::Range& range, std::string_view number,
                                   int power = 0);

// A JSON integer with a fraction; none if it is beyond the range.
std::optional<std::string> realIn(const keys::Range& range, std::string_view integer);

} // namespace plxclip::fix
