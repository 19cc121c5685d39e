// The text of the two documents of a clip.
#pragma once

#include <string>
#include <string_view>

#include "model/catalogue.h"
#include "model/part.h"

namespace bench {

std::string propertyDocument(const Clip& clip);

// The data document of a part sung by a voice bank.
std::string dataDocument(std::string_view id, std::string_view name, const Part& part);

} // namespace bench
