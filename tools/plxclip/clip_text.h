// A clip as text, for a terminal.
#pragma once

#include <string>

#include "snapshot.h"

namespace plxclip {

// How to show numbers to which the library gives no meaning.
enum class Numbers : bool { plain, named };

std::string keyText(const Properties& clip, Numbers numbers);
std::string languageText(std::int64_t language, Numbers numbers);

// Types, genres, singer groups and languages in one line.
std::string tagsText(const Tags& tags, Numbers numbers);

// The optional properties of a note, such as "vibrato 600, protected".
std::string remarksText(const Note& note);

std::string describe(const Properties& clip, Numbers numbers);
std::string describe(const Part& part, Numbers numbers, std::size_t width);

} // namespace plxclip
