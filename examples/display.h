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
 * Prints a text and ends the line. The text begins at the column `indent`, where the caller has got
 * to, and goes on there on the next line when it comes to the end of the console, at `width`.
 */
void print_wrapped(const char* text, int indent, int width);

/* Prints a line of a list: a title of up to 8 letters, or none, and what is to be said of it. */
void print_entry(const char* title, const char* text, int width);

#endif
