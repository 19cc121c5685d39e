#pragma once

#include "fs/fs.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX::format {

// The sub-folder of a clip's folder that holds the wave file of its audio part.
inline String audioFolder(StringView clipDirectory)
{
    return fs::join(clipDirectory, "audio"_t);
}

inline String wavePath(StringView clipDirectory, StringView fileName)
{
    return fs::join(audioFolder(clipDirectory), fileName);
}

} // namespace Korvel::CANTORIS::PLX::format
