#include <vector>

#include "fs/fs.h"
#include "fs/win32/folder_reader.h"
#include "fs/win32/system.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

struct Entry {
    String name;
    DWORD attributes;
};

struct Level {
    std::size_t pathLength;
    std::vector<Entry> entries;
};

Level readLevel(const String& folder)
{
    Level level{folder.size(), {}};
    FolderReader reader{folder};
    while (const WIN32_FIND_DATAW* entry = reader.next()) {
        level.entries.push_back({entry->cFileName, entry->dwFileAttributes});
    }
    return level;
}

// Removes what the folder holds, with a list of the open levels instead of recursion. What cannot be
// removed stays.
void sweep(String path)
{
    std::vector<Level> levels{readLevel(path)};
    while (!levels.empty()) {
        Level& level = levels.back();
        path.resize(level.pathLength);
        if (level.entries.empty()) {
            levels.pop_back();
            RemoveDirectoryW(path.c_str());
            continue;
        }
        const Entry entry = std::move(level.entries.back());
        level.entries.pop_back();
        path += separator;
        path += entry.name;
        if (isFolder(entry.attributes) && !isLink(entry.attributes)) {
            levels.push_back(readLevel(path));
        } else {
            removeEntry(path, entry.attributes);
        }
    }
}

} // namespace

bool removeTree(const String& path)
{
    const String tree = entryPath(path);
    if (tree.empty() || holdsNul(tree)) {
        return false;
    }
    const auto attributes = attributesOf(tree);
    if (attributes && isFolder(*attributes) && !isLink(*attributes)) {
        sweep(tree);
    } else if (attributes) {
        removeEntry(tree, *attributes);
    }
    return isMissing(tree);
}

} // namespace Korvel::CANTORIS::PLX::fs
