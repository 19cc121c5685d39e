#include "singing_higher.hpp"

#include <cstdio>
#include <vector>

#include <korvel/plx.hpp>

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

bool saveFirst(plx::Manager manager, const char* text, const char* name)
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

bool singHigher(char* const words[4])
{
    const auto [manager, code] = plx::createManager(
        plx::fromUtf8("sing_higher"), plx::fromUtf8(words[0]), plx::fromUtf8(words[1]));
    if (!manager) {
        std::fprintf(stderr, "%s\n", plx::textOf(code).data());
    }
    const bool isDone = saveFirst(manager, words[2], words[3]);
    manager.destroy();
    return isDone;
}
