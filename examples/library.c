#include "library.h"

#include <stdio.h>
#include <stdlib.h>

#include "text.h"

const char* result_text(uint32_t code)
{
    switch (code) {
    case KRT_PLX_RESULT_OK:
        return "done";
    case KRT_PLX_RESULT_NULL_ARGUMENT:
        return "an argument is missing";
    case KRT_PLX_RESULT_EMPTY_APP_ID:
        return "the application ID is empty";
    case KRT_PLX_RESULT_DIRECTORY_MISSING:
        return "the folder does not exist";
    case KRT_PLX_RESULT_DIRECTORY_NOT_CREATED:
        return "the folder cannot be created";
    case KRT_PLX_RESULT_USER_DIRECTORY_MISSING:
        return "the user folder is gone";
    case KRT_PLX_RESULT_EMPTY_NAME:
        return "the name is empty";
    case KRT_PLX_RESULT_UNKNOWN_CLIP:
        return "the clip does not belong to this manager";
    case KRT_PLX_RESULT_NO_PART:
        return "the clip has no part";
    case KRT_PLX_RESULT_WAVE_FILE_MISSING:
        return "the wave file is missing";
    case KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED:
        return "the wave file cannot be copied";
    case KRT_PLX_RESULT_FILE_NOT_OPENED:
        return "a file cannot be opened";
    case KRT_PLX_RESULT_FILE_NOT_WRITTEN:
        return "a file cannot be written";
    case KRT_PLX_RESULT_NO_VOICE_BANK:
        return "the part has no voice bank";
    case KRT_PLX_RESULT_BAD_LANGUAGE:
        return "the part has no language";
    case KRT_PLX_RESULT_NO_AI_VOICE_BANK:
        return "the part has no AI voice";
    case KRT_PLX_RESULT_NO_AI_LANGUAGE:
        return "the part has no AI language";
    case KRT_PLX_RESULT_BAD_AI_LANGUAGE:
        return "an AI language is out of range";
    case KRT_PLX_RESULT_NO_MANAGER:
        return "no manager, or no memory";
    default:
        return "unknown result";
    }
}

static KRT_PLX_Manager* create_manager(const char* app_id, const char* system_folder,
                                       const char* user_folder, uint32_t* code)
{
    KRT_PLX_Char* id = utf16_from_utf8(app_id);
    KRT_PLX_Char* system_path = utf16_from_utf8(system_folder);
    KRT_PLX_Char* user_path = utf16_from_utf8(user_folder);
    KRT_PLX_Manager* manager =
        KRT_PLX_CreateManager(id, system_path, user_path, NULL, 0, NULL, 0, code);
    free(id);
    free(system_path);
    free(user_path);
    return manager;
}

KRT_PLX_Manager* open_library(const char* app_id, const char* system_folder,
                              const char* user_folder)
{
    uint32_t code = KRT_PLX_RESULT_OK;
    KRT_PLX_Manager* manager = create_manager(app_id, system_folder, user_folder, &code);
    if (manager != NULL) {
        code = KRT_PLX_Manager_readAllClipFiles(manager);
    }
    if (code != KRT_PLX_RESULT_OK) {
        fprintf(stderr, "cannot open the clip library %s with %s: %s (%u)\n", system_folder,
                user_folder, result_text(code), (unsigned)code);
        KRT_PLX_Manager_destroy(manager);
        return NULL;
    }
    return manager;
}

char* system_path(const KRT_PLX_Char* path)
{
    char* text = utf8_from_utf16(path);
#ifndef _WIN32
    for (char* byte = text; *byte != '\0'; ++byte) {
        if (*byte == '\\') {
            *byte = '/';
        }
    }
#endif
    return text;
}
