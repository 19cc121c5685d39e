#include "fs/listing.h"

#include <new>

#include "fs/posix/entries.h"
#include "fs/posix/open.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// Needed for links, and on file systems that list names without their kinds.
std::optional<EntryKind> askKind(int folder, const char* name)
{
    struct stat status;
    if (!readEntryStatus(folder, name, status, AT_SYMLINK_NOFOLLOW)) {
        return std::nullopt;
    }
    const bool isLink = S_ISLNK(status.st_mode);
    if (isLink && !readEntryStatus(folder, name, status, 0)) {
        return std::nullopt;
    }
    if (S_ISDIR(status.st_mode)) {
        return isLink ? EntryKind::linkToFolder : EntryKind::folder;
    }
    return S_ISREG(status.st_mode) ? std::optional{EntryKind::file} : std::nullopt;
}

std::optional<EntryKind> kindOf(const Entry& entry)
{
    switch (entry.kind) {
    case Entry::Kind::file:
        return EntryKind::file;
    case Entry::Kind::folder:
        return EntryKind::folder;
    case Entry::Kind::unknown:
        return askKind(entry.folder, entry.name);
    case Entry::Kind::other:
        break;
    }
    return std::nullopt;
}

Descriptor openToList(const HostPath& path)
{
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC;
    return Descriptor{uninterrupted([&] { return ::open(path.text(), flags); })};
}

} // namespace

void list(const Path& folder, Listing& listing)
{
    listing.clear();
    const auto add = [&](const Entry& entry) {
        const std::optional<EntryKind> kind = kindOf(entry);
        if (kind && appendName(entry.name, listing.names())) {
            listing.add(*kind);
        }
    };
    if (!forEachEntry(openToList(HostPath{folder.text}), add)) {
        throw std::bad_alloc();
    }
}

std::optional<Identity> identify(const Path& path)
{
    struct stat status;
    if (!readStatus(HostPath{path.text}, status)) {
        return std::nullopt;
    }
    return Identity{status.st_dev, status.st_ino};
}

} // namespace Korvel::CANTORIS::PLX::fs
