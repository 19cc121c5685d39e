#include "fs/fs.h"
#include "fs/listing.h"
#include "fs/win32/folder_reader.h"
#include "fs/win32/system.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

bool isSurrogatePair(StringView text)
{
    return text.size() >= 2 && IS_SURROGATE_PAIR(text[0], text[1]);
}

bool isSurrogate(Char unit)
{
    return IS_HIGH_SURROGATE(unit) || IS_LOW_SURROGATE(unit);
}

// The file system would keep lone surrogates, but no clip can refer to such a name.
bool isText(StringView name)
{
    while (!name.empty()) {
        const bool isPair = isSurrogatePair(name);
        if (!isPair && isSurrogate(name.front())) {
            return false;
        }
        name.remove_prefix(isPair ? 2 : 1);
    }
    return true;
}

// Emulated systems can hold names with separators in them, which no path can reach.
bool canStandInPath(StringView name)
{
    return name.find(separator) == StringView::npos && isText(name);
}

EntryKind kindOfTarget(const Status& status)
{
    return isFolder(status.attributes) ? EntryKind::linkToFolder : EntryKind::file;
}

std::optional<EntryKind> kindOf(const String& folder, const WIN32_FIND_DATAW& entry)
{
    if (isLink(entry.dwFileAttributes)) {
        const auto target = statusOf(join(folder, entry.cFileName));
        return target ? std::optional{kindOfTarget(*target)} : std::nullopt;
    }
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DEVICE) != 0) {
        return std::nullopt;
    }
    return isFolder(entry.dwFileAttributes) ? EntryKind::folder : EntryKind::file;
}

} // namespace

void list(const String& folder, Listing& listing)
{
    listing.clear();
    FolderReader reader{folder};
    while (const WIN32_FIND_DATAW* entry = reader.next()) {
        if (!canStandInPath(entry->cFileName)) {
            continue;
        }
        if (const auto kind = kindOf(folder, *entry)) {
            listing.names() += entry->cFileName;
            listing.add(*kind);
        }
    }
}

std::optional<Identity> identify(const String& path)
{
    const auto information = Handle{path}.information();
    if (!information) {
        return std::nullopt;
    }
    const std::uint64_t high = information->nFileIndexHigh;
    return Identity{information->dwVolumeSerialNumber, (high << 32) | information->nFileIndexLow};
}

} // namespace Korvel::CANTORIS::PLX::fs
