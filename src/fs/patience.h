#pragma once

#include <chrono>

namespace Korvel::CANTORIS::PLX::fs {

// How long one call of a host may wait for other programs, all its waits together. Usually they
// hold a file only for the moment of a change; if one holds it longer, the call gives up.
inline constexpr std::chrono::milliseconds forOthers{2000};

class Patience {
public:
    explicit Patience(std::chrono::milliseconds total = forOthers) : left_(total) {}

    // Sleeps a little, longer each time. False, without sleeping, when the patience is used up.
    bool wait();

    // Starts with short sleeps again, for the next file.
    void calm() { next_ = shortest; }

private:
    static constexpr std::chrono::milliseconds shortest{1};
    static constexpr std::chrono::milliseconds longest{32};

    std::chrono::milliseconds left_;
    std::chrono::milliseconds next_ = shortest;
};

// Stops the calling thread; each platform has its own.
void sleepFor(std::chrono::milliseconds time);

} // namespace Korvel::CANTORIS::PLX::fs
