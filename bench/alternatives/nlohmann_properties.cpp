#include <fstream>

#include <nlohmann/json.hpp>

#include "alternatives/nlohmann.h"
#include "model/keys.h"

namespace bench::with_nlohmann {

bool saveProperties(const Path& file, const Clip& clip)
{
    using json = nlohmann::ordered_json;
    json document;
    document["id"] = clip.id;
    document["name"] = clip.name;
    document["vendor"] = clip.vendorName;
    json& filter = document["filter"];
    filter["singerGroups"] = clip.filter.singerGroups;
    filter["languages"] = clip.filter.languages;
    filter["singerIDs"] = clip.filter.singerIDs;
    filter["types"] = clip.filter.types;
    filter["genres"] = clip.filter.genres;
    json& part = document["part"];
    part["type"] = keys::partTypes[clip.partType - 1];
    part["key"] = clip.partKey;
    part["tempo"] = clip.partTempo;
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << document;
    out.close();
    return out.good();
}

} // namespace bench::with_nlohmann
