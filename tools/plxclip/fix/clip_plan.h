// What mends a clip: new texts for its documents and new names for its files. Nothing is written here.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "fix/mending.h"

namespace plxclip::fix {

struct DocumentPlan {
    bool isToBeWritten() const { return !changes.empty(); }

    std::string name;                 // "property.json", or empty for the clip file, as in findings
    std::filesystem::path file;       // as it is called when all files have their new names
    std::filesystem::path former;     // as it is called now
    std::optional<std::string> bytes; // as it is now; none if there is no such file
    std::string before;               // the same in UTF-8, as far as it is valid
    std::string after;                // in UTF-8
    std::vector<Change> changes;
    std::vector<check::Finding> left;
};

struct ClipPlan {
    bool hasChanges() const;

    std::filesystem::path file;          // of the clip, as it is called now
    std::vector<DocumentPlan> documents; // those that can be read as files
    std::vector<check::Finding> left;    // about the files
};

// What a property document gets that neither it nor the clip file holds.
struct Given {
    std::optional<std::string> id; // for one clip
    std::optional<std::string> name;
    std::optional<std::string> vendor;
};

class Planner {
public:
    // `ids` are those that clips have already.
    Planner(Given values, Ask whetherWanted, std::set<std::string> ids);
    ~Planner();
    Planner(const Planner&) = delete;
    Planner& operator=(const Planner&) = delete;
    Planner(Planner&&) = delete;
    Planner& operator=(Planner&&) = delete;

    // `obstacle`: why the file cannot be read as a clip, or null. `sharesFolder`: other clip files have
    // the same property document.
    ClipPlan plan(const std::filesystem::path& file, const check::Finding* obstacle,
                  bool sharesFolder);

    // A property document for a clip file that has none: what the data document says, and otherwise
    // the name of the folder. Empty if the clip file does not tell what kind of part it has.
    std::string made(const std::filesystem::path& clipFile);

private:
    class Work;
    struct State;

    std::unique_ptr<State> state;
};

// What a file holds; none if it cannot be read, or is longer than the limit.
std::optional<std::string> contentOf(const std::filesystem::path& file, std::uint64_t limit);

} // namespace plxclip::fix
