#include "manager/catalogue_scan.h"

#include "clip/clip_files.h"
#include "fs/fs.h"
#include "manager/manager_impl.h"

namespace Korvel::CANTORIS::PLX {

namespace {

template <class Clips>
std::unordered_set<StringView> idsOf(const Clips& clips)
{
    std::unordered_set<StringView> ids;
    for (const auto* clip : clips) {
        ids.insert(clip->idText());
    }
    return ids;
}

} // namespace

CatalogueScan::CatalogueScan(ManagerImpl* manager, OwnedList<SystemClipImpl>& systemClips,
                             OwnedList<UserClipImpl>& userClips)
    : manager_(manager), systemClips_(systemClips), userClips_(userClips),
      systemIds_(idsOf(systemClips)), userIds_(idsOf(userClips))
{
}

Result CatalogueScan::readSystemClips(const String& directory)
{
    return read(directory, systemClips_, systemIds_,
                [this](StringView id) { return systemIds_.contains(id); });
}

Result CatalogueScan::readUserClips(const String& directory)
{
    return read(directory, userClips_, userIds_,
                [this](StringView id) { return userIds_.contains(id) || systemIds_.contains(id); });
}

template <class ClipT, class IsTaken>
Result CatalogueScan::read(const String& directory, OwnedList<ClipT>& clips, Ids& ids,
                           IsTaken isTaken)
{
    if (!fs::isDirectory(directory)) {
        return Result::noDirectory;
    }
    fs::forEachFile(directory, [&](const String& path, const fs::Neighbours& neighbours) {
        if (fs::extension(path) != clipExtension) {
            return;
        }
        auto clip = std::make_unique<ClipT>(manager_);
        if (!load(path, neighbours.kindOf(propertyFileName), *clip) || isTaken(clip->idText())) {
            return;
        }
        clip->setPath(path);
        const ClipT* const listed = clips.append(std::move(clip));
        ids.insert(listed->idText());
    });
    return Result::success;
}

// From the property document beside the clip file or, where that gives no clip, from the clip file
// itself, whole.
bool CatalogueScan::load(const String& path, fs::Kind kindOfProperties, ClipImpl& clip)
{
    format::LoadedClip loaded;
    if (!loader_.loadProperties(propertyPath(path), loaded.properties, kindOfProperties)) {
        loaded = {};
        if (!loader_.loadClip(path, &clip, loaded)) {
            return false;
        }
    }
    clip.fill(std::move(loaded.properties), std::move(loaded.part));
    return true;
}

} // namespace Korvel::CANTORIS::PLX
