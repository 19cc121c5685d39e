#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "data/parts.h"
#include "data/random.h"
#include "host/build.h"
#include "host/catalogue.h"
#include "support/contest.h"
#include "works/works.h"

namespace bench {

namespace {

using Notes = std::shared_ptr<const HostPart>;

enum class Order { ascending, reversed, shuffled };

Notes notesInOrder(std::size_t count, Order order)
{
    HostPart part = toHost(makePart(
        {.notes = count, .hasLanes = false, .hasEffects = false, .ornament = Ornament::both}, 6));
    if (order == Order::reversed) {
        std::reverse(part.notes.begin(), part.notes.end());
    } else if (order == Order::shuffled) {
        Random(7).shuffle(part.notes);
    }
    return std::make_shared<const HostPart>(std::move(part));
}

void insertOnly(KRT_PLX_PartBase* part, const HostNote& note)
{
    KRT_PLX_MutableMidiPart_insertNote(part, note.pos, note.duration, note.lyric.c_str(),
                                       note.phoneme.c_str(), note.langID);
}

// Into an empty part each time. Making that and destroying what was built is not counted.
Contestant library(const Run& run, const Notes& notes,
                   void (*build)(KRT_PLX_PartBase*, const HostNote&))
{
    const auto manager =
        std::make_shared<Manager>(std::vector{run.data.emptyFolder()}, run.data.scratch());
    auto* const clip = KRT_PLX_Manager_createMutableClip(manager->handle());
    const auto buildAll = [=, lifetime = manager] {
        auto* const part = KRT_PLX_MutableClip_midiPart(clip);
        for (const HostNote& note : notes->notes) {
            build(part, note);
        }
    };
    const auto checkCount = [=] {
        std::uint64_t count = 0;
        KRT_PLX_MidiPartBase_numNotes(KRT_PLX_MutableClip_midiPart(clip), &count);
        require(count == notes->notes.size(), "a note could not be built");
    };
    return {.name = "library",
            .run = buildAll,
            .before = [=] { buildEmptyPart(clip, *notes); },
            .after = checkCount};
}

// A copy of each note as an object of its own, put in order at the end.
Contestant plainObjects(const Notes& notes)
{
    using Objects = std::vector<std::unique_ptr<HostNote>>;
    const auto objects = std::make_shared<Objects>();
    const auto copyAll = [=] {
        for (const HostNote& note : notes->notes) {
            objects->push_back(std::make_unique<HostNote>(note));
        }
        std::stable_sort(objects->begin(), objects->end(),
                         [](const auto& a, const auto& b) { return a->pos < b->pos; });
    };
    return {.name = "plain objects, sorted once", .run = copyAll, .after = [=] {
                *objects = Objects();
            }};
}

struct NamedOrder {
    const char* name;
    Order order;
};

constexpr std::array orders{NamedOrder{"in order", Order::ascending},
                            NamedOrder{"reversed", Order::reversed},
                            NamedOrder{"shuffled", Order::shuffled}};

void growShuffled(Run& run, const char* work, void (*build)(KRT_PLX_PartBase*, const HostNote&))
{
    const std::size_t most = run.data.size().builtNotes;
    Contest contest(std::string(work) + ", shuffled", run.rounds * 2);
    for (const std::size_t count : {most, most / 10}) {
        Contestant contestant = library(run, notesInOrder(count, Order::shuffled), build);
        contestant.name = "library, " + std::to_string(count) + " notes";
        if (count != most) {
            contestant.target = Target{20};
        }
        contest.add(contestant);
    }
    contest.run(run.clock, run.table);
}

} // namespace

void buildNotes(Run& run)
{
    const std::size_t count = run.data.size().builtNotes;
    for (const auto& [name, order] : orders) {
        const Notes notes = notesInOrder(count, order);
        Contest contest("build " + std::to_string(count) + " notes, " + name, run.rounds);
        contest.add(library(run, notes, buildNote));
        contest.add(plainObjects(notes));
        contest.run(run.clock, run.table);
    }
    growShuffled(run, "insert notes", insertOnly);
    growShuffled(run, "build notes", buildNote);
}

} // namespace bench
