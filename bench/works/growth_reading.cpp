#include <memory>
#include <string>

#include "data/hostile.h"
#include "host/catalogue.h"
#include "support/contest.h"
#include "support/heap.h"
#include "works/works.h"

namespace bench {

namespace {

constexpr Target growthTarget{13};

std::shared_ptr<Manager> managerOf(const DataFolder& data, const std::string& kind,
                                   std::size_t count)
{
    return std::make_shared<Manager>(std::vector{data.clips(hostileName(kind, count))},
                                     data.emptyFolder());
}

// Reading the catalogue anew, between the runs, makes a clip whose part has not been read.
Contestant readPart(const DataFolder& data, const std::string& kind, std::size_t count)
{
    const auto manager = managerOf(data, kind, count);
    return {.name = "library, " + std::to_string(count),
            .run =
                [=] {
                    require(KRT_PLX_Clip_readPart(manager->systemClip(0)),
                            "a hostile part could not be read");
                },
            .before = [=] { manager->read(); }};
}

Contestant readCatalogue(const DataFolder& data, const std::string& kind, std::size_t count)
{
    const auto manager = managerOf(data, kind, count);
    return {.name = "library, " + std::to_string(count), .run = [=] {
                manager->read();
                require(manager->systemClipCount() == 1, "a hostile clip was not listed");
            }};
}

void grow(Run& run, const std::string& kind,
          Contestant (*contestant)(const DataFolder&, const std::string&, std::size_t))
{
    const std::size_t count = run.data.size().hostile;
    Contestant small = contestant(run.data, kind, count);
    small.target = growthTarget;
    Contest contest("read " + kind, run.rounds);
    contest.add(contestant(run.data, kind, count * 10));
    contest.add(small);
    contest.run(run.clock, run.table);
}

} // namespace

void growReading(Run& run)
{
    keepFreedMemory();
    for (const char* const kind : hostileParts) {
        grow(run, kind, readPart);
    }
    for (const char* const kind : hostileProperties) {
        grow(run, kind, readCatalogue);
    }
}

} // namespace bench
