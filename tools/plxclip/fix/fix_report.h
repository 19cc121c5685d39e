// What "plxclip fix" says of its work, for people as it goes on, or for programs at its end.
#pragma once

#include <string>
#include <vector>

#include "fix/clip_plan.h"

namespace plxclip::fix {

class Report {
public:
    Report(bool asJson, bool asDryRun) : isJson(asJson), isDryRun(asDryRun) {}

    // Before and after a clip is written.
    void begin(const ClipPlan& plan);
    void end(ClipPlan plan);

    // The clip is not written, or not all of it.
    void fail(std::string why) { failure = std::move(why); }

    void finish(const std::string& originals);

    // Whether nothing is left that "check" names as a loss.
    bool isAllFine() const { return counts.clipsLeft == 0; }

private:
    struct Counts {
        std::size_t clips = 0;
        std::size_t mended = 0;
        std::size_t changes = 0;
        std::size_t clipsLeft = 0;
        std::size_t left = 0;
    };
    struct Entry {
        ClipPlan plan; // without the texts
        std::string failure;
    };

    void printSummary(const std::string& originals) const;
    void printJson(const std::string& originals) const;

    bool isJson;
    bool isDryRun;
    Counts counts;
    std::string failure;
    std::vector<Entry> entries; // for JSON
};

} // namespace plxclip::fix
