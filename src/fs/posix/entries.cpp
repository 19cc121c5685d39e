#include "fs/posix/entries.h"

#include <memory>

#include <dirent.h>

namespace Korvel::CANTORIS::PLX::fs {

namespace {

struct Close {
    void operator()(DIR* stream) const { ::closedir(stream); }
};

using Stream = std::unique_ptr<DIR, Close>;

// The stream closes the folder from now on.
Stream streamOf(Descriptor folder)
{
    Stream stream(::fdopendir(folder.number()));
    if (stream) {
        folder.release();
    }
    return stream;
}

} // namespace

void visitEntries(Descriptor folder, void* visitor, void (*visit)(void* visitor, const Entry&))
{
    const int number = folder.number();
    const Stream stream = streamOf(std::move(folder));
    while (const dirent* const entry = stream ? ::readdir(stream.get()) : nullptr) {
        if (!isSelfOrParent(entry->d_name)) {
            visit(visitor, {number, entry->d_name, Entry::Kind::unknown});
        }
    }
}

} // namespace Korvel::CANTORIS::PLX::fs
