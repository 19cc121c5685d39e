/* A text as it is compared: character by character, decomposed and folded. */
#ifndef KIT_FOLDING_H
#define KIT_FOLDING_H

#include <korvel/plx_kit.h>

typedef struct Folding {
    const KRT_PLX_Char* text;
    const uint32_t* pending; /* what is left of the last character */
    size_t pendingCount;
    uint32_t jamo[3]; /* of the last character, if that was a Hangul syllable */
    bool ignoresAccents;
} Folding;

Folding kitFold(const KRT_PLX_Char* text, bool ignoresAccents);

/* False at the end. */
bool kitNextFolded(Folding* folding, uint32_t* point);

/* Whether a mark follows that makes another letter of what came before. */
bool kitContinuesLetter(Folding folding);

/* The text behind its first character. */
const KRT_PLX_Char* kitNextCharacter(const KRT_PLX_Char* text);

#endif
