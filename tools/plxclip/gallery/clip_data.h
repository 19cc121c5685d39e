// The data of the page: a short row for each clip, which all of the page needs, and its part, which the
// page reads when it shows the clip.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "check/clip_check.h"
#include "roll/roll.h"
#include "snapshot.h"

namespace plxclip::gallery {

struct Entry {
    Properties properties;
    Part part; // nothing if it cannot be read
    std::vector<check::Finding> findings;
};

struct Contents {
    std::string title;
    std::filesystem::path folder; // that of the page: links begin there
    roll::View view;
    bool namesNumbers = false; // keys and languages have the names of the example clips
    std::vector<Entry> clips;
    std::vector<check::ClipReport> notListed;
};

// JSON without any blanks.
std::string catalogueData(const Contents& contents);
std::string partData(const Entry& clip, const Contents& contents);

} // namespace plxclip::gallery
