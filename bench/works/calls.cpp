#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "data/parts.h"
#include "host/build.h"
#include "host/catalogue.h"
#include "limit/virtual_call.h"
#include "works/works.h"

namespace bench {

namespace {

constexpr const char* bareCall = "limit: bare virtual call";

// An editable note, and what the calls are compared with.
class Targets {
public:
    explicit Targets(const DataFolder& data)
        : manager_({data.emptyFolder()}, data.scratch()),
          part_(KRT_PLX_MutableClip_createMidiPart(
              KRT_PLX_Manager_createMutableClip(manager_.handle())))
    {
        buildNote(part_, toHost(makePart({.notes = 1}, 5).notes.front()));
        note_ = KRT_PLX_MutableMidiPart_note(part_, 0);
    }

    void add(const char* name, void (*call)(benchmark::State&, const Targets&)) const
    {
        benchmark::RegisterBenchmark(name,
                                     [this, call](benchmark::State& state) { call(state, *this); });
    }

    [[nodiscard]] KRT_PLX_PartBase* part() const { return part_; }
    [[nodiscard]] KRT_PLX_NoteBase* note() const { return note_; }
    [[nodiscard]] Thing* thing() const { return thing_.get(); }

private:
    Manager manager_;
    KRT_PLX_PartBase* part_;
    KRT_PLX_NoteBase* note_ = nullptr;
    std::unique_ptr<Thing> thing_ = makeThing();
};

void callVirtual(benchmark::State& state, const Targets& targets)
{
    Thing* thing = targets.thing();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(thing);
        benchmark::DoNotOptimize(thing->value());
    }
}

void callBehindDynamicCast(benchmark::State& state, const Targets& targets)
{
    Thing* thing = targets.thing();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(thing);
        benchmark::DoNotOptimize(setValueOfThing(thing, 64));
    }
}

void callRootGetter(benchmark::State& state, const Targets& targets)
{
    KRT_PLX_NoteBase* note = targets.note();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(note);
        benchmark::DoNotOptimize(KRT_PLX_NoteBase_velocity(note));
    }
}

void callCheckedGetter(benchmark::State& state, const Targets& targets)
{
    KRT_PLX_NoteBase* note = targets.note();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(note);
        benchmark::DoNotOptimize(KRT_PLX_MutableNote_vibrato(note));
    }
}

void callCheckedNumber(benchmark::State& state, const Targets& targets)
{
    KRT_PLX_PartBase* part = targets.part();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(part);
        benchmark::DoNotOptimize(KRT_PLX_MidiPartBase_duration(part));
    }
}

void callSetter(benchmark::State& state, const Targets& targets)
{
    KRT_PLX_NoteBase* note = targets.note();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(note);
        benchmark::DoNotOptimize(KRT_PLX_MutableNote_setVelocity(note, 64));
    }
}

// Keeps the repetitions instead of printing them.
class Collector : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration) {
                samples_[run.run_name.function_name].push_back(run.GetAdjustedCPUTime() * 1e-9);
            }
        }
    }

    [[nodiscard]] const std::vector<double>& samples(const std::string& name) const
    {
        return samples_.at(name);
    }

private:
    std::map<std::string, std::vector<double>> samples_;
};

void runInterleaved(Collector& collector, std::size_t repetitions)
{
    std::vector<std::string> words{"bench", "--benchmark_enable_random_interleaving=true",
                                   "--benchmark_min_time=0.02",
                                   "--benchmark_repetitions=" + std::to_string(repetitions)};
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    benchmark::RunSpecifiedBenchmarks(&collector);
    benchmark::ClearRegisteredBenchmarks();
}

// Each of the library's calls as a multiple of the bare one.
void addRow(Run& run, const Collector& collector, const char* name,
            std::optional<Target> target = std::nullopt)
{
    Row row{"calls", name, Unit::seconds, summarize(collector.samples(name))};
    const Summary bare = summarize(collector.samples(bareCall));
    row.ratio = row.figure.median / bare.median;
    row.ratioSpread = Summary{row.figure.least / bare.median, row.figure.lower / bare.median,
                              row.figure.median / bare.median, row.figure.upper / bare.median,
                              row.figure.most / bare.median};
    row.target = target;
    run.table.add(row);
}

} // namespace

void callFunctions(Run& run)
{
    const Targets targets(run.data);
    targets.add(bareCall, callVirtual);
    targets.add("dynamic_cast and virtual call ÷ bare call", callBehindDynamicCast);
    targets.add("library: root getter ÷ bare call", callRootGetter);
    targets.add("library: checked-downcast getter ÷ bare call", callCheckedNumber);
    targets.add("library: checked-downcast getter of an object ÷ bare call", callCheckedGetter);
    targets.add("library: checked-downcast setter ÷ bare call", callSetter);
    Collector collector;
    runInterleaved(collector, run.rounds * 4);
    run.table.add({"calls", bareCall, Unit::seconds, summarize(collector.samples(bareCall))});
    addRow(run, collector, "dynamic_cast and virtual call ÷ bare call");
    addRow(run, collector, "library: root getter ÷ bare call");
    addRow(run, collector, "library: checked-downcast getter ÷ bare call", Target{3});
    addRow(run, collector, "library: checked-downcast getter of an object ÷ bare call", Target{3});
    addRow(run, collector, "library: checked-downcast setter ÷ bare call", Target{3});
}

} // namespace bench
