// The page: one HTML file that needs nothing else but the wave files.
#pragma once

#include <string>
#include <string_view>

#include "gallery/clip_data.h"

namespace plxclip::gallery {

// The sources of the page, made from the files beside this one.
extern const std::string_view pageSource;
extern const std::string_view styleSource;
extern const std::string_view scriptSource;

std::string pageOf(const Contents& contents);

} // namespace plxclip::gallery
