#pragma once

#include "clip/filter_tags.h"
#include "reference/tree.h"

namespace Korvel::CANTORIS::PLX::reference {

// Adds the tags of a filter object, and the clip's vendor name, whatever it is, as a vendor tag.
void readFilter(const Value& object, const String& vendorName, FilterTags& tags);

} // namespace Korvel::CANTORIS::PLX::reference
