// What can be on a disk after a power cut.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "support/random.h"
#include "support/saving.h"
#include "system_calls.h"

namespace faults {

// A disk on which changes are made. When the power fails, each change that has not been
// synchronised may or may not be on the disk, independently of the others:
// - Entries that are made or removed belong to their folder: synchronising the folder keeps them.
// - Written bytes and a new length belong to the file. A file becomes longer only together with its
//   content. Changes within the old length can be there without the rest.
// - A write of up to 4,096 bytes that stays within one page of the file is there or not. A longer one
//   can be cut off at each multiple of 512 bytes, and its beginning can be missing as well as its end.
class PowerCut {
public:
    // The content of the disk below `root`, and the changes that were then made to it.
    PowerCut(const support::Path& root, support::Tree before, const Changes& changes);

    struct State {
        support::Tree tree;
        std::vector<std::string>
            torn; // files in which one content was only partly replaced by another
        std::string description;
    };

    // States in which the disk may be when the power fails after that many of the changes. All of
    // them, if there are at most `most`. Otherwise those in which one change is missing or cut off,
    // with and without the later ones, and others chosen at random: as many, or `most` of them if
    // all is false.
    struct Sample {
        std::size_t most;
        bool all;
    };
    // Returns how many there were. States that have been visited since forget() are not visited
    // again.
    std::size_t forEachState(std::size_t count, const Sample& sample, support::Random& random,
                             const std::function<void(const State&)>& visit);
    void forget() { visited_.clear(); }

private:
    // Which bytes of a write are on the disk: from first to last; those beyond the file's end only
    // if it grows.
    struct Part {
        std::size_t first;
        std::size_t last;
        bool grows;
    };
    struct Step {
        Change change;
        std::vector<Part> parts; // the first one is nothing, the second everything
    };
    // The number of a part for each change that is not synchronised.
    using Choice = std::vector<std::size_t>;

    [[nodiscard]] std::vector<std::size_t> unsynchronised(std::size_t count) const;
    [[nodiscard]] bool isKept(std::size_t index, std::size_t count) const;
    [[nodiscard]] State build(std::size_t count, const std::vector<std::size_t>& open,
                              const Choice& choice) const;
    void apply(const Step& step, std::size_t part, State& state) const;

    [[nodiscard]] std::vector<Choice> choices(const std::vector<std::size_t>& open,
                                              const Sample& sample, support::Random& random) const;
    [[nodiscard]] std::vector<Choice> allChoices(const std::vector<std::size_t>& open) const;
    [[nodiscard]] std::vector<Choice> singleChoices(const std::vector<std::size_t>& open) const;

    support::Tree before_;
    std::vector<Step> steps_;
    std::vector<std::size_t> visited_; // sorted
};

// Makes the content of a folder equal to a tree.
class DiskWriter {
public:
    explicit DiskWriter(support::Path root);

    void write(const support::Tree& tree);

private:
    support::Path root_;
    support::Tree there_;
};

} // namespace faults
