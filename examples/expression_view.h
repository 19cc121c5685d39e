/*
 * How the notes of a part are to be sung, summed up.
 */
#ifndef EXAMPLES_EXPRESSION_VIEW_H
#define EXAMPLES_EXPRESSION_VIEW_H

#include <korvel/plx.h>

/* Prints how many notes have a vibrato, an attack, a release and a singing skill, and which. */
void print_expressions(KRT_PLX_PartBase* part, int width);

#endif
