/*
 * How many columns a text takes on the console, and printing in columns.
 */
#ifndef EXAMPLES_DISPLAY_H
#define EXAMPLES_DISPLAY_H

#include <stdint.h>

/* How many columns a character takes: 2 for kana and the like, 0 for a combining mark. */
int character_width(uint32_t character);

/* How many columns a text in UTF-8 takes. */
int display_width(const char* text);

/* Prints a text and fills its column with blanks; cuts it off with an ellipsis if it is too wide. */
void print_column(const char* text, int width);

/*
 * Prints a text and ends the line. The text begins at the column `indent`, where the cursor already
 * is. At the end of the console, at `width`, it continues on the next line, at `indent`.
 */
void print_wrapped(const char* text, int indent, int width);

/* Prints a line of a list: a title of up to 8 letters, or none, and a text. */
void print_entry(const char* title, const char* text, int width);

#endif
