#include "process/unloading.h"

#include <atomic>

namespace Korvel::CANTORIS::PLX::process {

namespace {

using Release = void (*)();
constinit std::atomic<Release> releaseAtUnload{nullptr};
constinit std::atomic<bool> processEnds{false};

// At the end of the process, the static objects of the library are destroyed first, and its
// destructor functions are called afterwards. When the library is closed, it is the other way
// round: the destructor functions come first, and the last of them destroys the static objects. So
// the order tells which of the two is happening.
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

// The object is made here, not when the library is loaded: if the library is linked to the program,
// the system would otherwise destroy the object after the destructor functions.
void atUnload(Release release)
{
    static const EndOfProcess endOfProcess;
    releaseAtUnload = release;
}

} // namespace Korvel::CANTORIS::PLX::process
