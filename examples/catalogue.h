/*
 * The clips of a library as a table, filtered by search tags.
 */
#ifndef EXAMPLES_CATALOGUE_H
#define EXAMPLES_CATALOGUE_H

#include "search.h"

/* The system and user clips of a manager, sorted for display. Valid until clips are read again. */
typedef struct Catalogue {
    KRT_PLX_ClipBase** clips;
    size_t count;
} Catalogue;

/* Lists all clips; the library has them in the order in which it found them on disk. */
Catalogue list_clips(KRT_PLX_Manager* manager);
void free_catalogue(Catalogue* catalogue);

/* Finds a clip by its number in the table, its ID or its name; NULL when there is none. */
KRT_PLX_ClipBase* find_clip(const Catalogue* catalogue, const char* choice);

/* Prints the clips that match, with their numbers in the whole list, and how many there are. */
void print_catalogue(const Catalogue* catalogue, const Search* search, int width);

/* "112" or "112.5", "-" when the clip has no tempo. Free it. */
char* tempo_text(KRT_PLX_ClipBase* clip);

/* The clip's tags, with semicolons between kinds: "Hymn, Folk; Verse; Mezzo; English". Free it. */
char* tags_text(KRT_PLX_Filter* filter);

#endif
