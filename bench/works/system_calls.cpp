#include <iostream>
#include <string>

#include "alternatives/nlohmann.h"
#include "alternatives/plain.h"
#include "alternatives/simdjson.h"
#include "host/catalogue.h"
#include "limit/files.h"
#include "support/system_calls.h"
#include "works/works.h"

namespace bench {

namespace {

constexpr std::size_t clips = 1000;

// Apart from what counting itself costs.
double callsPerClip(const std::function<void()>& work)
{
    const auto calls = countSystemCalls(work);
    const auto none = countSystemCalls([] {});
    return calls && none ? static_cast<double>(calls->others - none->others) / clips : 0;
}

void addRow(Run& run, const std::string& contestant, double calls,
            std::optional<Target> target = std::nullopt)
{
    Row row{"system calls per clip of a scan", contestant, Unit::count,
            Summary{calls, calls, calls, calls, calls}};
    row.target = target;
    run.table.add(row);
}

} // namespace

void countSystemCalls(Run& run)
{
    const std::vector<Path> folders = run.data.vendorsOf(clips);
    Manager manager(folders, run.data.emptyFolder());
    const double library = callsPerClip([&] { manager.read(); });
    if (library == 0) {
        std::cerr << "this system does not let system calls be counted\n";
        return;
    }
    const double bare = callsPerClip([&] { walkBare(folders); });
    addRow(run, "library", library);
    addRow(run, "limit: bare walk", bare);
    addRow(run, "library above the bare walk", library - bare, Target{1});
    addRow(run, "plain form", callsPerClip([&] {
               plain::Catalogue catalogue;
               plain::scan(folders, catalogue);
           }));
    addRow(run, "filesystem + nlohmann", callsPerClip([&] {
               Catalogue catalogue;
               with_nlohmann::scan(folders, catalogue);
           }));
    addRow(run, "filesystem + simdjson", callsPerClip([&] {
               Catalogue catalogue;
               with_simdjson::scan(folders, catalogue);
           }));
}

} // namespace bench
