/*
 * The notes of a part in the form in which they are drawn.
 */
#ifndef EXAMPLES_MELODY_H
#define EXAMPLES_MELODY_H

#include <korvel/plx.h>

typedef struct MelodyNote {
    int64_t begin; /* all times here are in ticks; with 64 bits the sum of two cannot overflow */
    int64_t end;
    int64_t vibrato_begin; /* the end of the note when it has no vibrato */
    uint32_t number;
    char* lyric;
} MelodyNote;

/* All notes of a part, by position. */
typedef struct Melody {
    MelodyNote* notes;
    size_t count;
} Melody;

Melody read_melody(KRT_PLX_PartBase* part);
void free_melody(Melody* melody);

typedef struct Meter {
    int beats;
    int unit; /* 4 for quarter notes, 8 for eighths */
} Meter;

int64_t ticks_per_beat(Meter meter);
int64_t ticks_per_bar(Meter meter);

/*
 * A clip contains no meter; an editor knows that of its song. This guesses the meter that divides
 * the part into whole bars with the fewest notes held across a bar line.
 */
Meter guess_meter(const Melody* melody, int64_t part_duration);

#endif
