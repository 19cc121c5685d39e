// Pictures as PNG or PDF, by librsvg. It is loaded when it is needed, so that the program runs
// without it.
#pragma once

#include <string>

#include "roll/svg.h"

namespace plxclip::roll {

// The bytes of the file. A PNG has two pixels for each unit of the picture, a PDF is one page. Throws a
// Failure if librsvg is not there or the picture is too large.
std::string pngOf(const Picture& picture);
std::string pdfOf(const Picture& picture);

} // namespace plxclip::roll
