#ifndef _WIN32

#    include "fs/posix_folder.h"

#    include <string_view>

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// Repeats a call that a signal interrupted; null without an error is an answer.
template <typename Call>
auto* uninterruptedPointer(Call call)
{
    errno = 0;
    auto* result = call();
    while (result == nullptr && errno == EINTR) {
        errno = 0;
        result = call();
    }
    return result;
}

bool isSelfOrParent(std::string_view name)
{
    return name == "." || name == "..";
}

} // namespace

FolderReader::FolderReader(const HostPath& path)
{
    stream_.reset(uninterruptedPointer([&] { return ::opendir(path.text()); }));
}

FolderReader::FolderReader(Descriptor folder)
{
    if (folder) {
        stream_.reset(::fdopendir(folder.number()));
    }
    if (stream_) {
        folder.release();
    }
}

const dirent* FolderReader::next()
{
    const dirent* entry = nullptr;
    do {
        entry = uninterruptedPointer([this] { return ::readdir(stream_.get()); });
    } while (entry != nullptr && isSelfOrParent(entry->d_name));
    return entry;
}

} // namespace Korvel::CANTORIS::PLX::fs

#endif
