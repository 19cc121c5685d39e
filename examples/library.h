/*
 * Opening a clip library: the folders, the manager, and what the result codes mean.
 */
#ifndef EXAMPLES_LIBRARY_H
#define EXAMPLES_LIBRARY_H

#include <korvel/plx.h>

/*
 * Creates a manager on two folders, given in UTF-8, and reads all clips in them. On failure it
 * prints the reason to standard error and returns NULL. Destroy it with KRT_PLX_Manager_destroy().
 */
KRT_PLX_Manager* open_library(const char* app_id, const char* system_folder,
                              const char* user_folder);

/* A message for a result code. */
const char* result_text(uint32_t code);

/*
 * Returns a path of the library in the form in which this system opens files. Free it.
 *
 * The library joins folders and file names with backslashes everywhere; only Windows accepts these.
 */
char* system_path(const KRT_PLX_Char* path);

#endif
