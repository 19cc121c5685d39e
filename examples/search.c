#include "search.h"

#include <stdlib.h>

#include "text.h"

typedef bool (*CountTags)(KRT_PLX_Filter* filter, uint64_t* count);
typedef const KRT_PLX_Char* (*TagAt)(KRT_PLX_Filter* filter, uint64_t index);

/* True when the tag is in the list, or when no tag is asked for. */
static bool has_tag(KRT_PLX_Filter* filter, CountTags count_tags, TagAt tag_at,
                    const KRT_PLX_Char* wanted)
{
    uint64_t count = 0;
    count_tags(filter, &count);
    for (uint64_t i = 0; wanted != NULL && i < count; ++i) {
        if (utf16_equal(tag_at(filter, i), wanted)) {
            return true;
        }
    }
    return wanted == NULL;
}

static bool has_language(KRT_PLX_Filter* filter, int32_t wanted)
{
    uint64_t count = 0;
    KRT_PLX_Filter_numLanguages(filter, &count);
    for (uint64_t i = 0; i < count; ++i) {
        if (KRT_PLX_Filter_language(filter, i) == wanted) {
            return true;
        }
    }
    return false;
}

/* A clip without any tags has no vendor tag either, but still a vendor. */
static bool has_vendor(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* wanted)
{
    return wanted == NULL || utf16_equal(KRT_PLX_ClipBase_vendorName(clip), wanted) ||
           has_tag(KRT_PLX_Clip_filter(clip), KRT_PLX_Filter_numVendors, KRT_PLX_Filter_vendor,
                   wanted);
}

bool clip_matches(KRT_PLX_ClipBase* clip, const Search* search)
{
    KRT_PLX_Filter* filter = KRT_PLX_Clip_filter(clip);
    return (search->part_type == KRT_PLX_PART_NONE ||
            KRT_PLX_ClipBase_partType(clip) == search->part_type) &&
           has_tag(filter, KRT_PLX_Filter_numTypes, KRT_PLX_Filter_type, search->type) &&
           has_tag(filter, KRT_PLX_Filter_numGenres, KRT_PLX_Filter_genre, search->genre) &&
           has_tag(filter, KRT_PLX_Filter_numSingerGroups, KRT_PLX_Filter_singerGroup,
                   search->singer_group) &&
           has_vendor(clip, search->vendor) &&
           (!search->has_language || has_language(filter, search->language));
}

void free_search(Search* search)
{
    free(search->type);
    free(search->genre);
    free(search->singer_group);
    free(search->vendor);
    *search = (Search){.part_type = KRT_PLX_PART_NONE};
}
