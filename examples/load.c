/*
 * A host that loads the library at run time: it is built without it, and lists the clips with the
 * functions that korvel/plx_loader.h finds in it.
 */
#include <stdio.h>
#include <stdlib.h>

#include "console.h"
#include "loading.h"
#include "text.h"

static void print_clip(const KRT_PLX_Api* plx, KRT_PLX_ClipBase* clip)
{
    char* name = printable_from_utf16(plx->KRT_PLX_Clip_name(clip));
    uint64_t notes = 0;
    plx->KRT_PLX_Clip_readPart(clip);
    plx->KRT_PLX_MidiPartBase_numNotes(plx->KRT_PLX_Clip_midiPart(clip), &notes);
    printf("%4u notes  %s\n", (unsigned)notes, name);
    free(name);
}

static void print_clips(const KRT_PLX_Api* plx, KRT_PLX_Manager* manager)
{
    KRT_PLX_ClipBase* clip = NULL;
    for (uint64_t i = 0; (clip = plx->KRT_PLX_Manager_systemClip(manager, i)) != NULL; ++i) {
        print_clip(plx, clip);
    }
    for (uint64_t i = 0; (clip = plx->KRT_PLX_Manager_userClip(manager, i)) != NULL; ++i) {
        print_clip(plx, clip);
    }
}

static bool list(const KRT_PLX_Api* plx, const char* system_folder, const char* user_folder)
{
    Texts texts = {NULL, 0};
    uint32_t code = KRT_PLX_RESULT_NO_MANAGER;
    KRT_PLX_Manager* manager =
        plx->KRT_PLX_CreateManager(for_library(&texts, "load"), for_library(&texts, system_folder),
                                   for_library(&texts, user_folder), NULL, 0, NULL, 0, &code);
    free_texts(&texts);
    if (manager != NULL) {
        code = plx->KRT_PLX_Manager_readAllClipFiles(manager);
        print_clips(plx, manager);
        plx->KRT_PLX_Manager_destroy(manager);
    }
    if (code != KRT_PLX_RESULT_OK) {
        fprintf(stderr, "cannot open the clip library %s with %s: code %u\n", system_folder,
                user_folder, (unsigned)code);
    }
    return code == KRT_PLX_RESULT_OK;
}

int main(int argc, char** argv)
{
    KRT_PLX_Api plx;
    console_start(&argc, &argv);
    if (argc != 4) {
        fputs("usage: load LIBRARY-FILE SYSTEM-FOLDER USER-FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    if (!load_library(&plx, argv[1])) {
        return EXIT_FAILURE;
    }
    bool is_done = list(&plx, argv[2], argv[3]);
    return KRT_PLX_unload(&plx) && is_done ? EXIT_SUCCESS : EXIT_FAILURE;
}
