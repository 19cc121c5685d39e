#include <array>
#include <memory>
#include <string>
#include <vector>

#include "data/random.h"
#include "host/build.h"
#include "host/catalogue.h"
#include "support/contest.h"
#include "support/heap.h"
#include "works/works.h"

namespace bench {

namespace {

// What the building of one kind works with.
struct Stage {
    KRT_PLX_ClipBase* clip = nullptr;
    KRT_PLX_PartBase* part = nullptr;
    std::vector<std::int32_t> ascending;
    std::vector<std::int32_t> shuffled;
    std::vector<Text> names; // shuffled too
    Text lyric = support::text("ラ");
    Text phoneme = support::text("4 a");
};

Stage makeStage(std::size_t count)
{
    Stage stage;
    for (std::size_t i = 0; i < count; ++i) {
        stage.ascending.push_back(static_cast<std::int32_t>(i) * 10);
    }
    stage.shuffled = stage.ascending;
    Random(9).shuffle(stage.shuffled);
    for (const std::int32_t number : stage.shuffled) {
        stage.names.push_back(support::text("name " + std::to_string(number)));
    }
    return stage;
}

KRT_PLX_NoteBase* insertNote(const Stage& stage, std::int32_t pos, std::int32_t duration)
{
    return KRT_PLX_MutableMidiPart_insertNote(stage.part, pos, duration, stage.lyric.c_str(),
                                              stage.phoneme.c_str(), 0);
}

void effectsBehind(const Stage& stage)
{
    for (const Text& name : stage.names) {
        KRT_PLX_MutableMidiPart_insertAudioEffect(stage.part, UINT64_MAX, name.c_str());
    }
}

void effectsInFront(const Stage& stage)
{
    for (const Text& name : stage.names) {
        KRT_PLX_MutableMidiPart_insertMidiEffect(stage.part, 0, name.c_str());
    }
}

void effectsWithOneID(const Stage& stage)
{
    for (std::size_t i = 0; i < stage.names.size(); ++i) {
        KRT_PLX_MutableMidiPart_insertAudioEffect(stage.part, 0, stage.names.front().c_str());
    }
}

void parameters(const Stage& stage)
{
    auto* const effect =
        KRT_PLX_MutableMidiPart_insertMidiEffect(stage.part, 0, stage.names.front().c_str());
    for (const Text& name : stage.names) {
        KRT_PLX_MutableEffect_addParameter(effect, name.c_str());
    }
}

void notesReversed(const Stage& stage)
{
    for (auto pos = stage.ascending.rbegin(); pos != stage.ascending.rend(); ++pos) {
        insertNote(stage, *pos, 10);
    }
}

void notesAtOnePosition(const Stage& stage)
{
    for (std::size_t i = 0; i < stage.ascending.size(); ++i) {
        insertNote(stage, 0, 10);
    }
}

void events(const Stage& stage)
{
    auto* const lane = KRT_PLX_MutableMidiPart_addMidiController(stage.part, 0);
    for (const std::int32_t pos : stage.shuffled) {
        KRT_PLX_MutableMidiController_insertEvent(lane, pos, 64);
    }
}

void eventsRemoved(const Stage& stage)
{
    auto* const lane = KRT_PLX_MutableMidiPart_addMidiController(stage.part, 0);
    std::vector<KRT_PLX_MidiEventBase*> events;
    for (const std::int32_t pos : stage.ascending) {
        events.push_back(KRT_PLX_MutableMidiController_insertEvent(lane, pos, 64));
    }
    for (const std::int32_t pos : stage.shuffled) {
        KRT_PLX_MutableMidiEvent_remove(events[static_cast<std::size_t>(pos) / 10]);
    }
}

void eventsReversed(const Stage& stage)
{
    auto* const lane = KRT_PLX_MutableMidiPart_addMidiController(stage.part, 0);
    for (auto pos = stage.ascending.rbegin(); pos != stage.ascending.rend(); ++pos) {
        KRT_PLX_MutableMidiController_insertEvent(lane, *pos, 64);
    }
}

void eventsAtOnePosition(const Stage& stage)
{
    auto* const lane = KRT_PLX_MutableMidiPart_addMidiController(stage.part, 0);
    for (std::size_t i = 0; i < stage.ascending.size(); ++i) {
        KRT_PLX_MutableMidiController_insertEvent(lane, 0, 64);
    }
}

void vibratoPoints(const Stage& stage)
{
    const std::int32_t duration = static_cast<std::int32_t>(stage.ascending.size()) * 10;
    auto* const vibrato = KRT_PLX_MutableNote_vibrato(insertNote(stage, 0, duration));
    KRT_PLX_MutableVibrato_setDuration(vibrato, duration);
    for (const std::int32_t pos : stage.shuffled) {
        KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_DEPTH, pos, 64);
    }
}

void filterTags(const Stage& stage)
{
    auto* const filter = KRT_PLX_MutableClip_filter(stage.clip);
    for (const Text& name : stage.names) {
        KRT_PLX_MutableFilter_addType(filter, name.c_str());
    }
}

// As for the notes of the work "build", with the same numbers: each insertion looks for its place.
constexpr Target growthTarget{20};

// A tag is searched for among up to a thousand others, which by itself grows with the square.
constexpr Target tagTarget{110};

struct Kind {
    const char* name;
    void (*build)(const Stage&);
    Target target = growthTarget;
};

constexpr std::array kinds{Kind{"effects with distinct IDs", effectsBehind},
                           Kind{"effects with distinct IDs, each before all", effectsInFront},
                           Kind{"effects with one ID", effectsWithOneID},
                           Kind{"parameters of one effect", parameters},
                           Kind{"notes in reverse order", notesReversed},
                           Kind{"notes at one position", notesAtOnePosition},
                           Kind{"events of one lane", events},
                           Kind{"events in reverse order", eventsReversed},
                           Kind{"events and remove them again", eventsRemoved},
                           Kind{"events at one position", eventsAtOnePosition},
                           Kind{"vibrato points", vibratoPoints},
                           Kind{"filter tags", filterTags, tagTarget}};

// Builds into a new clip and destroys it, both counted: lists can be slow at either.
Contestant contestant(const Run& run, const Kind& kind, std::size_t count)
{
    const auto manager =
        std::make_shared<Manager>(std::vector{run.data.emptyFolder()}, run.data.scratch());
    const auto stage = std::make_shared<Stage>(makeStage(count));
    const auto build = [=, work = kind.build] {
        stage->clip = KRT_PLX_Manager_createMutableClip(manager->handle());
        stage->part = KRT_PLX_MutableClip_createMidiPart(stage->clip);
        work(*stage);
        KRT_PLX_MutableClip_destroy(stage->clip);
    };
    return {.name = "library, " + std::to_string(count), .run = build};
}

constexpr std::size_t longTag = 1'000'000;
constexpr std::size_t tagsBehind = 1000;
constexpr Target behindTarget{1.5};

// Adds tags to a list that begins with one of that length; adding that one is not counted.
Contestant behindTag(const Run& run, std::size_t length)
{
    const auto manager =
        std::make_shared<Manager>(std::vector{run.data.emptyFolder()}, run.data.scratch());
    const auto stage = std::make_shared<Stage>(makeStage(tagsBehind));
    const auto begin = [=] {
        stage->clip = KRT_PLX_Manager_createMutableClip(manager->handle());
        KRT_PLX_MutableFilter_addType(KRT_PLX_MutableClip_filter(stage->clip),
                                      Text(length, u'x').c_str());
    };
    const auto end = [=] { KRT_PLX_MutableClip_destroy(stage->clip); };
    return {.name = "library, behind " + std::to_string(length) + " units",
            .run = [=] { filterTags(*stage); },
            .before = begin,
            .after = end};
}

void buildBehindLongTag(Run& run)
{
    Contest contest("build filter tags behind a long one", run.rounds);
    Contestant behindShort = behindTag(run, 1);
    behindShort.target = behindTarget;
    contest.add(behindTag(run, longTag));
    contest.add(behindShort);
    contest.run(run.clock, run.table);
}

} // namespace

void growBuilding(Run& run)
{
    keepFreedMemory();
    const std::size_t count = run.data.size().hostile / 10;
    for (const Kind& kind : kinds) {
        Contest contest(std::string("build ") + kind.name, run.rounds);
        Contestant small = contestant(run, kind, count);
        small.target = kind.target;
        contest.add(contestant(run, kind, count * 10));
        contest.add(small);
        contest.run(run.clock, run.table);
    }
    buildBehindLongTag(run);
}

} // namespace bench
