// Clip files held against what the library makes of them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "catalogue.h"
#include "check/finding.h"

namespace plxclip::check {

struct ClipReport {
    std::string path;
    bool isUserClip = false;
    bool isListed = false;
    bool partReads = false; // of a listed clip
    bool isWhole = false;   // listed from the clip file itself
    std::string id = {};    // of a listed clip
    std::string name = {};
    std::vector<Finding> findings = {};
};

// How many of how many files are done.
using Progress = std::function<void(std::size_t done, std::size_t all)>;

// Every clip file below the folders, and what looks like one, in the order of their names. The clips are
// those that a host lists of them, system clips first; their parts are read now.
std::vector<ClipReport> checkClips(const std::vector<korvel::plx::Clip>& listed,
                                   const Folders& folders, const Progress& progress);

} // namespace plxclip::check
