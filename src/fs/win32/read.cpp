#include "fs/win32/lock.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// A change in progress is noticed by its lock, a finished one by its time: the system may not
// report the time of a write before the file is closed.
ReadResult readSettled(const Handle& file, std::string& content, const ReadOptions& options,
                       Patience& patience)
{
    Reading<Handle> reading(file, content, options);
    const ReadResult result = reading.run();
    if (result == ReadResult::notOpened) {
        return result;
    }
    Locked locked = tryLock(file, Sharing::shared);
    if (locked == Locked::yes && !reading.wasChangedJustNow()) {
        return result;
    }
    if (locked == Locked::busy) {
        locked = lock(file, Sharing::shared, patience);
    }
    return locked == Locked::yes ? readWhole(file, content, options) : result;
}

} // namespace

ReadResult readWhole(const Handle& file, std::string& content, const ReadOptions& options)
{
    return Reading<Handle>(file, content, options).run();
}

ReadResult readFile(const Path& path, std::string& content, const ReadOptions& options,
                    Patience& patience)
{
    const SystemPath system{path};
    if (options.kind == Kind::unknown && sortAt(system) != Sort::file) {
        return ReadResult::notOpened;
    }
    const Handle file =
        patiently(patience, [&] { return openPath(system, Access::read, Links::follow); });
    return file ? readSettled(file, content, options, patience) : ReadResult::notOpened;
}

} // namespace Korvel::CANTORIS::PLX::fs
