// What differs between a clip and its copy, and what the kit says of it, in the same words.
#pragma once

#include <set>
#include <string>

#include "kit_fixture.h"

namespace kit {

// "note 3", "attack 3", "lanes", "audioEffect 0", "tags".
using Items = std::set<std::string>;

// What differs between two clips, but for the path of the wave file.
Items differences(const support::ClipModel& left, const support::ClipModel& right);

// What notices are about.
Items itemsOf(const Notices& notices);

} // namespace kit
