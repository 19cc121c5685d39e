#include "fs/posix/entries.h"

#include <cerrno>
#include <memory>

#include <dirent.h>

namespace Korvel::CANTORIS::PLX::fs {

namespace {

struct Close {
    void operator()(DIR* stream) const { ::closedir(stream); }
};

using Stream = std::unique_ptr<DIR, Close>;

// Calls again while a signal interrupts the call. `errno` is 0 when there was nothing to return.
template <class Call>
auto* uninterruptedPointer(Call call)
{
    while (true) {
        errno = 0;
        auto* const result = call();
        if (result != nullptr || errno != EINTR) {
            return result;
        }
    }
}

} // namespace

bool visitEntries(Descriptor folder, void* visitor, void (*visit)(void* visitor, const Entry&))
{
    const int number = folder.number();
    const Stream stream(uninterruptedPointer([&] { return ::fdopendir(number); }));
    if (!stream) {
        return errno != ENOMEM;
    }
    folder.release(); // the stream closes it
    const auto next = [&] { return ::readdir(stream.get()); };
    while (const dirent* const entry = uninterruptedPointer(next)) {
        if (!isSelfOrParent(entry->d_name)) {
            visit(visitor, {number, entry->d_name, Entry::Kind::unknown});
        }
    }
    return true;
}

} // namespace Korvel::CANTORIS::PLX::fs
