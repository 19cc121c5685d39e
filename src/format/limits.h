// How large documents may be, when they are read and when they are written.
#pragma once

#include <cstdint>

#include "korvel/plx/common.h"

namespace Korvel::CANTORIS::PLX::format {

inline constexpr std::uint64_t propertyDocumentLimit = KRT_PLX_PROPERTY_DOCUMENT_LIMIT;
inline constexpr std::uint64_t dataDocumentLimit = KRT_PLX_DATA_DOCUMENT_LIMIT;

} // namespace Korvel::CANTORIS::PLX::format
