#include "fs/win32/remove_tree.h"

#include <cstddef>
#include <vector>

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// What a folder lists about an entry.
struct Listed {
    String name;
    DWORD attributes;
};
using Entries = std::vector<Listed>;

bool isSelfOrParent(StringView name)
{
    return name == L"." || name == L"..";
}

void append(Entries& entries, const std::byte* block)
{
    for (;;) {
        const auto* const entry = reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(block);
        const StringView name(entry->FileName, entry->FileNameLength / sizeof(Char));
        if (!isSelfOrParent(name)) {
            entries.push_back({String(name), entry->FileAttributes});
        }
        if (entry->NextEntryOffset == 0) {
            return;
        }
        block += entry->NextEntryOffset;
    }
}

Entries entriesIn(const Handle& folder)
{
    constexpr DWORD size = 32 * 1024;
    const auto block = std::make_unique<std::byte[]>(size);
    Entries entries;
    auto information = FileIdBothDirectoryRestartInfo;
    while (GetFileInformationByHandleEx(folder.get(), information, block.get(), size)) {
        append(entries, block.get());
        information = FileIdBothDirectoryInfo;
    }
    return entries;
}

// Goes down through open folders, to any depth, and removes each entry by its handle.
class Sweep {
public:
    void run(const Handle& folder, const Entry& entry);

private:
    struct Level {
        Handle folder;
        DWORD attributes;
        Entries entries;
    };

    void take(const Handle& folder, const Entry& entry);
    void leave();

    std::vector<Level> levels_;
    Patience patience_{aMoment};
};

void Sweep::run(const Handle& folder, const Entry& entry)
{
    take(folder, entry);
    while (!levels_.empty()) {
        Level& level = levels_.back();
        if (level.entries.empty()) {
            leave();
            continue;
        }
        const Listed next = std::move(level.entries.back());
        level.entries.pop_back();
        take(level.folder, {next.name, next.attributes});
    }
}

void Sweep::take(const Handle& folder, const Entry& entry)
{
    const Handle open =
        patiently(patience_, [&] { return openEntry(folder, entry, Access::remove); });
    const auto status = statusOf(open);
    if (!status) {
        return;
    }
    if (status->sort != Sort::folder) {
        patiently(patience_, [&] { return removeOpen(open, status->attributes); });
        return;
    }
    Handle inner = openSort(folder, entry, Access::empty, Sort::folder);
    if (inner) {
        Entries entries = entriesIn(inner);
        levels_.push_back({std::move(inner), status->attributes, std::move(entries)});
    }
}

// Waits, because what was in the folder may not disappear before other programs close it.
void Sweep::leave()
{
    const Level& level = levels_.back();
    patience_.calm();
    while (!removeOpen(level.folder, level.attributes) && GetLastError() == ERROR_DIR_NOT_EMPTY &&
           patience_.wait()) {}
    levels_.pop_back();
}

} // namespace

void removeAll(const Handle& folder, const Entry& entry)
{
    Sweep{}.run(folder, entry);
}

} // namespace Korvel::CANTORIS::PLX::fs
