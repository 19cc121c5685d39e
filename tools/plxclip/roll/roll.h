// The piano roll of a clip as a picture: keys and notes with their lyrics, vibrato as a wavy line,
// the controller lanes below. It is broken into lines of whole bars, like a score.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "snapshot.h"

namespace plxclip::roll {

// Clips contain neither meter nor time unit: the host knows both, so they must be passed.
struct View {
    std::int64_t ticksPerQuarter = 480;
    int beats = 4;
    int beatUnit = 4;
    std::optional<std::pair<std::int64_t, std::int64_t>> bars; // from and to, from 1
    int width = 1280;

    std::int64_t ticksPerBeat() const { return ticksPerQuarter * 4 / beatUnit; }
    std::int64_t ticksPerBar() const { return ticksPerBeat() * beats; }
};

// A picture with more bars than this would be useless.
inline constexpr std::int64_t mostBars = 512;

// The first and the last bar with anything of the part, from 1; bars before the beginning are 0 and
// below.
std::pair<std::int64_t, std::int64_t> barsOf(const MidiPart& part, const View& view);

std::string draw(const Properties& clip, const MidiPart& part, const View& view);

} // namespace plxclip::roll
