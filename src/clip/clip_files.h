// Where a clip's files are, in its folder and relative to each other.
#pragma once

#include "fs/fs.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

inline constexpr StringView clipExtension = ".kxclip"_t;

inline constexpr StringView propertyFileName = "property.json"_t;

// The property document beside a clip file.
inline String propertyPath(StringView clipPath)
{
    return fs::join(fs::parentPath(clipPath), propertyFileName);
}

// The sub-folder of a clip's folder that holds the wave file of an audio part.
inline constexpr StringView audioFolderName = "audio"_t;

inline String wavePath(StringView clipDirectory, StringView fileName)
{
    return fs::join(fs::join(clipDirectory, audioFolderName), fileName);
}

} // namespace Korvel::CANTORIS::PLX
