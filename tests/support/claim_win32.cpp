#ifdef _WIN32

#    include "support/claim.h"

namespace support {

// Under Wine the folder for temporary files belongs to the build.
Claim::Claim(const std::filesystem::path&) {}

Claim::~Claim() = default;

void removeUnclaimed(const std::filesystem::path&) {}

} // namespace support

#endif
