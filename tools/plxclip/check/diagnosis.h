// What the documents of one clip file give, and what is wrong with them, without asking the library.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "check/contents.h"
#include "check/finding.h"

namespace plxclip::check {

inline constexpr std::string_view propertyDocument = "property.json";

struct Diagnosis {
    bool isListable = false;
    std::string id; // of a listable clip, and where it stands
    std::string idDocument;
    std::string idPointer;
    Position idPosition;
    std::size_t tags = 0;
    std::optional<Contents> contents; // none when the part cannot be read
    std::vector<Finding> findings;
};

Diagnosis diagnose(const std::filesystem::path& clipFile);

} // namespace plxclip::check
