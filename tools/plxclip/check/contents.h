// How much there is in a part: what this check counts in the document, and what a host gets.
#pragma once

#include <cstddef>

namespace plxclip::check {

struct Contents {
    std::size_t notes = 0;
    std::size_t vibratoPoints = 0;
    std::size_t levelNames = 0;
    std::size_t lanes = 0;
    std::size_t events = 0;
    std::size_t audioEffects = 0;
    std::size_t midiEffects = 0;
    std::size_t parameters = 0;
    std::size_t aiLanguages = 0;

    bool operator==(const Contents&) const = default;
};

} // namespace plxclip::check
