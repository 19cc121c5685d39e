#include "completion/catalogue_words.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "catalogue.h"
#include "commands.h"
#include "paths.h"
#include "reading.h"

namespace plxclip::completion {

namespace fs = std::filesystem;

namespace {

// Of files and folders. 5,000 clips have 15,000, and take a third of a second.
constexpr std::size_t mostEntries = 20'000;

bool isSmall(const std::string& folder)
{
    std::error_code error;
    std::size_t entries = 0;
    // A library follows links, too.
    for (fs::recursive_directory_iterator entry(
             pathOf(folder), fs::directory_options::follow_directory_symlink, error);
         !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        if (++entries > mostEntries) {
            return false;
        }
    }
    return !error;
}

// A shell leaves a tilde to whoever asks for completion.
std::string withHome(const std::string& folder)
{
    const char* const home = std::getenv("HOME");
    return folder.starts_with("~/") && home != nullptr ? home + folder.substr(1) : folder;
}

std::vector<Properties> readClips(const Folders& folders)
{
    for (const auto& each : {folders.system, folders.user}) {
        if (!std::ranges::all_of(each, isSmall)) {
            return {};
        }
    }
    std::vector<Properties> clips;
    const Catalogue catalogue(folders);
    for (const korvel::plx::Clip clip : catalogue.clips()) {
        clips.push_back(propertiesOf(clip));
    }
    return clips;
}

std::vector<Properties> userClipsIn(const std::string& folder)
{
    std::vector<Properties> clips = readClips(foldersToChange(folder));
    std::erase_if(clips, [](const Properties& clip) { return !clip.isUserClip; });
    return clips;
}

// Reading must not make a folder that is missing.
std::vector<Properties> clipsOf(const Place& place)
{
    const std::string folder = withHome(place.folder);
    std::error_code error;
    if (!fs::is_directory(pathOf(folder), error)) {
        return {};
    }
    try {
        return place.isForUserClips ? userClipsIn(folder)
                                    : readClips(foldersOf({folder}, place.userFolders));
    } catch (const Failure&) {
        return {};
    }
}

bool isOneLine(const std::string& text)
{
    return !text.empty() && std::ranges::none_of(text, [](char letter) {
        return static_cast<unsigned char>(letter) < ' ' || letter == '\x7F';
    });
}

} // namespace

std::vector<Candidate> clipsIn(const Place& place, const std::string& current)
{
    const std::vector<Properties> clips = clipsOf(place);
    std::map<std::string_view, int> namesakes;
    for (const Properties& clip : clips) {
        ++namesakes[clip.name];
    }
    std::vector<Candidate> candidates;
    for (const Properties& clip : clips) {
        const bool hasGoodName = namesakes[clip.name] == 1 && isOneLine(clip.name);
        if (hasGoodName) {
            candidates.push_back({clip.name, clip.vendor});
        }
        if (isOneLine(clip.id) && (!hasGoodName || !current.empty())) {
            candidates.push_back({clip.id, clip.name});
        }
    }
    return candidates;
}

std::vector<Candidate> tagsIn(const Place& place, Tag tag)
{
    std::vector<Candidate> candidates;
    for (const TagCount& count : countTags(clipsOf(place), tag)) {
        if (isOneLine(count.tag)) {
            candidates.push_back({count.tag, ""});
        }
    }
    return candidates;
}

} // namespace plxclip::completion
