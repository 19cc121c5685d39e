// The values of a note's expression, each once: its name in the clip's documents and in JSON, and how to
// get it, as a host or from the library's own note. They are read, written and compared by these lists.
#pragma once

#include <string_view>
#include <tuple>

namespace plxclip {

template <typename Get>
struct Field {
    std::string_view name;
    Get get;
};
template <typename Get>
Field(std::string_view, Get) -> Field<Get>;

inline constexpr std::tuple expressionFields{
    Field{"accent", [](const auto& note) { return note.accent(); }},
    Field{"bendDepth", [](const auto& note) { return note.bendDepth(); }},
    Field{"bendLength", [](const auto& note) { return note.bendLength(); }},
    Field{"decay", [](const auto& note) { return note.decay(); }},
    Field{"opening", [](const auto& note) { return note.opening(); }},
    Field{"fallPort", [](const auto& note) { return note.fallPort(); }},
    Field{"risePort", [](const auto& note) { return note.risePort(); }},
};

inline constexpr std::tuple aiExpressionFields{
    Field{"pitchFine", [](const auto& note) { return note.pitchFine(); }},
    Field{"pitchDriftStart", [](const auto& note) { return note.pitchDriftStart(); }},
    Field{"pitchDriftEnd", [](const auto& note) { return note.pitchDriftEnd(); }},
    Field{"pitchScalingCenter", [](const auto& note) { return note.pitchScalingCenter(); }},
    Field{"pitchScalingOrigin", [](const auto& note) { return note.pitchScalingOrigin(); }},
    Field{"pitchTransitionStart", [](const auto& note) { return note.pitchTransitionStart(); }},
    Field{"pitchTransitionEnd", [](const auto& note) { return note.pitchTransitionEnd(); }},
    Field{"amplitudeWhole", [](const auto& note) { return note.amplitudeWhole(); }},
    Field{"amplitudeStart", [](const auto& note) { return note.amplitudeStart(); }},
    Field{"amplitudeEnd", [](const auto& note) { return note.amplitudeEnd(); }},
    Field{"formantWhole", [](const auto& note) { return note.formantWhole(); }},
    Field{"formantStart", [](const auto& note) { return note.formantStart(); }},
    Field{"formantEnd", [](const auto& note) { return note.formantEnd(); }},
};

} // namespace plxclip
