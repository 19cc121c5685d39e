// Runs the benchmark: bench FOLDER [--quick] [--only TEXT] [--rounds N] [--wall] [--list]
//
// FOLDER holds the data, which is generated when it is not there. The table goes to the standard
// output, what is being done to standard error.
#include <array>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "data/generate.h"
#include "host/note_fields.h"
#include "support/machine.h"
#include "works/works.h"

namespace {

using bench::Run;

struct Work {
    const char* name;
    void (*run)(Run&);
};

constexpr std::array works{Work{"scan", bench::scanCatalogues},
                           Work{"scan again", bench::rescanCatalogue},
                           Work{"system calls", bench::countSystemCalls},
                           Work{"readPart ordinary", bench::readOrdinaryParts},
                           Work{"readPart big", bench::readBigPart},
                           Work{"walk", bench::walkPart},
                           Work{"build", bench::buildNotes},
                           Work{"save", bench::saveBigClip},
                           Work{"disk", bench::waitForDisk},
                           Work{"edit", bench::editProperties},
                           Work{"remove", bench::removeClips},
                           Work{"calls", bench::callFunctions},
                           Work{"memory catalogue", bench::weighCatalogue},
                           Work{"memory parts", bench::weighParts},
                           Work{"growth reading", bench::growReading},
                           Work{"growth building", bench::growBuilding}};

struct Options {
    bench::Path folder;
    bool isQuick = false;
    bool onWallClock = false;
    bool listsOnly = false;
    std::string only;
    std::size_t rounds = 0;
};

std::optional<Options> parse(int count, char** arguments)
{
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view word = arguments[i];
        const bool hasValue = i + 1 < count;
        if (word == "--quick") {
            options.isQuick = true;
        } else if (word == "--wall") {
            options.onWallClock = true;
        } else if (word == "--list") {
            options.listsOnly = true;
        } else if (word == "--only" && hasValue) {
            options.only = arguments[++i];
        } else if (word == "--rounds" && hasValue) {
            options.rounds = std::stoul(arguments[++i]);
        } else if (word.starts_with("-") || !options.folder.empty()) {
            return std::nullopt;
        } else {
            options.folder = word;
        }
    }
    return options.folder.empty() && !options.listsOnly ? std::nullopt : std::optional(options);
}

void list()
{
    for (const Work& work : works) {
        std::cout << work.name << '\n';
    }
}

void runWorks(const Options& options)
{
    const bench::Size size = options.isQuick ? bench::quickSize() : bench::fullSize();
    const std::size_t rounds = options.isQuick ? 3 : 9;
    const bench::Path folder = options.folder / (options.isQuick ? "quick" : "full");
    Run run{.data = bench::DataFolder(std::filesystem::absolute(folder), size),
            .clock = options.onWallClock ? bench::Clock::wall : bench::Clock::processor,
            .rounds = options.rounds == 0 ? rounds : options.rounds,
            .table = bench::Table(std::cout)};
    bench::requireListedFacts();
    std::cerr << "generating\n";
    bench::generate(run.data);
    std::filesystem::remove_all(run.data.scratch());
    std::cout << bench::describeMachine() << "\n\n";
    for (const Work& work : works) {
        if (std::string_view(work.name).find(options.only) != std::string_view::npos) {
            work.run(run);
        }
    }
    std::cout << '\n' << run.table.missedTargets() << " targets missed\n";
}

} // namespace

int main(int count, char** arguments)
{
    try {
        const std::optional<Options> options = parse(count, arguments);
        if (!options) {
            std::cerr << "bench FOLDER [--quick] [--only TEXT] [--rounds N] [--wall] [--list]\n";
            return 2;
        }
        options->listsOnly ? list() : runWorks(*options);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "bench: " << error.what() << '\n';
        return 1;
    }
}
