/*
 * The console of an example program: UTF-8 in and out, on Linux and on Windows.
 */
#ifndef EXAMPLES_CONSOLE_H
#define EXAMPLES_CONSOLE_H

#include <stdio.h>

/* Makes the console print UTF-8, and turns the arguments of main() into UTF-8. Call it first. */
void console_start(int* argc, char*** argv);

/* How many columns the terminal has; a fixed number when the output goes elsewhere. */
int console_width(void);

/* fopen() with a path in UTF-8. */
FILE* console_open_file(const char* path, const char* mode);

/* remove() with a path in UTF-8. */
int console_remove_file(const char* path);

#endif
