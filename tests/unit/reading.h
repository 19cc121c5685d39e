// Reading files, for tests that are not about waiting for other programs.
#pragma once

#include <string>

#include "fs/fs.h"

inline Korvel::CANTORIS::PLX::fs::ReadResult readWith(
    const Korvel::CANTORIS::PLX::fs::ReadOptions& options,
    const Korvel::CANTORIS::PLX::String& path, std::string& content)
{
    Korvel::CANTORIS::PLX::fs::Patience patience;
    return Korvel::CANTORIS::PLX::fs::readFile(path, content, options, patience);
}

// Whether the file could be read.
inline bool readWhole(const Korvel::CANTORIS::PLX::String& path, std::string& content)
{
    return readWith({}, path, content) == Korvel::CANTORIS::PLX::fs::ReadResult::read;
}
