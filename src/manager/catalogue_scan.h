// Fills the clip lists from the clip directories.
#pragma once

#include <unordered_set>

#include "format/load.h"
#include "fs/fs.h"
#include "manager/clip_impl.h"
#include "manager/user_clip_impl.h"
#include "model/lists.h"
#include "result.h"

namespace Korvel::CANTORIS::PLX {

// One reading of clip files. Clips that the lists hold already count for the test for duplicates.
class CatalogueScan {
public:
    CatalogueScan(ManagerImpl* manager, OwnedList<SystemClipImpl>& systemClips,
                  OwnedList<UserClipImpl>& userClips);

    // Appends the clips below the directory, in the order in which the file system lists them. A clip
    // whose ID is taken is passed over: a system clip's by another system clip, a user clip's by any.
    Result readSystemClips(const String& directory);
    Result readUserClips(const String& directory);

private:
    using Ids = std::unordered_set<StringView>;

    template <class ClipT, class IsTaken>
    Result read(const String& directory, OwnedList<ClipT>& clips, Ids& ids, IsTaken isTaken);
    bool load(const String& path, fs::Kind kindOfProperties, ClipImpl& clip);

    ManagerImpl* manager_;
    OwnedList<SystemClipImpl>& systemClips_;
    OwnedList<UserClipImpl>& userClips_;
    Ids systemIds_;
    Ids userIds_;
    format::Loader loader_;
};

} // namespace Korvel::CANTORIS::PLX
