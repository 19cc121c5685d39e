#include <algorithm>
#include <array>
#include <string_view>

#include "alternatives/plain.h"
#include "alternatives/plain_document.h"

namespace bench::plain {

namespace {

constexpr std::array<std::u16string_view, 3> partTypes{u"audio", u"midiAi", u"midi"};

using Texts = std::vector<std::u16string>;

template <class T>
void addOnce(T&& tag, std::vector<std::decay_t<T>>& tags)
{
    if (std::find(tags.begin(), tags.end(), tag) == tags.end()) {
        tags.push_back(std::forward<T>(tag));
    }
}

void readTags(const Value* array, Texts& tags)
{
    forEach(array, [&](const Value* element) {
        std::u16string tag;
        if (readText(element, tag) && !tag.empty()) {
            addOnce(std::move(tag), tags);
        }
    });
}

void readLanguages(const Value* array, std::vector<std::int32_t>& languages)
{
    forEach(array, [&](const Value* element) {
        std::int32_t language = 0;
        if (readInteger(element, 0, INT32_MAX, language)) {
            addOnce(std::move(language), languages);
        }
    });
}

void readFilter(const Value* filter, Clip& clip)
{
    if (filter == nullptr || !filter->IsObject()) {
        return;
    }
    readTags(find(filter, u"singerGroups"), clip.filter.singerGroups);
    clip.filter.vendors.push_back(clip.vendorName);
    readLanguages(find(filter, u"languages"), clip.filter.languages);
    readTags(find(filter, u"singerIDs"), clip.filter.singerIDs);
    readTags(find(filter, u"types"), clip.filter.types);
    readTags(find(filter, u"genres"), clip.filter.genres);
}

bool readPartHeader(const Value* part, Clip& clip)
{
    std::u16string type;
    if (!readText(find(part, u"type"), type)) {
        return false;
    }
    const auto* const found = std::find(partTypes.begin(), partTypes.end(), type);
    clip.partType = static_cast<std::uint32_t>(found - partTypes.begin()) + 1;
    readNumber(find(part, u"key"), 30, clip.partKey);
    readNumber(find(part, u"tempo"), 30000, clip.partTempo);
    return found != partTypes.end();
}

bool readClip(const Document& document, Clip& clip)
{
    if (!readText(find(&document, u"id"), clip.id) || clip.id.empty() ||
        !readText(find(&document, u"name"), clip.name) || clip.name.empty() ||
        !readPartHeader(find(&document, u"part"), clip)) {
        return false;
    }
    readText(find(&document, u"vendor"), clip.vendorName);
    readFilter(find(&document, u"filter"), clip);
    return true;
}

void addClip(const Path& file, Catalogue& catalogue)
{
    Document document;
    Clip clip;
    if (parseFile(file.parent_path() / "property.json", document) && readClip(document, clip)) {
        clip.path = file.u16string();
        catalogue.add(std::move(clip));
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

} // namespace bench::plain
