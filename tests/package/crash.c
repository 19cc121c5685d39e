/* A host that makes the library crash, and prints where: the place within the library, counted from its start. */

#if !defined(_GNU_SOURCE)
#    define _GNU_SOURCE
#endif

#include <korvel/plx.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#if defined(_WIN32)
#    include <windows.h>
#    define TEXT_OF(literal) L##literal

static LONG CALLBACK report(EXCEPTION_POINTERS* crash)
{
    const DWORD how =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    const char* place = crash->ExceptionRecord->ExceptionAddress;
    HMODULE library = NULL;
    if (!GetModuleHandleExW(how, (LPCWSTR)(const void*)place, &library)) {
        return EXCEPTION_CONTINUE_SEARCH;
    }
    printf("%lx\n", (unsigned long)(place - (const char*)(const void*)library));
    fflush(stdout);
    ExitProcess(0);
}

static void await_crash(void)
{
    AddVectoredExceptionHandler(1, report);
}

#else
#    include <dlfcn.h>
#    include <signal.h>
#    include <ucontext.h>
#    define TEXT_OF(literal) u##literal

/* Printing is not safe in every handler, but in this one, because the library was not printing. */
static void report(int number, siginfo_t* information, void* context)
{
    const char* place = (const char*)((ucontext_t*)context)->uc_mcontext.gregs[REG_RIP];
    Dl_info library;
    (void)number;
    (void)information;
    if (dladdr(place, &library) == 0) {
        abort();
    }
    printf("%lx\n", (unsigned long)(place - (const char*)library.dli_fbase));
    fflush(stdout);
    _Exit(0);
}

static void await_crash(void)
{
    struct sigaction action = {0};
    action.sa_sigaction = report;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGSEGV, &action, NULL);
}

#endif

int main(void)
{
    KRT_PLX_Manager* manager =
        KRT_PLX_CreateManager(TEXT_OF("crash"), TEXT_OF("library/system"), TEXT_OF("library/user"),
                              NULL, 0, NULL, 0, NULL);
    await_crash();
    KRT_PLX_Manager_numSystemClips(manager, (uint64_t*)(uintptr_t)64);
    return 1;
}
