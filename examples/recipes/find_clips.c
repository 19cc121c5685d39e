#include "recipes.h"

/* [find] */
size_t find_slow_clips(KRT_PLX_Manager* manager, const KRT_PLX_Char* words,
                       const KRT_PLX_Char* genre, KRT_PLX_ClipBase** found, size_t capacity)
{
    const struct KRT_PLX_Api* plx = KRT_PLX_Kit_linked();
    const KRT_PLX_KitTag tag = {KRT_PLX_KIT_GENRES, genre, 0};
    KRT_PLX_KitQuery query = KRT_PLX_Kit_anyClip();
    KRT_PLX_ClipBase* clip = NULL;
    uint64_t place = 0;
    size_t count = 0;
    query.name = words;
    query.ignoreAccents = true;
    query.tags = &tag;
    query.tagCount = 1;
    query.lowestTempo = 2000;
    query.highestTempo = 8000;
    while (count < capacity && (clip = KRT_PLX_Kit_find(plx, manager, &query, &place)) != NULL) {
        found[count] = clip;
        ++count;
    }
    return count;
}
/* [find] */
