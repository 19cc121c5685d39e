/*
 * Text of an example program: UTF-8 in the program, UTF-16 for the library.
 */
#ifndef EXAMPLES_TEXT_H
#define EXAMPLES_TEXT_H

#include <korvel/plx.h>

/* calloc() that ends the program when memory runs out, because the examples cannot continue then. */
void* allocate(size_t count, size_t size);

/* Returns the text in UTF-16, or NULL when it is not UTF-8. Free it. */
KRT_PLX_Char* utf16_from_utf8(const char* text);

/* Returns a text of the library in UTF-8; NULL gives an empty text. Free it. */
char* utf8_from_utf16(const KRT_PLX_Char* text);

/*
 * Does the same for the console. A clip can come from anywhere, and its texts must not control the
 * console, so control characters are replaced. Free it.
 */
char* printable_from_utf16(const KRT_PLX_Char* text);

bool utf16_equal(const KRT_PLX_Char* left, const KRT_PLX_Char* right);

/* Orders two texts by their units, as strcmp() does by bytes. */
int utf16_compare(const KRT_PLX_Char* left, const KRT_PLX_Char* right);

/* A text that grows, in UTF-8. Start with {0}; `bytes` is NULL until something is appended. */
typedef struct Text {
    char* bytes;
    size_t length;
    size_t capacity;
} Text;

void text_append(Text* text, const char* bytes);
void text_append_printable(Text* text, const KRT_PLX_Char* units);
void text_append_format(Text* text, const char* format, ...);

/* Appends a separator, unless the text is empty, and then the bytes. */
void text_append_item(Text* text, const char* separator, const char* bytes);

/* The text so far, never NULL. */
const char* text_bytes(const Text* text);
void text_free(Text* text);

/* Texts for the library that are freed together. Start with {0}. */
typedef struct Texts {
    KRT_PLX_Char** texts;
    size_t count;
} Texts;

/* Returns the text in UTF-16, valid until free_texts(); NULL when it is not UTF-8. */
const KRT_PLX_Char* for_library(Texts* texts, const char* text);
void free_texts(Texts* texts);

/* Reads the character at *bytes and moves *bytes past it; 0 at the end of the text. */
uint32_t next_character(const char** bytes);

#endif
