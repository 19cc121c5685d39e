// Whether a value is what its key wants.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "check/document.h"
#include "check/finding.h"
#include "check/keys.h"

namespace plxclip::check {

struct Problem {
    Reason reason;
    std::string text; // goes on after the value: "is a string, but must be an integer"
};

// None when the library takes the value.
std::optional<Problem> problemOf(const Node& value, const Key& key);

// Beyond this a number is no float.
inline constexpr double largestFloat = 3.4028234e38;

std::string_view describe(Kind kind);

// The controller of that name; null when there is none.
const keys::Controller* controllerNamed(std::string_view name);

} // namespace plxclip::check
