#pragma once

#include <cstddef>
#include <vector>

namespace Korvel::CANTORIS::PLX::fs {

enum class Made { yes, parentMissing, no };

// Where the parent of the path's first `length` units ends; 0 when there is no parent left.
template <typename Text, typename Separators>
std::size_t parentLength(const Text& path, std::size_t length, const Separators& separators)
{
    const std::size_t last = length == 0 ? Text::npos : path.find_last_of(separators, length - 1);
    const std::size_t end = last == Text::npos ? last : path.find_last_not_of(separators, last);
    return end == Text::npos ? 0 : end + 1;
}

// Makes a folder, given its path in the system's form. Shortens the path, from the innermost folder
// outward, until a folder can be made, and then makes the folders in it, from there inward.
template <typename Text, typename Separators, typename MakeFolder>
bool makeWithAncestors(const Text& path, const Separators& separators, MakeFolder makeFolder)
{
    std::vector<std::size_t> ends{path.size()};
    Made made = makeFolder(path);
    while (made == Made::parentMissing) {
        ends.push_back(parentLength(path, ends.back(), separators));
        if (ends.back() == 0) {
            return false;
        }
        made = makeFolder(path.substr(0, ends.back()));
    }
    for (ends.pop_back(); made == Made::yes && !ends.empty(); ends.pop_back()) {
        made = makeFolder(path.substr(0, ends.back()));
    }
    return made == Made::yes;
}

} // namespace Korvel::CANTORIS::PLX::fs
