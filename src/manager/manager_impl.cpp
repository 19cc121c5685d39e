#include "manager/manager_impl.h"

#include <algorithm>

#include "format/save.h"
#include "fs/fs.h"
#include "manager/catalogue_scan.h"

namespace Korvel::CANTORIS::PLX {

namespace {

template <class Clips>
bool hasId(const Clips& clips, StringView id)
{
    return std::any_of(clips.begin(), clips.end(),
                       [id](const auto* clip) { return clip->idText() == id; });
}

std::uint32_t outcomeOf(const CatalogueScan& scan)
{
    return scan.hadMemory() ? KRT_PLX_RESULT_OK : KRT_PLX_RESULT_NO_MANAGER;
}

} // namespace

ManagerImpl::ManagerImpl(ManagerRequest&& request)
    : appID_(request.appID), systemClipDirPath_(request.systemClipDirPath),
      userClipDirPath_(request.userClipDirPath),
      extraSystemClipDirs_(std::move(request.extraSystemClipDirs)),
      extraUserClipDirs_(std::move(request.extraUserClipDirs))
{
}

// The additional system directories come after the main user directory. Hosts depend on this order:
// it decides which of several clips with one ID is listed.
std::uint32_t ManagerImpl::readAllClipFiles()
{
    systemClips_.clear();
    userClips_.clear();
    CatalogueScan scan(this, systemClips_, userClips_);
    KRT_PLX_Result result = scan.readSystemClips(systemClipDirPath_);
    if (result == KRT_PLX_RESULT_OK) {
        result = scan.readUserClips(userClipDirPath_);
    }
    if (result != KRT_PLX_RESULT_OK) {
        return result;
    }
    for (const String& directory : extraSystemClipDirs_) {
        scan.readSystemClips(directory);
    }
    for (const String& directory : extraUserClipDirs_) {
        scan.readUserClips(directory);
    }
    return outcomeOf(scan);
}

std::uint32_t ManagerImpl::readUserClipFiles()
{
    userClips_.clear();
    CatalogueScan scan(this, systemClips_, userClips_);
    const KRT_PLX_Result result = scan.readUserClips(userClipDirPath_);
    if (result != KRT_PLX_RESULT_OK) {
        return result;
    }
    for (const String& directory : extraUserClipDirs_) {
        scan.readUserClips(directory);
    }
    return outcomeOf(scan);
}

MutableClip* ManagerImpl::createMutableClip()
{
    return mutableClips_.append(
        std::make_unique<MutableClipImpl>(static_cast<MutableClipOwner&>(*this)));
}

bool ManagerImpl::owns(const MutableClipImpl& clip) const noexcept
{
    return mutableClips_.find(&clip) != mutableClips_.size();
}

bool ManagerImpl::hasClipWithId(StringView id) const
{
    return hasId(systemClips_, id) || hasId(userClips_, id);
}

UserClip* ManagerImpl::write(const MutableClipImpl& clip, StringView name, bool formatted,
                             KRT_PLX_Result& result)
{
    if (!fs::isDirectory(userClipDirPath_)) {
        result = KRT_PLX_RESULT_USER_DIRECTORY_MISSING;
        return nullptr;
    }
    format::NewClipFolder folder(userClipDirPath_,
                                 [this](StringView id) { return hasClipWithId(id); });
    result = folder.write(clip, name, formatted);
    if (result != KRT_PLX_RESULT_OK) {
        return nullptr;
    }
    auto saved = std::make_unique<UserClipImpl>(this);
    ClipProperties properties;
    result = folder.readBack(properties);
    if (result != KRT_PLX_RESULT_OK) {
        return nullptr;
    }
    saved->fill(std::move(properties), nullptr);
    saved->setPath(folder.dataPath());
    UserClip* const listed = userClips_.append(std::move(saved));
    folder.keep();
    return listed;
}

} // namespace Korvel::CANTORIS::PLX
