/*
 * A small generated wave file, for a clip that needs one.
 */
#ifndef EXAMPLES_WAVE_H
#define EXAMPLES_WAVE_H

#include <stdbool.h>

/* Writes a second of a bell. False, and no file, when it cannot be written. */
bool write_bell(const char* path);

#endif
