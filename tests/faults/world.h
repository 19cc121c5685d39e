// Clip folders with a little of everything, and a host that uses them.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "library_call.h"
#include "operations.h"
#include "support/host.h"
#include "support/saving.h"

namespace faults {

// What can be seen of a world. Clips are described with everything in them, by ID.
struct Sight {
    std::map<std::string, std::string> listed;
    std::string editable;
    support::Tree disk;
};

enum class Parts { unread, read };

// System clips: one of each kind of part, and one without a property document. User clips: one of each
// kind of part, named "Midi", "Ai" and "Audio".
class World {
public:
    World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World();

    // Destroys the manager, and restores the clip folders as they were at the beginning.
    void reset();

    void createManager(std::string_view userFolder = "user");
    void destroyManager();
    void scan();

    [[nodiscard]] KRT_PLX_ClipBase* userClip(std::string_view name) const;
    [[nodiscard]] support::Path folder(std::string_view name) const { return disk_ / name; }
    [[nodiscard]] support::Path wave() const { return scratch_.path() / "take.wav"; }

    // A clip's folder within disk(), with a slash at its end.
    [[nodiscard]] std::string folderOf(KRT_PLX_ClipBase* clip) const;

    [[nodiscard]] Sight look() const;

    // What another host lists in these folders.
    [[nodiscard]] std::map<std::string, std::string> whatAnotherHostSees(
        Parts parts = Parts::read, std::string_view userFolder = "user") const;

    // What the current work uses.
    KRT_PLX_Manager* manager = nullptr;
    KRT_PLX_ClipBase* clip = nullptr;
    KRT_PLX_ClipBase* editable = nullptr;
    KRT_PLX_ClipBase* saved = nullptr;
    KRT_PLX_PropertyEditor* editor = nullptr;
    std::uint32_t code = 0;
    support::Text appID = support::text("world");

private:
    void fill(const support::Path& folder, std::string_view prefix) const;

    support::ScratchFolder scratch_;
    support::Path model_ = scratch_.path() / "model";
    support::Path disk_ = scratch_.path() / "disk";
};

// Checks that nothing has changed except below the exception, if there is one.
void expectSameDisk(const support::Tree& before, const support::Tree& after,
                    std::string_view except = {});

// All clips that a manager lists, by their IDs.
std::map<std::string, std::string> describeListed(KRT_PLX_Manager* manager);

} // namespace faults
