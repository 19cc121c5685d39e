// Programs that change clips, for tests that stop the disk in the middle.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "system_calls.h"
#include "world.h"

namespace faults {

// The descriptions of clips, by ID.
using Seen = std::map<std::string, std::string>;

// One run of a program. It prepares everything before its start; after each call of the library
// that changes the disk it reports.
class Session {
public:
    // `begin` is called at the start; `looks` says whether another host reads the clips after each
    // success.
    Session(World& world, std::function<void()> begin, bool looks)
        : world_(world), begin_(std::move(begin)), looks_(looks)
    {
    }

    World& world() { return world_; }

    void start(std::string_view userFolder = "user");
    void report(bool success);

    struct Report {
        std::size_t changes; // made until then, if they are recorded
        Seen seen;
    };
    // What could be seen at the start and after each success.
    [[nodiscard]] const std::vector<Report>& reports() const { return reports_; }
    [[nodiscard]] std::size_t successes() const { return successes_; }
    [[nodiscard]] std::size_t failures() const { return failures_; }

    // What another host sees, with all parts read.
    [[nodiscard]] Seen see() const;

    // Everything that the programs change is below it; and its content at the start.
    [[nodiscard]] support::Path root() const { return world_.folder("user").parent_path(); }
    [[nodiscard]] const support::Tree& before() const { return before_; }

private:
    World& world_;
    std::function<void()> begin_;
    bool looks_;
    std::string userFolder_;
    support::Tree before_;
    std::vector<Report> reports_;
    std::size_t successes_ = 0;
    std::size_t failures_ = 0;
};

struct Program {
    const char* name;
    void (*run)(Session& session);
};
const std::vector<Program>& programs();

// Checks that each clip has its old or its new content. A clip that is about to be made or removed
// may be without its part, and so may a clip that was removed before, because removals do not wait
// for the disk.
void expectBetween(
    const Seen& old, const Seen& next, const Seen& removed, const Seen& now,
    const std::function<bool(const std::string& id)>& isExempt = [](const auto&) { return false; });

// The clips that are no longer there.
Seen removedBetween(const Seen& old, const Seen& next);

} // namespace faults
