// What a host developer would write with std::filesystem and nlohmann-json.
#pragma once

#include "data/folder.h"
#include "model/catalogue.h"
#include "model/part.h"

namespace bench::with_nlohmann {

void scan(const std::vector<Path>& folders, Catalogue& catalogue);

Part readPart(const Path& file);

// Writes a property document. Whether all of it was written.
bool saveProperties(const Path& file, const Clip& clip);

} // namespace bench::with_nlohmann
