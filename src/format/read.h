// Documents into clips.
#pragma once

#include <memory>
#include <string>

#include "clip/clip_base.h"
#include "clip/clip_properties.h"
#include "format/losses.h"
#include "fs/fs.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX::format {

// A data document read whole.
struct LoadedClip {
    ClipProperties properties;
    std::unique_ptr<PartBase> part;
};

// Reads documents one after the other and keeps some memory from one to the next. The bytes are those
// of a file, in any Unicode encoding, and are used up. What is no document, or lacks what it must have,
// gives nothing; what an element lacks drops that element alone, and the listener, if there is one, is
// told. The only exception is that of memory that runs out.
class DocumentReader {
public:
    DocumentReader();
    ~DocumentReader();

    // A property document. True when `properties`, fresh ones, were filled.
    bool readProperties(std::string& bytes, ClipProperties& properties,
                        Listener* listener = nullptr);

    // A data document, whole. The part will belong to the clip; its wave file is looked for below the
    // clip's folder.
    bool readClip(std::string& bytes, const fs::Path& directory, ClipBase* clip, LoadedClip& loaded,
                  Listener* listener = nullptr);

    // The part of a data document and nothing else; null when there is none to be had.
    std::unique_ptr<PartBase> readPart(std::string& bytes, const fs::Path& directory,
                                       ClipBase* clip, Listener* listener = nullptr);

private:
    class State;

    std::unique_ptr<State> state_;
};

} // namespace Korvel::CANTORIS::PLX::format
