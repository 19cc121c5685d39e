#pragma once

#include "clip/filter_tags.h"
#include "format/rapidjson.h"

namespace Korvel::CANTORIS::PLX::format {

// Adds the tags of a filter object, and the clip's vendor name, whatever it is, as a vendor tag.
void readFilter(const Value& object, const String& vendorName, FilterTags& tags);

} // namespace Korvel::CANTORIS::PLX::format
