#include "manager/user_clip_impl.h"

#include "clip/clip_files.h"
#include "fs/fs.h"
#include "manager/manager_impl.h"

namespace Korvel::CANTORIS::PLX {

namespace {

// Not by asking first: a link that leads nowhere does not exist, but would stay.
bool removeIfThere(const String& path)
{
    return fs::remove(path) || fs::isMissing(path);
}

// The clip is gone without its documents; what stays of its audio is no failure.
void removeTreeIfPossible(const String& path)
{
    try {
        fs::removeTree(path);
    } catch (...) {
        // There was no memory to list the folder.
    }
}

} // namespace

UserClipImpl::UserClipImpl(ManagerImpl* manager) : ClipImpl(manager, kind), owner_(manager) {}

// What needs memory comes before the first file goes: without it nothing is removed.
bool UserClipImpl::remove()
{
    if (!owner_->userClips().has<ClipBase>(this)) {
        return false;
    }
    const String directory(fs::parentPath(pathText()));
    const String properties = propertyPath(pathText());
    const String audio = ownAudioFolder(directory);
    if (!removeIfThere(pathText()) || !removeIfThere(properties)) {
        return false;
    }
    removeTreeIfPossible(audio);
    fs::removeEmptyFolder(directory);
    return owner_->discard(*this);
}

// The part's wave path comes from a document, which may name any place: only what lies within the
// clip's own folder is the clip's to delete. Empty where there is none.
String UserClipImpl::ownAudioFolder(const String& clipDirectory) const
{
    const AudioPart* const part = audioPart();
    if (part == nullptr || isNullOrEmpty(part->wavFilePath())) {
        return {};
    }
    String folder(fs::parentPath(part->wavFilePath()));
    return fs::isStrictlyBelow(folder, clipDirectory) ? folder : String();
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
