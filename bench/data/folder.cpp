#include "data/folder.h"

#include <array>
#include <cstdio>

namespace bench {

Size fullSize()
{
    return {.scans = {1000, 10000, 50000},
            .scanToCompareWith = 5000,
            .scanForMemory = 10000,
            .userClips = 5000,
            .editedClips = 1000,
            .bigNotes = 20000,
            .builtNotes = 10000,
            .hostile = 10000};
}

Size quickSize()
{
    return {.scans = {1000, 10000},
            .scanToCompareWith = 1000,
            .scanForMemory = 1000,
            .userClips = 1000,
            .editedClips = 200,
            .bigNotes = 5000,
            .builtNotes = 2000,
            .hostile = 2000};
}

Path DataFolder::vendor(std::size_t index) const
{
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "vendor-%02zu", index);
    return root_ / "library" / name.data();
}

std::vector<Path> DataFolder::vendorsOf(std::size_t clips) const
{
    std::vector<Path> vendors;
    for (std::size_t i = 0; i * clipsPerVendor < clips; ++i) {
        vendors.push_back(vendor(i));
    }
    return vendors;
}

std::string hostileName(const std::string& kind, std::size_t count)
{
    return kind + "-" + std::to_string(count);
}

} // namespace bench
