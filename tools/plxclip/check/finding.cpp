#include "check/finding.h"

#include <array>
#include <cstddef>

namespace plxclip::check {

namespace {

constexpr std::array<std::string_view, 5> effectNames = {"refused", "dropped", "ignored",
                                                         "passed-over", "noted"};

constexpr std::array<std::string_view, 21> reasonNames = {
    "unreadable",  "too-large",    "missing-document", "encoding",  "syntax",        "missing-key",
    "wrong-type",  "out-of-range", "wrong-value",      "repeated",  "not-looked-at", "unknown-key",
    "wave-file",   "duplicate",    "extension",        "file-name", "other-type",    "beyond-end",
    "no-language", "overlap",      "unexplained"};

} // namespace

std::string_view nameOf(Effect effect)
{
    return effectNames[static_cast<std::size_t>(effect)];
}

std::string_view nameOf(Reason reason)
{
    return reasonNames[static_cast<std::size_t>(reason)];
}

} // namespace plxclip::check
