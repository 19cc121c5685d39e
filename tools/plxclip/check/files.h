// The clip files below a folder, and what looks like one but is none.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "check/finding.h"

namespace plxclip::check {

struct File {
    bool isUserClip;
    Reason obstacle;     // why nothing can read it as a clip; empty if it can
    std::string message; // the same in words
};

// In the order of their names, each once.
using Files = std::map<std::filesystem::path, File>;

// Goes through the folder as a host does, following links once.
void addFiles(const std::filesystem::path& folder, bool areUserClips, Files& files);

// In small letters, as far as they are ASCII.
std::string lowerCase(std::string text);

} // namespace plxclip::check
