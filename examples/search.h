/*
 * Searching a catalogue by tags. The library keeps the tags; the host decides what they mean for a
 * search. Here a clip has to match everything that is asked for.
 */
#ifndef EXAMPLES_SEARCH_H
#define EXAMPLES_SEARCH_H

#include <korvel/plx.h>

/* What a user looks for. A field that is NULL, KRT_PLX_PART_NONE or false matches every clip. */
typedef struct Search {
    uint32_t part_type;
    KRT_PLX_Char* type;
    KRT_PLX_Char* genre;
    KRT_PLX_Char* singer_group;
    KRT_PLX_Char* vendor;
    bool has_language;
    int32_t language;
} Search;

bool clip_matches(KRT_PLX_ClipBase* clip, const Search* search);

/* Frees the texts, which utf16_from_utf8() made. */
void free_search(Search* search);

#endif
