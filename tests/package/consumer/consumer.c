/* Counts the clips of the folder "library" and says which version it was compiled against. */

#include <korvel/plx.h>
#include <stdio.h>

#if defined(_WIN32)
#    define TEXT_OF(literal) L##literal
#else
#    define TEXT_OF(literal) u##literal
#endif

#if !KRT_PLX_VERSION_AT_LEAST(0, 0, 99) || !KRT_PLX_VERSION_AT_LEAST(0, 1, 0)
#    error "older than it can be"
#endif
#if KRT_PLX_VERSION_AT_LEAST(KRT_PLX_VERSION_MAJOR + 1, 0, 0)
#    error "as new as the next major version"
#endif
#if KRT_PLX_VERSION_AT_LEAST(KRT_PLX_VERSION_MAJOR, KRT_PLX_VERSION_MINOR + 1, 0)
#    error "as new as the next minor version"
#endif
#if KRT_PLX_VERSION_AT_LEAST(KRT_PLX_VERSION_MAJOR, KRT_PLX_VERSION_MINOR, \
                             KRT_PLX_VERSION_PATCH + 1)
#    error "as new as the next correction"
#endif
#if !KRT_PLX_VERSION_AT_LEAST(KRT_PLX_VERSION_MAJOR, KRT_PLX_VERSION_MINOR, KRT_PLX_VERSION_PATCH)
#    error "older than itself"
#endif

int main(void)
{
    uint32_t code = KRT_PLX_RESULT_OK;
    uint64_t system_clips = 0;
    uint64_t user_clips = 0;
    KRT_PLX_Manager* manager =
        KRT_PLX_CreateManager(TEXT_OF("consumer"), TEXT_OF("library/system"),
                              TEXT_OF("library/user"), NULL, 0, NULL, 0, &code);
    code = KRT_PLX_Manager_readAllClipFiles(manager);
    KRT_PLX_Manager_numSystemClips(manager, &system_clips);
    KRT_PLX_Manager_numUserClips(manager, &user_clips);
    printf("krt_plx " KRT_PLX_VERSION ": %u system clips, %u user clips\n", (unsigned)system_clips,
           (unsigned)user_clips);
    KRT_PLX_Manager_destroy(manager);
    return code == KRT_PLX_RESULT_OK ? 0 : 1;
}
