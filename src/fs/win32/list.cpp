#include "fs/listing.h"
#include "fs/win32/folder_reader.h"
#include "fs/win32/identity.h"
#include "fs/win32/open.h"

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

// The file system allows lone surrogates, but no clip can refer to such a name.
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

// Emulated systems can have names with separators in them, which no path can reach.
bool canStandInPath(StringView name)
{
    return name.find(separator) == StringView::npos && isText(name);
}

std::optional<EntryKind> kindOfTarget(const SystemPath& folder, StringView name)
{
    const auto sort = sortAt(SystemPath{folder.of(name)});
    if (sort == Sort::folder) {
        return EntryKind::linkToFolder;
    }
    return sort == Sort::file ? std::optional{EntryKind::file} : std::nullopt;
}

std::optional<EntryKind> kindOf(const SystemPath& folder, const WIN32_FIND_DATAW& entry)
{
    switch (sortOf(entry.dwFileAttributes, entry.dwReserved0)) {
    case Sort::file:
        return EntryKind::file;
    case Sort::folder:
        return EntryKind::folder;
    case Sort::link:
        return kindOfTarget(folder, entry.cFileName);
    default:
        return std::nullopt;
    }
}

} // namespace

void list(const Path& folder, Listing& listing)
{
    listing.clear();
    const SystemPath system{folder};
    FolderReader reader{system};
    while (const WIN32_FIND_DATAW* entry = reader.next()) {
        if (!canStandInPath(entry->cFileName)) {
            continue;
        }
        if (const auto kind = kindOf(system, *entry)) {
            listing.names() += entry->cFileName;
            listing.add(*kind);
        }
    }
}

std::optional<Identity> identify(const Path& path)
{
    const Handle handle = openPath(SystemPath{path}, Access::look, Links::follow);
    return handle ? identityOf(handle) : std::nullopt;
}

} // namespace Korvel::CANTORIS::PLX::fs
