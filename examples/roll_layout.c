#include "roll_layout.h"

#include "conventions.h"
#include "display.h"
#include "text.h"

enum { fewest_columns_per_quarter = 4, most_columns_per_quarter = 12 };

static int64_t bar_of(const Layout* layout, int64_t tick)
{
    int64_t bar = tick / layout->ticks_per_bar;
    return tick % layout->ticks_per_bar < 0 ? bar - 1 : bar;
}

int column_of(const Layout* layout, int64_t first_bar, int64_t tick)
{
    int64_t bar = bar_of(layout, tick);
    int64_t into_bar = tick - bar * layout->ticks_per_bar;
    return label_columns + 1 + (int)(bar - first_bar) * (layout->columns_per_bar + 1) +
           (int)(into_bar * layout->columns_per_bar / layout->ticks_per_bar);
}

bool is_in_line(const Layout* layout, int64_t first_bar, const MelodyNote* note)
{
    return note->end > first_bar * layout->ticks_per_bar &&
           note->begin < (first_bar + layout->bars_per_line) * layout->ticks_per_bar;
}

bool find_range(const Melody* melody, const Layout* layout, int64_t first_bar, uint32_t* lowest,
                uint32_t* highest)
{
    *lowest = UINT32_MAX;
    *highest = 0;
    for (size_t i = 0; i < melody->count; ++i) {
        const MelodyNote* note = &melody->notes[i];
        if (is_in_line(layout, first_bar, note)) {
            *lowest = note->number < *lowest ? note->number : *lowest;
            *highest = note->number > *highest ? note->number : *highest;
        }
    }
    return *lowest <= *highest;
}

/* Lyrics in letters need a blank between them; kana and similar characters do not. */
static int gap_after(const char* lyric)
{
    int last = 1;
    for (uint32_t character = next_character(&lyric); character != 0;
         character = next_character(&lyric)) {
        last = character_width(character);
    }
    return last == 2 ? 0 : 1;
}

int place_lyric(LyricRows* rows, int column, const char* lyric)
{
    for (int row = 0; row < lyric_rows; ++row) {
        if (column >= rows->next_free[row]) {
            rows->next_free[row] = column + display_width(lyric) + gap_after(lyric);
            return row;
        }
    }
    return -1;
}

static bool begins_in_line(const Layout* layout, int64_t first_bar, const MelodyNote* note)
{
    int64_t bar = bar_of(layout, note->begin);
    return bar >= first_bar && bar < first_bar + layout->bars_per_line;
}

static bool lyrics_fit_in_line(const Melody* melody, const Layout* layout, int64_t first_bar)
{
    LyricRows rows = {{0}};
    for (size_t i = 0; i < melody->count; ++i) {
        const MelodyNote* note = &melody->notes[i];
        if (begins_in_line(layout, first_bar, note)) {
            int column = column_of(layout, first_bar, note->begin);
            if (column + display_width(note->lyric) > layout->columns ||
                place_lyric(&rows, column, note->lyric) < 0) {
                return false;
            }
        }
    }
    return true;
}

static bool lyrics_fit(const Melody* melody, const Layout* layout, const RollView* view)
{
    for (int64_t bar = view->first_bar - 1; bar < view->last_bar; bar += layout->bars_per_line) {
        if (!lyrics_fit_in_line(melody, layout, bar)) {
            return false;
        }
    }
    return true;
}

/* Gives all bars of a line the same width, in which each eighth note begins in its own column. */
static void divide_line(Layout* layout, int bars, int width)
{
    int eighths = (int)(2 * layout->ticks_per_bar / ticks_per_quarter);
    eighths = eighths > 0 ? eighths : 1;
    int most = most_columns_per_quarter * eighths / 2;
    int columns = (width - label_columns - 1) / bars - 1;
    columns = columns > most ? most : columns - columns % eighths;
    layout->columns_per_bar = columns > eighths ? columns : eighths;
    layout->bars_per_line = bars;
    layout->columns = label_columns + 1 + bars * (layout->columns_per_bar + 1);
}

Layout make_layout(const Melody* melody, const RollView* view)
{
    Layout layout = {0};
    layout.ticks_per_bar = ticks_per_bar(view->meter);
    layout.ticks_per_beat = ticks_per_beat(view->meter);
    for (int bars = 8; bars >= 1; bars /= 2) {
        divide_line(&layout, bars, view->width);
        int64_t quarter = layout.columns_per_bar * ticks_per_quarter / layout.ticks_per_bar;
        if (quarter >= fewest_columns_per_quarter && lyrics_fit(melody, &layout, view)) {
            break;
        }
    }
    return layout;
}
