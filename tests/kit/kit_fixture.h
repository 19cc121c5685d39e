// A host that is linked to the library and uses the kit.
#pragma once

#include <string>
#include <vector>

#include <korvel/plx_kit.h>
#include <korvel/plx_loader.h>

#include "support/clip_model.h"
#include "support/editing.h"
#include "support/saving.h"

namespace kit {

// What a report was told, in the order of the telling.
class Notices {
public:
    Notices() { all_.reserve(1000); } // so that keeping one does not allocate
    Notices(const Notices&) = delete;
    Notices& operator=(const Notices&) = delete;

    KRT_PLX_KitReport* report() { return &report_; }

    // Each as "note 2 at 480: langID: had no language and was given one".
    [[nodiscard]] std::vector<std::string> lines() const;
    [[nodiscard]] const std::vector<KRT_PLX_KitNotice>& all() const { return all_; }

private:
    static void keep(void* context, const KRT_PLX_KitNotice* notice);

    std::vector<KRT_PLX_KitNotice> all_;
    KRT_PLX_KitReport report_ = {keep, this, 0};
};

inline const KRT_PLX_Api* linked()
{
    return KRT_PLX_Kit_linked();
}

// Gives an editable clip something of everything, nothing as it is at first.
void fillWithEverything(KRT_PLX_ClipBase* clip);

} // namespace kit
