#include "process/unloading.h"

#include <atomic>

#include <windows.h>

namespace Korvel::CANTORIS::PLX::process {

namespace {

using Release = void (*)();
constinit std::atomic<Release> releaseAtUnload{nullptr};

void unload()
{
    if (const Release release = releaseAtUnload) {
        release();
    }
}

} // namespace

void atUnload(Release release)
{
    releaseAtUnload = release;
}

} // namespace Korvel::CANTORIS::PLX::process

// The system tells the two ways apart: `reserved` is null when the library is unloaded.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID reserved)
{
    if (reason == DLL_PROCESS_DETACH && reserved == nullptr) {
        Korvel::CANTORIS::PLX::process::unload();
    }
    return TRUE;
}
