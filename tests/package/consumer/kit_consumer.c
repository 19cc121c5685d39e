/* The same as consumer.c, with the kit: the clips are counted by a search that finds all of them. */

#include <korvel/plx_kit.h>
#include <stdio.h>

static KRT_PLX_Manager* open_library(void)
{
    KRT_PLX_Char texts[3][16];
    KRT_PLX_Kit_fromUtf8("consumer", texts[0], 16);
    KRT_PLX_Kit_fromUtf8("library/system", texts[1], 16);
    KRT_PLX_Kit_fromUtf8("library/user", texts[2], 16);
    return KRT_PLX_CreateManager(texts[0], texts[1], texts[2], NULL, 0, NULL, 0, NULL);
}

int main(void)
{
    const KRT_PLX_KitQuery query = KRT_PLX_Kit_anyClip();
    KRT_PLX_Manager* manager = open_library();
    const uint32_t code = KRT_PLX_Manager_readAllClipFiles(manager);
    KRT_PLX_ClipBase* clip = NULL;
    uint64_t place = 0;
    unsigned clips[3] = {0, 0, 0};
    while ((clip = KRT_PLX_Kit_find(KRT_PLX_Kit_linked(), manager, &query, &place)) != NULL) {
        ++clips[KRT_PLX_Clip_type(clip)];
    }
    printf("krt_plx " KRT_PLX_VERSION ": %u system clips, %u user clips\n",
           clips[KRT_PLX_CLIP_SYSTEM], clips[KRT_PLX_CLIP_USER]);
    KRT_PLX_Manager_destroy(manager);
    return code == KRT_PLX_RESULT_OK ? 0 : 1;
}
