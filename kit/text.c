#include <korvel/plx_kit.h>

static const uint32_t replacement = 0xFFFD;

/* A sequence of UTF-8 by its first byte: what the second may be, by which overlong forms, surrogates
   and numbers above 0x10FFFF are refused. */
typedef struct Lead {
    size_t followers;
    uint32_t bits;
    unsigned char lowest;
    unsigned char highest;
} Lead;

static Lead lead(unsigned char byte)
{
    Lead none = {0, 0, 1, 0};
    if (byte < 0x80) {
        return (Lead){0, byte, 0, 0xFF};
    }
    if (byte >= 0xC2 && byte <= 0xDF) {
        return (Lead){1, byte & 0x1FU, 0x80, 0xBF};
    }
    if (byte >= 0xE0 && byte <= 0xEF) {
        return (Lead){2, byte & 0x0FU, byte == 0xE0 ? 0xA0 : 0x80, byte == 0xED ? 0x9F : 0xBF};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        return (Lead){3, byte & 0x07U, byte == 0xF0 ? 0x90 : 0x80, byte == 0xF4 ? 0x8F : 0xBF};
    }
    return none;
}

/* Reads one character and returns its length. One that breaks off is one replacement. The NUL at the end
   is no follower, so nothing behind it is read. */
static size_t takeBytes(const char* utf8, uint32_t* point, bool* isText)
{
    Lead head = lead((unsigned char)utf8[0]);
    size_t length = 1;
    *isText = head.lowest <= head.highest;
    *point = head.bits;
    for (; *isText && length <= head.followers; ++length) {
        unsigned char byte = (unsigned char)utf8[length];
        if (byte < head.lowest || byte > head.highest) {
            *isText = false;
            break;
        }
        *point = *point << 6 | (byte & 0x3FU);
        head.lowest = 0x80;
        head.highest = 0xBF;
    }
    if (!*isText) {
        *point = replacement;
    }
    return length;
}

static size_t takeUnits(const KRT_PLX_Char* text, uint32_t* point, bool* isText)
{
    const uint32_t first = (uint32_t)text[0] & 0xFFFF;
    *isText = true;
    *point = first;
    if (first < 0xD800 || first > 0xDFFF) {
        return 1;
    }
    const uint32_t second = (uint32_t)text[1] & 0xFFFF;
    if (first < 0xDC00 && second >= 0xDC00 && second <= 0xDFFF) {
        *point = 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
        return 2;
    }
    *isText = false;
    *point = replacement;
    return 1;
}

static size_t toBytes(uint32_t point, unsigned char bytes[4])
{
    static const unsigned char heads[] = {0, 0, 0xC0, 0xE0, 0xF0};
    const size_t length = point < 0x80 ? 1 : point < 0x800 ? 2 : point < 0x10000 ? 3 : 4;
    for (size_t i = length; i-- > 1; point >>= 6) {
        bytes[i] = (unsigned char)(0x80 | (point & 0x3F));
    }
    bytes[0] = (unsigned char)(heads[length] | point);
    return length;
}

static size_t toUnits(uint32_t point, KRT_PLX_Char units[2])
{
    if (point < 0x10000) {
        units[0] = (KRT_PLX_Char)point;
        return 1;
    }
    units[0] = (KRT_PLX_Char)(0xD800 + ((point - 0x10000) >> 10));
    units[1] = (KRT_PLX_Char)(0xDC00 + ((point - 0x10000) & 0x3FF));
    return 2;
}

/* Where a conversion stands: what it will say, and how much of it was written. */
typedef struct Progress {
    KRT_PLX_KitConversion result;
    size_t written;
    size_t capacity;
} Progress;

static Progress begin(const void* source, size_t capacity)
{
    const uint32_t code = source != NULL ? KRT_PLX_KIT_TEXT_OK : KRT_PLX_KIT_TEXT_NULL;
    return (Progress){{code, 1, KRT_PLX_KIT_NOWHERE}, 0, capacity};
}

static void noteError(Progress* progress, bool isText, size_t place)
{
    if (!isText && progress->result.error == KRT_PLX_KIT_NOWHERE) {
        progress->result.error = place;
        progress->result.code = KRT_PLX_KIT_TEXT_MENDED;
    }
}

/* Counts a character of this length, and tells whether it and the NUL fit. Nothing fits behind one that
   did not: that is counted, too. */
static bool takesNext(Progress* progress, size_t length)
{
    progress->result.size += length;
    const bool fits = progress->result.size <= progress->capacity;
    progress->written += fits ? length : 0;
    return fits;
}

static KRT_PLX_KitConversion end(Progress* progress)
{
    if (progress->result.size > progress->capacity &&
        progress->result.code != KRT_PLX_KIT_TEXT_NULL) {
        progress->result.code = KRT_PLX_KIT_TEXT_TOO_LONG;
    }
    return progress->result;
}

KRT_PLX_KitConversion KRT_PLX_Kit_fromUtf8(const char* utf8, KRT_PLX_Char* text, size_t capacity)
{
    Progress progress = begin(utf8, text != NULL ? capacity : 0);
    for (size_t place = 0; utf8 != NULL && utf8[place] != '\0';) {
        KRT_PLX_Char units[2] = {0, 0};
        uint32_t point = 0;
        bool isText = false;
        const size_t length = takeBytes(utf8 + place, &point, &isText);
        noteError(&progress, isText, place);
        const size_t count = toUnits(point, units);
        const size_t at = progress.written;
        for (size_t i = 0, fits = takesNext(&progress, count); fits && i < count; ++i) {
            text[at + i] = units[i];
        }
        place += length;
    }
    if (progress.capacity > 0) {
        text[progress.written] = 0;
    }
    return end(&progress);
}

KRT_PLX_KitConversion KRT_PLX_Kit_toUtf8(const KRT_PLX_Char* text, char* utf8, size_t capacity)
{
    Progress progress = begin(text, utf8 != NULL ? capacity : 0);
    for (size_t place = 0; text != NULL && text[place] != 0;) {
        unsigned char bytes[4] = {0, 0, 0, 0};
        uint32_t point = 0;
        bool isText = false;
        const size_t length = takeUnits(text + place, &point, &isText);
        noteError(&progress, isText, place);
        const size_t count = toBytes(point, bytes);
        const size_t at = progress.written;
        for (size_t i = 0, fits = takesNext(&progress, count); fits && i < count; ++i) {
            utf8[at + i] = (char)bytes[i];
        }
        place += length;
    }
    if (progress.capacity > 0) {
        utf8[progress.written] = '\0';
    }
    return end(&progress);
}
