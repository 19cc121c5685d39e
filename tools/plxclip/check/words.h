// What was lost, in words.
#pragma once

#include "check/finding.h"
#include "format/losses.h"

namespace plxclip::check {

namespace own = Korvel::CANTORIS::PLX;
namespace format = own::format;

// The text is that of the document, in UTF-8.
Finding findingOf(const format::Loss& loss, std::string_view text);
Finding findingOf(const format::Defect& defect, std::string_view text);

// The key of an object that was probably meant by one that the object does not have; empty if there is
// none.
std::string_view nearestKey(const format::keys::Shape& shape, std::string_view key);

} // namespace plxclip::check
