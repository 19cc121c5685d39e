// The same as sing_higher.cpp in a host that loads the library at run time.
#include <cstdio>
#include <cstdlib>

#include <korvel/plx.hpp>
#include <korvel/plx_loaded.h>

#include "singing_higher.hpp"

extern "C" {
#include "console.h"
}

namespace {

void report(void*, KRT_PLX_LoadProblem problem, const char* text)
{
    const char* const what = problem == KRT_PLX_LOAD_FUNCTION_MISSING ? "missing" : "not loaded";
    std::fprintf(stderr, "%s: %s\n", what, text);
}

// The path goes to the system in the form in which that loads libraries.
bool loadLibrary(const char* file)
{
#ifdef _WIN32
    return KRT_PLX_loadForAll(korvel::plx::fromUtf8(file).c_str(), report, nullptr);
#else
    return KRT_PLX_loadForAll(file, report, nullptr);
#endif
}

} // namespace

int main(int argc, char** argv)
{
    console_start(&argc, &argv);
    if (argc != 6) {
        std::fprintf(stderr,
                     "usage: sing_higher_loaded LIBRARY-FILE SYSTEM-FOLDER USER-FOLDER CLIP "
                     "NEW-NAME\n");
        return EXIT_FAILURE;
    }
    if (!loadLibrary(argv[1])) {
        return EXIT_FAILURE;
    }
    const bool isDone = singHigher(argv + 2);
    return KRT_PLX_unloadForAll() && isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
