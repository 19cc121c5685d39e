#include "piano_roll.h"

#include <inttypes.h>
#include <stdio.h>

#include "conventions.h"
#include "grid.h"
#include "roll_layout.h"

/* One line of the roll: a heading with bar numbers, the rows of notes, the rows of lyrics. */
typedef struct Line {
    const Layout* layout;
    int64_t first_bar;
    int bars;
    uint32_t lowest;
    uint32_t highest;
    Grid grid;
} Line;

static int row_of(const Line* line, uint32_t number)
{
    return 1 + (int)(line->highest - number);
}

static int first_lyric_row(const Line* line)
{
    return row_of(line, line->lowest) + 1;
}

static int bar_line_column(const Layout* layout, int bar)
{
    return label_columns + bar * (layout->columns_per_bar + 1);
}

static void draw_label(Line* line, uint32_t number, uint32_t key)
{
    char label[8];
    snprintf(label, sizeof label, "%2s%d", pitch_name(number, key), octave_of(number));
    int row = row_of(line, number);
    write_text(&line->grid, row, 0, label);
    draw(&line->grid, row, label_columns - 1, is_black_key(number) ? "█" : " ");
}

static void draw_beats(Line* line, int row, int bar)
{
    const Layout* layout = line->layout;
    int64_t begin = (line->first_bar + bar) * layout->ticks_per_bar;
    for (int64_t beat = layout->ticks_per_beat; beat < layout->ticks_per_bar;
         beat += layout->ticks_per_beat) {
        draw(&line->grid, row, column_of(layout, line->first_bar, begin + beat), "·");
    }
}

static void draw_background(Line* line, uint32_t key)
{
    const Layout* layout = line->layout;
    for (uint32_t number = line->lowest; number <= line->highest; ++number) {
        int row = row_of(line, number);
        draw_label(line, number, key);
        for (int bar = 0; bar < line->bars; ++bar) {
            draw_beats(line, row, bar);
            draw(&line->grid, row, bar_line_column(layout, bar), "│");
        }
        draw(&line->grid, row, bar_line_column(layout, line->bars), "│");
    }
}

static void draw_bar_numbers(Line* line)
{
    for (int bar = 0; bar < line->bars; ++bar) {
        char number[24];
        snprintf(number, sizeof number, "%" PRId64, line->first_bar + bar + 1);
        write_text(&line->grid, 0, bar_line_column(line->layout, bar), number);
    }
}

/* The last column is half filled, so that repeated notes stay apart. */
static void draw_note(Line* line, const MelodyNote* note)
{
    int row = row_of(line, note->number);
    int first = column_of(line->layout, line->first_bar, note->begin);
    int last = column_of(line->layout, line->first_bar, note->end - 1);
    int vibrato = column_of(line->layout, line->first_bar, note->vibrato_begin);
    int begin = first > label_columns ? first : label_columns;
    int end = last < line->grid.columns ? last : line->grid.columns;
    for (int column = begin; column < end; ++column) {
        draw(&line->grid, row, column, column < vibrato ? "█" : "▓");
    }
    draw(&line->grid, row, last, "▌");
}

static void write_lyric(Line* line, LyricRows* rows, const MelodyNote* note)
{
    int column = column_of(line->layout, line->first_bar, note->begin);
    int row = place_lyric(rows, column, note->lyric);
    if (column >= label_columns && row >= 0) {
        write_text(&line->grid, first_lyric_row(line) + row, column, note->lyric);
    }
}

static void draw_melody(Line* line, const Melody* melody)
{
    LyricRows rows = {{0}};
    for (size_t i = 0; i < melody->count; ++i) {
        if (is_in_line(line->layout, line->first_bar, &melody->notes[i])) {
            draw_note(line, &melody->notes[i]);
            write_lyric(line, &rows, &melody->notes[i]);
        }
    }
}

/* The last row is the second row for lyrics, which most lines do not need. */
static void print_rows(const Grid* grid)
{
    for (int row = 0; row < grid->rows; ++row) {
        if (row < grid->rows - 1 || !is_blank_row(grid, row)) {
            print_grid_row(grid, row);
        }
    }
    printf("\n");
}

static void print_line(Line* line, const Melody* melody, uint32_t key)
{
    line->grid = make_grid(first_lyric_row(line) + lyric_rows, line->layout->columns);
    draw_background(line, key);
    draw_bar_numbers(line);
    draw_melody(line, melody);
    print_rows(&line->grid);
    free_grid(&line->grid);
}

/* Bars before `end` in which nothing sounds, counted from 0. */
static void print_rests(int64_t begin, int64_t end)
{
    if (begin + 1 == end) {
        printf("      %" PRId64 ": rests\n\n", end);
    } else if (begin < end) {
        printf("      %" PRId64 " to %" PRId64 ": rests\n\n", begin + 1, end);
    }
}

void print_piano_roll(const Melody* melody, const RollView* view)
{
    Layout layout = make_layout(melody, view);
    int64_t rests = view->first_bar - 1;
    for (int64_t bar = rests; bar < view->last_bar; bar += layout.bars_per_line) {
        int64_t left = view->last_bar - bar;
        Line line = {.layout = &layout, .first_bar = bar, .bars = layout.bars_per_line};
        line.bars = left < line.bars ? (int)left : line.bars;
        if (find_range(melody, &layout, bar, &line.lowest, &line.highest)) {
            print_rests(rests, bar);
            print_line(&line, melody, view->key);
            rests = bar + line.bars;
        }
    }
    print_rests(rests, view->last_bar);
}
