/* A library that has two of the functions, and not what they do. */
#include <korvel/plx.h>

bool KRT_PLX_HasManager(KRT_PLX_Manager* manager)
{
    return manager == NULL;
}

bool KRT_PLX_Manager_destroy(KRT_PLX_Manager* manager)
{
    return manager == NULL;
}
