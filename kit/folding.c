#include "folding.h"

#include "folding_table.h"

static bool isHigh(KRT_PLX_Char unit)
{
    return ((uint32_t)unit & 0xFC00) == 0xD800;
}

static bool isLow(KRT_PLX_Char unit)
{
    return ((uint32_t)unit & 0xFC00) == 0xDC00;
}

static bool isPair(const KRT_PLX_Char* text)
{
    return isHigh(text[0]) && isLow(text[1]);
}

const KRT_PLX_Char* kitNextCharacter(const KRT_PLX_Char* text)
{
    return text + (isPair(text) ? 2 : 1);
}

/* Half a pair stands for itself. */
static uint32_t pointAt(const KRT_PLX_Char* text)
{
    const uint32_t first = (uint32_t)text[0] & 0xFFFF;
    return isPair(text)
               ? 0x10000 + ((first - 0xD800) << 10) + (((uint32_t)text[1] & 0xFFFF) - 0xDC00)
               : first;
}

/* How long a decomposed Hangul syllable is; 0 for all other characters. */
static size_t decomposeHangul(uint32_t point, uint32_t jamo[3])
{
    enum { first = 0xAC00, last = 0xD7A3, vowels = 21, finals = 28 };
    if (point < first || point > last) {
        return 0;
    }
    const uint32_t place = point - first;
    jamo[0] = 0x1100 + place / (vowels * finals);
    jamo[1] = 0x1161 + place / finals % vowels;
    jamo[2] = 0x11A7 + place % finals;
    return place % finals != 0 ? 3 : 2;
}

static const KitFolding* find(uint32_t point)
{
    size_t begin = 0;
    size_t end = kitFoldingCount;
    while (begin < end) {
        const size_t middle = begin + (end - begin) / 2;
        if (kitFoldings[middle].point < point) {
            begin = middle + 1;
        } else {
            end = middle;
        }
    }
    return begin < kitFoldingCount && kitFoldings[begin].point == point ? &kitFoldings[begin]
                                                                        : NULL;
}

static const KitMarks* marksWith(uint32_t point)
{
    size_t begin = 0;
    size_t end = kitMarksCount;
    while (begin < end) {
        const size_t middle = begin + (end - begin) / 2;
        if (kitMarks[middle].last < point) {
            begin = middle + 1;
        } else {
            end = middle;
        }
    }
    return begin < kitMarksCount && kitMarks[begin].first <= point ? &kitMarks[begin] : NULL;
}

Folding kitFold(const KRT_PLX_Char* text, bool ignoresAccents)
{
    return (Folding){text, NULL, 0, {0, 0, 0}, ignoresAccents};
}

/* The next character of the text, in one step or begun. */
static uint32_t begin(Folding* folding)
{
    const uint32_t point = pointAt(folding->text);
    folding->text = kitNextCharacter(folding->text);
    const size_t jamoCount = decomposeHangul(point, folding->jamo);
    const KitFolding* row = jamoCount == 0 ? find(point) : NULL;
    if (jamoCount == 0 && row == NULL) {
        return point;
    }
    folding->pending = jamoCount != 0 ? folding->jamo : kitFoldingPoints + row->place;
    folding->pendingCount = jamoCount != 0 ? jamoCount : row->length;
    --folding->pendingCount;
    return *folding->pending++;
}

static bool isIgnored(const Folding* folding, uint32_t point)
{
    const KitMarks* marks = folding->ignoresAccents ? marksWith(point) : NULL;
    return marks != NULL && marks->areAccents;
}

bool kitNextFolded(Folding* folding, uint32_t* point)
{
    do {
        if (folding->pendingCount > 0) {
            --folding->pendingCount;
            *point = *folding->pending++;
        } else if (*folding->text != 0) {
            *point = begin(folding);
        } else {
            return false;
        }
    } while (isIgnored(folding, *point));
    return true;
}

bool kitContinuesLetter(Folding folding)
{
    /* A copy of a stream points into the original for Hangul, which no marks continue. */
    uint32_t point = 0;
    return kitNextFolded(&folding, &point) && marksWith(point) != NULL;
}
