#include "fs/linux/folder_reader.h"
#include "fs/listing.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

bool readEntryStatus(int folder, const char* name, struct stat& status, int flags)
{
    return uninterrupted([&] { return ::fstatat(folder, name, &status, flags); }) == 0;
}

// For links, and for file systems that list names without their kinds.
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

std::optional<EntryKind> kindOf(int folder, const dirent64& entry)
{
    switch (entry.d_type) {
    case DT_REG:
        return EntryKind::file;
    case DT_DIR:
        return EntryKind::folder;
    case DT_LNK:
    case DT_UNKNOWN:
        return askKind(folder, entry.d_name);
    default:
        return std::nullopt;
    }
}

} // namespace

void list(const Path& folder, Listing& listing)
{
    listing.clear();
    FolderReader reader{HostPath{folder.text}};
    if (!reader) {
        return;
    }
    while (const dirent64* entry = reader.next()) {
        const std::optional<EntryKind> kind = kindOf(reader.number(), *entry);
        if (kind && appendName(entry->d_name, listing.names())) {
            listing.add(*kind);
        }
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
