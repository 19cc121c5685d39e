#include "kit.h"

typedef bool (*SetNumber)(KRT_PLX_PropertyEditor*, uint32_t);
typedef bool (*AddTag)(KRT_PLX_PropertyEditor*, const KRT_PLX_Char*);

/* Key and tempo of a clip that was read are such as the editor takes. */
static bool keepNumbers(Api* plx, KRT_PLX_ClipBase* clip, KRT_PLX_PropertyEditor* editor,
                        uint32_t keep)
{
    const SetNumber setKey = plx->KRT_PLX_PropertyEditor_setPartKey;
    const SetNumber setTempo = plx->KRT_PLX_PropertyEditor_setPartTempo;
    return ((keep & KRT_PLX_KIT_KEEP_KEY) == 0 ||
            setKey(editor, plx->KRT_PLX_ClipBase_partKey(clip))) &&
           ((keep & KRT_PLX_KIT_KEEP_TEMPO) == 0 ||
            setTempo(editor, plx->KRT_PLX_ClipBase_partTempo(clip)));
}

static bool keepTags(const KitTexts* list, KRT_PLX_Filter* filter, KRT_PLX_PropertyEditor* editor,
                     AddTag add)
{
    uint64_t count = 0;
    list->count(filter, &count);
    for (uint64_t i = 0; i < count; ++i) {
        if (!add(editor, list->at(filter, i))) {
            return false;
        }
    }
    return true;
}

static bool keepFilter(Api* plx, KRT_PLX_ClipBase* clip, KRT_PLX_PropertyEditor* editor,
                       uint32_t keep)
{
    KRT_PLX_Filter* filter = plx->KRT_PLX_Clip_filter(clip);
    KitTexts lists[kitTextsCount];
    kitListTexts(plx, lists);
    bool isKept = true;
    for (size_t i = 0; i < kitTextsCount && isKept; ++i) {
        if (lists[i].list == KRT_PLX_KIT_TYPES && (keep & KRT_PLX_KIT_KEEP_TYPES) != 0) {
            isKept = keepTags(&lists[i], filter, editor, plx->KRT_PLX_PropertyEditor_addFilterType);
        } else if (lists[i].list == KRT_PLX_KIT_GENRES && (keep & KRT_PLX_KIT_KEEP_GENRES) != 0) {
            isKept =
                keepTags(&lists[i], filter, editor, plx->KRT_PLX_PropertyEditor_addFilterGenre);
        }
    }
    return isKept;
}

bool KRT_PLX_Kit_fillEditor(Api* plx, KRT_PLX_PropertyEditor* editor, KRT_PLX_ClipBase* clip,
                            uint32_t keep)
{
    const KRT_PLX_Char* name = kitIsReady(plx) ? plx->KRT_PLX_Clip_name(clip) : NULL;
    const bool keepsName = (keep & KRT_PLX_KIT_KEEP_NAME) != 0;
    return name != NULL && editor != NULL &&
           (!keepsName || plx->KRT_PLX_PropertyEditor_setClipName(editor, name)) &&
           keepNumbers(plx, clip, editor, keep) && keepFilter(plx, clip, editor, keep);
}

KRT_PLX_PropertyEditor* KRT_PLX_Kit_editProperties(Api* plx, KRT_PLX_ClipBase* clip, uint32_t keep)
{
    if (!kitIsReady(plx)) {
        return NULL;
    }
    KRT_PLX_PropertyEditor* editor = plx->KRT_PLX_UserClip_createPropertyEditor(clip);
    if (editor != NULL && !KRT_PLX_Kit_fillEditor(plx, editor, clip, keep)) {
        plx->KRT_PLX_UserClip_destroyPropertyEditor(clip, editor);
        editor = NULL;
    }
    return editor;
}
