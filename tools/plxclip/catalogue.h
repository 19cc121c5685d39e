// The clips of some folders, as a host sees them.
#pragma once

#include <string>
#include <vector>

#include <korvel/plx.hpp>

namespace plxclip {

// To be read as system clips or as user clips. All but the first of the user folders exist.
struct Folders {
    std::vector<std::string> system;
    std::vector<std::string> user;
};

// The folders that a command line means. One that contains the two folders "system" and "user"
// means these. Any other one has user clips, which can be changed; when user folders are given, it
// has system clips.
Folders foldersOf(const std::vector<std::string>& folders,
                  const std::vector<std::string>& userFolders);

// The same for a command that changes user clips.
Folders foldersToChange(const std::string& folder);

// The folder into which new clips are saved: the user clips of one that has those two folders.
std::string folderToSaveInto(const std::string& target);

// A temporary folder, for places where the library needs one.
class EmptyFolder {
public:
    EmptyFolder();
    ~EmptyFolder();
    EmptyFolder(const EmptyFolder&) = delete;
    EmptyFolder& operator=(const EmptyFolder&) = delete;
    EmptyFolder(EmptyFolder&&) = delete;
    EmptyFolder& operator=(EmptyFolder&&) = delete;

    const std::string& path() const { return folder; }

private:
    std::string folder;
};

class Catalogue {
public:
    // Reads the clips. New clips are saved into the first of the user folders, which is made if it
    // does not exist.
    explicit Catalogue(Folders folders);
    ~Catalogue();
    Catalogue(const Catalogue&) = delete;
    Catalogue& operator=(const Catalogue&) = delete;
    Catalogue(Catalogue&&) = delete;
    Catalogue& operator=(Catalogue&&) = delete;

    korvel::plx::Manager manager() const { return manages; }

    // System clips first.
    std::vector<korvel::plx::Clip> clips() const;

    // The clip with this ID, or the only one with this name.
    korvel::plx::Clip find(const std::string& idOrName) const;

    // The same among the user clips.
    korvel::plx::UserClip findUserClip(const std::string& idOrName) const;

private:
    EmptyFolder empty;
    korvel::plx::Manager manages;
};

} // namespace plxclip
