// The waveform of a wave file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace plxclip {

struct Wave {
    float seconds = 0;
    std::uint32_t rate = 0; // samples a second
    std::uint32_t channels = 0;
    // The lowest and the highest sample of each of the equal pieces of the file, over all channels:
    // -127 to 127.
    std::vector<std::int32_t> peaks;
    std::string problem; // why there is no waveform; empty if there is one
};

// Reads PCM of 16, 24 and 32 bits and floats of 32 and 64 bits.
Wave readWave(const std::string& path);

} // namespace plxclip
