#include "manager/user_clip_impl.h"

#include "clip/clip_files.h"
#include "fs/fs.h"
#include "manager/manager_impl.h"

namespace Korvel::CANTORIS::PLX {

namespace {

// Not by asking first: a link that leads nowhere does not exist, but would stay.
bool removeIfThere(const String& path)
{
    return fs::remove(path) || !fs::exists(path);
}

} // namespace

UserClipImpl::UserClipImpl(ManagerImpl* manager) : ClipImpl(manager, kind), owner_(manager) {}

bool UserClipImpl::remove()
{
    if (!owner_->userClips().has<ClipBase>(this)) {
        return false;
    }
    const String directory(fs::parentPath(pathText()));
    if (!removeIfThere(pathText()) || !removeIfThere(propertyPath(pathText()))) {
        return false;
    }
    removeAudio(directory);
    fs::removeEmptyFolder(directory);
    return owner_->discard(*this);
}

// The part's wave path comes from a document, which may name any place: only what lies within the
// clip's own folder is the clip's to delete.
void UserClipImpl::removeAudio(const String& clipDirectory)
{
    const AudioPart* const part = audioPart();
    if (part == nullptr || isNullOrEmpty(part->wavFilePath())) {
        return;
    }
    const String folder(fs::parentPath(part->wavFilePath()));
    if (fs::isStrictlyBelow(folder, clipDirectory)) {
        fs::removeTree(folder);
    }
}

PropertyEditor* UserClipImpl::createPropertyEditor()
{
    editor_ = std::make_unique<PropertyEditorImpl>(*this);
    return editor_.get();
}

// Whichever editor there is goes: a clip has but one.
void UserClipImpl::destroyPropertyEditor(PropertyEditor*)
{
    editor_.reset();
}

} // namespace Korvel::CANTORIS::PLX
