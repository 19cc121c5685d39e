// Cooks each recipe of the manual once, in a clip library, and prints what came of it.
#include <cstdio>
#include <cstdlib>

#include "recipes.hpp"

extern "C" {
#include "../console.h"
#include "recipes.h"
}

namespace {

namespace plx = recipes::plx;
using plx::fromUtf8;

void print(const char* recipe, plx::Result code)
{
    std::printf("%s: %s\n", recipe, std::string(plx::textOf(code)).c_str());
}

void print(const char* recipe, std::uint32_t code)
{
    print(recipe, static_cast<plx::Result>(code));
}

void print(const char* recipe, bool isDone)
{
    std::printf("%s: %s\n", recipe, isDone ? "done" : "failed");
}

// A clip to try the recipes on: the first that has notes.
plx::Clip chooseClip(plx::Manager manager)
{
    for (const plx::Clip clip : manager.systemClips()) {
        clip.readPart();
        if (!clip.midiPart().notes().empty()) {
            return clip;
        }
    }
    return {};
}

bool addVibrato(plx::Clip clip)
{
    const plx::MutableClip copy = plx::edit(clip).clip;
    const bool isDone = add_vibrato(copy.midiPart().note(0).raw());
    copy.destroy();
    return isDone;
}

void cook(plx::Manager manager, plx::Clip clip)
{
    const auto name = fromUtf8("Cooked");
    std::printf("find: %u slow clips\n",
                static_cast<unsigned>(
                    recipes::findSlowClips(manager, fromUtf8(""), fromUtf8("Folk")).size()));
    print("change",
          save_reworded(clip.raw(), fromUtf8("la").c_str(), fromUtf8("l a").c_str(), name.c_str()));
    print("vibrato", addVibrato(clip));
    print("phrase", save_phrase(clip.raw(), 0, 1920, name.c_str()));
    print("transpose", save_transposed(clip.raw(), 2, name.c_str()));
    print("rename", rename_clip(manager.userClips().back().raw(), fromUtf8("Done").c_str()));
    save_and_tell(clip.raw(), name.c_str(), stdout);
}

} // namespace

int main(int argc, char** argv)
{
    console_start(&argc, &argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: recipes SYSTEM-FOLDER USER-FOLDER\n");
        return EXIT_FAILURE;
    }
    auto loading =
        recipes::loadInBackground(fromUtf8("recipes"), fromUtf8(argv[1]), fromUtf8(argv[2]));
    const plx::Manager manager = loading.get();
    const plx::Clip clip = chooseClip(manager);
    if (clip) {
        cook(manager, clip);
    }
    manager.destroy();
    return clip ? EXIT_SUCCESS : EXIT_FAILURE;
}
