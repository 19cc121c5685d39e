// What it costs that the disk has everything when a call says so, on the wall clock: beside the same
// without waiting, and beside the least that the system takes for it.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/clips.h"
#include "data/documents.h"
#include "data/files.h"
#include "data/parts.h"
#include "host/build.h"
#include "host/catalogue.h"
#include "limit/changes.h"
#include "support/contest.h"
#include "support/disk_waits.h"
#include "works/works.h"

namespace bench {

namespace {

constexpr std::size_t saves = 20;
constexpr std::size_t notes = 50;

class SmallClip {
public:
    explicit SmallClip(const DataFolder& data)
        : manager_({data.emptyFolder()}, data.scratch()),
          clip_(KRT_PLX_Manager_createMutableClip(manager_.handle()))
    {
        buildPart(clip_, toHost(makePart({.notes = notes}, 3)));
    }

    void save()
    {
        static const Text name = support::text("Small – 夜");
        for (std::size_t i = 0; i < saves; ++i) {
            saved_.push_back(KRT_PLX_MutableClip_save(clip_, name.c_str(), false, nullptr));
            require(saved_.back() != nullptr, "a small clip could not be saved");
        }
    }

    void removeSaved()
    {
        for (KRT_PLX_ClipBase* const clip : saved_) {
            require(KRT_PLX_UserClip_remove(clip), "a saved clip could not be removed");
        }
        saved_.clear();
    }

    [[nodiscard]] Path savedFile() const { return clipOf(saved_.front()).path; }

private:
    Manager manager_;
    KRT_PLX_ClipBase* clip_;
    std::vector<KRT_PLX_ClipBase*> saved_;
};

// Makes clip folders with the same documents by the system's calls alone.
class BareClips {
public:
    BareClips(const DataFolder& data, const Path& savedFile)
        : folder_(data.scratch()), data_(readFile(savedFile)),
          properties_(readFile(savedFile.parent_path() / "property.json"))
    {
    }

    void save() const
    {
        for (std::size_t i = 0; i < saves; ++i) {
            require(makeBare(folder_, name(i), {{"property.json", properties_}, {"clip", data_}}),
                    "a folder could not be made");
        }
    }

    void removeSaved() const
    {
        for (std::size_t i = 0; i < saves; ++i) {
            std::filesystem::remove_all(folder_ / name(i));
        }
    }

private:
    static std::string name(std::size_t index) { return "bare-" + std::to_string(index); }

    Path folder_;
    std::string data_;
    std::string properties_;
};

template <class Clips>
void addBoth(Contest& contest, const std::string& name, const std::shared_ptr<Clips>& clips)
{
    const auto remove = [clips] { clips->removeSaved(); };
    contest.add(
        {.name = name, .run = [clips] { clips->save(); }, .after = remove, .things = saves});
    contest.add({.name = name + ", without waiting for the disk",
                 .run =
                     [clips] {
                         const WithoutDiskWaits none;
                         clips->save();
                     },
                 .after = remove,
                 .things = saves});
}

} // namespace

void waitForDisk(Run& run)
{
    std::filesystem::create_directories(run.data.scratch());
    const auto library = std::make_shared<SmallClip>(run.data);
    library->save();
    const auto bare = std::make_shared<BareClips>(run.data, library->savedFile());
    library->removeSaved();
    Contest contest("save a clip of " + std::to_string(notes) + " notes, on the wall clock",
                    run.rounds);
    addBoth(contest, "library", library);
    addBoth(contest, "limit: bare calls", bare);
    contest.run(Clock::wall, run.table);
}

} // namespace bench
