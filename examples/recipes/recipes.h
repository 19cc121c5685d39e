/*
 * The recipes of the manual in C, each in a source of its own. Those that save a clip return the code of
 * saving.
 */
#ifndef EXAMPLES_RECIPES_H
#define EXAMPLES_RECIPES_H

#include <korvel/plx_kit.h>
#include <stdio.h>

/* Saves a clip as a new user clip, with other words on its first note and 90 beats per minute. */
uint32_t save_reworded(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* lyric,
                       const KRT_PLX_Char* phonemes, const KRT_PLX_Char* name);

/* Gives the second half of an editable note a vibrato that grows. */
bool add_vibrato(KRT_PLX_NoteBase* note);

/* Saves the notes from one tick to another as a clip of its own. */
uint32_t save_phrase(KRT_PLX_ClipBase* clip, int32_t begin, int32_t end, const KRT_PLX_Char* name);

/* Saves a clip as a new user clip, higher or lower. */
uint32_t save_transposed(KRT_PLX_ClipBase* clip, int32_t semitones, const KRT_PLX_Char* name);

/* Gives a user clip another name. */
bool rename_clip(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* name);

/* Lists slow clips of a genre that have these words in their name. Returns how many it has listed. */
size_t find_slow_clips(KRT_PLX_Manager* manager, const KRT_PLX_Char* words,
                       const KRT_PLX_Char* genre, KRT_PLX_ClipBase** found, size_t capacity);

/* Saves a copy of a clip, and prints what the user has to know. */
uint32_t save_and_tell(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* name, FILE* output);

#endif
