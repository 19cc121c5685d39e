/* A library that has only two of the functions, which do nothing. */
#include <korvel/plx.h>

bool KRT_PLX_HasManager(KRT_PLX_Manager* manager)
{
    return manager == NULL;
}

bool KRT_PLX_Manager_destroy(KRT_PLX_Manager* manager)
{
    return manager == NULL;
}
