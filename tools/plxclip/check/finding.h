// What can be said about a clip file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "document/position.h"

namespace plxclip::check {

// What follows from a finding. The names are those in the JSON.
using Effect = std::string_view;

namespace effect {
inline constexpr Effect refused = "refused"; // the document, or the part in it, gives nothing
inline constexpr Effect dropped = "dropped"; // an element is left out
inline constexpr Effect ignored = "ignored"; // a value is not taken
inline constexpr Effect passedOver = "passed-over"; // not listed, whatever the documents hold
inline constexpr Effect noted = "noted";            // nothing is lost, but it may be a mistake
} // namespace effect

using Reason = std::string_view;

namespace reason {
inline constexpr Reason unreadable = "unreadable";
inline constexpr Reason tooLarge = "too-large";
inline constexpr Reason missingDocument = "missing-document";
inline constexpr Reason encoding = "encoding";
inline constexpr Reason syntax = "syntax";
inline constexpr Reason missingKey = "missing-key";
inline constexpr Reason wrongType = "wrong-type";
inline constexpr Reason outOfRange = "out-of-range";
inline constexpr Reason wrongValue = "wrong-value";
inline constexpr Reason repeated = "repeated";
inline constexpr Reason notLookedAt = "not-looked-at";
inline constexpr Reason unknownKey = "unknown-key";
inline constexpr Reason waveFile = "wave-file";
inline constexpr Reason duplicate = "duplicate";
inline constexpr Reason extension = "extension";
inline constexpr Reason fileName = "file-name";
inline constexpr Reason otherType = "other-type";
inline constexpr Reason beyondEnd = "beyond-end";
inline constexpr Reason noLanguage = "no-language";
inline constexpr Reason overlap = "overlap";
inline constexpr Reason unexplained = "unexplained";
} // namespace reason

using document::Position;

struct Finding {
    static constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

    Effect effect = {};
    Reason reason = {};
    std::string message = {};
    std::size_t place = nowhere; // in the document's text; nowhere if it is about the file
    std::string pointer = {};
    std::string document =
        {};                 // the file's name in the clip's folder; empty for the clip file itself
    Position position = {}; // that of the place, once all that was found in the document is known
};

} // namespace plxclip::check
