/*
 * Saves a clip two semitones higher: a host that is linked to the library and to the kit.
 * transposing.c does the work.
 */
#include <stdlib.h>

#include "console.h"
#include "transposing.h"

int main(int argc, char** argv)
{
    console_start(&argc, &argv);
    if (argc != 5) {
        fputs("usage: transpose SYSTEM-FOLDER USER-FOLDER CLIP NEW-NAME\n", stderr);
        return EXIT_FAILURE;
    }
    return transpose_clip(KRT_PLX_Kit_linked(), argv + 1) ? EXIT_SUCCESS : EXIT_FAILURE;
}
