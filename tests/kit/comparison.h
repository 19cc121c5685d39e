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

// The getters that differ, such as "clip.part.notes[3].attack.speed", and that no notice names.
std::vector<std::string> untold(const support::ClipModel& left, const support::ClipModel& right,
                                const Notices& told);

// What notices are about.
Items itemsOf(const Notices& notices);

} // namespace kit
