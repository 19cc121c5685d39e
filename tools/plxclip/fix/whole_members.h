// What can be saved of a document that is broken.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace plxclip::fix {

using Members = std::vector<std::pair<std::string, std::string>>; // keys, and their values as JSON

bool has(const Members& members, std::string_view key);

// The members of the outermost object of a broken text, up to the first one that is not whole.
Members wholeMembersOf(const std::string& text);

} // namespace plxclip::fix
