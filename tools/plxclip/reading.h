// Converts the library's objects to plain values.
#pragma once

#include <korvel/plx.hpp>

#include "snapshot.h"

namespace plxclip {

Properties propertiesOf(korvel::plx::Clip clip);

// The loaded part; empty when there is none.
Part partOf(korvel::plx::Clip clip);

// Converts a path of the library to the form of this system, and back.
std::string pathText(korvel::plx::StringView path);
korvel::plx::String libraryPath(const std::string& path);

} // namespace plxclip
