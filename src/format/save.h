// Saves a mutable clip into a new folder of the user clip directory: the interface of this folder
// for code that writes.
#pragma once

#include <functional>

#include "clip/clip_properties.h"
#include "clip/mutable_clip_impl.h"
#include "fs/fs.h"
#include "korvel/plx/common.h"

namespace Korvel::CANTORIS::PLX::format {

// Replaces a user clip's property document, see rewriteDocument(). Fails before it opens the file
// if the document cannot be written at all. False when the document was not written.
bool rewriteProperties(const fs::Path& path, const ClipBase& clip, const Filter& tags,
                       StringView id, StringView name);

// The folder of a clip that is being saved. Unless it is kept, it is removed with everything in it,
// so that nothing of a failed attempt is left.
class NewClipFolder {
public:
    using IsTaken = std::function<bool(StringView id)>;

    NewClipFolder(const String& userClipDirectory, const IsTaken& isTaken);
    NewClipFolder(const NewClipFolder&) = delete;
    NewClipFolder& operator=(const NewClipFolder&) = delete;
    ~NewClipFolder();

    fs::Path dataPath() const { return {dataPath_, userClipDirectory_.size()}; }

    // Makes the folder, copies an audio part's wave file and writes both documents. Success when
    // they are on the disk.
    KRT_PLX_Result write(const MutableClipImpl& clip, StringView name, bool formatted);

    // What a scan would read of the clip that was written.
    KRT_PLX_Result readBack(ClipProperties& properties) const;

    void keep() { folder_ = {}; }

private:
    class Documents;

    bool make();
    KRT_PLX_Result copyWave(PartBase& part);
    KRT_PLX_Result writeDocuments(const Documents& documents) const;
    void remove();
    void emptyProperties() const;

    String userClipDirectory_;
    String id_;
    String dataName_;
    String dataPath_;
    String waveName_;
    fs::Folder userFolder_;
    fs::Folder folder_; // open while there may be something to remove
    fs::Folder audioFolder_;
};

} // namespace Korvel::CANTORIS::PLX::format
