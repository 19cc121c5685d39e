// Where the benchmark's data lies, and how much of it there is.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace bench {

using Path = std::filesystem::path;

constexpr std::size_t clipsPerVendor = 1000;
constexpr std::size_t ordinaryCopies = 32;

// How much is generated and measured: all of it, or enough for a look.
struct Size {
    std::vector<std::size_t> scans; // numbers of clips, ascending; multiples of clipsPerVendor
    std::size_t scanToCompareWith; // the cost per clip of the largest scan is held against this one
    std::size_t scanForMemory;
    std::size_t userClips;
    std::size_t editedClips;
    std::size_t bigNotes;
    std::size_t builtNotes;
    std::size_t hostile; // n; the other measurement is at ten times as many
};

Size fullSize();
Size quickSize();

class DataFolder {
public:
    DataFolder(Path root, Size size) : root_(std::move(root)), size_(std::move(size)) {}

    [[nodiscard]] const Path& root() const { return root_; }
    [[nodiscard]] const Size& size() const { return size_; }

    // A folder of clipsPerVendor clips.
    [[nodiscard]] Path vendor(std::size_t index) const;
    // As many vendors as hold that number of clips.
    [[nodiscard]] std::vector<Path> vendorsOf(std::size_t clips) const;
    // Clips as the library saves them.
    [[nodiscard]] Path user() const { return root_ / "user"; }
    // A catalogue folder of clips that share one data document: "ordinary" (ordinaryCopies clips of
    // 28 KB), "big", "notes" and "dvqm" (one clip without lanes and effects each), or a hostile one.
    [[nodiscard]] Path clips(const std::string& name) const { return root_ / "clips" / name; }
    // The data document that those clips share.
    [[nodiscard]] Path document(const std::string& name) const
    {
        return clips(name) / "0" / "clip.kxclip";
    }
    // Whatever a run writes.
    [[nodiscard]] Path scratch() const { return root_ / "scratch"; }
    [[nodiscard]] Path emptyFolder() const { return root_ / "empty"; }

private:
    Path root_;
    Size size_;
};

std::string hostileName(const std::string& kind, std::size_t count);

} // namespace bench
