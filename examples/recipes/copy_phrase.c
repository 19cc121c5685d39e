#include "recipes.h"

/* [phrase] */
uint32_t save_phrase(KRT_PLX_ClipBase* clip, int32_t begin, int32_t end, const KRT_PLX_Char* name)
{
    const struct KRT_PLX_Api* plx = KRT_PLX_Kit_linked();
    uint32_t code = KRT_PLX_RESULT_NO_PART;
    KRT_PLX_ClipBase* copy = KRT_PLX_Kit_edit(plx, clip, KRT_PLX_NO_LANGUAGE, NULL);
    if (KRT_PLX_Kit_cut(plx, KRT_PLX_MutableClip_midiPart(copy), begin, end, NULL)) {
        KRT_PLX_MutableClip_save(copy, name, true, &code);
    }
    KRT_PLX_MutableClip_destroy(copy);
    return code;
}
/* [phrase] */
