/*
 * Saving a clip two semitones higher as a user clip, with the kit. The functions of the library come
 * from a table, so this serves a host that is linked to the library and one that loads it.
 */
#ifndef EXAMPLES_TRANSPOSING_H
#define EXAMPLES_TRANSPOSING_H

#include <korvel/plx_kit.h>

/* Saves a user clip that has all that the clip has, with each note two semitones higher. Prints to
 * standard error what the new clip does not have. NULL when it cannot be saved. */
KRT_PLX_ClipBase* save_higher(const struct KRT_PLX_Api* plx, KRT_PLX_ClipBase* clip,
                              const KRT_PLX_Char* name);

/* The same for the first clip that has a text in its name. The words are the folder of system clips,
 * the folder of user clips, that text, and the new clip's name, all in UTF-8. Prints the new clip's
 * ID; false when nothing was saved. */
bool transpose_clip(const struct KRT_PLX_Api* plx, char* const words[4]);

#endif
