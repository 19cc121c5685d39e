#include "recipes.h"

/* [rename] */
bool rename_clip(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* name)
{
    KRT_PLX_PropertyEditor* editor =
        KRT_PLX_Kit_editProperties(KRT_PLX_Kit_linked(), clip, KRT_PLX_KIT_KEEP_ALL);
    const bool is_saved =
        KRT_PLX_PropertyEditor_setClipName(editor, name) && KRT_PLX_PropertyEditor_save(editor);
    KRT_PLX_UserClip_destroyPropertyEditor(clip, editor);
    return is_saved;
}
/* [rename] */
