/*
 * Where the notes and lyrics of a piano roll are drawn.
 */
#ifndef EXAMPLES_ROLL_LAYOUT_H
#define EXAMPLES_ROLL_LAYOUT_H

#include "piano_roll.h"

enum { label_columns = 6, lyric_rows = 2 };

/* A piano roll is broken into lines like a score; each line has the same number of bars. */
typedef struct Layout {
    int64_t ticks_per_bar;
    int64_t ticks_per_beat;
    int columns_per_bar; /* without the bar line */
    int bars_per_line;
    int columns; /* of a whole line */
} Layout;

/* Puts as many bars on a line as leave room for their lyrics. */
Layout make_layout(const Melody* melody, const RollView* view);

/* The column of a time in the line that begins with the given bar, counted from 0. */
int column_of(const Layout* layout, int64_t first_bar, int64_t tick);

/* True when at least a part of the note is in the line. */
bool is_in_line(const Layout* layout, int64_t first_bar, const MelodyNote* note);

/* Finds the lowest and the highest note of the line; false when there are none. */
bool find_range(const Melody* melody, const Layout* layout, int64_t first_bar, uint32_t* lowest,
                uint32_t* highest);

/* Finds rows for lyrics, one after the other from left to right. */
typedef struct LyricRows {
    int next_free[lyric_rows];
} LyricRows;

/* Returns the first row with room for a lyric at the column; -1 when there is none. */
int place_lyric(LyricRows* rows, int column, const char* lyric);

#endif
