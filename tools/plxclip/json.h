// Clips as JSON, for other programs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "search.h"
#include "snapshot.h"

namespace plxclip {

// {"total": number of all clips before filtering, "clips": [...]}
std::string listJson(const std::vector<Properties>& clips, std::size_t total);

// {"tag": "genre", "counts": {"Folk": 3}}
std::string countsJson(std::string_view tag, const std::vector<TagCount>& counts);

// A clip's properties and, if it was read, its part.
std::string clipJson(const Properties& clip, const Part& part);

} // namespace plxclip
