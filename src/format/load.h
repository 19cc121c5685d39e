// Reads clip files: the interface of this folder for code that reads.
#pragma once

#include <memory>
#include <string>

#include "format/read.h"
#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::format {

// Reads files one after the other and reuses its memory. A file that is missing, unreadable, not a
// document, or lacks a required key gives nothing; if an element lacks one, only that element is
// dropped. Throws only when memory runs out.
class Loader {
public:
    Loader();
    ~Loader();

    // Reads the property document. True when `properties`, which must be new, were filled.
    bool loadProperties(const fs::Path& path, ClipProperties& properties,
                        fs::Kind kind = fs::Kind::unknown);

    // The same for a document that has been read already; its bytes are overwritten.
    bool takeProperties(std::string& bytes, ClipProperties& properties);

    // Reads the clip's whole data document. Its part belongs to `clip`.
    bool loadClip(const fs::Path& path, ClipBase* clip, LoadedClip& loaded);

    // Reads only the part of the data document; null when there is no valid one.
    std::unique_ptr<PartBase> loadPart(const fs::Path& path, ClipBase* clip);

private:
    class Source;

    std::unique_ptr<Source> source_;
};

} // namespace Korvel::CANTORIS::PLX::format
