// The piano roll of a clip as a picture: keys and notes with their words, vibrato as a wavy line, the
// controller lanes below. Like a score it goes on in lines of whole bars.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "snapshot.h"

namespace plxclip::roll {

// Clips hold neither meter nor time unit: both are the host's, and have to be told.
struct View {
    std::int64_t ticksPerQuarter = 480;
    int beats = 4;
    int beatUnit = 4;
    std::optional<std::pair<std::int64_t, std::int64_t>> bars; // from and to, from 1
    int width = 1280;

    std::int64_t ticksPerBeat() const { return ticksPerQuarter * 4 / beatUnit; }
    std::int64_t ticksPerBar() const { return ticksPerBeat() * beats; }
};

// More bars than this would be no picture to look at.
inline constexpr std::int64_t mostBars = 512;

// The first and the last bar that anything of the part is in, from 1; earlier ones are 0 and below.
std::pair<std::int64_t, std::int64_t> barsOf(const MidiPart& part, const View& view);

std::string draw(const Properties& clip, const MidiPart& part, const View& view);

} // namespace plxclip::roll
