// Which clips a list shows, in which order, and how often a tag occurs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "snapshot.h"

namespace plxclip {

// What a clip must have to be shown: it must match all fields that are set. Texts are compared by
// isWantedText().
struct Search {
    bool operator==(const Search&) const = default;

    std::optional<PartType> part;
    std::optional<std::string> type;
    std::optional<std::string> genre;
    std::optional<std::string> vendor;
    std::optional<std::string> singerGroup;
    std::optional<std::string> name;
    std::optional<std::int32_t> language;
    std::optional<std::uint32_t> key;
    std::optional<std::pair<std::uint32_t, std::uint32_t>> tempo; // from and to, in hundredths
};

bool matches(const Properties& clip, const Search& search);

enum class Order : std::uint8_t { found, name, vendor, part, key, tempo, id };

// Clips that are equal in this stay in the order in which they were found.
void sortClips(std::vector<Properties>& clips, Order order, bool reversed);

enum class Tag : std::uint8_t { type, genre, language, vendor, singerGroup, part, key };

struct TagCount {
    std::string tag;
    std::size_t clips;
};

// The most frequent first. A clip counts once for each different tag that it has.
std::vector<TagCount> countTags(const std::vector<Properties>& clips, Tag tag);

} // namespace plxclip
