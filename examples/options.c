#include "options.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "console.h"
#include "conventions.h"
#include "text.h"

static const char usage[] =
    "Usage: browse [OPTION...] SYSTEM_FOLDER USER_FOLDER [CLIP...]\n"
    "\n"
    "Lists the clips in two folders. When clips are named, by number in the list, by ID or by\n"
    "name, shows what is in each.\n"
    "\n"
    "  --part TYPE            only clips whose part is of this type: midi, midiAi or audio\n"
    "  --type TAG             only clips with this type tag\n"
    "  --genre TAG            ... with this genre\n"
    "  --singer-group TAG     ... with this singer group\n"
    "  --language LANGUAGE    ... with this language, by number or by name\n"
    "  --vendor NAME          ... of this vendor\n"
    "  --meter BEATS/UNIT     bar lines of the piano roll, 6/8 for instance; otherwise a guess\n"
    "  --bars FIRST-LAST      only these bars\n"
    "  --width COLUMNS        instead of the terminal's width\n"
    "\n"
    "Options can be combined: a clip has to match all of them.\n";

static bool read_text(KRT_PLX_Char** text, const char* value)
{
    free(*text);
    *text = utf16_from_utf8(value);
    return *text != NULL;
}

static bool read_language(Search* search, const char* value)
{
    search->has_language = find_language(value, &search->language);
    return search->has_language;
}

static bool read_meter(Meter* meter, const char* value)
{
    return sscanf(value, "%2d/%2d", &meter->beats, &meter->unit) == 2 && meter->beats > 0 &&
           meter->unit > 0 && 4 * ticks_per_quarter % meter->unit == 0;
}

static bool read_bars(ClipView* view, const char* value)
{
    int first = 0;
    int last = 0;
    bool is_range = sscanf(value, "%9d-%9d", &first, &last) == 2;
    view->first_bar = first;
    view->last_bar = last;
    return is_range && first >= 1 && first <= last;
}

static bool read_width(int* width, const char* value)
{
    return sscanf(value, "%4d", width) == 1 && *width >= 60;
}

/* Sets one option; false when there is no such option or it cannot have that value. */
static bool read_option(Options* options, const char* name, const char* value)
{
    Search* search = &options->search;
    if (strcmp(name, "--part") == 0) {
        return find_part_type(value, &search->part_type);
    }
    if (strcmp(name, "--type") == 0) {
        return read_text(&search->type, value);
    }
    if (strcmp(name, "--genre") == 0) {
        return read_text(&search->genre, value);
    }
    if (strcmp(name, "--singer-group") == 0) {
        return read_text(&search->singer_group, value);
    }
    if (strcmp(name, "--language") == 0) {
        return read_language(search, value);
    }
    if (strcmp(name, "--vendor") == 0) {
        return read_text(&search->vendor, value);
    }
    if (strcmp(name, "--meter") == 0) {
        return read_meter(&options->view.meter, value);
    }
    if (strcmp(name, "--bars") == 0) {
        return read_bars(&options->view, value);
    }
    return strcmp(name, "--width") == 0 && read_width(&options->view.width, value);
}

/* Reads the arguments after the options. */
static bool read_folders(Options* options, char** arguments, int count)
{
    if (count < 2) {
        return false;
    }
    options->system_folder = arguments[0];
    options->user_folder = arguments[1];
    options->clips = arguments + 2; /* NULL ends the arguments */
    return true;
}

static bool read_command_line(Options* options, int argc, char** argv)
{
    int next = 1;
    while (next + 1 < argc && strncmp(argv[next], "--", 2) == 0) {
        if (!read_option(options, argv[next], argv[next + 1])) {
            fprintf(stderr, "browse does not understand: %s %s\n\n", argv[next], argv[next + 1]);
            return false;
        }
        next += 2;
    }
    return read_folders(options, argv + next, argc - next);
}

bool read_options(Options* options, int argc, char** argv)
{
    *options = (Options){.search = {.part_type = KRT_PLX_PART_NONE},
                         .view = {.first_bar = 1, .width = console_width()}};
    bool is_right = read_command_line(options, argc, argv);
    if (!is_right) {
        fputs(usage, stderr);
    }
    return is_right;
}

void free_options(Options* options)
{
    free_search(&options->search);
}
