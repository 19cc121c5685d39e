#include <algorithm>
#include <memory>

#include "fs/copying.h"
#include "fs/posix/lock.h"
#include "fs/posix/open.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// Removes a file by its name, unless another program has put something else there. It still can,
// between the check and the removal: no system call removes a file by its descriptor.
void removeIfStill(const struct stat& own, int folder, const char* name)
{
    struct stat there;
    if (readEntryStatus(folder, name, there, AT_SYMLINK_NOFOLLOW) && isSame(there, own)) {
        removeEntry(folder, name);
    }
}

// Removes the file again unless its whole content is on the disk. Its identity is read while it is
// open, because closing can fail too.
template <class Fill>
WriteResult createWith(const OpenFolder& folder, StringView name, Fill fill)
{
    const HostName host{name, folder.pathLength};
    const int parent = folder.descriptor.number();
    Descriptor file = openFile(parent, host.text(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW);
    if (!file) {
        return WriteResult::notOpened;
    }
    const bool isWhole = fill(file) && syncFile(file);
    struct stat own;
    const bool isKnown = readStatus(file, own);
    if (isWhole && file.close()) {
        return WriteResult::written;
    }
    if (isKnown) {
        removeIfStill(own, parent, host.text());
    }
    return WriteResult::failed;
}

// Checks before it opens, because opening a pipe or a device can already have an effect.
Descriptor openPlain(int folder, const char* path, int flags, int statusFlags)
{
    struct stat status;
    if (!readEntryStatus(folder, path, status, statusFlags)) {
        return Descriptor{-1};
    }
    if (!isPlain(status)) {
        errno = EINVAL;
        return Descriptor{-1};
    }
    Descriptor file = openFile(folder, path, flags);
    if (file && !(readStatus(file, status) && isPlain(status))) {
        file.close();
        errno = EINVAL;
    }
    return file;
}

// Makes the file and opens it in one step: otherwise the opening could fail and the new file would
// be left.
Descriptor makeToHold(const OpenFolder& folder, StringView name)
{
    return openFile(folder.descriptor.number(), HostName{name, folder.pathLength}.text(),
                    O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW);
}

Descriptor openToHold(const OpenFolder& folder, StringView name, Folder::Purpose purpose)
{
    const int access = purpose == Folder::Purpose::removal ? O_RDONLY : O_RDWR;
    return openPlain(folder.descriptor.number(), HostName{name}.text(), access | O_NOFOLLOW,
                     AT_SYMLINK_NOFOLLOW);
}

} // namespace

Folder::Folder() noexcept = default;
Folder::Folder(std::unique_ptr<OpenFolder> folder) noexcept : folder_(std::move(folder)) {}
Folder::Folder(Folder&&) noexcept = default;
Folder& Folder::operator=(Folder&&) noexcept = default;
Folder::~Folder() = default;

Folder Folder::open(const Path& path)
{
    const HostPath host{path.text};
    auto folder = std::make_unique<OpenFolder>(openFolder(AT_FDCWD, host.text()), host.length());
    return folder->descriptor ? Folder(std::move(folder)) : Folder();
}

Folder Folder::inner(StringView name) const
{
    const HostName host{name};
    auto folder = std::make_unique<OpenFolder>(
        openFolder(folder_->descriptor.number(), host.text(), O_NOFOLLOW),
        folder_->pathLength + 1 + host.length());
    return folder->descriptor ? Folder(std::move(folder)) : Folder();
}

// Allocates first, so that no folder is made that could not be held. Whether the folder is there,
// new or not, shows when it is opened.
Folder Folder::make(StringView name) const
{
    const HostName host{name, folder_->pathLength};
    const int parent = folder_->descriptor.number();
    auto folder =
        std::make_unique<OpenFolder>(Descriptor{-1}, folder_->pathLength + 1 + host.length());
    const bool isNew = uninterrupted([&] { return ::mkdirat(parent, host.text(), 0777); }) == 0;
    folder->descriptor = openFolder(parent, host.text(), O_NOFOLLOW);
    if (folder->descriptor) {
        return Folder(std::move(folder));
    }
    if (isNew) {
        removeEntry(parent, host.text(), AT_REMOVEDIR);
    }
    return {};
}

WriteResult Folder::create(StringView name, std::string_view content) const
{
    return createWith(*folder_, name,
                      [content](const Descriptor& file) { return writeAll(file, content, 0); });
}

WriteResult Folder::copyInto(StringView name, const Path& from) const
{
    const Descriptor source = openPlain(AT_FDCWD, HostPath{from.text}.text(), O_RDONLY, 0);
    if (!source) {
        return WriteResult::notOpened;
    }
    return createWith(*folder_, name,
                      [&](const Descriptor& file) { return copyAll(source, file); });
}

ReadResult Folder::read(StringView name, std::string& content, std::uint64_t limit) const
{
    const Descriptor file = openPlain(folder_->descriptor.number(), HostName{name}.text(),
                                      O_RDONLY | O_NOFOLLOW, AT_SYMLINK_NOFOLLOW);
    return file ? readWhole(file, content, {.limit = limit}) : ReadResult::notOpened;
}

HeldFile Folder::hold(StringView name, Purpose purpose, Patience& patience) const
{
    auto file = std::make_unique<OpenFile>(Descriptor{-1});
    file->descriptor = purpose == Purpose::making ? makeToHold(*folder_, name)
                                                  : openToHold(*folder_, name, purpose);
    if (!file->descriptor) {
        return HeldFile(errno == ENOENT ? HeldFile::State::missing : HeldFile::State::refused);
    }
    if (lock(file->descriptor, Sharing::exclusive, patience) == Locked::busy) {
        return HeldFile(HeldFile::State::busy);
    }
    return HeldFile(std::move(file));
}

bool Folder::remove(StringView name) const
{
    const HostName host{name};
    const int folder = folder_->descriptor.number();
    return removeEntry(folder, host.text()) || removeEntry(folder, host.text(), AT_REMOVEDIR);
}

void Folder::removeHeld(StringView name, const HeldFile& file) const
{
    struct stat own;
    if (readStatus(file.file_->descriptor, own)) {
        removeIfStill(own, folder_->descriptor.number(), HostName{name}.text());
    }
}

bool Folder::removeTree(StringView name) const
{
    const HostName host{name};
    const int parent = folder_->descriptor.number();
    if (host.length() == 0) {
        return false;
    }
    if (removeEntry(parent, host.text())) {
        return true;
    }
    removeContent(openFolder(parent, host.text(), O_NOFOLLOW));
    return removeEntry(parent, host.text(), AT_REMOVEDIR) || errno == ENOENT;
}

bool Folder::isMissing(StringView name) const
{
    const HostName host{name};
    struct stat status;
    return !readEntryStatus(folder_->descriptor.number(), host.text(), status,
                            AT_SYMLINK_NOFOLLOW) &&
           errno == ENOENT;
}

bool Folder::sync() const
{
    return syncFolder(folder_->descriptor);
}

} // namespace Korvel::CANTORIS::PLX::fs
