#include "manager/user_clip_impl.h"

#include <algorithm>
#include <vector>

#include "clip/clip_files.h"
#include "fs/fs.h"
#include "manager/manager_impl.h"

namespace Korvel::CANTORIS::PLX {

namespace {

using Names = std::vector<StringView>;

Names namesOf(StringView path)
{
    Names names;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of(R"(\/)"_t), path.size());
        names.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return names;
}

// The names of the path, with "." and ".." resolved; empty when ".." leads above its beginning.
Names withoutDetours(StringView path)
{
    Names names;
    for (const StringView name : namesOf(path)) {
        if (name == ".."_t) {
            if (names.empty()) {
                return {};
            }
            names.pop_back();
        } else if (!name.empty() && name != "."_t) {
            names.push_back(name);
        }
    }
    return names;
}

// The names from the clip's folder down to the folder of its wave file. The wave path comes from a
// document, which may name any place, but only the clip's own audio folder, and what is in it, may
// be deleted with the clip. Empty for any other place.
Names wayToOwnAudio(StringView clipDirectory, StringView waveFolder)
{
    const Names own = withoutDetours(clipDirectory);
    const Names all = withoutDetours(waveFolder);
    if (all.size() <= own.size() || !std::equal(own.begin(), own.end(), all.begin()) ||
        all[own.size()] != audioFolderName) {
        return {};
    }
    return {all.begin() + static_cast<std::ptrdiff_t>(own.size()), all.end()};
}

// Goes down from the clip's folder without following links. What cannot be removed stays: without
// its documents the clip is gone anyway.
void removeTree(const fs::Folder& clipFolder, const Names& way)
{
    try {
        fs::Folder folder;
        for (std::size_t i = 0; i + 1 < way.size(); ++i) {
            folder = (i == 0 ? clipFolder : folder).inner(way[i]);
            if (!folder.isOpen()) {
                return;
            }
        }
        (way.size() == 1 ? clipFolder : folder).removeTree(way.back());
    } catch (...) {
        // There was no memory to list the folder.
    }
}

// Does not ask first whether the entry exists: a link that leads nowhere would seem not to, and
// would stay.
bool removeIfThere(const fs::Folder& folder, StringView name)
{
    return folder.remove(name) || folder.isMissing(name);
}

// Whether no other program is editing the clip. True also where there is no property document, or
// no longer: while this program waited for it, another one may have removed the clip.
bool isFree(const fs::HeldFile& properties, const fs::Folder& folder, const fs::Path& path)
{
    return properties.state() == fs::HeldFile::State::held
               ? properties.isAt(path) || folder.isMissing(propertyFileName)
               : properties.state() != fs::HeldFile::State::busy;
}

// The clip file is removed first. Everything that needs memory comes before that, so that nothing
// is removed when memory runs out.
bool removeDocuments(const fs::Path& clipPath, const Names& wayToAudio)
{
    const fs::Path directory = fs::folderOf(clipPath);
    const String document = propertyPath(clipPath.text);
    const fs::Folder folder = fs::Folder::open(directory);
    if (!folder.isOpen()) {
        return fs::isMissing(directory);
    }
    fs::Patience patience;
    const fs::HeldFile held = folder.hold(propertyFileName, fs::Folder::Purpose::removal, patience);
    if (!isFree(held, folder, {document, clipPath.givenLength}) ||
        !removeIfThere(folder, fs::fileName(clipPath.text)) ||
        !removeIfThere(folder, propertyFileName)) {
        return false;
    }
    if (!wayToAudio.empty()) {
        removeTree(folder, wayToAudio);
    }
    return true;
}

} // namespace

UserClipImpl::UserClipImpl(ManagerImpl* manager) : ClipImpl(manager, kind), owner_(manager) {}

bool UserClipImpl::remove()
{
    if (!owner_->userClips().has<ClipBase>(this)) {
        return false;
    }
    const fs::Path directory = fs::folderOf(filePath());
    const AudioPart* const part = audioPart();
    const StringView wave = part == nullptr ? StringView() : viewOrEmpty(part->wavFilePath());
    if (!removeDocuments(filePath(), wayToOwnAudio(directory.text, fs::parentPath(wave)))) {
        return false;
    }
    fs::removeEmptyFolder(directory);
    return owner_->discard(*this);
}

PropertyEditor* UserClipImpl::createPropertyEditor()
{
    editor_ = std::make_unique<PropertyEditorImpl>(*this);
    return editor_.get();
}

// A clip has only one editor, so the argument does not matter.
void UserClipImpl::destroyPropertyEditor(PropertyEditor*)
{
    editor_.reset();
}

} // namespace Korvel::CANTORIS::PLX
