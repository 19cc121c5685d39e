// A 32-bit host of the same compiler may use the compiler's runtime as a DLL.
#ifdef KRT_PLX_TEST_SHARED_RUNTIMES

#    include <gtest/gtest.h>

#    include <windows.h>

#    include "support/files.h"
#    include "support/imports_win32.h"
#    include "support/text.h"
#    include "unload/loaded_library.h"

namespace {

using support::text;

void* nothingLeft(std::size_t)
{
    return nullptr;
}

// The start code of the compiler would hand the library's exceptions over to that DLL.
TEST(SharedRuntime, OfTheHostLeavesTheLibraryItsExceptions)
{
    for (const char* runtime : KRT_PLX_TEST_SHARED_RUNTIMES) {
        ASSERT_NE(LoadLibraryW(support::place(runtime).c_str()), nullptr) << runtime;
    }
    const LoadedLibrary library;
    auto* const create = library.function<decltype(KRT_PLX_CreateManager)>("KRT_PLX_CreateManager");
    const support::Text folder = text("none");
    const HMODULE module = GetModuleHandleW(L"krt_plx.dll");
    void* const real =
        support::replaceImport(module, "malloc", reinterpret_cast<void*>(&nothingLeft));
    KRT_PLX_Manager* const manager =
        create(folder.c_str(), folder.c_str(), folder.c_str(), nullptr, 0, nullptr, 0, nullptr);
    support::replaceImport(module, "malloc", real);
    EXPECT_EQ(manager, nullptr);
}

} // namespace

#endif
