#include "melody.h"

#include <cmath>
#include <cstdlib>
#include <optional>
#include <sstream>

#include <fmt/format.h>

#include "commands.h"
#include "naming.h"

namespace plxclip {

namespace {

struct Length {
    std::string pitch;
    double beats;
};

// "C4:1"; none for a word that is sung.
std::optional<Length> lengthOf(const std::string& word)
{
    const std::size_t colon = word.rfind(':');
    if (colon == std::string::npos || colon + 1 == word.size()) {
        return std::nullopt;
    }
    char* end = nullptr;
    const double beats = std::strtod(word.c_str() + colon + 1, &end);
    return *end == '\0' ? std::optional(Length{word.substr(0, colon), beats}) : std::nullopt;
}

std::int32_t ticksOf(const Length& length, const std::string& word, std::int32_t ticksToTheBeat)
{
    const double ticks = length.beats * ticksToTheBeat;
    if (!(ticks >= 1 && ticks <= 1e9)) {
        throw Failure(
            fmt::format("\"{}\" has no length; write beats, such as C4:1 or C4:0.5", word),
            exitUsage);
    }
    return static_cast<std::int32_t>(std::lround(ticks));
}

std::uint32_t pitchOf(const Length& length, const std::string& word)
{
    const std::optional<std::uint32_t> number = findPitch(length.pitch);
    if (!number) {
        throw Failure(
            fmt::format("\"{}\" has no pitch; write C4, F#3, Bb5, a number from 0 to 127, "
                        "or R for a rest",
                        word),
            exitUsage);
    }
    return *number;
}

} // namespace

Melody melodyOf(const std::string& text, std::int32_t ticksToTheBeat)
{
    Melody melody;
    bool mayBeSung = false;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::optional<Length> length = lengthOf(word);
        if (!length) {
            if (!mayBeSung) {
                throw Failure(fmt::format("\"{}\" follows no note", word), exitUsage);
            }
            melody.notes.back().lyric = word;
            mayBeSung = false;
            continue;
        }
        const std::int32_t ticks = ticksOf(*length, word, ticksToTheBeat);
        mayBeSung = length->pitch != "R";
        if (mayBeSung) {
            melody.notes.push_back({melody.duration, ticks, pitchOf(*length, word), "la"});
        }
        if (ticks > 2000000000 - melody.duration) {
            throw Failure("the notes are too long together", exitUsage);
        }
        melody.duration += ticks;
    }
    if (melody.notes.empty()) {
        throw Failure("there are no notes; write, for instance, --notes \"C4:1 do D4:1 re\"",
                      exitUsage);
    }
    return melody;
}

} // namespace plxclip
