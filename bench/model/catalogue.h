// A clip catalogue as plain values: what the generator writes, what the alternatives fill, and what
// the library's catalogue is compared with.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace bench {

template <class String>
struct BasicFilter {
    std::vector<String> singerGroups;
    std::vector<String> vendors;
    std::vector<std::int32_t> languages;
    std::vector<String> singerIDs;
    std::vector<String> types;
    std::vector<String> genres;

    bool operator==(const BasicFilter&) const = default;
};

template <class String>
struct BasicClip {
    String id;
    String name;
    String vendorName;
    String path;
    std::uint32_t partType = 0;
    std::uint32_t partKey = 0;
    std::uint32_t partTempo = 0;
    BasicFilter<String> filter;

    bool operator==(const BasicClip&) const = default;
};

// The clips in the order in which they were found, each ID once.
template <class String>
class BasicCatalogue {
public:
    void add(BasicClip<String>&& clip)
    {
        if (ids_.insert(clip.id).second) {
            clips_.push_back(std::move(clip));
        }
    }

    [[nodiscard]] const std::vector<BasicClip<String>>& clips() const { return clips_; }

    void clear() { *this = {}; }

private:
    std::vector<BasicClip<String>> clips_;
    std::unordered_set<String> ids_;
};

using Filter = BasicFilter<std::string>;
using Clip = BasicClip<std::string>;
using Catalogue = BasicCatalogue<std::string>;

} // namespace bench
