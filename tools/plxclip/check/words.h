// What was lost, in words.
#pragma once

#include "check/finding.h"
#include "check/hearing.h"

namespace plxclip::check {

Finding findingOf(const Heard& heard, Text& text);
Finding findingOf(const format::Defect& defect, Text& text);

// The key of the object that is most like the other one; empty when none is.
std::string_view nearestKey(const format::keys::Shape& shape, std::string_view key);

} // namespace plxclip::check
