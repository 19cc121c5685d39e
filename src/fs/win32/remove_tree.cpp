#include "fs/win32/remove_tree.h"

#include <cstddef>
#include <vector>

namespace Korvel::CANTORIS::PLX::fs {

namespace {

using Names = std::vector<String>;

bool isSelfOrParent(StringView name)
{
    return name == L"." || name == L"..";
}

void append(Names& names, const std::byte* block)
{
    for (;;) {
        const auto* const entry = reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(block);
        const StringView name(entry->FileName, entry->FileNameLength / sizeof(Char));
        if (!isSelfOrParent(name)) {
            names.emplace_back(name);
        }
        if (entry->NextEntryOffset == 0) {
            return;
        }
        block += entry->NextEntryOffset;
    }
}

Names namesIn(const Handle& folder)
{
    constexpr DWORD size = 32 * 1024;
    const auto block = std::make_unique<std::byte[]>(size);
    Names names;
    auto information = FileIdBothDirectoryRestartInfo;
    while (GetFileInformationByHandleEx(folder.get(), information, block.get(), size)) {
        append(names, block.get());
        information = FileIdBothDirectoryInfo;
    }
    return names;
}

// Goes down by open folders, however deep, and removes each by what was opened.
class Sweep {
public:
    void run(const Handle& folder, StringView name);

private:
    struct Level {
        Handle folder;
        DWORD attributes;
        Names names;
    };

    void take(const Handle& folder, StringView name);
    void leave();

    std::vector<Level> levels_;
    Patience patience_{aMoment};
};

void Sweep::run(const Handle& folder, StringView name)
{
    take(folder, name);
    while (!levels_.empty()) {
        Level& level = levels_.back();
        if (level.names.empty()) {
            leave();
            continue;
        }
        const String next = std::move(level.names.back());
        level.names.pop_back();
        take(level.folder, next);
    }
}

void Sweep::take(const Handle& folder, StringView name)
{
    const Handle entry =
        patiently(patience_, [&] { return openEntry(folder, name, Access::remove); });
    const auto status = statusOf(entry);
    if (!status) {
        return;
    }
    if (status->sort != Sort::folder) {
        patiently(patience_, [&] { return removeOpen(entry, status->attributes); });
        return;
    }
    Handle inner = openSort(folder, name, Access::empty, Sort::folder);
    if (inner) {
        Names names = namesIn(inner);
        levels_.push_back({std::move(inner), status->attributes, std::move(names)});
    }
}

// What was in it may not be gone before others let it go.
void Sweep::leave()
{
    const Level& level = levels_.back();
    patience_.calm();
    while (!removeOpen(level.folder, level.attributes) && GetLastError() == ERROR_DIR_NOT_EMPTY &&
           patience_.wait()) {}
    levels_.pop_back();
}

} // namespace

void removeAll(const Handle& folder, StringView name)
{
    Sweep{}.run(folder, name);
}

} // namespace Korvel::CANTORIS::PLX::fs
