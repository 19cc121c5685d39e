/*
 * The controller lanes of a part as small curves.
 */
#ifndef EXAMPLES_LANE_VIEW_H
#define EXAMPLES_LANE_VIEW_H

#include <korvel/plx.h>

/* Prints a line for each lane: its name, its events, and its course over the whole part. */
void print_lanes(KRT_PLX_PartBase* part, int width);

#endif
