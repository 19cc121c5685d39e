// The documents as they were, in a folder outside the clips: in a clip's own folder they would keep the
// folder from being removed with the clip.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue.h"

namespace plxclip::fix {

class Originals {
public:
    // Without a folder they go to that of the user's programs. Throws a Failure when the folder is among
    // the clips.
    Originals(const std::optional<std::string>& wanted, const Folders& folders);

    // Keeps what a file holds, and waits until it is on the disk. False when that cannot be done.
    bool keep(const std::filesystem::path& file, const std::string& content);

    // Where they are; empty while there are none.
    std::string folder() const { return isUsed ? textOfFolder : std::string(); }

private:
    std::filesystem::path placeOf(const std::filesystem::path& file) const;

    std::filesystem::path runFolder; // for this run
    std::string textOfFolder;
    std::vector<std::pair<std::filesystem::path, std::string>> roots; // with their names in there
    bool isUsed = false;
};

} // namespace plxclip::fix
