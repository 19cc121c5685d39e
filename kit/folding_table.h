/* The tables by which texts are compared; make_folding.py makes them. */
#ifndef KIT_FOLDING_TABLE_H
#define KIT_FOLDING_TABLE_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

/* A character, and where in kitFoldingPoints those stand as which it is compared. */
typedef struct KitFolding {
    uint32_t point;
    uint16_t place;
    uint16_t length;
} KitFolding;

/* Combining marks; those that are no accents make another letter. */
typedef struct KitMarks {
    uint32_t first;
    uint32_t last;
    bool areAccents;
} KitMarks;

/* Ascending. */
extern const KitFolding kitFoldings[];
extern const size_t kitFoldingCount;
extern const uint32_t kitFoldingPoints[];

/* Ascending. */
extern const KitMarks kitMarks[];
extern const size_t kitMarksCount;

#endif
