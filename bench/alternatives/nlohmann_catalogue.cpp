#include <fstream>

#include <nlohmann/json.hpp>

#include "alternatives/nlohmann.h"
#include "model/keys.h"

namespace bench::with_nlohmann {

namespace {

using nlohmann::json;

Filter filterOf(const json& document)
{
    Filter filter;
    filter.singerGroups = document.value("singerGroups", std::vector<std::string>{});
    filter.languages = document.value("languages", std::vector<std::int32_t>{});
    filter.singerIDs = document.value("singerIDs", std::vector<std::string>{});
    filter.types = document.value("types", std::vector<std::string>{});
    filter.genres = document.value("genres", std::vector<std::string>{});
    return filter;
}

Clip clipOf(const json& document)
{
    Clip clip;
    clip.id = document.at("id").get<std::string>();
    clip.name = document.at("name").get<std::string>();
    clip.vendorName = document.value("vendor", std::string());
    const json& part = document.at("part");
    clip.partType =
        keys::indexOf(keys::partTypes, part.at("type").get_ref<const std::string&>()) + 1;
    clip.partKey = part.value("key", 0U);
    clip.partTempo = part.value("tempo", 0U);
    if (const auto filter = document.find("filter"); filter != document.end()) {
        clip.filter = filterOf(*filter);
        clip.filter.vendors.push_back(clip.vendorName);
    }
    return clip;
}

void addClip(const Path& file, Catalogue& catalogue)
{
    std::ifstream in(file.parent_path() / "property.json", std::ios::binary);
    try {
        Clip clip = clipOf(json::parse(in));
        clip.path = file.string();
        catalogue.add(std::move(clip));
    } catch (const json::exception&) {
        return;
    }
}

} // namespace

void scan(const std::vector<Path>& folders, Catalogue& catalogue)
{
    for (const Path& folder : folders) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (entry.path().extension() == ".kxclip" && entry.is_regular_file()) {
                addClip(entry.path(), catalogue);
            }
        }
    }
}

} // namespace bench::with_nlohmann
