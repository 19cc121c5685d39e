#include "naming.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>

#include <fmt/format.h>

#include "letters.h"

namespace plxclip {

namespace {

constexpr std::array<std::string_view, 31> keyNames = {
    "none",     "Cb major", "Gb major", "Db major", "Ab major", "Eb major", "Bb major", "F major",
    "C major",  "G major",  "D major",  "A major",  "E major",  "B major",  "F# major", "C# major",
    "Ab minor", "Eb minor", "Bb minor", "F minor",  "C minor",  "G minor",  "D minor",  "A minor",
    "E minor",  "B minor",  "F# minor", "C# minor", "G# minor", "D# minor", "A# minor"};

constexpr std::array<std::string_view, 6> languageNames = {"no words", "English", "French",
                                                           "German",   "Italian", "Japanese"};

constexpr std::array<std::string_view, 12> pitchNames = {"C",  "C#", "D",  "D#", "E",  "F",
                                                         "F#", "G",  "G#", "A",  "A#", "B"};

template <typename Number>
std::optional<Number> numberOrPlace(std::string_view text, std::span<const std::string_view> names)
{
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error == std::errc() && rest == end) {
        return number;
    }
    const auto found = std::ranges::find_if(names, [text](std::string_view name) {
        return lowerCase(std::string(name)) == lowerCase(std::string(text));
    });
    if (found == names.end()) {
        return std::nullopt;
    }
    return static_cast<Number>(found - names.begin());
}

} // namespace

std::string pitchName(std::uint32_t number)
{
    return fmt::format("{}{}", pitchNames[number % 12], static_cast<int>(number / 12) - 1);
}

bool isBlackKey(std::uint32_t number)
{
    return pitchNames[number % 12].size() == 2;
}

std::optional<std::uint32_t> findPitch(std::string_view text)
{
    constexpr int highest = 127;
    int number = 0;
    const std::size_t letters = std::min(text.find_first_of("-0123456789"), text.size());
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data() + letters, end, number);
    if (error != std::errc() || rest != end || number < -1 || number > highest) {
        return std::nullopt;
    }
    std::string_view name = text.substr(0, letters);
    const bool isFlat = name.size() == 2 && name.back() == 'b';
    name.remove_suffix(isFlat ? 1 : 0);
    if (!name.empty()) {
        const auto found = std::find(pitchNames.begin(), pitchNames.end(), name);
        if (found == pitchNames.end()) {
            return std::nullopt;
        }
        number =
            (number + 1) * 12 + static_cast<int>(found - pitchNames.begin()) - (isFlat ? 1 : 0);
    }
    return number >= 0 && number <= highest ? std::optional(static_cast<std::uint32_t>(number))
                                            : std::nullopt;
}

std::optional<std::string_view> keyName(std::uint32_t key)
{
    return key > 0 && key < keyNames.size() ? std::optional(keyNames[key]) : std::nullopt;
}

std::optional<std::string_view> languageName(std::int64_t language)
{
    const auto place = static_cast<std::uint64_t>(language);
    return place < languageNames.size() ? std::optional(languageNames[place]) : std::nullopt;
}

std::optional<std::uint32_t> findKey(std::string_view text)
{
    const auto key = numberOrPlace<std::uint32_t>(text, keyNames);
    return key && *key < keyNames.size() ? key : std::nullopt;
}

std::optional<std::int32_t> findLanguage(std::string_view text)
{
    const auto language = numberOrPlace<std::int32_t>(text, languageNames);
    return language && *language >= 0 ? language : std::nullopt;
}

std::optional<std::uint32_t> findNoteLanguage(std::string_view text)
{
    const std::optional<std::int32_t> found = findLanguage(text);
    return found && *found <= 127 ? std::optional<std::uint32_t>(*found) : std::nullopt;
}

std::string tempoText(std::uint32_t tempo)
{
    return tempo == 0 ? "-" : fmt::format("{}", tempo / 100.0);
}

} // namespace plxclip
