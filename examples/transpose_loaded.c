/*
 * The same as transpose.c in a host that loads the library at run time.
 */
#include <stdlib.h>

#include "console.h"
#include "loading.h"
#include "transposing.h"

int main(int argc, char** argv)
{
    KRT_PLX_Api plx;
    console_start(&argc, &argv);
    if (argc != 6) {
        fputs("usage: transpose_loaded LIBRARY-FILE SYSTEM-FOLDER USER-FOLDER CLIP NEW-NAME\n",
              stderr);
        return EXIT_FAILURE;
    }
    if (!load_library(&plx, argv[1])) {
        return EXIT_FAILURE;
    }
    const bool is_done = transpose_clip(&plx, argv + 2);
    return KRT_PLX_unload(&plx) && is_done ? EXIT_SUCCESS : EXIT_FAILURE;
}
