/* POSIX, which C99 does not have: asking for the terminal's width. */
#define _POSIX_C_SOURCE 200809L
#define _DEFAULT_SOURCE

#include "console.h"

#include <stdlib.h>

#include "text.h"

enum { usual_width = 100 };

#ifdef _WIN32

#    include <windows.h>

#    include <shellapi.h>

/* The C library's arguments are in the system's code page, which lacks most of Unicode. */
static void convert_arguments(int* argc, char*** argv)
{
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    if (wide == NULL) {
        return;
    }
    char** arguments = allocate((size_t)count + 1, sizeof *arguments);
    for (int i = 0; i < count; ++i) {
        arguments[i] = utf8_from_utf16(wide[i]);
    }
    LocalFree(wide);
    *argc = count;
    *argv = arguments; /* they are used until the program ends */
}

void console_start(int* argc, char*** argv)
{
    SetConsoleOutputCP(CP_UTF8);
    /* A character that is written in two pieces would be shown as two wrong ones. */
    setvbuf(stdout, NULL, _IOFBF, 1 << 16);
    convert_arguments(argc, argv);
}

int console_width(void)
{
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info)) {
        return usual_width;
    }
    return info.srWindow.Right - info.srWindow.Left + 1;
}

FILE* console_open_file(const char* path, const char* mode)
{
    wchar_t* wide_path = utf16_from_utf8(path);
    wchar_t* wide_mode = utf16_from_utf8(mode);
    FILE* file = NULL;
    if (wide_path != NULL && wide_mode != NULL) {
        file = _wfopen(wide_path, wide_mode);
    }
    free(wide_path);
    free(wide_mode);
    return file;
}

int console_remove_file(const char* path)
{
    wchar_t* wide_path = utf16_from_utf8(path);
    int result = wide_path != NULL ? _wremove(wide_path) : -1;
    free(wide_path);
    return result;
}

#else

#    include <sys/ioctl.h>
#    include <unistd.h>

/* Nothing to do here: this system's arguments and terminals are in UTF-8 already. */
void console_start(int* argc, char*** argv)
{
    (void)argc;
    (void)argv;
}

int console_width(void)
{
    struct winsize size;
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return usual_width;
    }
    return size.ws_col;
}

FILE* console_open_file(const char* path, const char* mode)
{
    return fopen(path, mode);
}

int console_remove_file(const char* path)
{
    return remove(path);
}

#endif
