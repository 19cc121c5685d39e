/*
 * The command line of browse.
 */
#ifndef EXAMPLES_OPTIONS_H
#define EXAMPLES_OPTIONS_H

#include "clip_view.h"
#include "search.h"

typedef struct Options {
    Search search;
    ClipView view;
    const char* system_folder;
    const char* user_folder;
    char** clips; /* ends with NULL; if it is empty, all clips are listed */
} Options;

/* Reads the command line, in UTF-8. When it is wrong, prints what is wrong, and the usage. */
bool read_options(Options* options, int argc, char** argv);

void free_options(Options* options);

#endif
