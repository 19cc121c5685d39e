// The clips that a host lists: the verdict that a check explains.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include <korvel/plx.hpp>

namespace plxclip::check {

class Library {
public:
    // Of a manager that has read its clips.
    explicit Library(korvel::plx::Manager manager);

    // The clip of that file; none when it is not listed.
    std::optional<korvel::plx::Clip> find(std::string_view path) const;

    // The file of the clip for which another one with that ID is not listed; empty when there is none.
    std::string fileWithID(const korvel::plx::String& id, bool isUserClip) const;

private:
    using Files = std::unordered_map<korvel::plx::String, std::string>;

    void add(korvel::plx::Clip clip, Files& files);

    std::unordered_map<std::string, korvel::plx::Clip> clips;
    Files systemFiles;
    Files userFiles;
};

} // namespace plxclip::check
