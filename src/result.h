// The codes by which creating a manager, reading its clips and saving a clip tell how they went. One
// numbering serves all three.
#pragma once

#include <cstdint>

namespace Korvel::CANTORIS::PLX {

enum class Result : std::uint32_t {
    success = 0,
    nullArgument = 2,
    emptyAppID = 6,
    noDirectory = 7, // a directory that must exist is missing
    directoryNotCreated = 8,
    noUserClipDirectory = 9,
    emptyName = 10,
    unknownClip = 12,
    noUsablePart = 13,
    noWaveFile = 14,
    waveFileNotCopied = 15,
    documentNotOpened = 16,
    documentNotWritten = 17,
    noVoiceBank = 18,
    badLanguage = 19,
    noAiVoiceBank = 20,
    noAiLanguage = 21,
    badAiLanguage = 22,
};

// What reading a null manager's clips gives, and reading when memory runs out.
inline constexpr std::uint32_t noManagerCode = 23;

constexpr std::uint32_t code(Result result)
{
    return static_cast<std::uint32_t>(result);
}

} // namespace Korvel::CANTORIS::PLX
