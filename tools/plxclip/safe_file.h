// Files that are written as a whole.
#pragma once

#include <string>
#include <string_view>

namespace plxclip {

// Writes a file beside the named one and then puts it in its place, so that there is always the old
// file or the new one, never a half. Throws a Failure when that cannot be done.
void writeWholeFile(const std::string& file, std::string_view content);

} // namespace plxclip
