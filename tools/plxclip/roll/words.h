// Where lyrics and phonemes find room in a line of the picture.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "roll/pieces.h"

namespace plxclip::roll {

struct Text {
    std::string content;
    double size;
    double width;
};

// Pieces of a row, from left to right, in pixels. Pieces that touch are one.
class Pieces {
public:
    bool areFree(double left, double right) const;
    void take(double left, double right);

private:
    std::map<double, double> pieces; // left and right
};

// What stands in the rows of a line: the notes' bodies, and the words that were placed. Words never lie
// on another note or on other words.
class Words {
public:
    Words(const Layout& pictureLayout, const Line& pictureLine, const std::vector<Note>& notes);

    // The lyric in the greatest size that fits between two places, shortened if it would be too small,
    // or nothing. A lyric may go on behind its note, up to the next one.
    std::optional<Text> placeLyric(const Note& note, double left, double right);

    // The phonemes below their note if they are legible there and no longer than the note.
    std::optional<Text> placePhoneme(const Note& note, double left, double right);

private:
    const Line& line;
    std::array<Pieces, 128> bodies;
    std::array<Pieces, 128> words;
    std::array<std::set<double>, 128> starts;
};

} // namespace plxclip::roll
