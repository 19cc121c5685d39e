#include "transposing.h"

#include <stdio.h>
#include <stdlib.h>

#include <korvel/plx_loader.h>

#include "text.h"

static void tell(void* context, const KRT_PLX_KitNotice* notice)
{
    char line[200];
    (void)context;
    KRT_PLX_Kit_describe(notice, line, sizeof line);
    fprintf(stderr, "%s\n", line);
}

/* [higher] */
KRT_PLX_ClipBase* save_higher(const struct KRT_PLX_Api* plx, KRT_PLX_ClipBase* clip,
                              const KRT_PLX_Char* name)
{
    KRT_PLX_KitReport report = {tell, NULL, 0};
    uint32_t code = KRT_PLX_RESULT_NO_PART;
    KRT_PLX_ClipBase* saved = NULL;
    KRT_PLX_ClipBase* copy = KRT_PLX_Kit_edit(plx, clip, KRT_PLX_NO_LANGUAGE, &report);
    KRT_PLX_PartBase* part = plx->KRT_PLX_MutableClip_midiPart(copy);
    if (KRT_PLX_Kit_transpose(plx, part, 2, &report)) {
        saved = plx->KRT_PLX_MutableClip_save(copy, name, true, &code);
    }
    if (code != KRT_PLX_RESULT_OK) {
        fprintf(stderr, "not saved: %s\n", KRT_PLX_Kit_codeText(KRT_PLX_KIT_RESULTS, code));
    }
    plx->KRT_PLX_MutableClip_destroy(copy);
    return saved;
}
/* [higher] */

static bool transpose_in(const struct KRT_PLX_Api* plx, KRT_PLX_Manager* manager,
                         const KRT_PLX_Char* text, const KRT_PLX_Char* name)
{
    KRT_PLX_KitQuery query = KRT_PLX_Kit_anyClip();
    uint64_t place = 0;
    query.name = text;
    plx->KRT_PLX_Manager_readAllClipFiles(manager);
    /* No text would be in every name. */
    KRT_PLX_ClipBase* clip = text != NULL ? KRT_PLX_Kit_find(plx, manager, &query, &place) : NULL;
    char* id = utf8_from_utf16(plx->KRT_PLX_Clip_id(save_higher(plx, clip, name)));
    const bool is_saved = id[0] != '\0';
    if (is_saved) {
        puts(id);
    }
    free(id);
    return is_saved;
}

bool transpose_clip(const struct KRT_PLX_Api* plx, char* const words[4])
{
    Texts texts = {NULL, 0};
    uint32_t code = KRT_PLX_RESULT_NO_MANAGER;
    KRT_PLX_Manager* manager =
        plx->KRT_PLX_CreateManager(for_library(&texts, "transpose"), for_library(&texts, words[0]),
                                   for_library(&texts, words[1]), NULL, 0, NULL, 0, &code);
    const KRT_PLX_Char* text = for_library(&texts, words[2]);
    const bool is_saved = transpose_in(plx, manager, text, for_library(&texts, words[3]));
    if (manager == NULL) {
        fprintf(stderr, "%s\n", KRT_PLX_Kit_codeText(KRT_PLX_KIT_RESULTS, code));
    }
    plx->KRT_PLX_Manager_destroy(manager);
    free_texts(&texts);
    return is_saved;
}
