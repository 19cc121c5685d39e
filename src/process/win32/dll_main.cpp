#include <windows.h>

#include "process/win32/unloading.h"

// The system tells the two ways of leaving apart: `reserved` is null when the library is unloaded.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID reserved)
{
    if (reason == DLL_PROCESS_DETACH && reserved == nullptr) {
        Korvel::CANTORIS::PLX::process::unload();
    }
    return TRUE;
}
