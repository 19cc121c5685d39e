#include "catalogue.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "conventions.h"
#include "display.h"
#include "text.h"

typedef bool (*CountTags)(KRT_PLX_Filter* filter, uint64_t* count);
typedef const KRT_PLX_Char* (*TagAt)(KRT_PLX_Filter* filter, uint64_t index);

/* System clips before user clips, then by vendor, then by name. */
static int compare_clips(const void* left, const void* right)
{
    KRT_PLX_ClipBase* first = *(KRT_PLX_ClipBase* const*)left;
    KRT_PLX_ClipBase* second = *(KRT_PLX_ClipBase* const*)right;
    int order = (int)KRT_PLX_Clip_type(first) - (int)KRT_PLX_Clip_type(second);
    if (order == 0) {
        order =
            utf16_compare(KRT_PLX_ClipBase_vendorName(first), KRT_PLX_ClipBase_vendorName(second));
    }
    if (order == 0) {
        order = utf16_compare(KRT_PLX_Clip_name(first), KRT_PLX_Clip_name(second));
    }
    return order;
}

Catalogue list_clips(KRT_PLX_Manager* manager)
{
    uint64_t system_clips = 0;
    uint64_t user_clips = 0;
    KRT_PLX_Manager_numSystemClips(manager, &system_clips);
    KRT_PLX_Manager_numUserClips(manager, &user_clips);

    Catalogue catalogue = {NULL, 0};
    catalogue.clips = allocate((size_t)(system_clips + user_clips), sizeof(KRT_PLX_ClipBase*));
    for (uint64_t i = 0; i < system_clips; ++i) {
        catalogue.clips[catalogue.count++] = KRT_PLX_Manager_systemClip(manager, i);
    }
    for (uint64_t i = 0; i < user_clips; ++i) {
        catalogue.clips[catalogue.count++] = KRT_PLX_Manager_userClip(manager, i);
    }
    qsort(catalogue.clips, catalogue.count, sizeof(KRT_PLX_ClipBase*), compare_clips);
    return catalogue;
}

void free_catalogue(Catalogue* catalogue)
{
    free(catalogue->clips);
    *catalogue = (Catalogue){NULL, 0};
}

/* Returns the clip with the number that the text contains, if it contains nothing else. */
static KRT_PLX_ClipBase* clip_by_number(const Catalogue* catalogue, const char* text)
{
    char* end = NULL;
    unsigned long number = strtoul(text, &end, 10);
    if (*end != '\0' || number < 1 || number > catalogue->count) {
        return NULL;
    }
    return catalogue->clips[number - 1];
}

static KRT_PLX_ClipBase* clip_by_text(const Catalogue* catalogue, const char* text,
                                      const KRT_PLX_Char* (*property)(KRT_PLX_ClipBase* clip))
{
    KRT_PLX_ClipBase* found = NULL;
    KRT_PLX_Char* wanted = utf16_from_utf8(text);
    for (size_t i = 0; wanted != NULL && found == NULL && i < catalogue->count; ++i) {
        if (utf16_equal(property(catalogue->clips[i]), wanted)) {
            found = catalogue->clips[i];
        }
    }
    free(wanted);
    return found;
}

KRT_PLX_ClipBase* find_clip(const Catalogue* catalogue, const char* choice)
{
    KRT_PLX_ClipBase* clip = clip_by_number(catalogue, choice);
    if (clip == NULL) {
        clip = clip_by_text(catalogue, choice, KRT_PLX_Clip_id);
    }
    if (clip == NULL) {
        clip = clip_by_text(catalogue, choice, KRT_PLX_Clip_name);
    }
    return clip;
}

char* tempo_text(KRT_PLX_ClipBase* clip)
{
    Text text = {0};
    uint32_t tempo = KRT_PLX_ClipBase_partTempo(clip);
    if (tempo == 0) {
        text_append(&text, "-");
    } else {
        text_append_format(&text, "%g", tempo / 100.0);
    }
    return text.bytes;
}

/* Appends the tags of one list, after a semicolon when there are others before. */
static void append_tags(Text* text, KRT_PLX_Filter* filter, CountTags count_tags, TagAt tag_at)
{
    uint64_t count = 0;
    count_tags(filter, &count);
    for (uint64_t i = 0; i < count; ++i) {
        text_append_item(text, i == 0 ? "; " : ", ", "");
        text_append_printable(text, tag_at(filter, i));
    }
}

static void append_languages(Text* text, KRT_PLX_Filter* filter)
{
    uint64_t count = 0;
    KRT_PLX_Filter_numLanguages(filter, &count);
    for (uint64_t i = 0; i < count; ++i) {
        int32_t language = KRT_PLX_Filter_language(filter, i);
        const char* name = language_name(language);
        text_append_item(text, i == 0 ? "; " : ", ", name != NULL ? name : "");
        if (name == NULL) {
            text_append_format(text, "language %d", (int)language);
        }
    }
}

char* tags_text(KRT_PLX_Filter* filter)
{
    Text text = {0};
    append_tags(&text, filter, KRT_PLX_Filter_numGenres, KRT_PLX_Filter_genre);
    append_tags(&text, filter, KRT_PLX_Filter_numTypes, KRT_PLX_Filter_type);
    append_tags(&text, filter, KRT_PLX_Filter_numSingerGroups, KRT_PLX_Filter_singerGroup);
    append_languages(&text, filter);
    text_append(&text, text.length == 0 ? "-" : "");
    return text.bytes;
}

enum { number_of_columns = 7, tags_column = number_of_columns - 1 };

enum { most_column_width = 40, least_width_of_tags = 24, indent_of_tags_below = 5 };

/* A row of the table; its texts are freed by free_row(). */
typedef struct Row {
    uint32_t kind;
    char* cells[number_of_columns];
} Row;

static char* copy_text(const char* bytes)
{
    Text text = {0};
    text_append(&text, bytes != NULL && *bytes != '\0' ? bytes : "-");
    return text.bytes;
}

static char* copy_utf16(const KRT_PLX_Char* units)
{
    Text text = {0};
    text_append_printable(&text, units);
    text_append(&text, text.length == 0 ? "-" : "");
    return text.bytes;
}

static char* number_text(size_t number)
{
    Text text = {0};
    text_append_format(&text, "%3u", (unsigned)number);
    return text.bytes;
}

static Row make_heading(void)
{
    Row row = {KRT_PLX_CLIP_NO_KIND,
               {copy_text("  #"), copy_text("Name"), copy_text("Vendor"), copy_text("Type"),
                copy_text("Key"), copy_text("BPM"), copy_text("Tags")}};
    return row;
}

static Row make_row(KRT_PLX_ClipBase* clip, size_t number)
{
    Row row = {KRT_PLX_Clip_type(clip),
               {number_text(number), copy_utf16(KRT_PLX_Clip_name(clip)),
                copy_utf16(KRT_PLX_ClipBase_vendorName(clip)),
                copy_text(part_type_name(KRT_PLX_ClipBase_partType(clip))),
                copy_text(key_name(KRT_PLX_ClipBase_partKey(clip))), tempo_text(clip),
                tags_text(KRT_PLX_Clip_filter(clip))}};
    return row;
}

static void free_row(Row* row)
{
    for (int i = 0; i < number_of_columns; ++i) {
        free(row->cells[i]);
    }
}

/* The positions of the columns of a table. */
typedef struct Columns {
    int widths[tags_column];
    int tags_begin;
    int width; /* of the console */
} Columns;

/* Makes each column as wide as its widest cell, up to a limit; the tags get the rest. */
static Columns measure_columns(const Row* rows, size_t count, int width)
{
    Columns columns = {{0}, 0, width};
    for (int column = 0; column < tags_column; ++column) {
        int* widest = &columns.widths[column];
        for (size_t i = 0; i < count; ++i) {
            int cell = display_width(rows[i].cells[column]);
            *widest = cell > *widest ? cell : *widest;
        }
        *widest = *widest < most_column_width ? *widest : most_column_width;
        columns.tags_begin += *widest + 2;
    }
    return columns;
}

static void print_row(const Row* row, const Columns* columns)
{
    int indent = columns->tags_begin;
    for (int column = 0; column < tags_column; ++column) {
        print_column(row->cells[column], columns->widths[column]);
        printf("  ");
    }
    if (columns->width - indent < least_width_of_tags) {
        indent = indent_of_tags_below;
        printf("\n%*s", indent, "");
    }
    print_wrapped(row->cells[tags_column], indent, columns->width);
}

static void print_rows(const Row* rows, size_t count, const Columns* columns)
{
    uint32_t kind = KRT_PLX_CLIP_NO_KIND;
    for (size_t i = 0; i < count; ++i) {
        if (rows[i].kind != kind) {
            kind = rows[i].kind;
            puts(kind == KRT_PLX_CLIP_SYSTEM ? "System clips" : "User clips");
        }
        print_row(&rows[i], columns);
    }
}

void print_catalogue(const Catalogue* catalogue, const Search* search, int width)
{
    Row* rows = allocate(catalogue->count + 1, sizeof *rows);
    size_t count = 0;
    rows[count++] = make_heading();
    for (size_t i = 0; i < catalogue->count; ++i) {
        if (clip_matches(catalogue->clips[i], search)) {
            rows[count++] = make_row(catalogue->clips[i], i + 1);
        }
    }
    Columns columns = measure_columns(rows, count, width);
    print_rows(rows, count, &columns);
    printf("%u of %u clips\n", (unsigned)(count - 1), (unsigned)catalogue->count);
    for (size_t i = 0; i < count; ++i) {
        free_row(&rows[i]);
    }
    free(rows);
}
