// The works that the benchmark measures. Each adds its rows to the table of the run.
#pragma once

#include <cstddef>

#include "data/folder.h"
#include "support/clock.h"
#include "support/table.h"

namespace bench {

struct Run {
    DataFolder data;
    Clock clock = Clock::processor;
    std::size_t rounds = 1; // of the works of middling length; shorter ones take more
    Table table;
};

void scanCatalogues(Run& run);
void rescanCatalogue(Run& run);
void readOrdinaryParts(Run& run);
void readBigPart(Run& run);
void walkPart(Run& run);
void buildNotes(Run& run);
void saveBigClip(Run& run);
void waitForDisk(Run& run);
void editProperties(Run& run);
void removeClips(Run& run);
void callFunctions(Run& run);
void weighCatalogue(Run& run);
void weighParts(Run& run);
void countSystemCalls(Run& run);
void growReading(Run& run);
void growBuilding(Run& run);

} // namespace bench
