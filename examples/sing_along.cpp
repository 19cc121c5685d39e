// Prints the lyrics of every clip of a library: a host in C++17 that uses korvel/plx.hpp.
#include <cstdio>
#include <cstdlib>
#include <string>

#include <korvel/plx.hpp>

extern "C" {
#include "console.h"
}

namespace {

namespace plx = korvel::plx;

// A clip can come from anywhere: its texts must not contain anything that controls the console.
std::string printable(plx::StringView text)
{
    plx::String harmless(text);
    for (plx::Char& unit : harmless) {
        if (unit < 0x20 || (unit >= 0x7F && unit < 0xA0)) {
            unit = 0xFFFD;
        }
    }
    return plx::toUtf8(harmless);
}

std::string lyrics(plx::MidiPart part)
{
    std::string words;
    for (const plx::Note note : part.notes()) {
        words += ' ' + printable(note.lyric());
    }
    return words;
}

void print(plx::Clip clip)
{
    std::printf("%s\n", printable(clip.name()).c_str());
    if (!clip.readPart()) {
        std::puts("    cannot be read");
    } else if (const plx::MidiPart part = clip.midiPart()) {
        std::printf("   %s\n", lyrics(part).c_str());
    } else {
        std::printf("    %s\n", printable(clip.audioPart().wavFilePath()).c_str());
    }
}

bool singAlong(plx::Manager manager)
{
    if (manager.readAllClipFiles() != plx::Result::ok) {
        return false;
    }
    for (const plx::Clip clip : manager.systemClips()) {
        print(clip);
    }
    for (const plx::UserClip clip : manager.userClips()) {
        print(clip);
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    console_start(&argc, &argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: sing_along SYSTEM-FOLDER USER-FOLDER\n");
        return EXIT_FAILURE;
    }
    const auto [manager, code] = plx::createManager(plx::fromUtf8("sing_along"),
                                                    plx::fromUtf8(argv[1]), plx::fromUtf8(argv[2]));
    const bool isDone = manager && singAlong(manager);
    if (!isDone) {
        std::fprintf(stderr, "cannot open the clip library %s with %s\n", argv[1], argv[2]);
    }
    manager.destroy();
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
