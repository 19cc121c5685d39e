// Two texts and what differs between them, line by line.
#pragma once

#include <string>
#include <string_view>

namespace plxclip::fix {

// In the unified form, with three lines around each difference. Of long lines only the part around the
// difference is shown. Empty if the texts are the same.
std::string differenceOf(std::string_view before, std::string_view after, std::string_view name);

} // namespace plxclip::fix
