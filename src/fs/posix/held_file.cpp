#include "fs/posix/open.h"

namespace Korvel::CANTORIS::PLX::fs {

HeldFile::HeldFile(State state) : state_(state) {}
HeldFile::HeldFile(std::unique_ptr<OpenFile> file) : state_(State::held), file_(std::move(file)) {}
HeldFile::HeldFile(HeldFile&&) noexcept = default;
HeldFile::~HeldFile() = default;

ReadResult HeldFile::read(std::string& content, std::uint64_t limit)
{
    return readWhole(file_->descriptor, content, {.limit = limit});
}

bool HeldFile::write(std::uint64_t place, std::string_view content)
{
    return writeAll(file_->descriptor, content, place);
}

bool HeldFile::cut(std::uint64_t size)
{
    return uninterrupted([&] {
               return ::ftruncate(file_->descriptor.number(), static_cast<off_t>(size));
           }) == 0;
}

bool HeldFile::sync()
{
    return syncFile(file_->descriptor);
}

bool HeldFile::isAt(const Path& path) const
{
    const HostPath host{path.text};
    struct stat there;
    struct stat own;
    return readEntryStatus(AT_FDCWD, host.text(), there, AT_SYMLINK_NOFOLLOW) &&
           readStatus(file_->descriptor, own) && isSame(there, own);
}

} // namespace Korvel::CANTORIS::PLX::fs
