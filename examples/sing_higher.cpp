// Saves a clip two semitones higher: a host in C++17 that uses korvel/plx.hpp and the kit.
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <korvel/plx.hpp>

extern "C" {
#include "console.h"
}

namespace {

namespace plx = korvel::plx;

void tell(const plx::Notices& notices)
{
    for (const plx::Notice& notice : notices) {
        std::fprintf(stderr, "%s\n", notice.text.c_str());
    }
}

// [higher]
plx::UserClip saveHigher(plx::Clip clip, plx::StringView name)
{
    const plx::EditResult copy = plx::edit(clip);
    const plx::ChangeResult change = plx::transpose(copy.clip.midiPart(), 2);
    const plx::SaveResult saved = change ? copy.clip.save(name) : plx::SaveResult();
    copy.clip.destroy();
    tell(copy.notices);
    tell(change.notices);
    return saved.clip;
}
// [higher]

bool singHigher(plx::Manager manager, const char* text, const char* name)
{
    plx::Query query;
    query.name = plx::fromUtf8(text);
    manager.readAllClipFiles();
    const std::vector<plx::Clip> found = plx::find(manager, query);
    const plx::UserClip saved =
        found.empty() ? plx::UserClip() : saveHigher(found.front(), plx::fromUtf8(name));
    std::printf("%s\n", plx::toUtf8(saved.id()).c_str());
    return static_cast<bool>(saved);
}

} // namespace

int main(int argc, char** argv)
{
    console_start(&argc, &argv);
    if (argc != 5) {
        std::fprintf(stderr, "usage: sing_higher SYSTEM-FOLDER USER-FOLDER CLIP NEW-NAME\n");
        return EXIT_FAILURE;
    }
    const auto [manager, code] = plx::createManager(plx::fromUtf8("sing_higher"),
                                                    plx::fromUtf8(argv[1]), plx::fromUtf8(argv[2]));
    if (!manager) {
        std::fprintf(stderr, "%s\n", plx::textOf(code).data());
    }
    const bool isDone = singHigher(manager, argv[3], argv[4]);
    manager.destroy();
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
