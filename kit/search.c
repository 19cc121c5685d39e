#include "folding.h"
#include "kit.h"

/* Whether the text begins with the part, and the last letter of the part is whole there. */
static bool beginsWith(const KRT_PLX_Char* text, const KRT_PLX_Char* part, bool ignoreAccents)
{
    Folding here = kitFold(text, ignoreAccents);
    Folding there = kitFold(part, ignoreAccents);
    uint32_t wanted = 0;
    bool isEmpty = true;
    while (kitNextFolded(&there, &wanted)) {
        uint32_t found = 0;
        if (!kitNextFolded(&here, &found) || found != wanted) {
            return false;
        }
        isEmpty = false;
    }
    return isEmpty || !kitContinuesLetter(here);
}

bool KRT_PLX_Kit_contains(const KRT_PLX_Char* text, const KRT_PLX_Char* part, bool ignoreAccents)
{
    if (text == NULL || part == NULL) {
        return false;
    }
    while (!beginsWith(text, part, ignoreAccents)) {
        if (*text == 0) {
            return false;
        }
        text = kitNextCharacter(text);
    }
    return true;
}

bool KRT_PLX_Kit_equals(const KRT_PLX_Char* left, const KRT_PLX_Char* right, bool ignoreAccents)
{
    if (left == NULL || right == NULL) {
        return false;
    }
    Folding here = kitFold(left, ignoreAccents);
    Folding there = kitFold(right, ignoreAccents);
    uint32_t found = 0;
    uint32_t wanted = 0;
    bool isHere = false;
    bool isThere = false;
    do {
        isHere = kitNextFolded(&here, &found);
        isThere = kitNextFolded(&there, &wanted);
    } while (isHere && isThere && found == wanted);
    return !isHere && !isThere;
}

static bool hasLanguage(Api* plx, KRT_PLX_Filter* filter, int32_t language)
{
    uint64_t count = 0;
    plx->KRT_PLX_Filter_numLanguages(filter, &count);
    for (uint64_t i = 0; i < count; ++i) {
        if (plx->KRT_PLX_Filter_language(filter, i) == language) {
            return true;
        }
    }
    return false;
}

static bool hasText(const KitTexts* list, KRT_PLX_Filter* filter, const KRT_PLX_Char* text,
                    bool ignoreAccents)
{
    uint64_t count = 0;
    list->count(filter, &count);
    for (uint64_t i = 0; i < count; ++i) {
        if (KRT_PLX_Kit_equals(list->at(filter, i), text, ignoreAccents)) {
            return true;
        }
    }
    return false;
}

static bool hasTag(Api* plx, KRT_PLX_Filter* filter, const KRT_PLX_KitTag* tag, bool ignoreAccents)
{
    if (tag->list == KRT_PLX_KIT_LANGUAGES) {
        return hasLanguage(plx, filter, tag->language);
    }
    KitTexts lists[kitTextsCount];
    kitListTexts(plx, lists);
    for (size_t i = 0; i < kitTextsCount; ++i) {
        if (lists[i].list == tag->list) {
            return hasText(&lists[i], filter, tag->text, ignoreAccents);
        }
    }
    return false;
}

/* Whether one of the tags that are of this one's list is there. */
static bool hasOneOfList(Api* plx, KRT_PLX_Filter* filter, const KRT_PLX_KitQuery* query,
                         uint32_t list)
{
    for (size_t i = 0; i < query->tagCount; ++i) {
        if (query->tags[i].list == list &&
            hasTag(plx, filter, &query->tags[i], query->ignoreAccents)) {
            return true;
        }
    }
    return false;
}

static bool matchesTags(Api* plx, KRT_PLX_Filter* filter, const KRT_PLX_KitQuery* query)
{
    for (size_t i = 0; query->tags != NULL && i < query->tagCount; ++i) {
        if (!hasOneOfList(plx, filter, query, query->tags[i].list)) {
            return false;
        }
    }
    return true;
}

KRT_PLX_KitQuery KRT_PLX_Kit_anyClip(void)
{
    return (KRT_PLX_KitQuery){NULL, false, NULL, 0, KRT_PLX_NO_KEY, 0, UINT32_MAX};
}

bool KRT_PLX_Kit_matches(Api* plx, KRT_PLX_ClipBase* clip, const KRT_PLX_KitQuery* query)
{
    if (!kitIsReady(plx) || query == NULL) {
        return false;
    }
    const KRT_PLX_Char* name = plx->KRT_PLX_Clip_name(clip);
    const uint32_t tempo = plx->KRT_PLX_ClipBase_partTempo(clip);
    return name != NULL &&
           (query->name == NULL || KRT_PLX_Kit_contains(name, query->name, query->ignoreAccents)) &&
           (query->key == KRT_PLX_NO_KEY || query->key == plx->KRT_PLX_ClipBase_partKey(clip)) &&
           tempo >= query->lowestTempo && tempo <= query->highestTempo &&
           matchesTags(plx, plx->KRT_PLX_Clip_filter(clip), query);
}

/* System clips first; null behind the last user clip. */
static KRT_PLX_ClipBase* clipAt(Api* plx, KRT_PLX_Manager* manager, uint64_t place)
{
    uint64_t systemClips = 0;
    plx->KRT_PLX_Manager_numSystemClips(manager, &systemClips);
    return place < systemClips ? plx->KRT_PLX_Manager_systemClip(manager, place)
                               : plx->KRT_PLX_Manager_userClip(manager, place - systemClips);
}

KRT_PLX_ClipBase* KRT_PLX_Kit_find(Api* plx, KRT_PLX_Manager* manager,
                                   const KRT_PLX_KitQuery* query, uint64_t* place)
{
    if (!kitIsReady(plx) || query == NULL || place == NULL) {
        return NULL;
    }
    KRT_PLX_ClipBase* clip = clipAt(plx, manager, *place);
    while (clip != NULL) {
        ++*place;
        if (KRT_PLX_Kit_matches(plx, clip, query)) {
            return clip;
        }
        clip = clipAt(plx, manager, *place);
    }
    return NULL;
}
