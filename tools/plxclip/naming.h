// Words for numbers. Pitches are those of MIDI. The library gives keys and languages no meaning;
// the words here are those that the example clips go by, and are used where the user asks for them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace plxclip {

// "C4" for 60. Sharps, whatever the key.
std::string pitchName(std::uint32_t number);
bool isBlackKey(std::uint32_t number);

// Nothing for a number that has no name.
std::optional<std::string_view> keyName(std::uint32_t key);
std::optional<std::string_view> languageName(std::int64_t language);

// The number that a text is or names.
std::optional<std::uint32_t> findKey(std::string_view text);
std::optional<std::int32_t> findLanguage(std::string_view text);

// "112.5" for 11250, "-" for 0.
std::string tempoText(std::uint32_t tempo);

} // namespace plxclip
