/*
 * Loading the library at run time, in an example program that is built without it.
 */
#ifndef EXAMPLES_LOADING_H
#define EXAMPLES_LOADING_H

#include <korvel/plx_loader.h>

/* Fills the table with the functions of the library in a file, whose path is in UTF-8. On failure it
 * prints the reason to standard error. Unload it with KRT_PLX_unload(). */
bool load_library(KRT_PLX_Api* plx, char* file);

#endif
