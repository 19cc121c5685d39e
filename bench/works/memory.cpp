#include <filesystem>
#include <optional>
#include <string>

#include "alternatives/nlohmann.h"
#include "alternatives/plain.h"
#include "alternatives/simdjson.h"
#include "data/parts.h"
#include "host/build.h"
#include "host/catalogue.h"
#include "support/heap.h"
#include "works/works.h"

namespace bench {

namespace {

struct Weighing {
    std::string work;
    double things;
    std::optional<Target> target = std::nullopt; // in bytes
    std::optional<Target> blocks = std::nullopt;
    std::optional<Target> peak = std::nullopt; // in bytes
};

Row exactRow(const Weighing& weighing, const std::string& contestant, Unit unit, double value,
             std::optional<Target> target = std::nullopt)
{
    Row row{weighing.work, contestant, unit, {value, value, value, value, value}};
    row.target = target;
    return row;
}

// What the work leaves on the heap, and what it had there at the most. The work returns what it
// made, so that it is still there.
template <class Work>
void weigh(Run& run, const Weighing& weighing, const std::string& contestant, Work work,
           bool isLibrary = false)
{
    const HeapMeter meter;
    [[maybe_unused]] const auto made = work();
    const HeapUse use = HeapMeter::use();
    const auto ofLibrary = [isLibrary](std::optional<Target> target) {
        return isLibrary ? target : std::nullopt;
    };
    run.table.add(exactRow(weighing, contestant, Unit::bytes,
                           static_cast<double>(use.bytes) / weighing.things,
                           ofLibrary(weighing.target)));
    run.table.add(exactRow(weighing, contestant + ", blocks", Unit::count,
                           static_cast<double>(use.blocks) / weighing.things,
                           ofLibrary(weighing.blocks)));
    run.table.add(exactRow({weighing.work + ", peak in all", 1}, contestant, Unit::bytes,
                           static_cast<double>(use.peak), ofLibrary(weighing.peak)));
}

template <class CatalogueT, class Scan>
auto scanned(Scan scan, const std::vector<Path>& folders)
{
    return [=] {
        CatalogueT catalogue;
        scan(folders, catalogue);
        return catalogue;
    };
}

// The manager is there before, the clip read: what is weighed is the part.
void weighLibraryPart(Run& run, const std::string& name, const Weighing& weighing,
                      const std::string& contestant = "library")
{
    Manager manager({run.data.clips(name)}, run.data.emptyFolder());
    manager.read();
    const auto read = [&] {
        require(KRT_PLX_Clip_readPart(manager.systemClip(0)), "a part could not be read");
        return 0;
    };
    weigh(run, weighing, contestant, read, true);
}

void weighBuiltNotes(Run& run, Ornament ornament, const Weighing& weighing,
                     const std::string& contestant)
{
    const std::size_t notes = run.data.size().builtNotes;
    const HostPart part = toHost(makePart(
        {.notes = notes, .hasLanes = false, .hasEffects = false, .ornament = ornament}, 3));
    Manager manager({run.data.emptyFolder()}, run.data.scratch());
    auto* const clip = KRT_PLX_Manager_createMutableClip(manager.handle());
    weigh(run, weighing, contestant, [&] { return buildPart(clip, part); });
}

} // namespace

void weighCatalogue(Run& run)
{
    const std::size_t clips = run.data.size().scanForMemory;
    const std::vector<Path> folders = run.data.vendorsOf(clips);
    // Six of its own, and a share of the lists of tags that it has in common with other clips.
    const Weighing weighing{"heap per catalogue clip", static_cast<double>(clips), Target{1024},
                            Target{6.1}};
    Manager manager(folders, run.data.emptyFolder());
    const auto read = [&] {
        manager.read();
        return 0;
    };
    weigh(run, weighing, "library", read, true);
    weigh(run, weighing, "plain form", scanned<plain::Catalogue>(plain::scan, folders));
    weigh(run, weighing, "filesystem + nlohmann", scanned<Catalogue>(with_nlohmann::scan, folders));
    weigh(run, weighing, "filesystem + simdjson", scanned<Catalogue>(with_simdjson::scan, folders));
}

void weighParts(Run& run)
{
    const auto notes = static_cast<double>(run.data.size().builtNotes);
    const Path file = run.data.document("notes");
    const Weighing note{"heap per note, all expressions", notes, Target{700}};
    weighLibraryPart(run, "notes", note);
    weigh(run, note, "plain form", [&] { return plain::readPart(file); });
    weigh(run, note, "filesystem + nlohmann", [&] { return with_nlohmann::readPart(file); });
    weigh(run, note, "filesystem + simdjson", [&] { return with_simdjson::readPart(file); });
    weighBuiltNotes(run, Ornament::singingSkill, note, "library, editable");
    weighLibraryPart(run, "dvqm", {"heap per note with two Dvqms", notes});
    weighBuiltNotes(run, Ornament::dvqm, {"heap per note with two Dvqms", notes},
                    "library, editable");
    const auto bytes = static_cast<double>(std::filesystem::file_size(run.data.document("big")));
    weighLibraryPart(run, "big",
                     {"heap of the big part", 1, std::nullopt, std::nullopt, Target{2.2 * bytes}});
}

} // namespace bench
