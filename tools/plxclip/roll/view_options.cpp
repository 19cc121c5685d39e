#include "roll/view_options.h"

#include <bit>

#include <fmt/format.h>

#include "options.h"

namespace plxclip::roll {

namespace {

void setMeter(View& view, const std::string& text)
{
    const auto [beats, unit] = parsePair("--meter", text, '/');
    if (beats < 1 || beats > 32) {
        throw CLI::ValidationError("--meter", "the first number is 1 to 32");
    }
    if (unit < 1 || unit > 32 || !std::has_single_bit(static_cast<unsigned>(unit))) {
        throw CLI::ValidationError("--meter", "the second number is 1, 2, 4, 8, 16 or 32");
    }
    view.beats = static_cast<int>(beats);
    view.beatUnit = static_cast<int>(unit);
    view.meterFrom = MeterFrom::option;
}

} // namespace

std::pair<std::int64_t, std::int64_t> parsePair(const std::string& option, const std::string& text,
                                                char separator)
{
    std::int64_t first = 0;
    std::int64_t second = 0;
    const std::size_t place = text.find(separator, 1);
    if (place == std::string::npos || !CLI::detail::lexical_cast(text.substr(0, place), first) ||
        !CLI::detail::lexical_cast(text.substr(place + 1), second)) {
        throw CLI::ValidationError(
            option,
            fmt::format("\"{}\" is no pair of numbers with \"{}\" between", text, separator));
    }
    return {first, second};
}

CLI::Option* addMeter(CLI::App& command, View& view)
{
    return command
        .add_option_function<std::string>(
            "--meter", [&view](const std::string& text) { setMeter(view, text); },
            "Guessed from the notes if not given, 4/4 if none fits clearly")
        ->type_name("N/M");
}

CLI::Option* addTicks(CLI::App& command, View& view)
{
    return command.add_option("--ticks", view.ticksPerQuarter, "Of a quarter note")
        ->check(between(32, 1'000'000))
        ->capture_default_str();
}

} // namespace plxclip::roll
