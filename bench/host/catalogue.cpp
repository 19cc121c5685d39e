#include "host/catalogue.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace bench {

namespace {

Text nextApplicationID()
{
    static int count = 0;
    return support::text("benchmark " + std::to_string(++count));
}

std::vector<const KRT_PLX_Char*> pointersTo(const std::vector<Text>& texts)
{
    std::vector<const KRT_PLX_Char*> pointers;
    for (const Text& text : texts) {
        pointers.push_back(text.c_str());
    }
    return pointers;
}

template <class Count, class Element>
auto elementsOf(KRT_PLX_Filter* filter, Count count, Element element)
{
    std::uint64_t number = 0;
    count(filter, &number);
    std::vector<decltype(element(filter, number))> elements;
    for (std::uint64_t i = 0; i < number; ++i) {
        elements.push_back(element(filter, i));
    }
    return elements;
}

template <class Count, class Element>
std::vector<std::string> tagsOf(KRT_PLX_Filter* filter, Count count, Element element)
{
    return elementsOf(filter, count, [element](KRT_PLX_Filter* owner, std::uint64_t index) {
        return support::utf8(element(owner, index));
    });
}

Filter filterOf(KRT_PLX_Filter* filter)
{
    return {.singerGroups =
                tagsOf(filter, KRT_PLX_Filter_numSingerGroups, KRT_PLX_Filter_singerGroup),
            .vendors = tagsOf(filter, KRT_PLX_Filter_numVendors, KRT_PLX_Filter_vendor),
            .languages = elementsOf(filter, KRT_PLX_Filter_numLanguages, KRT_PLX_Filter_language),
            .singerIDs = tagsOf(filter, KRT_PLX_Filter_numSingerIDs, KRT_PLX_Filter_singerID),
            .types = tagsOf(filter, KRT_PLX_Filter_numTypes, KRT_PLX_Filter_type),
            .genres = tagsOf(filter, KRT_PLX_Filter_numGenres, KRT_PLX_Filter_genre)};
}

} // namespace

void require(bool condition, const char* what)
{
    if (!condition) {
        throw std::runtime_error(what);
    }
}

Text textOf(const Path& path)
{
    return support::text(path.string());
}

Manager::Manager(const std::vector<Path>& systemFolders, const Path& userFolder)
{
    std::vector<Text> further;
    for (std::size_t i = 1; i < systemFolders.size(); ++i) {
        further.push_back(textOf(systemFolders[i]));
    }
    const std::vector<const KRT_PLX_Char*> pointers = pointersTo(further);
    std::uint32_t result = KRT_PLX_RESULT_OK;
    handle_ =
        KRT_PLX_CreateManager(nextApplicationID().c_str(), textOf(systemFolders.front()).c_str(),
                              textOf(userFolder).c_str(), pointers.data(),
                              static_cast<std::int32_t>(pointers.size()), nullptr, 0, &result);
    require(handle_ != nullptr, "no manager could be created");
}

void Manager::read()
{
    require(KRT_PLX_Manager_readAllClipFiles(handle_) == KRT_PLX_RESULT_OK,
            "the catalogue could not be read");
}

std::uint64_t Manager::systemClipCount() const
{
    std::uint64_t count = 0;
    KRT_PLX_Manager_numSystemClips(handle_, &count);
    return count;
}

std::uint64_t Manager::userClipCount() const
{
    std::uint64_t count = 0;
    KRT_PLX_Manager_numUserClips(handle_, &count);
    return count;
}

KRT_PLX_ClipBase* Manager::systemClip(std::uint64_t index) const
{
    return KRT_PLX_Manager_systemClip(handle_, index);
}

KRT_PLX_ClipBase* Manager::userClip(std::uint64_t index) const
{
    return KRT_PLX_Manager_userClip(handle_, index);
}

Clip clipOf(KRT_PLX_ClipBase* clip)
{
    Clip result;
    result.id = support::utf8(KRT_PLX_Clip_id(clip));
    result.name = support::utf8(KRT_PLX_Clip_name(clip));
    result.vendorName = support::utf8(KRT_PLX_ClipBase_vendorName(clip));
    result.path = support::utf8(KRT_PLX_Clip_path(clip));
    std::replace(result.path.begin(), result.path.end(), '\\', '/');
    result.partType = KRT_PLX_ClipBase_partType(clip);
    result.partKey = KRT_PLX_ClipBase_partKey(clip);
    result.partTempo = KRT_PLX_ClipBase_partTempo(clip);
    result.filter = filterOf(KRT_PLX_Clip_filter(clip));
    return result;
}

} // namespace bench
