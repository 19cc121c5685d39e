/*
 * A piano roll for the console: a row for each semitone, time from left to right, the lyrics below.
 */
#ifndef EXAMPLES_PIANO_ROLL_H
#define EXAMPLES_PIANO_ROLL_H

#include "melody.h"

/* What to show of a part, and how. Bars count from 1. */
typedef struct RollView {
    Meter meter;
    int64_t first_bar;
    int64_t last_bar;
    uint32_t key; /* decides between sharps and flats */
    int width;    /* of the console, in columns */
} RollView;

void print_piano_roll(const Melody* melody, const RollView* view);

#endif
