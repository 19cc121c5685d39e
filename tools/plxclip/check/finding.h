// What can be said about a clip file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "check/text.h"

namespace plxclip::check {

// What follows from a finding.
enum class Effect : std::uint8_t {
    refused,    // the document, or the part in it, gives nothing
    dropped,    // an element is left out
    ignored,    // a value is not taken
    passedOver, // the clip file is not listed though its documents may be good
    noted       // nothing is lost, but it may be a mistake
};

enum class Reason : std::uint8_t {
    unreadable,
    tooLarge,
    missingDocument,
    encoding,
    syntax,
    missingKey,
    wrongType,
    outOfRange,
    wrongValue,
    repeated,
    notLookedAt,
    unknownKey,
    waveFile,
    duplicate,
    extension,
    fileName,
    otherType,
    beyondEnd,
    noLanguage,
    overlap,
    unexplained
};

std::string_view nameOf(Effect effect);
std::string_view nameOf(Reason reason);

struct Finding {
    Effect effect;
    Reason reason;
    std::string
        document; // the file's name within the clip's folder; empty for the clip file itself
    std::string pointer;
    Position position;
    std::string message;
};

} // namespace plxclip::check
