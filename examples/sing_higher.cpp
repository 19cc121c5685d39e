// Saves a clip two semitones higher: a host in C++17 that uses korvel/plx.hpp and the kit.
#include <cstdio>
#include <cstdlib>

#include "singing_higher.hpp"

extern "C" {
#include "console.h"
}

int main(int argc, char** argv)
{
    console_start(&argc, &argv);
    if (argc != 5) {
        std::fprintf(stderr, "usage: sing_higher SYSTEM-FOLDER USER-FOLDER CLIP NEW-NAME\n");
        return EXIT_FAILURE;
    }
    return singHigher(argv + 1) ? EXIT_SUCCESS : EXIT_FAILURE;
}
