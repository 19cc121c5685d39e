// Converts the library's objects to plain values.
#pragma once

#include <korvel/plx.hpp>

#include "snapshot.h"

namespace plxclip {

Properties propertiesOf(korvel::plx::Clip clip);

// The loaded part; empty when there is none.
Part partOf(korvel::plx::Clip clip);

} // namespace plxclip
