/*
 * The life of user clips, from building them to removing them.
 *
 * Each step prints what it does and what the call returned. tune.c builds the clips; the other
 * files are shared with browse.
 */
#include <stdio.h>
#include <stdlib.h>

#include "catalogue.h"
#include "clip_view.h"
#include "console.h"
#include "library.h"
#include "text.h"
#include "tune.h"
#include "wave.h"

static const char vendor_name[] = "Example studio";

/* What the steps share. Clips are kept by ID, because reading the clips again ends all handles. */
typedef struct Workshop {
    KRT_PLX_Manager* manager;
    KRT_PLX_Char* wave_path;
    char* tune_id;
    char* sound_id;
} Workshop;

static void announce(const char* step)
{
    printf("\n== %s\n", step);
}

/* Prints whether a call succeeded, and returns that. */
static bool report(const char* call, bool is_done)
{
    printf("%-42s%s\n", call, is_done ? "done" : "FAILED");
    return is_done;
}

static KRT_PLX_ClipBase* clip_of(const Workshop* workshop, const char* id)
{
    Catalogue catalogue = list_clips(workshop->manager);
    KRT_PLX_ClipBase* clip = find_clip(&catalogue, id);
    free_catalogue(&catalogue);
    return clip;
}

/* Saves an editable clip, and keeps the ID of the new user clip. */
static bool save_clip(KRT_PLX_ClipBase* clip, const char* name, char** id)
{
    uint32_t code = KRT_PLX_RESULT_OK;
    const bool is_indented = true;
    KRT_PLX_Char* units = utf16_from_utf8(name);
    KRT_PLX_ClipBase* saved = KRT_PLX_MutableClip_save(clip, units, is_indented, &code);
    free(units);
    report("KRT_PLX_MutableClip_save", saved != NULL);
    if (saved == NULL) {
        fprintf(stderr, "cannot save %s: %s (%u)\n", name, result_text(code), (unsigned)code);
        return false;
    }
    *id = utf8_from_utf16(KRT_PLX_Clip_id(saved));
    printf("the new clip's ID: %s\n", *id);
    return true;
}

static bool compose_tune(Workshop* workshop)
{
    announce("Build a tune, and save it as a user clip");
    KRT_PLX_ClipBase* clip = KRT_PLX_Manager_createMutableClip(workshop->manager);
    bool is_done = report("part, notes, lane, effect and tags set", build_tune(clip)) &&
                   save_clip(clip, "When the saints", &workshop->tune_id);
    KRT_PLX_MutableClip_destroy(clip);
    return is_done;
}

static bool write_wave_file(const Workshop* workshop)
{
    char* path = system_path(workshop->wave_path);
    bool is_written = write_bell(path);
    free(path);
    return report("a wave file written", is_written);
}

static bool compose_sound(Workshop* workshop)
{
    announce("Build an audio clip, and save it as a user clip");
    KRT_PLX_ClipBase* clip = KRT_PLX_Manager_createMutableClip(workshop->manager);
    bool is_done = write_wave_file(workshop) &&
                   report("part, effect and tags set", build_sound(clip, workshop->wave_path)) &&
                   save_clip(clip, "Bell", &workshop->sound_id);
    KRT_PLX_MutableClip_destroy(clip);
    return is_done;
}

/* Prints the first lines of a file, and how many more there are. */
static bool print_file(const char* path, int most_lines)
{
    FILE* file = console_open_file(path, "rb");
    if (file == NULL) {
        fprintf(stderr, "cannot open %s\n", path);
        return false;
    }
    int lines = 0;
    printf("-- %s\n", path);
    for (int byte = fgetc(file); byte != EOF; byte = fgetc(file)) {
        if (lines < most_lines) {
            putchar(byte);
        }
        lines += byte == '\n';
    }
    if (lines < most_lines) {
        printf("\n");
    } else {
        printf("... and %d more lines\n", lines + 1 - most_lines);
    }
    return fclose(file) == 0;
}

/* Where the file name in a path begins. */
static size_t begin_of_name(const char* path)
{
    size_t begin = 0;
    for (size_t i = 0; path[i] != '\0'; ++i) {
        if (path[i] == '/' || path[i] == '\\') {
            begin = i + 1;
        }
    }
    return begin;
}

/* The property document stands beside the clip file and always has the same name. */
static char* property_path(const char* clip_path)
{
    Text path = {0};
    text_append(&path, clip_path);
    path.length = begin_of_name(clip_path);
    text_append(&path, "property.json");
    return path.bytes;
}

static bool show_files(const Workshop* workshop)
{
    announce("The two files of the tune");
    char* clip_path = system_path(KRT_PLX_Clip_path(clip_of(workshop, workshop->tune_id)));
    char* properties = property_path(clip_path);
    bool is_done = print_file(properties, 40) && print_file(clip_path, 40);
    free(properties);
    free(clip_path);
    return is_done;
}

static void print_user_clips(const Workshop* workshop)
{
    Search search = {.part_type = KRT_PLX_PART_NONE, .vendor = utf16_from_utf8(vendor_name)};
    Catalogue catalogue = list_clips(workshop->manager);
    print_catalogue(&catalogue, &search, console_width());
    free_catalogue(&catalogue);
    free_search(&search);
}

static bool list_saved_clips(const Workshop* workshop)
{
    announce("The new clips in the catalogue, and the tune as it is read back");
    const ClipView view = {.first_bar = 1, .width = console_width()};
    print_user_clips(workshop);
    printf("\n");
    return print_clip(clip_of(workshop, workshop->tune_id), &view);
}

static bool set_properties(KRT_PLX_PropertyEditor* editor)
{
    enum { f_major = 7, tempo = 16000 };
    Texts texts = {0};
    bool is_done =
        report("KRT_PLX_PropertyEditor_setClipName",
               KRT_PLX_PropertyEditor_setClipName(editor,
                                                  for_library(&texts, "Oh, when the saints ♪"))) &&
        report("KRT_PLX_PropertyEditor_setPartKey",
               KRT_PLX_PropertyEditor_setPartKey(editor, f_major)) &&
        report("KRT_PLX_PropertyEditor_setPartTempo",
               KRT_PLX_PropertyEditor_setPartTempo(editor, tempo)) &&
        report("KRT_PLX_PropertyEditor_addFilterType",
               KRT_PLX_PropertyEditor_addFilterType(editor, for_library(&texts, "Chorus"))) &&
        report("KRT_PLX_PropertyEditor_addFilterType",
               KRT_PLX_PropertyEditor_addFilterType(editor, for_library(&texts, "Melody"))) &&
        report("KRT_PLX_PropertyEditor_addFilterGenre",
               KRT_PLX_PropertyEditor_addFilterGenre(editor, for_library(&texts, "Dixieland")));
    free_texts(&texts);
    return is_done;
}

static bool edit_tune(const Workshop* workshop)
{
    announce("Edit name, key, tempo, types and genres of the tune");
    KRT_PLX_ClipBase* clip = clip_of(workshop, workshop->tune_id);
    KRT_PLX_PropertyEditor* editor = KRT_PLX_UserClip_createPropertyEditor(clip);
    bool is_done = set_properties(editor) &&
                   report("KRT_PLX_PropertyEditor_save", KRT_PLX_PropertyEditor_save(editor));
    KRT_PLX_UserClip_destroyPropertyEditor(clip, editor);
    return is_done;
}

static bool read_again(const Workshop* workshop)
{
    announce("Read the user clips again from disk");
    uint32_t code = KRT_PLX_Manager_readUserClipFiles(workshop->manager);
    report("KRT_PLX_Manager_readUserClipFiles", code == KRT_PLX_RESULT_OK);
    print_user_clips(workshop);
    return code == KRT_PLX_RESULT_OK;
}

/* Only after reading the part does the library know the clip's wave file, and removes it too. */
static bool remove_clip(const Workshop* workshop, const char* id)
{
    KRT_PLX_ClipBase* clip = clip_of(workshop, id);
    return report("KRT_PLX_Clip_readPart", KRT_PLX_Clip_readPart(clip)) &&
           report("KRT_PLX_UserClip_remove", KRT_PLX_UserClip_remove(clip));
}

static bool remove_wave_file(const Workshop* workshop)
{
    char* path = system_path(workshop->wave_path);
    bool is_removed = console_remove_file(path) == 0;
    free(path);
    return report("the wave file removed", is_removed);
}

static bool remove_clips(const Workshop* workshop)
{
    announce("Remove both clips from disk and from the catalogue");
    bool is_done = remove_clip(workshop, workshop->tune_id) &&
                   remove_clip(workshop, workshop->sound_id) && remove_wave_file(workshop);
    print_user_clips(workshop);
    return is_done;
}

static bool compose(Workshop* workshop)
{
    return compose_tune(workshop) && compose_sound(workshop) && show_files(workshop) &&
           list_saved_clips(workshop) && edit_tune(workshop) && read_again(workshop) &&
           remove_clips(workshop);
}

/* The library expects backslashes in the path of a wave file, on every system. */
static KRT_PLX_Char* wave_path_in(const char* folder)
{
    Text path = {0};
    text_append(&path, folder);
    text_append(&path, "\\bell.wav");
    KRT_PLX_Char* units = utf16_from_utf8(text_bytes(&path));
    text_free(&path);
    return units;
}

static void close_workshop(Workshop* workshop)
{
    KRT_PLX_Manager_destroy(workshop->manager);
    free(workshop->wave_path);
    free(workshop->tune_id);
    free(workshop->sound_id);
}

int main(int argc, char** argv)
{
    console_start(&argc, &argv);
    if (argc != 3) {
        fputs("Usage: compose SYSTEM_FOLDER SCRATCH_USER_FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    Workshop workshop = {.manager = open_library("compose", argv[1], argv[2])};
    if (workshop.manager == NULL) {
        return EXIT_FAILURE;
    }
    workshop.wave_path = wave_path_in(argv[2]);
    bool is_done = compose(&workshop);
    close_workshop(&workshop);
    return is_done ? EXIT_SUCCESS : EXIT_FAILURE;
}
