#include "catalogue.h"

#include <algorithm>
#include <filesystem>
#include <random>

#include <fmt/format.h>

#include "commands.h"
#include "paths.h"
#include "plain.h"

namespace plxclip {

namespace plx = korvel::plx;
namespace files = std::filesystem;

namespace {

bool isFolder(const files::path& path)
{
    std::error_code error;
    return files::is_directory(path, error);
}

// The library separates folders by backslashes, on every system.
void requireName(const std::string& folder)
{
    if (files::path::preferred_separator != '\\' && folder.find('\\') != std::string::npos) {
        throw Failure(
            fmt::format("\"{}\" has a \"\\\" in its name, which stands between folders in the "
                        "library's paths; give it another name",
                        folder));
    }
}

void requireFolder(const std::string& folder)
{
    if (!isFolder(pathOf(folder))) {
        throw Failure(fmt::format(
            "there is no folder \"{}\"; name a folder that has clips somewhere below it", folder));
    }
    requireName(folder);
}

bool isLibrary(const std::string& folder)
{
    return isFolder(pathOf(folder) / "system") && isFolder(pathOf(folder) / "user");
}

void addLibrary(Folders& folders, const std::string& folder)
{
    folders.system.push_back(textOf(pathOf(folder) / "system"));
    folders.user.push_back(textOf(pathOf(folder) / "user"));
}

// Creates a manager. The names of its additional folders must only live until it is created.
plx::Manager createManager(const Folders& folders)
{
    const auto convert = [](const std::vector<std::string>& paths) {
        std::vector<plx::String> texts;
        for (const std::string& path : paths) {
            const std::u8string text = pathOf(path).make_preferred().u8string();
            texts.push_back(plx::fromUtf8(std::string(text.begin(), text.end())));
        }
        return texts;
    };
    const auto further = [](const std::vector<plx::String>& texts) {
        plx::Directories directories;
        for (std::size_t i = 1; i < texts.size(); ++i) {
            directories.push_back(texts[i].c_str());
        }
        return directories;
    };
    const std::vector<plx::String> system = convert(folders.system);
    const std::vector<plx::String> user = convert(folders.user);
    return plx::createManager(plx::fromUtf8("plxclip"), system.front(), user.front(),
                              further(system), further(user))
        .manager;
}

std::string idsOf(const std::vector<plx::Clip>& clips)
{
    std::string text;
    for (const plx::Clip clip : clips) {
        text += fmt::format("\n  {}  {}", plx::toUtf8(clip.id()), pathText(clip.path()));
    }
    return text;
}

// A hint at what the user may have meant.
std::string similarTo(const std::string& name, const std::vector<plx::Clip>& clips)
{
    constexpr std::size_t most = 10;
    std::string text;
    std::size_t found = 0;
    for (const plx::Clip clip : clips) {
        const std::string candidate = plx::toUtf8(clip.name());
        const bool isSimilar = isWantedText(candidate, name);
        found += isSimilar ? 1 : 0;
        text += isSimilar && found <= most ? fmt::format("\n  {}", candidate) : "";
    }
    return found > most ? text + fmt::format("\n  and {} more", found - most) : text;
}

[[noreturn]] void failToFind(const std::string& idOrName, const std::vector<plx::Clip>& clips)
{
    if (clips.empty()) {
        throw Failure(
            "there are no clips; \"plxclip check\" tells whether there are clip files that are "
            "not listed");
    }
    const std::string similar = similarTo(idOrName, clips);
    throw Failure(fmt::format("no clip has the ID or the name \"{}\"; {}", idOrName,
                              similar.empty() ? "\"plxclip list --long\" shows those that there are"
                                              : "these have it in their name:" + similar));
}

} // namespace

Folders foldersOf(const std::vector<std::string>& folders,
                  const std::vector<std::string>& userFolders)
{
    if (folders.empty() && userFolders.empty()) {
        throw Failure("no DIR given: name a folder that has clips somewhere below it", exitUsage);
    }
    Folders result;
    std::vector<std::string>& others = userFolders.empty() ? result.user : result.system;
    for (const std::string& folder : folders) {
        requireFolder(folder);
        if (isLibrary(folder)) {
            addLibrary(result, folder);
        } else {
            others.push_back(folder);
        }
    }
    for (const std::string& folder : userFolders) {
        requireFolder(folder);
        result.user.push_back(folder);
    }
    return result;
}

Folders foldersToChange(const std::string& folder)
{
    return foldersOf({folder}, {});
}

std::string folderToSaveInto(const std::string& target)
{
    requireName(target);
    return isLibrary(target) ? textOf(pathOf(target) / "user") : target;
}

EmptyFolder::EmptyFolder()
{
    std::random_device random;
    std::error_code error;
    const files::path path =
        files::temp_directory_path(error) / fmt::format("plxclip-{:08x}{:08x}", random(), random());
    if (error || !files::create_directory(path, error)) {
        throw Failure(
            "no temporary folder can be made; see whether TMPDIR (on Windows TEMP) names a "
            "folder that may be written to, and whether the disk is full");
    }
    folder = textOf(path);
}

EmptyFolder::~EmptyFolder()
{
    std::error_code error;
    files::remove(pathOf(folder), error);
}

Catalogue::Catalogue(Folders folders)
{
    for (std::vector<std::string>* const list : {&folders.system, &folders.user}) {
        if (list->empty()) {
            list->push_back(empty.path());
        }
    }
    manages = createManager(folders);
    if (!manages || manages.readAllClipFiles() != plx::Result::ok) {
        throw Failure("the clip folders cannot be opened; see whether you may read them, and "
                      "write to the folder for new clips");
    }
}

Catalogue::~Catalogue()
{
    manages.destroy();
}

std::vector<plx::Clip> Catalogue::clips() const
{
    std::vector<plx::Clip> clips;
    for (const plx::Clip clip : manages.systemClips()) {
        clips.push_back(clip);
    }
    for (const plx::Clip clip : manages.userClips()) {
        clips.push_back(clip);
    }
    return clips;
}

plx::Clip Catalogue::find(const std::string& idOrName) const
{
    const std::vector<plx::Clip> all = clips();
    std::vector<plx::Clip> named;
    for (const plx::Clip clip : all) {
        if (plx::toUtf8(clip.id()) == idOrName) {
            return clip;
        }
        if (plx::toUtf8(clip.name()) == idOrName) {
            named.push_back(clip);
        }
    }
    if (named.empty()) {
        failToFind(idOrName, all);
    }
    if (named.size() > 1) {
        throw Failure(fmt::format("{} clips have the name \"{}\"; give the ID of one:{}",
                                  named.size(), idOrName, idsOf(named)));
    }
    return named.front();
}

plx::UserClip Catalogue::findUserClip(const std::string& idOrName) const
{
    const plx::Clip clip = find(idOrName);
    if (clip.type() != plx::ClipKind::user) {
        throw Failure(fmt::format("\"{}\" is a system clip, and these cannot be changed; \"plxclip "
                                  "copy\" makes a user clip of it",
                                  idOrName));
    }
    return clip.asUserClip();
}

} // namespace plxclip
