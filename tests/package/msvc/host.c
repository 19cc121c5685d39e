/* A host without any C library: compiled for Microsoft's tools, its entry counts the clips of the
 * folder "library" and ends the program with their number. */

#include <korvel/plx.h>

unsigned entry(void)
{
    uint64_t system_clips = 0;
    uint64_t user_clips = 0;
    KRT_PLX_Manager* manager = KRT_PLX_CreateManager(L"consumer", L"library\\system",
                                                     L"library\\user", NULL, 0, NULL, 0, NULL);
    KRT_PLX_Manager_readAllClipFiles(manager);
    KRT_PLX_Manager_numSystemClips(manager, &system_clips);
    KRT_PLX_Manager_numUserClips(manager, &user_clips);
    KRT_PLX_Manager_destroy(manager);
    return (unsigned)(system_clips + user_clips);
}
