// Words that come from the clips of a folder. Nothing is read from a folder that is missing, or so large
// that whoever types would have to wait.
#pragma once

#include <string>
#include <vector>

#include "completion/candidates.h"
#include "search.h"

namespace plxclip::completion {

struct Place {
    std::string folder; // as on the command line
    std::vector<std::string> userFolders;
    bool isForUserClips = false; // of a folder with both kinds, only the user clips
};

// The names of the clips and, once something is typed, their IDs. A clip whose name another one has, or whose
// name cannot stand on a line, has its ID alone.
std::vector<Candidate> clipsIn(const Place& place, const std::string& current);

std::vector<Candidate> tagsIn(const Place& place, Tag tag);

} // namespace plxclip::completion
