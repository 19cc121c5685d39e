// What the library makes of the clips: the verdict that a check explains.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include <korvel/plx.hpp>

#include "check/contents.h"

namespace plxclip::check {

struct LibraryClip {
    std::string id;
    std::string name;
    std::size_t tags = 0;
    std::optional<Contents> contents; // none when the part does not read
};

class Library {
public:
    // Of a manager that has read its clips.
    explicit Library(korvel::plx::Manager manager);

    // The clip of that file, with its part read; none when it is not listed.
    std::optional<LibraryClip> find(std::string_view path) const;

    // The file of the clip for which another one with that ID is not listed; empty when there is none.
    std::string fileWithID(const std::string& id, bool isUserClip) const;

private:
    void add(korvel::plx::Clip clip, std::unordered_map<std::string, std::string>& files);

    std::unordered_map<std::string, korvel::plx::Clip> clips;
    std::unordered_map<std::string, std::string> systemFiles;
    std::unordered_map<std::string, std::string> userFiles;
};

} // namespace plxclip::check
