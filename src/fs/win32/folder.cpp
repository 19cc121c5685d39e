#include <memory>
#include <new>

#include "fs/copying.h"
#include "fs/win32/identity.h"
#include "fs/win32/lock.h"
#include "fs/win32/open.h"
#include "fs/win32/remove_tree.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// Whether the path leads to what was made relative to an open folder: otherwise nothing else could
// reach it. All systems accept paths up to the old limit.
bool isReachable(const String& path)
{
    constexpr std::size_t oldLimit = 259;
    return path.size() <= oldLimit || GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void removeEntry(const OpenFolder& folder, StringView name)
{
    const Handle entry = openEntry(folder.handle, {name, 0}, Access::remove);
    if (entry) {
        removeOpen(entry, 0);
    }
}

Handle makeReachable(const OpenFolder& folder, StringView name, Access access)
{
    const String path = entryPath(folder.path, name); // first: without memory no file is made
    Handle file = makeFile(folder.handle, name, access);
    if (file && !isReachable(path)) {
        file.close();
        removeEntry(folder, name);
    }
    return file;
}

// Removes the file again unless its whole content is on the disk.
template <class Fill>
WriteResult createWith(const OpenFolder& folder, StringView name, Fill fill)
{
    const Handle file = makeReachable(folder, name, Access::fill);
    if (!file) {
        return WriteResult::notOpened;
    }
    if (fill(file) && syncFile(file)) {
        return WriteResult::written;
    }
    removeOpen(file, 0);
    return WriteResult::failed;
}

// Checks before it opens, because opening a pipe of an emulated system can already have an effect.
Handle openPlain(const SystemPath& path)
{
    if (sortAt(path) != Sort::file) {
        return Handle();
    }
    Patience patience(aMoment);
    Handle file = patiently(patience, [&] { return openPath(path, Access::read, Links::follow); });
    const auto status = statusOf(file);
    return status && status->sort == Sort::file ? std::move(file) : Handle();
}

// A new file can be made even in a folder that may be written to but not read.
Handle openFolder(const SystemPath& path)
{
    Handle folder = openPath(path, Access::list, Links::follow);
    if (!folder && GetLastError() == ERROR_ACCESS_DENIED) {
        folder = openPath(path, Access::look, Links::follow);
    }
    const auto status = statusOf(folder);
    return status && status->sort == Sort::folder ? std::move(folder) : Handle();
}

Handle openFolder(OpenFolder& parent, StringView name)
{
    const Entry entry = entryOf(parent, name);
    Handle folder = openSort(parent.handle, entry, Access::list, Sort::folder);
    return folder || GetLastError() != ERROR_ACCESS_DENIED
               ? std::move(folder)
               : openSort(parent.handle, entry, Access::look, Sort::folder);
}

// Waits for other programs for a removal too, so that a failure is noticed before anything is
// removed.
Handle openToHold(OpenFolder& folder, StringView name, Folder::Purpose purpose, Patience& patience)
{
    const Access access = purpose == Folder::Purpose::change ? Access::change : Access::hold;
    const Entry entry = entryOf(folder, name);
    return patiently(patience, [&] { return openSort(folder.handle, entry, access, Sort::file); });
}

HeldFile::State stateWithout(DWORD error)
{
    if (saysMissing(error)) {
        return HeldFile::State::missing;
    }
    return isInUse(error) ? HeldFile::State::busy : HeldFile::State::refused;
}

} // namespace

Folder::Folder() noexcept = default;
Folder::Folder(std::unique_ptr<OpenFolder> folder) noexcept : folder_(std::move(folder)) {}
Folder::Folder(Folder&&) noexcept = default;
Folder& Folder::operator=(Folder&&) noexcept = default;
Folder::~Folder() = default;

Folder Folder::open(const Path& path)
{
    const SystemPath system{path};
    auto folder = std::make_unique<OpenFolder>(openFolder(system), system.text());
    return folder->handle ? Folder(std::move(folder)) : Folder();
}

Folder Folder::inner(StringView name) const
{
    auto folder =
        std::make_unique<OpenFolder>(openFolder(*folder_, name), entryPath(folder_->path, name));
    return folder->handle ? Folder(std::move(folder)) : Folder();
}

// Allocates first, so that no folder is made that could not be held. A new folder is opened in the
// same call.
Folder Folder::make(StringView name) const
{
    auto folder = std::make_unique<OpenFolder>(Handle(), entryPath(folder_->path, name));
    folder->handle = fs::makeFolder(folder_->handle, name);
    if (!folder->handle) {
        return inner(name);
    }
    if (!isReachable(folder->path)) {
        folder.reset();
        removeEntry(*folder_, name);
        return {};
    }
    return Folder(std::move(folder));
}

WriteResult Folder::create(StringView name, std::string_view content) const
{
    return createWith(*folder_, name,
                      [content](const Handle& file) { return writeAll(file, content, 0); });
}

WriteResult Folder::copyInto(StringView name, const Path& from) const
{
    const Handle source = openPlain(SystemPath{from});
    if (!source) {
        return WriteResult::notOpened;
    }
    return createWith(*folder_, name, [&](const Handle& file) { return copyAll(source, file); });
}

ReadResult Folder::read(StringView name, std::string& content, std::uint64_t limit) const
{
    Patience patience(aMoment);
    const Entry entry = entryOf(*folder_, name);
    const Handle file = patiently(
        patience, [&] { return openSort(folder_->handle, entry, Access::read, Sort::file); });
    return file ? readWhole(file, content, {.limit = limit}) : ReadResult::notOpened;
}

HeldFile Folder::hold(StringView name, Purpose purpose, Patience& patience) const
{
    auto file = std::make_unique<OpenFile>(purpose == Purpose::making
                                               ? makeReachable(*folder_, name, Access::change)
                                               : openToHold(*folder_, name, purpose, patience));
    if (!file->handle) {
        return HeldFile(stateWithout(GetLastError()));
    }
    if (lock(file->handle, Sharing::exclusive, patience) == Locked::busy) {
        return HeldFile(HeldFile::State::busy);
    }
    return HeldFile(std::move(file));
}

bool Folder::remove(StringView name) const
{
    Patience patience(aMoment);
    const Entry entry = entryOf(*folder_, name);
    const Handle open =
        patiently(patience, [&] { return openEntry(folder_->handle, entry, Access::remove); });
    const auto status = statusOf(open);
    return status && patiently(patience, [&] { return removeOpen(open, status->attributes); });
}

// Needs memory only on a file system that identifies its files only by their names.
void Folder::removeHeld(StringView name, const HeldFile& file) const
{
    try {
        const Handle entry = openEntry(folder_->handle, {name, 0}, Access::remove);
        if (entry && identityOf(entry) == identityOf(file.file_->handle)) {
            removeOpen(entry, 0);
        }
    } catch (const std::bad_alloc&) {
        return;
    }
}

bool Folder::removeTree(StringView name) const
{
    removeAll(folder_->handle, entryOf(*folder_, name));
    return isMissing(name);
}

// A file that disappears as soon as the last other program closes it counts as missing.
bool Folder::isMissing(StringView name) const
{
    const Handle entry = openEntry(folder_->handle, {name, 0}, Access::look);
    const DWORD error = GetLastError();
    return !entry && (saysMissing(error) || error == ERROR_DELETE_PENDING);
}

bool Folder::sync() const
{
    return syncFolder(folder_->handle);
}

void sleepFor(std::chrono::milliseconds time)
{
    Sleep(static_cast<DWORD>(time.count()));
}

} // namespace Korvel::CANTORIS::PLX::fs
