// What a check found, for people and for programs.
#pragma once

#include <string>
#include <vector>

#include "check/clip_check.h"

namespace plxclip::check {

struct Summary {
    std::size_t files = 0;
    std::size_t listed = 0;
    std::size_t notListed = 0;
    std::size_t unreadParts = 0; // of listed clips
    std::size_t losses = 0;      // elements and values that are not taken
    std::size_t noted = 0;       // what loses nothing
    std::size_t unexplained = 0;
    bool isFine = true; // whatever was noted
};

Summary summaryOf(const std::vector<ClipReport>& clips);

// One clip with all that was found; nothing when there is nothing to say.
std::string textOf(const ClipReport& clip);
std::string textOf(const Summary& summary);

// {"clips": [{"path": ..., "listed": ..., "findings": [...]}], "summary": {...}}; of clips without
// findings too.
std::string jsonOf(const std::vector<ClipReport>& clips);

} // namespace plxclip::check
