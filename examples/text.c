#include "text.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const uint32_t replacement_character = 0xFFFD;

void* allocate(size_t count, size_t size)
{
    void* memory = calloc(count > 0 ? count : 1, size);
    if (memory == NULL) {
        fputs("no memory left\n", stderr);
        exit(EXIT_FAILURE);
    }
    return memory;
}

/* The length of a UTF-8 sequence, from its first byte; 0 when no sequence begins with that. */
static int sequence_length(unsigned char first)
{
    if (first < 0x80) {
        return 1;
    }
    if (first < 0xC2 || first > 0xF4) {
        return 0;
    }
    return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

static bool is_surrogate(uint32_t unit)
{
    return unit >= 0xD800 && unit < 0xE000;
}

static bool is_high_surrogate(uint32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

static bool is_low_surrogate(uint32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

/* Decodes one character and returns how many bytes it has; 0 when the bytes are not UTF-8. */
static int decode_utf8(const char* bytes, uint32_t* character)
{
    static const uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    int length = sequence_length((unsigned char)bytes[0]);
    uint32_t value = (unsigned char)bytes[0];
    if (length > 1) {
        value &= 0x7FU >> length;
    }
    for (int i = 1; i < length; ++i) {
        unsigned char byte = (unsigned char)bytes[i];
        if ((byte & 0xC0) != 0x80) {
            return 0;
        }
        value = value << 6 | (byte & 0x3FU);
    }
    if (length == 0 || value < smallest[length] || value > 0x10FFFF || is_surrogate(value)) {
        return 0;
    }
    *character = value;
    return length;
}

/* Writes a character as UTF-8 and returns how many bytes that took. */
static int encode_utf8(uint32_t character, char* bytes)
{
    static const unsigned char marks[] = {0, 0x00, 0xC0, 0xE0, 0xF0};
    int length = character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    for (int i = length - 1; i > 0; --i) {
        bytes[i] = (char)(0x80 | (character & 0x3F));
        character >>= 6;
    }
    bytes[0] = (char)(marks[length] | character);
    return length;
}

/* Writes a character as UTF-16 and returns how many units that took. */
static int encode_utf16(uint32_t character, KRT_PLX_Char* units)
{
    if (character < 0x10000) {
        units[0] = (KRT_PLX_Char)character;
        return 1;
    }
    units[0] = (KRT_PLX_Char)(0xD800 + ((character - 0x10000) >> 10));
    units[1] = (KRT_PLX_Char)(0xDC00 + (character & 0x3FF));
    return 2;
}

KRT_PLX_Char* utf16_from_utf8(const char* text)
{
    /* No text has more units in UTF-16 than bytes in UTF-8. */
    KRT_PLX_Char* units = allocate(strlen(text) + 1, sizeof *units);
    KRT_PLX_Char* end = units;
    while (*text != '\0') {
        uint32_t character = 0;
        int length = decode_utf8(text, &character);
        if (length == 0) {
            free(units);
            return NULL;
        }
        end += encode_utf16(character, end);
        text += length;
    }
    return units;
}

bool utf16_equal(const KRT_PLX_Char* left, const KRT_PLX_Char* right)
{
    return utf16_compare(left, right) == 0;
}

int utf16_compare(const KRT_PLX_Char* left, const KRT_PLX_Char* right)
{
    while (*left == *right && *left != 0) {
        ++left;
        ++right;
    }
    return (*left > *right) - (*left < *right);
}

static void reserve(Text* text, size_t length)
{
    if (length < text->capacity) {
        return;
    }
    size_t capacity = 2 * length + 32;
    char* bytes = allocate(capacity, 1);
    if (text->length > 0) {
        memcpy(bytes, text->bytes, text->length);
    }
    free(text->bytes);
    text->bytes = bytes;
    text->capacity = capacity;
}

static void append_bytes(Text* text, const char* bytes, size_t length)
{
    reserve(text, text->length + length);
    memcpy(text->bytes + text->length, bytes, length);
    text->length += length;
    text->bytes[text->length] = '\0';
}

void text_append(Text* text, const char* bytes)
{
    append_bytes(text, bytes, strlen(bytes));
}

/* Reads one character; a surrogate without its other half becomes the replacement character. */
static uint32_t next_utf16(const KRT_PLX_Char** units)
{
    uint32_t first = *(*units)++;
    if (!is_surrogate(first)) {
        return first;
    }
    if (!is_high_surrogate(first) || !is_low_surrogate(**units)) {
        return replacement_character;
    }
    uint32_t second = *(*units)++;
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

static void append_character(Text* text, uint32_t character)
{
    char bytes[4];
    int length = encode_utf8(character, bytes);
    append_bytes(text, bytes, (size_t)length);
}

static bool is_control(uint32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

void text_append_printable(Text* text, const KRT_PLX_Char* units)
{
    while (units != NULL && *units != 0) {
        uint32_t character = next_utf16(&units);
        append_character(text, is_control(character) ? replacement_character : character);
    }
}

char* utf8_from_utf16(const KRT_PLX_Char* text)
{
    Text copy = {0};
    text_append(&copy, "");
    while (text != NULL && *text != 0) {
        append_character(&copy, next_utf16(&text));
    }
    return copy.bytes;
}

char* printable_from_utf16(const KRT_PLX_Char* text)
{
    Text copy = {0};
    text_append(&copy, "");
    text_append_printable(&copy, text);
    return copy.bytes;
}

void text_append_format(Text* text, const char* format, ...)
{
    char bytes[256];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(bytes, sizeof bytes, format, arguments);
    va_end(arguments);
    text_append(text, bytes);
}

void text_append_item(Text* text, const char* separator, const char* bytes)
{
    if (text->length > 0) {
        text_append(text, separator);
    }
    text_append(text, bytes);
}

const char* text_bytes(const Text* text)
{
    return text->bytes != NULL ? text->bytes : "";
}

void text_free(Text* text)
{
    free(text->bytes);
    *text = (Text){0};
}

const KRT_PLX_Char* for_library(Texts* texts, const char* text)
{
    KRT_PLX_Char** longer = allocate(texts->count + 1, sizeof *longer);
    if (texts->count > 0) {
        memcpy(longer, texts->texts, texts->count * sizeof *longer);
    }
    free(texts->texts);
    texts->texts = longer;
    return texts->texts[texts->count++] = utf16_from_utf8(text);
}

void free_texts(Texts* texts)
{
    for (size_t i = 0; i < texts->count; ++i) {
        free(texts->texts[i]);
    }
    free(texts->texts);
    *texts = (Texts){NULL, 0};
}

uint32_t next_character(const char** bytes)
{
    if (**bytes == '\0') {
        return 0;
    }
    uint32_t character = replacement_character;
    int length = decode_utf8(*bytes, &character);
    *bytes += length > 0 ? length : 1;
    return character;
}
