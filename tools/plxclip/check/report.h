// What a check found, for people and for programs.
#pragma once

#include <string>
#include <vector>

#include "check/clip_check.h"

namespace plxclip::check {

// Whether nothing is lost, whatever else was noted.
bool isFine(const std::vector<ClipReport>& clips);

// The clips of which there is something to say, and the figures; or the figures alone.
std::string textOf(const std::vector<ClipReport>& clips, bool isQuiet);

// {"clips": [{"path": ..., "listed": ..., "findings": [...]}], "summary": {...}}; of clips without
// findings too.
std::string jsonOf(const std::vector<ClipReport>& clips);

} // namespace plxclip::check
