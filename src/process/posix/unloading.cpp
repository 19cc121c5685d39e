#include "process/unloading.h"

#include <atomic>

namespace Korvel::CANTORIS::PLX::process {

namespace {

using Release = void (*)();
constinit std::atomic<Release> releaseAtUnload{nullptr};
constinit std::atomic<bool> processEnds{false};

// The end of the process destroys the static objects of the library and calls its destructor
// functions afterwards. Closing the library goes the other way round: the destructor functions come
// first, and the last of them destroys the static objects. So who comes first tells which it is.
struct EndOfProcess {
    EndOfProcess() = default;
    EndOfProcess(const EndOfProcess&) = delete;
    EndOfProcess& operator=(const EndOfProcess&) = delete;
    ~EndOfProcess() { processEnds = true; }
};

__attribute__((destructor)) void unload()
{
    const Release release = releaseAtUnload;
    if (release != nullptr && !processEnds) {
        release();
    }
}

} // namespace

// The object is made here, not when the library is loaded: of a library that is linked to the program,
// the system would destroy it after the destructor functions then.
void atUnload(Release release)
{
    static const EndOfProcess endOfProcess;
    releaseAtUnload = release;
}

} // namespace Korvel::CANTORIS::PLX::process
