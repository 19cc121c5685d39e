#include <string>
#include <vector>

#include "fs/posix/entries.h"
#include "fs/posix/open.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// Empties a folder of any depth with two descriptors: it goes down by name, and up again by "..",
// if that is still the folder from which it came.
class Sweep {
public:
    explicit Sweep(Descriptor folder) : folder_(-1) { enter(std::move(folder)); }

    // What cannot be removed stays; if another program moves one of the folders, this stops.
    void run();

private:
    struct Level {
        struct stat identity;
        std::vector<std::string> names;
    };

    bool enter(Descriptor folder);
    void removeNext();
    bool climb();

    Descriptor folder_;
    std::vector<Level> levels_;
};

// Does not enter a folder that cannot be opened or listed: there may be no way up again either.
bool Sweep::enter(Descriptor folder)
{
    Descriptor listed = openFolder(folder.number(), ".");
    Level level{};
    if (!listed || !readStatus(folder, level.identity)) {
        return false;
    }
    const auto add = [&](const Entry& entry) { level.names.emplace_back(entry.name); };
    if (!forEachEntry(std::move(listed), add)) {
        return false;
    }
    levels_.push_back(std::move(level));
    folder_ = std::move(folder);
    return true;
}

void Sweep::run()
{
    bool goesOn = !levels_.empty();
    while (goesOn) {
        while (!levels_.back().names.empty()) {
            removeNext();
        }
        goesOn = climb();
    }
}

// The last name of a level stays in its list while its folder is emptied.
void Sweep::removeNext()
{
    std::vector<std::string>& names = levels_.back().names;
    const char* name = names.back().c_str();
    if (!removeEntry(folder_.number(), name)) {
        if (enter(openFolder(folder_.number(), name, O_NOFOLLOW))) {
            return;
        }
        removeEntry(folder_.number(), name, AT_REMOVEDIR);
    }
    names.pop_back();
}

bool Sweep::climb()
{
    levels_.pop_back();
    if (levels_.empty()) {
        return false;
    }
    Level& outer = levels_.back();
    struct stat identity;
    folder_ = openFolder(folder_.number(), "..");
    if (!readStatus(folder_, identity) || !isSame(identity, outer.identity)) {
        return false;
    }
    removeEntry(folder_.number(), outer.names.back().c_str(), AT_REMOVEDIR);
    outer.names.pop_back();
    return true;
}

} // namespace

void removeContent(Descriptor folder)
{
    Sweep{std::move(folder)}.run();
}

} // namespace Korvel::CANTORIS::PLX::fs
