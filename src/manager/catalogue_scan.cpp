#include "manager/catalogue_scan.h"

#include <new>

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

// Whether the folder is the outer one or inside it.
bool isWithin(StringView folder, StringView outer)
{
    return folder.starts_with(outer) &&
           (folder.size() == outer.size() || folder[outer.size()] == fs::separator);
}

} // namespace

CatalogueScan::CatalogueScan(ManagerImpl* manager, OwnedList<SystemClipImpl>& systemClips,
                             OwnedList<UserClipImpl>& userClips)
    : manager_(manager), systemClips_(systemClips), userClips_(userClips),
      systemIds_(idsOf(systemClips)), userIds_(idsOf(userClips))
{
}

KRT_PLX_Result CatalogueScan::readSystemClips(const String& directory)
{
    return read(directory, systemClips_, systemIds_,
                [this](StringView id) { return systemIds_.contains(id); });
}

KRT_PLX_Result CatalogueScan::readUserClips(const String& directory)
{
    return read(directory, userClips_, userIds_,
                [this](StringView id) { return userIds_.contains(id) || systemIds_.contains(id); });
}

template <class ClipT, class IsTaken>
KRT_PLX_Result CatalogueScan::read(const String& directory, OwnedList<ClipT>& clips, Ids& ids,
                                   IsTaken isTaken)
{
    if (!fs::isDirectory(directory)) {
        return KRT_PLX_RESULT_DIRECTORY_MISSING;
    }
    folders_.clear();
    const auto visit = [&](const String& path, const fs::Neighbours& neighbours) {
        if (fs::extension(path) != clipExtension) {
            return;
        }
        Properties& properties = folders_.propertiesOf(fs::parentPath(path));
        auto clip = std::make_unique<ClipT>(manager_);
        if (!load({path, directory.size()}, neighbours.kindOf(propertyFileName), *clip,
                  properties)) {
            return;
        }
        if (!isTaken(clip->idText())) {
            clip->setPath({path, directory.size()});
            list(clips, std::move(clip), ids);
        }
        properties = properties == Properties::read ? Properties::listed : properties;
    };
    try {
        hadMemory_ = fs::forEachFile(directory, visit) && hadMemory_;
    } catch (const std::bad_alloc&) {
        hadMemory_ = false; // not even enough to begin with this directory; the others are read
    }
    return KRT_PLX_RESULT_OK;
}

template <class ClipT>
void CatalogueScan::list(OwnedList<ClipT>& clips, std::unique_ptr<ClipT> clip, Ids& ids)
{
    const ClipT* const listed = clips.append(std::move(clip));
    try {
        ids.insert(listed->idText());
    } catch (...) {
        clips.take(clips.size() - 1);
        throw;
    }
}

// Loads from the property document beside the clip file or, if that gives no clip, from the whole
// clip file. A property document that has given a clip gives no second one, because its ID is
// taken.
bool CatalogueScan::load(const fs::Path& path, fs::Kind kindOfProperties, ClipImpl& clip,
                         Properties& properties)
{
    format::LoadedClip loaded;
    if (properties == Properties::unread || properties == Properties::read) {
        const String document = propertyPath(path.text);
        const bool isRead = loader_.loadProperties({document, path.givenLength}, loaded.properties,
                                                   kindOfProperties);
        if (isRead) {
            clip.fill(std::move(loaded.properties), nullptr);
            properties = Properties::read;
            return true;
        }
        properties = Properties::refused;
        loaded = {};
    }
    if (properties != Properties::refused || !loader_.loadClip(path, &clip, loaded)) {
        return false;
    }
    clip.fill(std::move(loaded.properties), std::move(loaded.part));
    return true;
}

CatalogueScan::Properties& CatalogueScan::OpenFolders::propertiesOf(StringView folder)
{
    while (depth_ > 0 && !isWithin(folder, folders_[depth_ - 1].path)) {
        --depth_;
    }
    if (depth_ == 0 || folders_[depth_ - 1].path != folder) {
        if (depth_ == folders_.size()) {
            folders_.emplace_back();
        }
        folders_[depth_].path = folder;
        folders_[depth_].properties = Properties::unread;
        ++depth_;
    }
    return folders_[depth_ - 1].properties;
}

} // namespace Korvel::CANTORIS::PLX
