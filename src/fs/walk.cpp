#include <new>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "fs/fs.h"
#include "fs/listing.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// Goes through a tree with a list of the open levels instead of recursion, so that it can have any
// depth. Each folder is read whole before anything in it is visited, so no handle stays open.
class Walk {
public:
    explicit Walk(const Path& folder) : path_(folder.text), givenLength_(folder.givenLength) {}

    // False when memory ran out somewhere.
    bool run(const Visit& visit);

private:
    struct Level {
        Listing listing;
        std::size_t next = 0;
        std::size_t pathLength = 0;
        std::optional<Identity> identity;
    };

    Level& innermost() { return levels_[depth_ - 1]; }
    void enter();
    void visitNext(const Visit& visit);
    bool isWorthEntering(const Path& link);
    bool isBeingListed(const Identity& folder);
    Path pathOf(std::size_t length) const
    {
        return {StringView(path_).substr(0, length), givenLength_};
    }

    String path_;
    std::size_t givenLength_;
    std::vector<Level> levels_; // levels beyond depth_ are kept to reuse their memory
    std::size_t depth_ = 0;
    std::set<Identity> linkedFolders_;
};

// When memory runs out, only that entry is skipped, and the walk continues.
bool Walk::run(const Visit& visit)
{
    bool hadMemory = true;
    const auto attempt = [&hadMemory](auto step) {
        try {
            step();
        } catch (const std::bad_alloc&) {
            hadMemory = false;
        }
    };
    attempt([this] { enter(); });
    while (depth_ > 0) {
        if (innermost().next == innermost().listing.size()) {
            --depth_;
        } else {
            attempt([&] { visitNext(visit); });
        }
    }
    return hadMemory;
}

void Walk::enter()
{
    if (depth_ == levels_.size()) {
        levels_.emplace_back();
    }
    Level& level = levels_[depth_++];
    level.next = 0;
    level.pathLength = path_.size();
    level.identity.reset();
    list(pathOf(path_.size()), level.listing);
}

void Walk::visitNext(const Visit& visit)
{
    Level& level = innermost();
    const std::size_t index = level.next++;
    path_.resize(level.pathLength);
    path_ += separator;
    path_ += level.listing.name(index);
    const EntryKind kind = level.listing.kind(index);
    if (kind == EntryKind::file) {
        visit(path_, Neighbours{level.listing});
    } else if (kind == EntryKind::folder || isWorthEntering(pathOf(path_.size()))) {
        enter();
    }
}

// Links that lead back up would never end. Links side by side to one folder that contains such
// links again would end, but only after two to the power of their number.
bool Walk::isWorthEntering(const Path& link)
{
    const std::optional<Identity> folder = identify(link);
    return folder && !isBeingListed(*folder) && linkedFolders_.insert(*folder).second;
}

bool Walk::isBeingListed(const Identity& folder)
{
    for (std::size_t i = 0; i < depth_; ++i) {
        Level& level = levels_[i];
        if (!level.identity) {
            level.identity = identify(pathOf(level.pathLength));
        }
        if (level.identity == folder) {
            return true;
        }
    }
    return false;
}

} // namespace

bool forEachFile(const Path& folder, const Visit& visit)
{
    return folder.text.empty() || Walk{folder}.run(visit);
}

} // namespace Korvel::CANTORIS::PLX::fs
