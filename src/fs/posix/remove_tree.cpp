#include <string>
#include <vector>

#include "fs/fs.h"
#include "fs/linux/folder_reader.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// Never through a link, even if one takes the folder's place meanwhile.
Descriptor openFolder(int parent, const char* name)
{
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    return Descriptor{uninterrupted([=] { return ::openat(parent, name, flags); })};
}

bool removeEntry(int folder, const char* name, int flags = 0)
{
    return uninterrupted([=] { return ::unlinkat(folder, name, flags); }) == 0;
}

bool readIdentity(const Descriptor& folder, struct stat& identity)
{
    return uninterrupted([&] { return ::fstat(folder.number(), &identity); }) == 0;
}

bool isSame(const struct stat& left, const struct stat& right)
{
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

std::vector<std::string> namesIn(const Descriptor& folder)
{
    std::vector<std::string> names;
    FolderReader reader{openFolder(folder.number(), ".")};
    if (reader) {
        while (const dirent64* entry = reader.next()) {
            names.emplace_back(entry->d_name);
        }
    }
    return names;
}

// Empties a folder of any depth with two descriptors: down by name, and up again by "..", if that
// still is the folder that it came from.
class Sweep {
public:
    explicit Sweep(Descriptor folder) : folder_(std::move(folder)) { push(); }

    // What cannot be removed stays; a move of folders meanwhile ends it.
    void run();

private:
    struct Level {
        struct stat identity;
        std::vector<std::string> names;
    };

    void push();
    void removeNext();
    bool climb();

    Descriptor folder_;
    std::vector<Level> levels_;
};

void Sweep::push()
{
    Level level{{}, namesIn(folder_)};
    if (!readIdentity(folder_, level.identity)) {
        level.names.clear();
    }
    levels_.push_back(std::move(level));
}

void Sweep::run()
{
    do {
        while (!levels_.back().names.empty()) {
            removeNext();
        }
    } while (climb());
}

// The last name of a level stays in its list while its folder is being emptied.
void Sweep::removeNext()
{
    std::vector<std::string>& names = levels_.back().names;
    const char* name = names.back().c_str();
    if (!removeEntry(folder_.number(), name)) {
        Descriptor inner = openFolder(folder_.number(), name);
        if (inner) {
            folder_ = std::move(inner);
            push();
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
    if (!folder_ || !readIdentity(folder_, identity) || !isSame(identity, outer.identity)) {
        return false;
    }
    removeEntry(folder_.number(), outer.names.back().c_str(), AT_REMOVEDIR);
    outer.names.pop_back();
    return true;
}

} // namespace

bool removeTree(const String& path)
{
    HostPath host{path};
    host.dropTrailingSeparators();
    if (host.length() == 0) {
        return false;
    }
    if (removeEntry(AT_FDCWD, host.text()) || errno == ENOENT || errno == ENOTDIR) {
        return true;
    }
    Descriptor folder = openFolder(AT_FDCWD, host.text());
    if (folder) {
        Sweep{std::move(folder)}.run();
    }
    return removeEntry(AT_FDCWD, host.text(), AT_REMOVEDIR) || errno == ENOENT;
}

} // namespace Korvel::CANTORIS::PLX::fs
