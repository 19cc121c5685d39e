// Names for numbers. Pitches are those of MIDI. The library gives keys and languages no meaning;
// the names here are those of the example clips, and are used when the user asks for them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace plxclip {

// "C4" for 60. Always with sharps, in any key.
std::string pitchName(std::uint32_t number);
bool isBlackKey(std::uint32_t number);

// The number of such a name, also with a flat ("Bb4"), or that a text contains; none for any other text.
std::optional<std::uint32_t> findPitch(std::string_view text);

// No value for a number without a name.
std::optional<std::string_view> keyName(std::uint32_t key);
std::optional<std::string_view> languageName(std::int64_t language);

// The number that a text contains or names; capital letters do not matter. Notes have fewer languages
// than tags.
std::optional<std::uint32_t> findKey(std::string_view text);
std::optional<std::int32_t> findLanguage(std::string_view text);
std::optional<std::uint32_t> findNoteLanguage(std::string_view text);

// "112.5" for 11250, "-" for 0.
std::string tempoText(std::uint32_t tempo);

} // namespace plxclip
