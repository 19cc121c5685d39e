// Whether the program waits for its disk: to tell what the waiting costs, and whose cost it is.
#pragma once

namespace bench {

// While this lives, waiting for the disk does nothing, whoever asks for it.
class WithoutDiskWaits {
public:
    WithoutDiskWaits();
    WithoutDiskWaits(const WithoutDiskWaits&) = delete;
    WithoutDiskWaits& operator=(const WithoutDiskWaits&) = delete;
    ~WithoutDiskWaits();
};

} // namespace bench
