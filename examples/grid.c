#include "grid.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "display.h"
#include "text.h"

static Cell* cell_at(const Grid* grid, int row, int column)
{
    return &grid->cells[(size_t)row * (size_t)grid->columns + (size_t)column];
}

static bool is_inside(const Grid* grid, int row, int column)
{
    return row >= 0 && row < grid->rows && column >= 0 && column < grid->columns;
}

void draw(Grid* grid, int row, int column, const char* glyph)
{
    if (is_inside(grid, row, column) && strlen(glyph) < sizeof(Cell)) {
        strcpy(cell_at(grid, row, column)->glyph, glyph);
    }
}

Grid make_grid(int rows, int columns)
{
    Grid grid = {rows, columns, allocate((size_t)rows * (size_t)columns, sizeof(Cell))};
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            draw(&grid, row, column, " ");
        }
    }
    return grid;
}

void free_grid(Grid* grid)
{
    free(grid->cells);
    *grid = (Grid){0, 0, NULL};
}

/* Appends a combining mark to the glyph of a cell, if there is room. */
static void combine(Grid* grid, int row, int column, const char* mark, size_t length)
{
    if (is_inside(grid, row, column)) {
        char* glyph = cell_at(grid, row, column)->glyph;
        size_t used = strlen(glyph);
        if (used + length < sizeof(Cell)) {
            memcpy(glyph + used, mark, length);
            glyph[used + length] = '\0';
        }
    }
}

int write_text(Grid* grid, int row, int column, const char* text)
{
    int last = column;
    for (const char* next = text; *text != '\0'; text = next) {
        int width = character_width(next_character(&next));
        if (width > 0 && column + width > grid->columns) {
            break;
        }
        if (width > 0) {
            last = column;
            draw(grid, row, column, "");
        }
        if (width == 2) {
            draw(grid, row, column + 1, "");
        }
        combine(grid, row, last, text, (size_t)(next - text));
        column += width;
    }
    return column;
}

static int used_columns(const Grid* grid, int row)
{
    int columns = grid->columns;
    while (columns > 0 && strcmp(cell_at(grid, row, columns - 1)->glyph, " ") == 0) {
        --columns;
    }
    return columns;
}

bool is_blank_row(const Grid* grid, int row)
{
    return used_columns(grid, row) == 0;
}

void print_grid_row(const Grid* grid, int row)
{
    int columns = used_columns(grid, row);
    for (int column = 0; column < columns; ++column) {
        fputs(cell_at(grid, row, column)->glyph, stdout);
    }
    fputc('\n', stdout);
}
