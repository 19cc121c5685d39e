#include "loading.h"

#include <stdio.h>
#include <stdlib.h>

#include "text.h"

static void report(void* context, KRT_PLX_LoadProblem problem, const char* text)
{
    const char* file = context != NULL ? context : "the library";
    if (problem == KRT_PLX_LOAD_FUNCTION_MISSING) {
        fprintf(stderr, "%s has no function %s\n", file, text);
    } else {
        fprintf(stderr, "%s cannot be loaded: %s\n", file, text);
    }
}

/* The path goes to the system in the form in which that loads libraries. */
bool load_library(KRT_PLX_Api* plx, char* file)
{
#ifdef _WIN32
    wchar_t* path = utf16_from_utf8(file);
    bool is_loaded = KRT_PLX_load(plx, path, report, file);
    free(path);
    return is_loaded;
#else
    return KRT_PLX_load(plx, file, report, file);
#endif
}
