#include "check/library.h"

#include "check/files.h"

namespace plxclip::check {

namespace plx = korvel::plx;

Library::Library(plx::Manager manager)
{
    for (const plx::Clip clip : manager.systemClips()) {
        add(clip, systemFiles);
    }
    for (const plx::Clip clip : manager.userClips()) {
        add(clip, userFiles);
    }
}

void Library::add(plx::Clip clip, Files& files)
{
    const std::string path = keyOf(plx::toUtf8(clip.path()));
    clips.emplace(path, clip);
    files.emplace(clip.id(), path);
}

std::optional<plx::Clip> Library::find(std::string_view path) const
{
    const auto place = clips.find(keyOf(path));
    return place == clips.end() ? std::nullopt : std::optional(place->second);
}

std::string Library::fileWithID(const plx::String& id, bool isUserClip) const
{
    const auto system = systemFiles.find(id);
    if (system != systemFiles.end()) {
        return system->second;
    }
    const auto user = userFiles.find(id);
    return isUserClip && user != userFiles.end() ? user->second : std::string();
}

} // namespace plxclip::check
