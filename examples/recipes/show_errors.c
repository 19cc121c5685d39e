#include "recipes.h"

/* [errors] */
static void tell(void* output, const KRT_PLX_KitNotice* notice)
{
    char line[200];
    KRT_PLX_Kit_describe(notice, line, sizeof line);
    fprintf(output, "- %s\n", line);
}

uint32_t save_and_tell(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* name, FILE* output)
{
    KRT_PLX_KitReport report = {tell, output, 0};
    uint32_t code = KRT_PLX_RESULT_NO_PART;
    KRT_PLX_ClipBase* copy =
        KRT_PLX_Kit_edit(KRT_PLX_Kit_linked(), clip, KRT_PLX_NO_LANGUAGE, &report);
    KRT_PLX_MutableClip_save(copy, name, true, &code);
    KRT_PLX_MutableClip_destroy(copy);
    fprintf(output, "Saving: %s\n", KRT_PLX_Kit_codeText(KRT_PLX_KIT_RESULTS, code));
    return code;
}
/* [errors] */
