#include <windows.h>

#include "process/win32/unloading.h"

// `reserved` is null when the library is unloaded, and not null when the process ends.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID reserved)
{
    if (reason == DLL_PROCESS_DETACH && reserved == nullptr) {
        Korvel::CANTORIS::PLX::process::unload();
    }
    return TRUE;
}
