// What loses nothing in a part, and may be a mistake all the same.
#pragma once

#include <vector>

#include "check/finding.h"
#include "check/hearing.h"
#include "model/part.h"

namespace plxclip::check {

// `taken` is what the reader told of the part's document.
std::vector<Finding> noteworthyOf(own::PartBase& part, const std::vector<format::Taken>& taken);

} // namespace plxclip::check
