// The reader that makes a tree of a document first: what the reader of the library is compared with.
#pragma once

#include <memory>
#include <string>

#include "clip/clip_base.h"
#include "clip/clip_properties.h"
#include "format/load.h"
#include "fs/fs.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX::reference {

using format::LoadedClip;

// Each takes the bytes of a document, which it uses up.
bool readProperties(std::string& bytes, ClipProperties& properties);
bool readClip(std::string& bytes, const fs::Path& directory, ClipBase* clip, LoadedClip& loaded);
std::unique_ptr<PartBase> readPart(std::string& bytes, const fs::Path& directory, ClipBase* clip);

} // namespace Korvel::CANTORIS::PLX::reference
