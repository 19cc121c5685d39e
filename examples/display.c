#include "display.h"

#include <stdio.h>

#include "text.h"

typedef struct Range {
    uint32_t first;
    uint32_t last;
} Range;

static bool is_in(const Range* ranges, size_t count, uint32_t character)
{
    for (size_t i = 0; i < count; ++i) {
        if (character >= ranges[i].first && character <= ranges[i].last) {
            return true;
        }
    }
    return false;
}

/* The ranges that names and lyrics use; a host with a text engine would ask the engine instead. */
int character_width(uint32_t character)
{
    static const Range combining[] = {{0x0300, 0x036F}, {0x200B, 0x200F}, {0x20D0, 0x20FF},
                                      {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}};
    static const Range wide[] = {{0x1100, 0x115F},  {0x2E80, 0x303E}, {0x3041, 0xA4CF},
                                 {0xAC00, 0xD7A3},  {0xF900, 0xFAFF}, {0xFE30, 0xFE6F},
                                 {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF},
                                 {0x20000, 0x3FFFD}};
    if (is_in(combining, sizeof combining / sizeof *combining, character)) {
        return 0;
    }
    return is_in(wide, sizeof wide / sizeof *wide, character) ? 2 : 1;
}

int display_width(const char* text)
{
    int width = 0;
    for (uint32_t character = next_character(&text); character != 0;
         character = next_character(&text)) {
        width += character_width(character);
    }
    return width;
}

/* How many bytes of the text fit into *columns; leaves the unused columns in *columns. */
static int bytes_that_fit(const char* text, int* columns)
{
    const char* begin = text;
    const char* next = text;
    for (uint32_t character = next_character(&next); character != 0;
         character = next_character(&next)) {
        int width = character_width(character);
        if (width > *columns) {
            break;
        }
        *columns -= width;
        text = next;
    }
    return (int)(text - begin);
}

void print_column(const char* text, int width)
{
    int blanks = width - display_width(text);
    if (blanks >= 0) {
        printf("%s%*s", text, blanks, "");
        return;
    }
    blanks = width - 1;
    int bytes = bytes_that_fit(text, &blanks);
    printf("%.*s…%*s", bytes, text, blanks, "");
}

/* How many bytes of the text go on one line: up to the last blank that fits, or all that fit. */
static int bytes_of_line(const char* text, int width)
{
    int left = width;
    int bytes = bytes_that_fit(text, &left);
    if (text[bytes] == '\0') {
        return bytes;
    }
    for (int end = bytes; end > 0; --end) {
        if (text[end] == ' ') {
            return end;
        }
    }
    return bytes;
}

void print_wrapped(const char* text, int indent, int width)
{
    while (display_width(text) > width - indent) {
        int bytes = bytes_of_line(text, width - indent);
        printf("%.*s\n%*s", bytes, text, indent, "");
        text += bytes;
        text += *text == ' ';
    }
    printf("%s\n", text);
}

void print_entry(const char* title, const char* text, int width)
{
    enum { indent = 9 };
    printf("%-*s", indent, title);
    print_wrapped(text, indent, width);
}
