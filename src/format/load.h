// Clip files into clips: the way into this folder for those who read.
#pragma once

#include <memory>
#include <string>

#include "format/read.h"
#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::format {

// Reads files one after the other and keeps its memory from one to the next. A file that is missing,
// unreadable, no document, or lacks what the schema requires gives nothing; what an element lacks
// drops that element alone. The only exception is that of memory that runs out.
class Loader {
public:
    Loader();
    ~Loader();

    // The catalogue's document. True when `properties`, fresh ones, were filled.
    bool loadProperties(const fs::Path& path, ClipProperties& properties,
                        fs::Kind kind = fs::Kind::unknown);

    // The same, of a document that has been read already; its bytes are used up.
    bool takeProperties(std::string& bytes, ClipProperties& properties);

    // The clip's data document, whole. Its part belongs to `clip`.
    bool loadClip(const fs::Path& path, ClipBase* clip, LoadedClip& loaded);

    // The part of the data document and nothing else; null when there is none to be had.
    std::unique_ptr<PartBase> loadPart(const fs::Path& path, ClipBase* clip);

private:
    class Source;

    std::unique_ptr<Source> source_;
};

} // namespace Korvel::CANTORIS::PLX::format
