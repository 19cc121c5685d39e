/*
 * A small clip browser for the console: lists the clips of a library and shows what is in them.
 *
 * It is meant to be copied from. These of its files call the library: library.c opens it,
 * catalogue.c walks the clips, search.c looks at their tags, clip_view.c reads a clip's part, and
 * melody.c, part_view.c, expression_view.c, lane_view.c and effect_view.c look at what is in it.
 */
#include <stdio.h>
#include <stdlib.h>

#include "catalogue.h"
#include "console.h"
#include "library.h"
#include "options.h"

static bool print_chosen_clip(const Catalogue* catalogue, const char* choice, const ClipView* view)
{
    KRT_PLX_ClipBase* clip = find_clip(catalogue, choice);
    if (clip == NULL) {
        fprintf(stderr, "no clip has this number, ID or name: %s\n", choice);
        return false;
    }
    return print_clip(clip, view);
}

static bool print_chosen_clips(const Catalogue* catalogue, const Options* options)
{
    bool is_done = true;
    for (char** choice = options->clips; *choice != NULL; ++choice) {
        fputs(choice > options->clips ? "\n" : "", stdout);
        is_done = print_chosen_clip(catalogue, *choice, &options->view) && is_done;
    }
    return is_done;
}

static bool browse(const Options* options)
{
    KRT_PLX_Manager* manager = open_library("browse", options->system_folder, options->user_folder);
    if (manager == NULL) {
        return false;
    }
    bool is_done = true;
    Catalogue catalogue = list_clips(manager);
    if (*options->clips != NULL) {
        is_done = print_chosen_clips(&catalogue, options);
    } else {
        print_catalogue(&catalogue, &options->search, options->view.width);
    }
    free_catalogue(&catalogue);
    KRT_PLX_Manager_destroy(manager);
    return is_done;
}

int main(int argc, char** argv)
{
    Options options = {0};
    console_start(&argc, &argv);
    bool is_done = read_options(&options, argc, argv) && browse(&options);
    free_options(&options);
    return is_done ? EXIT_SUCCESS : EXIT_FAILURE;
}
