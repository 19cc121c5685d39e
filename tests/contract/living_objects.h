// One living object of every kind that the library has, read-only and editable, each with values
// other than the no-value marks and with at least one child of every sort.
#pragma once

#include <string_view>
#include <vector>

#include "contract/export_table.h"
#include "support/host.h"

namespace contract {

struct LivingObject {
    std::string_view kind;
    Family family;
    void* handle;
    std::vector<std::string_view> classes; // whose functions take it

    [[nodiscard]] bool is(std::string_view className) const;
    [[nodiscard]] bool isMutable() const { return kind.starts_with("editable"); }
};

class LivingObjects {
public:
    LivingObjects();

    [[nodiscard]] const std::vector<LivingObject>& all() const { return objects_; }

    // An object of each family. Of clips, parts and so on the read-only one.
    [[nodiscard]] const Elements& elements() const { return elements_; }

private:
    void add(LivingObject object);
    void addCatalogue();
    void addMutableClip();
    void addReadPart(KRT_PLX_ClipBase* clip);
    void addReadNote(KRT_PLX_NoteBase* note);
    void addReadEffects(KRT_PLX_PartBase* part);
    void addMutablePart(KRT_PLX_PartBase* part);
    void addMutableNote(KRT_PLX_NoteBase* note);
    void addMutableEffects(KRT_PLX_PartBase* part);

    support::ScratchFolder scratch_;
    support::OwnedManager manager_;
    std::vector<LivingObject> objects_;
    Elements elements_;
};

} // namespace contract
