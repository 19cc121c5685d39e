#include "roll/words.h"

#include <algorithm>

namespace plxclip::roll {

namespace {

constexpr double smallestLyric = 6.6;
constexpr double smallestPhoneme = 7;

// The text in the greatest size that fits; nothing if that is too small.
std::optional<Text> fitted(const std::string& text, double size, double smallest, double room)
{
    const double width = textWidth(text, size);
    const double fitting = width <= room ? size : size * room / width;
    if (text.empty() || fitting < smallest) {
        return std::nullopt;
    }
    return Text{text, fitting, std::min(width, room)};
}

} // namespace

bool Pieces::areFree(double left, double right) const
{
    const auto after = pieces.lower_bound(right);
    return after == pieces.begin() || std::prev(after)->second <= left;
}

void Pieces::take(double left, double right)
{
    auto place = pieces.upper_bound(left);
    if (place != pieces.begin() && std::prev(place)->second >= left) {
        --place;
        left = place->first;
    }
    while (place != pieces.end() && place->first <= right) {
        right = std::max(right, place->second);
        place = pieces.erase(place);
    }
    pieces.emplace(left, right);
}

Words::Words(const Layout& layout, const Line& pictureLine, const std::vector<Note>& notes)
    : line(pictureLine)
{
    for (const Note& note : notes) {
        if (sounds(note, line.begin, line.end)) {
            const double left = layout.x(line, std::max<std::int64_t>(note.pos, line.begin));
            starts.at(note.number).insert(left);
            bodies.at(note.number).take(left, layout.x(line, std::min(endOf(note), line.end)));
        }
    }
}

std::optional<Text> Words::placeLyric(const Note& note, double left, double right)
{
    const auto next = starts.at(note.number).upper_bound(left);
    const double end = next == starts.at(note.number).end() ? right : std::min(right, *next - 1);
    std::optional<Text> text = fitted(note.lyric, lyricSize, smallestLyric, end - left);
    if (!text) {
        const std::string start = shortenedTo(note.lyric, smallestLyric, end - left);
        text = fitted(start, smallestLyric, smallestLyric, end - left);
    }
    Pieces& row = words.at(note.number);
    if (!text || !row.areFree(left, left + text->width)) {
        return std::nullopt;
    }
    row.take(left, left + text->width);
    return text;
}

std::optional<Text> Words::placePhoneme(const Note& note, double left, double right)
{
    if (note.number == 0 || !line.shows(note.number - 1)) {
        return std::nullopt;
    }
    std::optional<Text> text = fitted(note.phoneme, phonemeSize, smallestPhoneme, right - left);
    Pieces& row = words.at(note.number - 1);
    if (!text || !row.areFree(left, left + text->width) ||
        !bodies.at(note.number - 1).areFree(left, left + text->width)) {
        return std::nullopt;
    }
    row.take(left, left + text->width);
    return text;
}

} // namespace plxclip::roll
