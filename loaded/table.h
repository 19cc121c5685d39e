/*
 * The table to which all functions of this library pass their calls on.
 */
#ifndef LOADED_TABLE_H
#define LOADED_TABLE_H

#include <korvel/plx/common.h>

/* The functions are defined here: on Windows they are not imported. Nor are they exported. If a host
   exported them, they could take the place of the functions of a library that is linked elsewhere in the
   process. */
#undef KRT_PLX_API
#if defined(_WIN32)
#    define KRT_PLX_API extern
#else
#    define KRT_PLX_API extern __attribute__((visibility("hidden")))
#endif

#include <korvel/plx_loaded.h>

/* Empty while nothing is loaded. */
KRT_PLX_API KRT_PLX_Api KRT_PLX_loadedTable;

#endif
