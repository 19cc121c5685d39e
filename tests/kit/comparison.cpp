#include "comparison.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <sstream>

namespace kit {

using support::ClipModel;

namespace {

// "clip.part.notes[3].attack.speed" -> "50"
using Lines = std::map<std::string, std::string>;

Lines linesOf(const ClipModel& model)
{
    Lines result;
    std::istringstream stream(describe(model));
    std::string line;
    std::string path;
    while (std::getline(stream, line)) {
        const std::size_t sign = line.find(" = ");
        if (line.starts_with("clip") && sign != std::string::npos) {
            path = line.substr(0, sign);
        }
        result[path] += line; // a text may have lines itself
    }
    return result;
}

bool isOneOf(const std::string& path, std::initializer_list<const char*> words)
{
    return std::ranges::any_of(
        words, [&](const char* word) { return path.find(word) != std::string::npos; });
}

// What a notice would be about: "note 3", "attack 3", "lanes", "audio effect 0", "tags".
std::string itemOf(const std::string& path)
{
    const std::size_t bracket = path.find('[');
    const std::string number = bracket == std::string::npos
                                   ? ""
                                   : " " + std::to_string(std::stoi(path.substr(bracket + 1)));
    for (const char* const item : {"attack", "release", "singingSkill", "vibrato"}) {
        if (path.find(std::string("].") + item) != std::string::npos) {
            return item + number;
        }
    }
    if (isOneOf(path, {"clip.part.key", "clip.part.tempo", "clip.vendor."})) {
        return "clip";
    }
    if (isOneOf(path, {".notes["})) {
        return "note" + number;
    }
    if (isOneOf(path, {".audioEffects["})) {
        return "audioEffect" + number;
    }
    if (isOneOf(path, {".midiEffects["})) {
        return "midiEffect" + number;
    }
    if (isOneOf(path, {".lanes"})) {
        return "lanes";
    }
    return path.starts_with("clip.part") ? "part" : "tags";
}

std::string itemOf(const KRT_PLX_KitNotice& notice)
{
    static const char* const names[] = {"clip",   "tags",        "part",         "note",
                                        "attack", "release",     "singingSkill", "vibrato",
                                        "lanes",  "audioEffect", "midiEffect"};
    const bool isNumbered = notice.item >= KRT_PLX_KIT_NOTE && notice.item != KRT_PLX_KIT_LANE;
    return names[notice.item] + (isNumbered ? " " + std::to_string(notice.index) : "");
}

// How many notes or effects there are, which one that is missing shows as well.
bool isNumberOfItems(const std::string& path)
{
    return path == "clip.part.notes.size" || path == "clip.part.audioEffects.size" ||
           path == "clip.part.midiEffects.size";
}

// The paths of the lines that differ, but for the path of the wave file.
std::vector<std::string> differingPaths(const ClipModel& left, const ClipModel& right)
{
    Lines here = linesOf(left);
    Lines there = linesOf(right);
    std::set<std::string> paths;
    for (Lines* const lines : {&here, &there}) {
        for (const auto& [path, line] : *lines) {
            paths.insert(path);
        }
    }
    std::vector<std::string> differing;
    std::ranges::copy_if(paths, std::back_inserter(differing), [&](const std::string& path) {
        return here[path] != there[path] && path != "clip.part.wavFilePath" &&
               !isNumberOfItems(path);
    });
    return differing;
}

bool isNamedBy(const std::string& path, const KRT_PLX_KitNotice& notice)
{
    const std::string key = notice.property;
    const std::string property = key == "aiVoice.langIDs" ? "aiLangIDs" : key; // as the getters say
    if (property.empty() && notice.item == KRT_PLX_KIT_NOTE) {
        return path.find(".notes[" + std::to_string(notice.index) + "]") != std::string::npos;
    }
    return itemOf(notice) == itemOf(path) &&
           (property.empty() || path.find("." + property) != std::string::npos);
}

} // namespace

Items differences(const ClipModel& left, const ClipModel& right)
{
    Items items;
    for (const std::string& path : differingPaths(left, right)) {
        items.insert(itemOf(path));
    }
    return items;
}

std::vector<std::string> untold(const ClipModel& left, const ClipModel& right, const Notices& told)
{
    std::vector<std::string> paths = differingPaths(left, right);
    std::erase_if(paths, [&](const std::string& path) {
        return std::ranges::any_of(
            told.all(), [&](const KRT_PLX_KitNotice& notice) { return isNamedBy(path, notice); });
    });
    return paths;
}

Items itemsOf(const Notices& notices)
{
    Items items;
    for (const KRT_PLX_KitNotice& notice : notices.all()) {
        items.insert(itemOf(notice));
    }
    return items;
}

} // namespace kit
