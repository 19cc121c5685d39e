#include "fs/patience.h"

#include <algorithm>

namespace Korvel::CANTORIS::PLX::fs {

bool Patience::wait()
{
    const auto time = std::min(next_, left_);
    if (time.count() == 0) {
        return false;
    }
    left_ -= time;
    next_ = std::min(2 * next_, longest);
    sleepFor(time);
    return true;
}

} // namespace Korvel::CANTORIS::PLX::fs
