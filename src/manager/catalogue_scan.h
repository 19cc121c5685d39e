// Fills the clip lists from the clip directories.
#pragma once

#include <memory>
#include <unordered_set>
#include <vector>

#include "format/load.h"
#include "fs/fs.h"
#include "korvel/plx/common.h"
#include "manager/clip_impl.h"
#include "manager/user_clip_impl.h"
#include "model/lists.h"

namespace Korvel::CANTORIS::PLX {

// One reading of clip files. A clip with the ID of a clip that is already in the lists is a
// duplicate.
class CatalogueScan {
public:
    CatalogueScan(ManagerImpl* manager, OwnedList<SystemClipImpl>& systemClips,
                  OwnedList<UserClipImpl>& userClips);

    // Appends the clips below the directory, in the order in which the file system lists them. A
    // clip is left out if its ID is taken: for a system clip by another system clip, for a user
    // clip by any.
    KRT_PLX_Result readSystemClips(const String& directory);
    KRT_PLX_Result readUserClips(const String& directory);

    // False when memory ran out; then the clips for which there was none were left out.
    [[nodiscard]] bool hadMemory() const { return hadMemory_; }

private:
    using Ids = std::unordered_set<StringView>;

    // The state of the property document of a folder, which all clip files in it share. `read`
    // lasts until its clip is listed: if memory runs out before that, the next clip file reads it
    // again.
    enum class Properties { unread, refused, read, listed };

    // The folder of the last clip file and its parents. The scan visits a folder's files together,
    // interrupted only by the folders in it.
    class OpenFolders {
    public:
        void clear() { depth_ = 0; }

        // `unread` for a folder that was not visited before.
        Properties& propertiesOf(StringView folder);

    private:
        struct OpenFolder {
            String path;
            Properties properties = Properties::unread;
        };

        std::vector<OpenFolder> folders_; // entries beyond depth_ are kept to reuse their memory
        std::size_t depth_ = 0;
    };

    template <class ClipT, class IsTaken>
    KRT_PLX_Result read(const String& directory, OwnedList<ClipT>& clips, Ids& ids,
                        IsTaken isTaken);
    template <class ClipT>
    static void list(OwnedList<ClipT>& clips, std::unique_ptr<ClipT> clip, Ids& ids);
    bool load(const fs::Path& path, fs::Kind kindOfProperties, ClipImpl& clip,
              Properties& properties);

    ManagerImpl* manager_;
    OwnedList<SystemClipImpl>& systemClips_;
    OwnedList<UserClipImpl>& userClips_;
    Ids systemIds_;
    Ids userIds_;
    OpenFolders folders_;
    bool hadMemory_ = true;
    format::Loader loader_;
};

} // namespace Korvel::CANTORIS::PLX
