// Reads documents as clips.
#pragma once

#include <memory>
#include <string>

#include "clip/clip_base.h"
#include "clip/clip_properties.h"
#include "format/losses.h"
#include "fs/fs.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX::format {

// A whole data document that was read.
struct LoadedClip {
    ClipProperties properties;
    std::unique_ptr<PartBase> part;
};

// Reads documents one after the other and reuses some memory. The bytes are those of a file, in any
// Unicode encoding, and are overwritten. What is not a document, or lacks a required key, gives
// nothing; if an element lacks one, only that element is dropped, and the listener, if there is
// one, is told. Throws only when memory runs out.
class DocumentReader {
public:
    DocumentReader();
    ~DocumentReader();

    // Reads a property document. True when `properties`, which must be new, were filled.
    bool readProperties(std::string& bytes, ClipProperties& properties,
                        Listener* listener = nullptr);

    // Reads a whole data document. The part will belong to the clip; its wave file is looked for
    // below the clip's folder.
    bool readClip(std::string& bytes, const fs::Path& directory, ClipBase* clip, LoadedClip& loaded,
                  Listener* listener = nullptr);

    // Reads only the part of a data document; null when there is no valid one.
    std::unique_ptr<PartBase> readPart(std::string& bytes, const fs::Path& directory,
                                       ClipBase* clip, Listener* listener = nullptr);

private:
    class State;

    std::unique_ptr<State> state_;
};

} // namespace Korvel::CANTORIS::PLX::format
