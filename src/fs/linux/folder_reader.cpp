#include "fs/linux/folder_reader.h"

#include <string_view>

namespace Korvel::CANTORIS::PLX::fs {

namespace {

Descriptor openFolder(const HostPath& path)
{
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC;
    return Descriptor{uninterrupted([&] { return ::open(path.text(), flags); })};
}

bool isSelfOrParent(std::string_view name)
{
    return name == "." || name == "..";
}

} // namespace

FolderReader::FolderReader(const HostPath& path) : FolderReader(openFolder(path)) {}

const dirent64* FolderReader::next()
{
    const dirent64* entry = nullptr;
    do {
        entry = advance();
    } while (entry != nullptr && isSelfOrParent(entry->d_name));
    return entry;
}

const dirent64* FolderReader::advance()
{
    if (place_ == size_ && !readBlock()) {
        return nullptr;
    }
    const auto* const entry = reinterpret_cast<const dirent64*>(block_.data() + place_);
    place_ += entry->d_reclen;
    return entry;
}

bool FolderReader::readBlock()
{
    const ssize_t size = uninterrupted(
        [this] { return ::getdents64(folder_.number(), block_.data(), block_.size()); });
    place_ = 0;
    size_ = size > 0 ? static_cast<std::size_t>(size) : 0;
    return size_ > 0;
}

} // namespace Korvel::CANTORIS::PLX::fs
