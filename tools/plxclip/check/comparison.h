// What a host sees of a clip, held against what its documents say, field by field.
#pragma once

#include <string>
#include <vector>

#include <korvel/plx.hpp>

#include "clip/clip_properties.h"
#include "model/part.h"

namespace plxclip::check {

namespace own = Korvel::CANTORIS::PLX;

// One line for each field that is not the same, but no more than a few.
std::vector<std::string> differences(korvel::plx::Clip clip, const own::ClipProperties& properties);
// The part of the clip is loaded.
std::vector<std::string> differences(korvel::plx::Clip clip, own::PartBase& part);

} // namespace plxclip::check
