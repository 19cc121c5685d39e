#include "alternatives/simdjson.h"
#include "alternatives/simdjson_values.h"
#include "model/keys.h"

namespace bench::with_simdjson {

namespace {

void readFilter(const Value& object, Clip& clip)
{
    if (object.error() != simdjson::SUCCESS) {
        return;
    }
    readAll(object["singerGroups"], clip.filter.singerGroups);
    readAll(object["languages"], clip.filter.languages);
    readAll(object["singerIDs"], clip.filter.singerIDs);
    readAll(object["types"], clip.filter.types);
    readAll(object["genres"], clip.filter.genres);
    clip.filter.vendors.push_back(clip.vendorName);
}

void addClip(const Path& file, simdjson::dom::parser& parser, Catalogue& catalogue)
{
    const Value document = parser.load((file.parent_path() / "property.json").string());
    if (document.error() != simdjson::SUCCESS) {
        return;
    }
    Clip clip;
    read(document["id"], clip.id);
    read(document["name"], clip.name);
    read(document["vendor"], clip.vendorName);
    std::string_view type;
    read(document["part"]["type"], type);
    clip.partType = keys::indexOf(keys::partTypes, type) + 1;
    read(document["part"]["key"], clip.partKey);
    read(document["part"]["tempo"], clip.partTempo);
    readFilter(document["filter"], clip);
    clip.path = file.string();
    if (!clip.id.empty() && !clip.name.empty() && clip.partType <= keys::partTypes.size()) {
        catalogue.add(std::move(clip));
    }
}

} // namespace

void scan(const std::vector<Path>& folders, Catalogue& catalogue)
{
    simdjson::dom::parser parser;
    for (const Path& folder : folders) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (entry.path().extension() == ".kxclip" && entry.is_regular_file()) {
                addClip(entry.path(), parser, catalogue);
            }
        }
    }
}

} // namespace bench::with_simdjson
