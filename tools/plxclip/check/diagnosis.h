// What the documents of one clip file give, and what is wrong with them, without asking the host's library.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "check/finding.h"
#include "clip/clip_properties.h"
#include "model/part.h"

namespace plxclip::check {

namespace own = Korvel::CANTORIS::PLX;

struct Diagnosis {
    bool isListable = false;
    own::ClipProperties properties;      // of a listable clip
    Finding id;                          // where its ID stands, and no more than that
    std::unique_ptr<own::PartBase> part; // null when it cannot be read
    std::vector<Finding> findings;
};

Diagnosis diagnose(const std::filesystem::path& clipFile);

} // namespace plxclip::check
