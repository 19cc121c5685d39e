// The library's reader in its plain form: RapidJSON's stream that detects the encoding, reading 256
// bytes at a time, into a UTF-16 document; each key looked up, one object a note, duplicates found
// by a hash set.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/folder.h"
#include "model/catalogue.h"
#include "model/part.h"

namespace bench::plain {

using Catalogue = BasicCatalogue<std::u16string>;
using Clip = BasicClip<std::u16string>;
using Note = BasicNote<std::u16string>;

// Its notes are objects of their own; the list of values in it stays empty.
struct Part : BasicPart<std::u16string> {
    std::vector<std::unique_ptr<Note>> noteObjects;
};

void scan(const std::vector<Path>& folders, Catalogue& catalogue);

Part readPart(const Path& file);

// Only parses. Whether that succeeded.
bool parse(const Path& file);

} // namespace bench::plain
