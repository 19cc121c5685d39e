// Changes of what a property document says, in its text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plxclip::editing {

// What a list of tags gets and loses. The tags are JSON.
struct TagChange {
    bool isEmpty() const { return added.empty() && removed.empty() && !isCleared; }

    std::string_view key; // of the list
    std::vector<std::string> added = {};
    std::vector<std::string> removed = {};
    bool isCleared = false; // before tags are added
};

struct Changes {
    bool isEmpty() const;

    std::optional<std::string> name; // may contain {name}, {id}, {vendor} and {number}
    std::optional<std::string> vendor;
    std::optional<std::uint32_t> key;
    std::optional<std::uint32_t> tempo;
    std::vector<TagChange> tags = {
        {"types"}, {"genres"}, {"singerGroups"}, {"languages"}, {"singerIDs"}};
};

// The text after the changes; everything else in it stays as it is written. None if it is no
// document. `name` is the new one. A tag to be removed that is not there is added to `missing`.
std::optional<std::string> changed(const std::string& text, const Changes& changes,
                                   const std::optional<std::string>& name,
                                   std::vector<std::string>& missing);

} // namespace plxclip::editing
