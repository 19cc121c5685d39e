// The piano roll of a clip as a picture: keys and notes with their lyrics, vibrato as a wavy line,
// the controller lanes below. It is broken into lines of whole bars, like a score. An audio clip is
// drawn as its waveform.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "roll/meter.h"
#include "roll/svg.h"
#include "snapshot.h"
#include "wave.h"

namespace plxclip::roll {

enum class MeterFrom : std::uint8_t { option, notes, nothing };

// Clips contain neither meter nor time unit: the host knows both. The meter may be guessed.
struct View {
    std::int64_t ticksPerQuarter = 480;
    MeterFrom meterFrom = MeterFrom::nothing;
    int beats = 4;
    int beatUnit = 4;
    std::optional<std::pair<std::int64_t, std::int64_t>> bars; // from and to, from 1
    int width = 1280;
    bool namesNumbers = false; // the key has the name that it has in the example clips

    std::int64_t ticksPerBeat() const { return ticksPerQuarter * 4 / beatUnit; }
    std::int64_t ticksPerBar() const { return ticksPerBeat() * beats; }
};

// The same with the meter that the notes seem to have, if none was given and one fits clearly.
View withMeter(View view, const MidiPart& part);

// How the meter was found, such as "3/4, guessed from the notes".
std::string meterText(const View& view);

// A picture with more bars than this would be useless.
inline constexpr std::int64_t mostBars = 512;

// The first and the last bar with anything of the part, from 1; bars before the beginning are 0 and
// below.
std::pair<std::int64_t, std::int64_t> barsOf(const MidiPart& part, const View& view);

// The view has the meter in which it is drawn.
Picture draw(const Properties& clip, const MidiPart& part, const View& view);

// Only the width of the view matters.
Picture drawWave(const Properties& clip, const Wave& wave, const View& view);

} // namespace plxclip::roll
