/*
 * What the library leaves to its hosts: how long a quarter note is, and the names of the numbers of
 * keys, languages and controller lanes. Another host may number them differently; these are the
 * conventions of the clips in examples/library.
 */
#ifndef EXAMPLES_CONVENTIONS_H
#define EXAMPLES_CONVENTIONS_H

#include <stdbool.h>
#include <stdint.h>

enum { ticks_per_quarter = 480 };

enum { number_of_lane_types = 12 };

/* "D major" for 10; NULL for 0, which is no key. */
const char* key_name(uint32_t key);

/* "F#" or, in a key with flats, "Gb", for 66. */
const char* pitch_name(uint32_t note_number, uint32_t key);

/* 4 for 60: middle C is C4. */
int octave_of(uint32_t note_number);

bool is_black_key(uint32_t note_number);

/* "German" for 3; NULL for a number without a name. */
const char* language_name(int32_t language);

/* Turns a name or a number into a language number; false when it is neither. */
bool find_language(const char* text, int32_t* language);

/* "pitchBend" for 3, the name that clip files use too; NULL for an unknown type. */
const char* lane_name(uint32_t type);

/* "midi" for KRT_PLX_PART_MIDI, the name that clip files use too. */
const char* part_type_name(uint32_t type);

/* Turns such a name into a part type; false for an unknown name. */
bool find_part_type(const char* name, uint32_t* type);

#endif
