/*
 * A rectangle of character cells to draw on, row by row from the top, before it is printed.
 */
#ifndef EXAMPLES_GRID_H
#define EXAMPLES_GRID_H

#include <stdbool.h>

typedef struct Cell {
    char glyph[16]; /* one character with its combining marks; empty after a wide one */
} Cell;

typedef struct Grid {
    int rows;
    int columns;
    Cell* cells;
} Grid;

/* All cells are blank. */
Grid make_grid(int rows, int columns);
void free_grid(Grid* grid);

/* Fills a cell with a character that takes one column. Outside the grid nothing is drawn. */
void draw(Grid* grid, int row, int column, const char* glyph);

/* Writes a text along a row, up to the edge of the grid. Returns the column after it. */
int write_text(Grid* grid, int row, int column, const char* text);

bool is_blank_row(const Grid* grid, int row);

/* Prints a row without the blanks at its end. */
void print_grid_row(const Grid* grid, int row);

#endif
