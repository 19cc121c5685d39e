#include "process/win32/unloading.h"

#include <atomic>

namespace Korvel::CANTORIS::PLX::process {

namespace {

using Release = void (*)();
constinit std::atomic<Release> releaseAtUnload{nullptr};

} // namespace

void unload()
{
    if (const Release release = releaseAtUnload) {
        release();
    }
}

void atUnload(Release release)
{
    releaseAtUnload = release;
}

} // namespace Korvel::CANTORIS::PLX::process
