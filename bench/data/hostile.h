// Documents that nobody would write, except to make a reader slow.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace bench {

// What a data document of the kind holds many of. Each is read by reading the part.
inline constexpr std::array hostileParts{"effects with distinct IDs",
                                         "effects with one ID",
                                         "parameters of one effect",
                                         "notes in reverse order",
                                         "notes at one position",
                                         "events of one lane",
                                         "events at one position",
                                         "vibrato points",
                                         "unknown keys",
                                         "deep nesting"};

// The same of property documents. Each is read by reading the catalogue.
inline constexpr std::array hostileProperties{"filter tags", "unknown property keys",
                                              "deep property nesting"};

std::string hostileDataDocument(std::string_view kind, std::size_t count);
std::string hostilePropertyDocument(std::string_view kind, std::size_t count);

} // namespace bench
