#include <new>

#include "fs/win32/identity.h"
#include "fs/win32/open.h"

namespace Korvel::CANTORIS::PLX::fs {

HeldFile::HeldFile(State state) : state_(state) {}
HeldFile::HeldFile(std::unique_ptr<OpenFile> file) : state_(State::held), file_(std::move(file)) {}
HeldFile::HeldFile(HeldFile&&) noexcept = default;
HeldFile::~HeldFile() = default;

ReadResult HeldFile::read(std::string& content, std::uint64_t limit)
{
    return readWhole(file_->handle, content, {.limit = limit});
}

bool HeldFile::write(std::uint64_t place, std::string_view content)
{
    return writeAll(file_->handle, content, place);
}

bool HeldFile::cut(std::uint64_t size)
{
    return cutTo(file_->handle, size);
}

bool HeldFile::sync()
{
    return syncFile(file_->handle);
}

// If the file system does not identify its files, it is enough that the path leads to a file.
bool HeldFile::isAt(const Path& path) const
{
    try {
        const Handle there = openPath(SystemPath{path}, Access::look, Links::dontFollow);
        const auto status = statusOf(there);
        return status && status->sort == Sort::file &&
               identityOf(there) == identityOf(file_->handle);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace Korvel::CANTORIS::PLX::fs
