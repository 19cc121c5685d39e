// The library brings the compiler's runtime with it. In 32-bit processes that runtime has to be told where the
// library's tables for exceptions are. The compiler's start code tells it, unless the process has the same
// runtime as a DLL, which a host may use: then the start code tells that one, and the first exception in the
// library would end the process. So the start code, which asks for the DLL by this function and is the only
// one here to use it, never finds it.
#ifndef _WIN64

#    include <windows.h>

namespace {

HMODULE WINAPI noSharedRuntime(const char*)
{
    return nullptr;
}

} // namespace

extern "C" {

// The pointer that the import library of the system would have.
extern decltype(&noSharedRuntime) const pointerToGetModuleHandle asm("__imp__GetModuleHandleA@4");
decltype(&noSharedRuntime) const pointerToGetModuleHandle = &noSharedRuntime;
}

#endif
