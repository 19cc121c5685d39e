// From the library's objects to plain values.
#pragma once

#include <korvel/plx.hpp>

#include "snapshot.h"

namespace plxclip {

Properties propertiesOf(korvel::plx::Clip clip);

// The part that is loaded; nothing when there is none.
Part partOf(korvel::plx::Clip clip);

// A path of the library in the form of this system, and back.
std::string pathText(korvel::plx::StringView path);
korvel::plx::String libraryPath(const std::string& path);

} // namespace plxclip
