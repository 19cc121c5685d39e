// What was lost, in words.
#pragma once

#include "check/hearing.h"
#include "check/text.h"

namespace plxclip::check {

Finding findingOf(const Heard& heard, const Text& text);
Finding findingOf(const format::Defect& defect, const Text& text);

} // namespace plxclip::check
