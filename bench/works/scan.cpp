#include <algorithm>
#include <memory>
#include <optional>
#include <string>

#include "alternatives/nlohmann.h"
#include "alternatives/plain.h"
#include "alternatives/simdjson.h"
#include "host/catalogue.h"
#include "limit/files.h"
#include "support/contest.h"
#include "works/works.h"

namespace bench {

namespace {

using Folders = std::vector<Path>;

// The first reading of a new manager. Making and destroying the manager are not counted.
Contestant library(const DataFolder& data, const Folders& folders, std::size_t clips)
{
    const auto manager = std::make_shared<std::optional<Manager>>();
    return {.name = "library",
            .run = [manager] { (*manager)->read(); },
            .before = [=] { manager->emplace(folders, data.emptyFolder()); },
            .after =
                [=] {
                    require((*manager)->systemClipCount() == clips, "a scan missed clips");
                    manager->reset();
                }};
}

Contestant limit(const Folders& folders, std::size_t clips)
{
    return {.name = "limit: bare walk",
            .run = [=] { require(walkBare(folders) > clips, "the bare walk read nothing"); }};
}

template <class CatalogueT, class Scan>
Contestant alternative(const char* name, Scan scan, const Folders& folders, std::size_t clips)
{
    const auto catalogue = std::make_shared<CatalogueT>();
    return {.name = name,
            .run = [=] { scan(folders, *catalogue); },
            .after =
                [=] {
                    require(catalogue->clips().size() == clips, "an alternative missed clips");
                    catalogue->clear();
                }};
}

void requireEqual(std::vector<Clip> left, std::vector<Clip> right, const char* what)
{
    const auto isBefore = [](const Clip& a, const Clip& b) { return a.id < b.id; };
    std::sort(left.begin(), left.end(), isBefore);
    std::sort(right.begin(), right.end(), isBefore);
    require(left == right, what);
}

std::vector<std::string> toUtf8(const std::vector<std::u16string>& texts)
{
    std::vector<std::string> result;
    for (const std::u16string& text : texts) {
        result.push_back(support::utf8(text));
    }
    return result;
}

Clip toUtf8(const plain::Clip& clip)
{
    return {.id = support::utf8(clip.id),
            .name = support::utf8(clip.name),
            .vendorName = support::utf8(clip.vendorName),
            .path = support::utf8(clip.path),
            .partType = clip.partType,
            .partKey = clip.partKey,
            .partTempo = clip.partTempo,
            .filter = {.singerGroups = toUtf8(clip.filter.singerGroups),
                       .vendors = toUtf8(clip.filter.vendors),
                       .languages = clip.filter.languages,
                       .singerIDs = toUtf8(clip.filter.singerIDs),
                       .types = toUtf8(clip.filter.types),
                       .genres = toUtf8(clip.filter.genres)}};
}

std::vector<Clip> scanPlain(const Folders& folders)
{
    plain::Catalogue catalogue;
    plain::scan(folders, catalogue);
    std::vector<Clip> clips;
    for (const plain::Clip& clip : catalogue.clips()) {
        clips.push_back(toUtf8(clip));
    }
    return clips;
}

// A faster answer to another question would be worth nothing.
void checkEqual(const DataFolder& data)
{
    const Folders folders{data.vendor(0)};
    Manager manager(folders, data.emptyFolder());
    manager.read();
    std::vector<Clip> clips;
    for (std::uint64_t i = 0; i < manager.systemClipCount(); ++i) {
        clips.push_back(clipOf(manager.systemClip(i)));
    }
    Catalogue nlohmann;
    with_nlohmann::scan(folders, nlohmann);
    requireEqual(clips, nlohmann.clips(), "nlohmann's catalogue differs from the library's");
    Catalogue simdjson;
    with_simdjson::scan(folders, simdjson);
    requireEqual(clips, simdjson.clips(), "simdjson's catalogue differs from the library's");
    requireEqual(clips, scanPlain(folders),
                 "the plain form's catalogue differs from the library's");
}

Contestant withTarget(Contestant contestant, std::optional<Target> target)
{
    contestant.target = target;
    return contestant;
}

// About the same time for each size.
std::size_t roundsFor(const Run& run, std::size_t clips)
{
    return clips <= 1000 ? run.rounds * 3 : clips <= 10000 ? run.rounds : (run.rounds + 1) / 2;
}

void scan(Run& run, std::size_t clips)
{
    const bool isTheOne = clips == 10000;
    const auto target = [=](Target value) {
        return isTheOne ? std::optional(value) : std::nullopt;
    };
    const Folders folders = run.data.vendorsOf(clips);
    Contest contest("scan, " + std::to_string(clips) + " clips", roundsFor(run, clips));
    contest.add(library(run.data, folders, clips));
    contest.add(withTarget(limit(folders, clips), target({1.8})));
    contest.add(alternative<plain::Catalogue>("plain form", plain::scan, folders, clips));
    contest.add(withTarget(
        alternative<Catalogue>("filesystem + nlohmann", with_nlohmann::scan, folders, clips),
        target({1.0, true})));
    contest.add(withTarget(
        alternative<Catalogue>("filesystem + simdjson", with_simdjson::scan, folders, clips),
        target({0.8})));
    contest.run(run.clock, run.table);
}

Contestant perClip(const Run& run, std::size_t clips)
{
    Contestant contestant = library(run.data, run.data.vendorsOf(clips), clips);
    contestant.name = "library, " + std::to_string(clips) + " clips";
    contestant.things = static_cast<double>(clips);
    return contestant;
}

} // namespace

void scanCatalogues(Run& run)
{
    checkEqual(run.data);
    const Size& size = run.data.size();
    for (const std::size_t clips : size.scans) {
        scan(run, clips);
    }
    Contest contest("scan, cost per clip", roundsFor(run, size.scans.back()));
    contest.add(perClip(run, size.scans.back()));
    contest.add(withTarget(perClip(run, size.scanToCompareWith), Target{1.25}));
    contest.run(run.clock, run.table);
}

void rescanCatalogue(Run& run)
{
    const std::size_t clips = run.data.size().scanForMemory;
    const Folders folders = run.data.vendorsOf(clips);
    const auto manager = std::make_shared<Manager>(folders, run.data.emptyFolder());
    const auto nlohmann = std::make_shared<Catalogue>();
    const auto simdjson = std::make_shared<Catalogue>();
    Contest contest("scan again, " + std::to_string(clips) + " clips", run.rounds);
    contest.add({.name = "library", .run = [=] { manager->read(); }});
    contest.add(limit(folders, clips));
    contest.add({.name = "filesystem + nlohmann", .run = [=] {
                     nlohmann->clear();
                     with_nlohmann::scan(folders, *nlohmann);
                 }});
    contest.add({.name = "filesystem + simdjson", .run = [=] {
                     simdjson->clear();
                     with_simdjson::scan(folders, *simdjson);
                 }});
    contest.run(run.clock, run.table);
}

} // namespace bench
